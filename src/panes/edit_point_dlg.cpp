#include "panes/edit_point_dlg.h"

#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr tagSIZE kSize{340, 220};
constexpr UINT kNameLabel = 32356;
constexpr UINT kEastingLabel = 32357;
constexpr UINT kNorthingLabel = 32358;
constexpr int kRowHeight = 32;
constexpr int kButtonTop = 180;

/// Decimals and width of a coordinate, and of a height or radius, metres.
constexpr tagNumberStyle kPositionStyle{.maxLength = 12, .decimals = 3, .intDigits = 8};
constexpr tagNumberStyle kLengthStyle{.maxLength = 9, .decimals = 3, .intDigits = 5};

}  // namespace

CEditPointDlg::CEditPointDlg(Platform& owner, std::string_view title, CWnd* parentWindow)
    : CColourDialogEx(owner, title, kSize, parentWindow),
      updateButton(*this, IDOK, "Update", GetNightMode()),
      cancelButton(*this, IDCANCEL, "Cancel", GetNightMode()),
      deleteButton(*this, kDelete, "Delete", GetNightMode()),
      nameLabel(*this, kNameLabel, "Label"),
      eastingLabel(*this, kEastingLabel, "Easting"),
      northingLabel(*this, kNorthingLabel, "Northing") {
    int top = 12;
    const auto row = [&](CControl& label, CControl& edit) {
        Place(label, {12, top + 4, 100, top + 24});
        Place(edit, {108, top, 328, top + 26});
        top += kRowHeight;
    };
    row(nameLabel, nameEdit);
    row(eastingLabel, eastingEdit);
    row(northingLabel, northingEdit);
    row(heightLabel, heightEdit);
    row(radiusLabel, radiusEdit);
    int left = 12;
    for (CColourButton* const button : {&updateButton, &cancelButton, &deleteButton}) {
        Place(*button, {left, kButtonTop, left + 100, kButtonTop + 30});
        left += 108;
    }
}

void CEditPointDlg::Place(CControl& control, const tagRECT& place) {
    control.MoveWindow(place);
    AddControl(control);
}

void CEditPointDlg::SetName(std::string* pointName, bool editable) {
    name = pointName;
    nameEditable = editable;
}

void CEditPointDlg::ShowNumber(CEditDoubleCtrl& edit, const tagNumberStyle& style, double* value) {
    edit.Style() = style;
    if (value) edit.SetDouble(*value);
    edit.ShowWindow(value != nullptr);
    if (value) numbers.push_back({&edit, value, edit.Edit().GetText()});
}

void CEditPointDlg::OnInitDialog() {
    numbers.clear();
    nameEdit.SetWindowText(name ? *name : std::string());
    nameEdit.SetReadOnly(!nameEditable);
    ShowNumber(eastingEdit, kPositionStyle, position ? &position->x : nullptr);
    ShowNumber(northingEdit, kPositionStyle, position ? &position->y : nullptr);
    ShowNumber(heightEdit, kLengthStyle, height);
    ShowNumber(radiusEdit, kLengthStyle, radius);
    heightLabel.ShowWindow(height != nullptr);
    radiusLabel.ShowWindow(radius != nullptr);
    SetFocusTo(eastingEdit);
}

void CEditPointDlg::OnOK() {
    if (name && nameEditable) *name = nameEdit.GetWindowText();
    for (const Number& number : numbers) {
        // A text that nobody changed stands for a value with more decimals than it shows.
        const std::string& text = number.edit->Edit().GetText();
        if (text != number.shown) *number.value = Atof(text);
    }
    EndDialog(IDOK);
}

void CEditPointDlg::OnCommand(UINT control) {
    control == kDelete ? EndDialog(kDeleted) : CColourDialogEx::OnCommand(control);
}

bool EditPoint(Platform& platform, std::string_view title, std::string& name, bool nameEditable, tagXY* position,
               double* height, double* radius) {
    CEditPointDlg dialog(platform, title, platform.GetMainWindow());
    dialog.SetName(&name, nameEditable);
    dialog.SetPosition(position);
    dialog.SetHeight(height);
    dialog.SetRadius(radius);
    return dialog.DoModal() != CEditPointDlg::kDeleted;
}

}  // namespace quillon
