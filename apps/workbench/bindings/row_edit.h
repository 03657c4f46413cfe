#pragma once

#include <QLineEdit>
#include <functional>

namespace quillon {

/// The line in which a row's value is typed. Return and Tab end it, Escape gives up, Up and Down step where the row
/// has a spin control. What ending means is the list's affair.
class RowEdit : public QLineEdit {
public:
    enum class END { RETURN, TAB, BACKTAB, FOCUS_LOST, ESCAPE };

    RowEdit(QWidget* parent, const QString& text, bool hidden);

    std::function<void(END end)> onEnd;
    /// Null where the row has no spin control.
    std::function<void(int step)> onStep;

    /// Shows that the text was no value of the row.
    void Refuse();
    const QString& StartText() const { return start; }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString start;
};

/// Takes the values of all edits that are open below a window, as Return would; one that is no value stays as it is.
/// Before the window closes.
void TakeOpenEdits(const QWidget& window);

}  // namespace quillon
