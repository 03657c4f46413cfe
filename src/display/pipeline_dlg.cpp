#include "display/pipeline_dlg.h"

#include <cmath>

#include "foundation/paths.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr tagSIZE kSize{560, 330};
constexpr COLORREF kSampleGround = 0x99FFFF;
constexpr int kMostSkipped = 20;
constexpr UINT kProgressTimer = 1;
constexpr auto kTick = std::chrono::milliseconds(100);
const UINT kThinned = RegisterWindowMessage("UM_PIPELINE_THINNED-{0B6D3F0E-5D8C-4B0A-9C60-6E0B6C1C3A57}");
constexpr std::string_view kFilter = "CSV Files (*.csv)|*.csv|Text Files (*.txt)|*.txt|All Files (*.*)|*.*||";

}  // namespace

CPipelineDlg::CPipelineDlg(Platform& owner, CWnd* parent)
    : CColourDialogEx(owner, "Pipeline", kSize, parent),
      import(owner.Files()),
      thinButton(*this, kThin, "Thin Data", GetNightMode()),
      selectButton(*this, kSelectFile, "Select File", GetNightMode()),
      okButton(*this, IDOK, "OK", GetNightMode()) {
    for (UINT i = 0; i < kColumns; ++i) {
        columns.push_back(std::make_unique<CExcelColumnComboBox>(*this, kFirstColumn + i));
        samples.push_back(std::make_unique<CStatic>(*this, kFirstSample + i, ""));
        samples.back()->SetBkColor(kSampleGround);
    }
    Place();
}

CPipelineDlg::~CPipelineDlg() = default;

void CPipelineDlg::Label(UINT id, std::string_view text, const tagRECT& place) {
    labels.push_back(std::make_unique<CStatic>(*this, id, text));
    labels.back()->MoveWindow(place);
    AddControl(*labels.back());
}

void CPipelineDlg::Place() {
    const auto add = [this](CControl& control, const tagRECT& place) {
        control.MoveWindow(place);
        AddControl(control);
    };
    UINT label = kFirstLabel;
    add(selectButton, {10, 10, 110, 36});
    add(folderText, {120, 12, 390, 34});
    add(nameText, {400, 12, 550, 34});
    Label(label++, "Columns", {10, 48, 260, 66});
    for (int i = 0; i < kColumns; ++i) {
        const int top = 72 + 34 * i;
        Label(label++, import[i].name, {10, top + 3, 80, top + 25});
        add(*columns[static_cast<std::size_t>(i)], {84, top, 160, top + 26});
        add(*samples[static_cast<std::size_t>(i)], {166, top + 2, 270, top + 24});
    }
    Label(label++, "Skip number of lines", {10, 214, 160, 236});
    add(skipList, {166, 211, 270, 237});
    Label(label++, "Operation", {290, 48, 550, 66});
    Label(label++, "Tolerance", {290, 75, 380, 97});
    add(toleranceEdit, {440, 72, 550, 98});
    add(thinButton, {290, 108, 390, 136});
    add(bar, {400, 112, 550, 132});
    Label(label++, "Total number of points", {290, 150, 430, 172});
    add(totalText, {440, 150, 550, 172});
    Label(label++, "Points Used", {290, 180, 430, 202});
    add(usedText, {440, 180, 550, 202});
    add(okButton, {450, 292, 550, 320});
}

void CPipelineDlg::OnInitDialog() {
    bar.ShowWindow(false);
    toleranceEdit.SetDouble(tolerance);
    import.ReadSettings();
    ShowPath();
    for (int i = 0; i < kColumns; ++i) columns[static_cast<std::size_t>(i)]->SetColumn(import[i].column);
    skipList.ResetContent();
    for (int i = 0; i <= kMostSkipped; ++i) skipList.AddString(Format("%d", i));
    skipList.SetCurSel(import.skipLines);
    Sample();
}

void CPipelineDlg::ShowPath() {
    folderText.SetWindowText(FolderOfPath(import.fullPath));
    nameText.SetWindowText(NameOfPath(import.fullPath));
}

void CPipelineDlg::SelectFile() {
    const FileQuestion question{
        .title = "Pipeline Files....", .filter = std::string(kFilter), .multiple = false, .start = import.fullPath};
    std::vector<std::string> chosen;
    if (!GetPlatform().ChooseFiles(question, chosen)) return;
    const std::string path = chosen.empty() ? std::string() : std::string(Trim(chosen.front()));
    if (path.empty()) return GetPlatform().WarningMessage("Requires a file name");
    import.fullPath = path;
    ShowPath();
    Sample();
    import.WriteSettings();
}

void CPipelineDlg::Sample() {
    CStdioFile file(import.GetFiles());
    std::string line;
    const bool has = file.OpenForReading(import.fullPath) && import.SkipLines(file) && import.ReadRow(file, line);
    for (int i = 0; i < kColumns; ++i) {
        samples[static_cast<std::size_t>(i)]->SetWindowText(has ? import.FieldOf(line, i) : i == 0 ? "n/a" : "");
    }
    totalText.SetWindowText("0");
    usedText.SetWindowText(UsedText({}));
}

void CPipelineDlg::OnCommand(UINT control) {
    if (control >= kFirstColumn && control < kFirstColumn + kColumns) {
        const auto i = static_cast<int>(control - kFirstColumn);
        import[i].column = columns[static_cast<std::size_t>(i)]->TakeColumn();
        Sample();
    } else if (control == kSkip) {
        import.skipLines = skipList.GetCurSel();
        Sample();
    } else if (control == kSelectFile) {
        SelectFile();
    } else if (control == kThin) {
        IsThinning() ? StopThinning() : OnThinData();
    } else {
        CColourDialogEx::OnCommand(control);
    }
}

// ---- Thinning ----

void CPipelineDlg::OnThinData() {
    tolerance = std::fabs(Atof(toleranceEdit.Edit().GetText()));
    if (tolerance == 0) tolerance = 1.0;
    progress = std::make_unique<ThinProgress>();
    bar.SetRange(0, 1000);
    bar.SetPos(0);
    bar.ShowWindow(true);
    EnableChoices(false);
    worker = std::make_unique<CLoadThread>(*this, kThinned, *progress, [this](LoadProgress&) {
        result = ThinFile(import, tolerance, ThinnedPath(import.fullPath), *progress);
        return result.end == THIN_END::DONE;
    });
    SetTimer(kProgressTimer, kTick);
    if (!worker->Resume()) EndThinning();
}

void CPipelineDlg::ShowProgress() {
    const ThinProgress::Shown shown = progress->Get();
    bar.SetPos(progress->GetThousandths());
    if (shown.usedOf == 0) return;
    totalText.SetWindowText(Format("%d", shown.total));
    usedText.SetWindowText(UsedText(shown));
}

void CPipelineDlg::OnTimer(UINT timer) {
    if (timer == kProgressTimer && IsThinning()) ShowProgress();
}

LRESULT CPipelineDlg::OnMessage(const MSG& message) {
    if (message.message != kThinned) return CColourDialogEx::OnMessage(message);
    if (!IsThinning()) return 0;
    EndThinning();
    TellResult();
    return 0;
}

void CPipelineDlg::EndThinning() {
    KillTimer(kProgressTimer);
    worker.reset();
    ShowProgress();
    bar.ShowWindow(false);
    EnableChoices(true);
}

void CPipelineDlg::StopThinning() {
    if (!IsThinning()) return;
    worker->Cancel();
    EndThinning();
}

/// While a file is thinned, nothing changes that it is read by.
void CPipelineDlg::EnableChoices(bool on) {
    for (const auto& column : columns) column->EnableWindow(on);
    selectButton.EnableWindow(on);
    skipList.EnableWindow(on);
    toleranceEdit.EnableWindow(on);
    thinButton.SetWindowText(on ? "Thin Data" : "Stop");
}

void CPipelineDlg::TellResult() {
    if (result.end != THIN_END::DONE) return;
    std::string text = "Thined data file written to\n" + result.path;
    if (!result.hasEndLine) text += "\nIt is empty: there is no row behind the lines that are skipped.";
    GetPlatform().InformationBox(text, "Pipeline Data");
}

void CPipelineDlg::OnOK() {
    StopThinning();
    import.WriteSettings();
    CColourDialogEx::OnOK();
}

void CPipelineDlg::OnCancel() {
    StopThinning();
    CColourDialogEx::OnCancel();
}

}  // namespace quillon
