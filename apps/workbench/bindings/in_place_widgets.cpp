#include "bindings/in_place_widgets.h"

#include <QComboBox>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QSignalBlocker>

#include "bindings/control_binding.h"
#include "bindings/list_image.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

/// What the widgets of all editors can do.
class InPlaceWidget {
public:
    virtual ~InPlaceWidget() = default;
    virtual void Update() = 0;
};

/// Shows text and selection; the editor decides what each key does.
class TextWidget : public QLineEdit, public InPlaceWidget {
public:
    TextWidget(CInPlaceText& edited, QWidget* parent) : QLineEdit(parent), editor(edited) {
        setAttribute(Qt::WA_InputMethodEnabled, false);
        setContextMenuPolicy(Qt::NoContextMenu);
        setDragEnabled(false);
        setFrame(false);
        setStyleSheet(QStringLiteral("QLineEdit { border: 1px solid palette(highlight); padding: 0 2px; }"));
        Update();
    }
    void Update() override {
        const tagEditText& shown = editor.GetEdit();
        setText(ToQString(shown.text));
        if (shown.HasSelection()) {
            setSelection(static_cast<int>(shown.from), static_cast<int>(shown.to - shown.from));
        } else {
            setCursorPosition(static_cast<int>(shown.from));
        }
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!editor.HasWindow()) return;
        const int from = hasSelectedText() ? selectionStart() : cursorPosition();
        const int to = hasSelectedText() ? selectionEnd() : from;
        editor.SetSelection(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
        if (!HandOn(*event)) QLineEdit::keyPressEvent(event);
    }
    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        editor.OnKillFocus();
    }
    void dropEvent(QDropEvent*) override {}
    void inputMethodEvent(QInputMethodEvent*) override {}

private:
    /// False for the keys that only move the caret.
    bool HandOn(const QKeyEvent& event) {
        if (event.matches(QKeySequence::Copy)) return Char(kCtrlC);
        if (event.matches(QKeySequence::Paste)) return Char(kCtrlV);
        if (event.matches(QKeySequence::Cut)) return Char(kCtrlX);
        switch (event.key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
            case Qt::Key_Tab:
                editor.OnReturn();
                return true;
            case Qt::Key_Escape:
                editor.OnEscape();
                return true;
            case Qt::Key_Delete:
                editor.OnDelete();
                return true;
            case Qt::Key_Backspace:
                return Char(kBackspace);
            default:
                break;
        }
        const std::string typed = FromQString(event.text());
        if (typed.size() != 1 || static_cast<unsigned char>(typed.front()) < ' ') return false;
        return Char(typed.front());
    }
    bool Char(char key) {
        editor.OnChar(key);
        return true;
    }

    CInPlaceText& editor;
};

class ChoiceWidget : public QComboBox, public InPlaceWidget {
public:
    ChoiceWidget(CInPlaceCombo& edited, QWidget* parent) : QComboBox(parent), editor(edited) {
        const CImageList* const images = editor.GetImageList();
        for (int i = 0; i < static_cast<int>(editor.GetChoices().size()); ++i) {
            const QString text = ToQString(editor.GetChoices()[static_cast<std::size_t>(i)]);
            const bool hasImage = images && i < images->GetImageCount();
            hasImage ? addItem(QIcon(QPixmap::fromImage(ToQImage(*images, i))), text) : addItem(text);
        }
        connect(this, &QComboBox::activated, this, [this](int index) { editor.OnSelect(index); });
        Update();
    }
    void Update() override {
        const QSignalBlocker quiet(*this);
        setCurrentIndex(editor.GetCurSel());
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape) return editor.OnEscape();
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return editor.OnReturn();
        QComboBox::keyPressEvent(event);
        if (currentIndex() != editor.GetCurSel()) editor.SetCurSel(currentIndex());
    }
    void focusOutEvent(QFocusEvent* event) override {
        QComboBox::focusOutEvent(event);
        // Its own list takes the keyboard while it is down.
        if (event->reason() != Qt::PopupFocusReason) editor.OnKillFocus();
    }

private:
    CInPlaceCombo& editor;
};

class ButtonWidget : public QPushButton, public InPlaceWidget {
public:
    ButtonWidget(CInPlaceButton& edited, QWidget* parent)
        : QPushButton(ToQString(CInPlaceButton::kCaption), parent), editor(edited) {
        setFlat(false);
        connect(this, &QPushButton::clicked, this, [this] { editor.OnPress(); });
    }
    void Update() override {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        // No dialog takes these two.
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
        if (event->key() == Qt::Key_Escape) return editor.OnKillFocus();
        QPushButton::keyPressEvent(event);
    }
    void focusOutEvent(QFocusEvent* event) override {
        QPushButton::focusOutEvent(event);
        editor.OnKillFocus();
    }

private:
    CInPlaceButton& editor;
};

}  // namespace

QWidget* MakeInPlaceWidget(CInPlaceEditor& editor, QWidget* parent) {
    QWidget* widget = nullptr;
    if (auto* const text = dynamic_cast<CInPlaceText*>(&editor)) widget = new TextWidget(*text, parent);
    if (auto* const combo = dynamic_cast<CInPlaceCombo*>(&editor)) widget = new ChoiceWidget(*combo, parent);
    if (auto* const button = dynamic_cast<CInPlaceButton*>(&editor)) widget = new ButtonWidget(*button, parent);
    if (!widget) return nullptr;
    tagRECT place = editor.GetRect();
    // The rectangle of a combo reaches over its opened list.
    if (dynamic_cast<CInPlaceCombo*>(&editor)) place.bottom = place.top + widget->sizeHint().height();
    widget->setGeometry(ToQRect(place));
    widget->show();
    widget->setFocus();
    return widget;
}

void UpdateInPlaceWidget(QWidget& widget) {
    if (auto* const shown = dynamic_cast<InPlaceWidget*>(&widget)) shown->Update();
}

}  // namespace quillon
