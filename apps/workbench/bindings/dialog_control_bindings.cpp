#include "bindings/dialog_control_bindings.h"

#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "platform/user_actions.h"
#include "toolkit/colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

/// An ampersand of a caption is meant as itself.
QString Caption(const std::string& text) {
    return ToQString(text).replace('&', "&&");
}

}  // namespace

StaticBinding::StaticBinding(CStatic& bound, QWidget* parent) : QLabel(parent), ControlBinding(bound), label(&bound) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    Refresh(CONTROL_CHANGE::COLOURS);
}

void StaticBinding::Refresh(CONTROL_CHANGE) {
    if (!label) return;
    setText(ToQString(label->GetWindowText()));
    setToolTip(text());
    if (const auto& ground = label->GetBkColor()) {
        QPalette colours;
        colours.setColor(QPalette::Window, QColorOf(*ground));
        colours.setColor(QPalette::WindowText, Qt::black);
        setPalette(colours);
        setAutoFillBackground(true);
    }
}

ProgressBinding::ProgressBinding(CProgressCtrl& bound, QWidget* parent)
    : QProgressBar(parent), ControlBinding(bound), bar(&bound) {
    setTextVisible(false);
    Refresh(CONTROL_CHANGE::CONTENT);
}

void ProgressBinding::Refresh(CONTROL_CHANGE) {
    if (!bar) return;
    // The toolkit takes two equal bounds for a job of unknown length.
    setRange(bar->GetLower(), std::max(bar->GetUpper(), bar->GetLower() + 1));
    setValue(bar->GetPos());
}

EditBinding::EditBinding(CEdit& bound, QWidget* parent) : QLineEdit(parent), ControlBinding(bound), edit(&bound) {
    connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) {
        if (edit) user::Type(*edit, FromQString(typed));
    });
    Refresh(CONTROL_CHANGE::CONTENT);
}

void EditBinding::Refresh(CONTROL_CHANGE) {
    if (!edit) return;
    setReadOnly(edit->IsReadOnly());
    const QString shown = ToQString(edit->GetWindowText());
    if (shown != text()) setText(shown);
}

CheckBinding::CheckBinding(CCheckBox& bound, QWidget* parent) : QCheckBox(parent), ControlBinding(bound), box(&bound) {
    setText(Caption(bound.GetWindowText()));
    connect(this, &QCheckBox::clicked, this, [this](bool on) {
        if (box) user::Check(*box, on);
    });
    Refresh(CONTROL_CHANGE::VALUE);
}

void CheckBinding::Refresh(CONTROL_CHANGE) {
    if (box) setChecked(box->IsChecked());
}

ListBoxBinding::ListBoxBinding(CListBox& bound, QWidget* parent)
    : QListWidget(parent), ControlBinding(bound), list(&bound) {
    setUniformItemSizes(true);
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (list && row >= 0) user::Select(*list, row);
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        if (list) user::DoubleClick(*list, row(item));
    });
    Refresh(CONTROL_CHANGE::CONTENT);
}

void ListBoxBinding::Refresh(CONTROL_CHANGE change) {
    if (!list) return;
    const QSignalBlocker quiet(this);
    if (change == CONTROL_CHANGE::CONTENT) {
        const int wanted = list->GetCount();
        while (count() > wanted) delete takeItem(count() - 1);
        for (int i = 0; i < wanted; ++i) {
            const QString text = ToQString(list->GetLBText(i));
            if (i >= count()) {
                addItem(text);
            } else if (item(i)->text() != text) {
                item(i)->setText(text);
            }
        }
    }
    setCurrentRow(list->GetCurSel());
}

RadioBinding::RadioBinding(CRadioGroup& bound, QWidget* parent)
    : QWidget(parent), ControlBinding(bound), group(&bound) {
    (new QVBoxLayout(this))->setContentsMargins(0, 0, 0, 0);
    Refresh(CONTROL_CHANGE::CONTENT);
}

void RadioBinding::Refresh(CONTROL_CHANGE) {
    if (!group) return;
    for (int i = static_cast<int>(buttons.size()); i < group->GetCount(); ++i) {
        auto* const button = new QRadioButton(Caption(group->GetLBText(i)), this);
        connect(button, &QRadioButton::clicked, this, [this, i] {
            if (group) user::Select(*group, i);
        });
        layout()->addWidget(button);
        buttons.push_back(button);
    }
    for (int i = 0; i < static_cast<int>(buttons.size()); ++i) {
        QRadioButton& button = *buttons[static_cast<std::size_t>(i)];
        button.setVisible(i < group->GetCount());
        if (i < group->GetCount()) button.setText(Caption(group->GetLBText(i)));
        // One of them must be on once one was, for the toolkit; none may be for the model.
        button.setAutoExclusive(false);
        button.setChecked(i == group->GetCurSel());
        button.setAutoExclusive(true);
    }
}

}  // namespace quillon
