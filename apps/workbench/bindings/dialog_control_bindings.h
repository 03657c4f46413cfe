#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <vector>

#include "bindings/control_binding.h"
#include "platform/dialog_controls.h"

class QRadioButton;

namespace quillon {

// The simple controls of dialogs, a widget of the toolkit each.

class StaticBinding : public QLabel, public ControlBinding {
public:
    StaticBinding(CStatic& label, QWidget* parent);
    QWidget& Widget() override { return *this; }

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override { label = nullptr; }

private:
    CStatic* label;
};

class ProgressBinding : public QProgressBar, public ControlBinding {
public:
    ProgressBinding(CProgressCtrl& bar, QWidget* parent);
    QWidget& Widget() override { return *this; }

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override { bar = nullptr; }

private:
    CProgressCtrl* bar;
};

class EditBinding : public QLineEdit, public ControlBinding {
public:
    EditBinding(CEdit& edit, QWidget* parent);
    QWidget& Widget() override { return *this; }

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override { edit = nullptr; }

private:
    CEdit* edit;
};

class CheckBinding : public QCheckBox, public ControlBinding {
public:
    CheckBinding(CCheckBox& box, QWidget* parent);
    QWidget& Widget() override { return *this; }

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override { box = nullptr; }

private:
    CCheckBox* box;
};

class ListBoxBinding : public QListWidget, public ControlBinding {
public:
    ListBoxBinding(CListBox& list, QWidget* parent);
    QWidget& Widget() override { return *this; }

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override { list = nullptr; }

private:
    CListBox* list;
};

class RadioBinding : public QWidget, public ControlBinding {
public:
    RadioBinding(CRadioGroup& group, QWidget* parent);
    QWidget& Widget() override { return *this; }

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override { group = nullptr; }

private:
    CRadioGroup* group;
    std::vector<QRadioButton*> buttons;  // children of this widget
};

}  // namespace quillon
