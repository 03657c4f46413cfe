#include "panes/dtm_regular_dlg.h"

#include <cmath>

#include "background/load_dlg.h"
#include "foundation/paths.h"
#include "frame/messages.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr tagSIZE kSize{460, 190};
constexpr double kLeastStep = 1e-3, kMostStep = 1e6;
constexpr int kStepDecimals = 3;

struct TakeChoice {
    DTM_TAKE take;
    std::string_view name;
};
constexpr std::array<TakeChoice, 3> kTakes = {
    {{DTM_TAKE::SHOALEST, "Shoalest"}, {DTM_TAKE::DEEPEST, "Deepest"}, {DTM_TAKE::MEAN, "Mean"}}};

/// 1, 2 or 5 times a power of ten, not below the value.
double RoundStep(double value) {
    const double power = std::pow(10.0, std::floor(std::log10(value)));
    for (const double figure : {1.0, 2.0, 5.0}) {
        if (figure * power >= value) return figure * power;
    }
    return 10.0 * power;
}

/// The side of a cell that holds one sounding on average.
double ProposedStep(const DtmReport& report) {
    const DtmExtents& extents = report.extents;
    const std::uint64_t samples = report.CountTaken();
    if (samples == 0 || IsMissing(extents.easting.maximum) || IsMissing(extents.northing.maximum)) return 1.0;
    const double area =
        (extents.easting.maximum - extents.easting.minimum) * (extents.northing.maximum - extents.northing.minimum);
    const double step = std::sqrt(area / static_cast<double>(samples));
    return step > kLeastStep && step < kMostStep ? RoundStep(step) : 1.0;
}

/// Beside the source, under a name that no file has yet.
std::string FreeName(const FileSystem& files, const std::string& source) {
    for (int number = 1;; ++number) {
        const std::string suffix = number == 1 ? " regular" : Format(" regular %d", number);
        std::string path = MakePath(FolderOfPath(source), NameOfPath(source) + suffix, "xyz");
        if (!files.Exists(path)) return path;
    }
}

class CMakeRegular : public CLoadDlg {
public:
    CMakeRegular(Platform& owner, std::string from, std::string to, const DtmRegularOptions& gridOptions,
                 const DtmLimits& gridLimits, CWnd* parent)
        : CLoadDlg(owner, progress, UM_DTM_THREAD, kLoadDlgSize, parent),
          source(std::move(from)),
          target(std::move(to)),
          options(gridOptions),
          limits(gridLimits) {}

    /// Why there is no file; empty if there is one.
    const std::string& GetFault() const { return fault; }

protected:
    std::string Caption() const override { return "Regular Grid of " + NameOfPath(source) + "........."; }
    bool EndsByFlag() const override { return true; }
    void OnTick() override { ShowBytes(); }
    bool Work() override {
        FileSystem& files = GetPlatform().Files();
        CRandomFile text;
        CStdioFile out(files);
        if (!text.OpenForReading(files, source)) {
            fault = "can't be read";
        } else if (!out.OpenForWriting(target)) {
            fault = out.GetFault();
        } else {
            const DtmRegularResult result = MakeRegularDtm(text, options, limits, progress, out);
            if (result.fault != DTM_REGULAR_FAULT::NO) {
                fault = FaultText(result.fault, result.grid);
            } else if (!out.Commit()) {
                fault = out.GetFault();
            }
        }
        return fault.empty();
    }

private:
    const std::string source, target;
    const DtmRegularOptions options;
    const DtmLimits limits;
    DtmProgress progress;
    std::string fault;
};

}  // namespace

CDtmRegularDlg::CDtmRegularDlg(Platform& owner, const CDtm& model, CWnd* parent)
    : CColourDialogEx(owner, "Regular Grid", kSize, parent),
      dtm(model),
      okButton(*this, IDOK, "OK", GetNightMode()),
      cancelButton(*this, IDCANCEL, "Cancel", GetNightMode()) {
    const struct {
        CControl& control;
        tagRECT place;
    } places[] = {
        {stepLabel, {12, 15, 210, 37}},       {stepEdit, {220, 12, 448, 38}},  {takeLabel, {12, 51, 210, 73}},
        {takeList, {220, 48, 448, 74}},       {filesText, {12, 86, 448, 140}}, {okButton, {250, 150, 344, 178}},
        {cancelButton, {354, 150, 448, 178}},
    };
    for (const auto& [control, place] : places) {
        AddControl(control);
        control.MoveWindow(place);
    }
}

void CDtmRegularDlg::OnInitDialog() {
    stepEdit.Style().decimals = kStepDecimals;
    stepEdit.SetDouble(ProposedStep(dtm.report));
    takeList.ResetContent();
    for (const TakeChoice& choice : kTakes) takeList.AddString(choice.name);
    takeList.SetCurSel(0);
    std::string names;
    for (std::size_t slot = 0; slot < CDtm::kSlots && !dtm.fileName[slot].empty(); ++slot) {
        names += (slot > 0 ? ", " : "") + NameOfPath(dtm.fileName[slot]);
    }
    filesText.SetWindowText("Soundings of " + names + ". The grids are written to new files beside them.");
}

void CDtmRegularDlg::OnOK() {
    options.step = std::fabs(Atof(stepEdit.Edit().GetText()));
    const int take = takeList.GetCurSel();
    if (take >= 0) options.take = kTakes[static_cast<std::size_t>(take)].take;
    if (!(options.step >= kLeastStep && options.step <= kMostStep)) {
        GetPlatform().WarningMessage("The side of a cell is a length from 1 mm to 1000 km");
        return;
    }
    written = {};
    for (std::size_t slot = 0; slot < CDtm::kSlots && !dtm.fileName[slot].empty(); ++slot) {
        if (!Write(slot)) return;
    }
    CColourDialogEx::OnOK();
}

bool CDtmRegularDlg::Write(std::size_t slot) {
    const std::string& source = dtm.fileName[slot];
    const std::string target = FreeName(GetPlatform().Files(), source);
    CMakeRegular work(GetPlatform(), source, target, options, dtm.limits, this);
    if (work.DoModal() == IDOK) {
        written[slot] = target;
        return true;
    }
    if (!work.GetFault().empty()) GetPlatform().WarningMessage(source + "\n" + work.GetFault());
    return false;
}

}  // namespace quillon
