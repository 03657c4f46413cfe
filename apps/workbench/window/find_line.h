#pragma once

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <functional>

#include "host/find.h"

namespace quillon {

/// A line over the chart to find names, KPs and positions by. Return goes on to the next place found, with Shift to the
/// one before; Esc puts the line away. The search runs while one types and never holds the window.
class FindLine : public QFrame {
public:
    FindLine(const JobRecord& job, QWidget& chart);

    /// Shows the line, its text chosen to be typed over.
    void Open();
    void Close();
    /// What was found may not be there any more.
    void OnJobChanged();

    QLineEdit& Edit() { return *edit; }
    QString State() const { return state->text(); }
    /// The place that Return came to.
    std::function<void(const FoundPlace& place)> onShow;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Ask();
    void LookOn();
    void Go(int step);
    void ShowState();
    void Place();

    QWidget& over;
    Finder finder;
    QLineEdit* edit;
    QLabel* state;
    QTimer goOn;
    int shown = -1;   ///< place among those found; -1 before the first Return
    int waiting = 0;  ///< a step that waits for the search to come upon something
};

}  // namespace quillon
