#pragma once

#include <QFrame>
#include <functional>

class QLabel;
class QPushButton;

namespace quillon {

/// What stands in the middle of a chart that has nothing to draw: why, and what to do about it.
class EmptyHint : public QFrame {
public:
    enum class STATE {
        NONE,      ///< there is something to draw; the hint hides
        NO_FILES,  ///< the job has no files
        HIDDEN     ///< all of them are hidden or of no use
    };
    struct Offers {
        std::function<void()> add;
        std::function<void()> sample;
        std::function<void()> keyboard;
    };

    EmptyHint(QWidget& chart, Offers offers);

    void SetState(STATE state);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Place();

    QWidget& chart;
    QLabel* title;
    QLabel* text;
    QPushButton* sample;
};

}  // namespace quillon
