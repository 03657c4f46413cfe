#include "panes/outline_dlg.h"

#include <utility>

#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr tagSIZE kSize{460, 160};
constexpr std::string_view kFilter =
    "Outline Files (*.txt;*.csv;*.dxf)|*.txt;*.csv;*.dxf|DXF Files (*.dxf)|*.dxf|All Files (*.*)|*.*||";

std::string TitleOf(const COutlineList& list) {
    return "New " + std::string(list.Label());
}

}  // namespace

COutlineDlg::COutlineDlg(Platform& owner, COutlineList& outlines)
    : CColourDialogEx(owner, TitleOf(outlines), kSize), list(outlines) {
    const std::initializer_list<std::pair<CControl*, tagRECT>> places = {
        {&nameLabel, {10, 13, 80, 35}}, {&name, {90, 10, 450, 36}},     {&outlineLabel, {10, 49, 80, 71}},
        {&outline, {90, 46, 350, 72}},  {&browse, {360, 46, 450, 72}},  {&fault, {10, 82, 450, 116}},
        {&ok, {250, 122, 345, 150}},    {&cancel, {355, 122, 450, 150}}};
    for (const auto& [control, place] : places) {
        control->MoveWindow(place);
        AddControl(*control);
    }
}

void COutlineDlg::OnCommand(UINT control) {
    if (control != kBrowse) return CColourDialogEx::OnCommand(control);
    std::string path = outline.GetWindowText();
    if (ChooseOutlineFile(GetPlatform(), path)) outline.SetWindowText(path);
}

void COutlineDlg::OnOK() {
    std::string reason;
    if (list.AddNew(name.GetWindowText(), Trim(outline.GetWindowText()), reason) >= 0) return EndDialog(IDOK);
    fault.SetWindowText(reason);
}

bool ChooseOutlineFile(Platform& platform, std::string& path) {
    const FileQuestion question{
        .title = "Outline File ....", .filter = std::string(kFilter), .multiple = false, .start = path};
    std::vector<std::string> chosen;
    if (!platform.ChooseFiles(question, chosen) || chosen.empty() || Trim(chosen.front()).empty()) return false;
    path = Trim(chosen.front());
    return true;
}

}  // namespace quillon
