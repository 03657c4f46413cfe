#pragma once

#include <QToolBar>
#include <functional>
#include <map>
#include <vector>

class QVBoxLayout;

namespace quillon {

/// Notices that stand until what they are about is over: lines above the status line over the width of the window, each
/// with what can be done about it. Without a notice there is no strip.
class NoticeStrip : public QToolBar {
public:
    enum class TOPIC { SAVE_FAILED, DATA_LOST, CHANGED_ON_DISK, READ_ONLY };
    struct Offer {
        QString text;  ///< of the button
        std::function<void()> act;
    };
    struct Notice {
        QString text;
        QString details;  ///< for the tip, line by line
        bool isGrave = false;
        std::vector<Offer> offers = {};
    };

    explicit NoticeStrip(QWidget* parent);

    /// One notice a topic; the newer takes the place of the older.
    void Show(TOPIC topic, const Notice& notice);
    void Take(TOPIC topic);
    /// After the window's layout was restored, which knows nothing of what is to be said now.
    void ShowOrHide() { setVisible(!rows.empty()); }
    bool Has(TOPIC topic) const { return rows.count(topic) != 0; }
    /// The text of a notice; empty without one.
    QString TextOf(TOPIC topic) const;
    /// As pressing a button of a notice; false if there is no such button.
    bool Press(TOPIC topic, const QString& offer);

protected:
    void changeEvent(QEvent* event) override;

private:
    class Row;

    QWidget* content;
    QVBoxLayout* column;
    std::map<TOPIC, Row*> rows;
};

}  // namespace quillon
