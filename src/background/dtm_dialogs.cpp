#include "background/dtm_dialogs.h"

#include "background/dtm_load.h"
#include "foundation/paths.h"
#include "frame/messages.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr UINT kImportProgressId = 12099;
constexpr tagSIZE kImportSize = {470, 252};
constexpr tagSIZE kDepthsSize = {420, 152};

constexpr int kFiguresTop = 64;
constexpr int kNameWidth = 82;
constexpr int kFigureWidth = 134;
/// Of a text that nothing asks for again.
constexpr UINT kPlainText = 0xFFFF;

// Figures of the first pass: eastings on the left, northings on the right.
constexpr UINT kMinEasting = 22758, kMaxEasting = 22760, kEastingSpan = 12103, kColumns = 32347, kEastingStep = 12101;
constexpr UINT kMinNorthing = 22759, kMaxNorthing = 22761, kNorthingSpan = 12104, kRows = 32348, kNorthingStep = 12102;
constexpr UINT kMinDepth = 12106, kMaxDepth = 12108;
// Figures of the second pass.
constexpr UINT kColumn = 12105, kRow = 12107, kDepth = 12109;

/// The caption with the name of one file, or of the first two.
std::string CaptionOf(const CDtm& dtm, const char* one, const char* two) {
    const std::string first = NameOfPath(dtm.fileName[0]);
    if (dtm.fileName[1].empty()) return Replace(one, "%s", first);
    const std::string_view rest = two;
    const std::size_t behind = rest.find("%s") + 2;
    return Replace(rest.substr(0, behind), "%s", first) +
           Replace(rest.substr(behind), "%s", NameOfPath(dtm.fileName[1]));
}

std::string Metres(double value) {
    return IsMissing(value) ? "n/a" : Format("%.3lf", value);
}
std::string Centimetres(double metres) {
    return IsMissing(metres) ? "n/a" : Format("%.2lf", metres);
}

/// The result; a worker that ran out of memory is told by the report.
bool Run(CLoadDlg& dialog, CDtm& dtm) {
    const bool done = dialog.DoModal() == IDOK;
    if (!dialog.GetFailure().empty()) dtm.report.refusal = DTM_REFUSAL::NO_MEMORY;
    return done;
}

}  // namespace

// ---- From the cache ----

CLoadDtmDlg::CLoadDtmDlg(Platform& owner, CDtm& target, CWnd* parent)
    : CLoadDlg(owner, progress, UM_DTM_THREAD, kLoadDlgSize, parent), dtm(target) {}

std::string CLoadDtmDlg::Caption() const {
    return CaptionOf(dtm, "Loading DTM %s.........", "Loading DTM %s & %s.........");
}

bool CLoadDtmDlg::Work() {
    return ReadDtmDepths(dtm, progress);
}

// ---- From the text files ----

CDtmFiguresDlg::CDtmFiguresDlg(Platform& owner, CDtm& target, tagSIZE size, CWnd* parent)
    : CLoadDlg(owner, progress, UM_DTM_THREAD, size, parent, kImportProgressId), dtm(target) {
    Text().ShowWindow(false);
    Bar().MoveWindow({kMargin, kMargin + 8, size.width - kMargin, kMargin + 8 + kLine});
}

void CDtmFiguresDlg::AddFigure(UINT id, std::string_view name, int column, int row) {
    const int left = kMargin + column * (kNameWidth + kFigureWidth + kMargin);
    const int top = kFiguresTop + row * kLine;
    texts.emplace_back(*this, kPlainText, name).MoveWindow({left, top, left + kNameWidth, top + kLine});
    AddControl(texts.back());
    texts.emplace_back(*this, id, "")
        .MoveWindow({left + kNameWidth, top, left + kNameWidth + kFigureWidth, top + kLine});
    AddControl(texts.back());
}

void CDtmFiguresDlg::ShowFigure(UINT id, std::string_view figure) {
    if (CControl* const text = GetDlgItem(id)) static_cast<CStatic*>(text)->SetWindowText(figure);
}

CImportDtm::CImportDtm(Platform& owner, CDtm& target, CWnd* parent)
    : CDtmFiguresDlg(owner, target, kImportSize, parent) {
    struct Figure {
        UINT easting, northing;
        const char* eastingName;
        const char* northingName;
    };
    constexpr std::array<Figure, 6> kFigures = {{{kMinEasting, kMinNorthing, "Min Eng", "Min Nng"},
                                                 {kMaxEasting, kMaxNorthing, "Max Eng", "Max Nng"},
                                                 {kEastingSpan, kNorthingSpan, "dE", "dN"},
                                                 {kColumns, kRows, "Max X", "Max Y"},
                                                 {kEastingStep, kNorthingStep, "Step", "Step"},
                                                 {kMinDepth, kMaxDepth, "Min Depth", "Max Depth"}}};
    int row = 0;
    for (const Figure& figure : kFigures) {
        AddFigure(figure.easting, figure.eastingName, 0, row);
        AddFigure(figure.northing, figure.northingName, 1, row++);
    }
}

std::string CImportDtm::Caption() const {
    return CaptionOf(dtm, "Computing DTM %s Extents", "Computing DTM %s & %s Extents");
}

bool CImportDtm::Work() {
    return ImportDtm(dtm, progress);
}

void CImportDtm::OnTick() {
    ShowBar();
    const DtmExtents extents = progress.GetExtents();
    const auto showAxis = [&](const DtmExtents::Axis& axis, UINT minimum, UINT maximum, UINT span, UINT count,
                              UINT step) {
        ShowFigure(minimum, Metres(axis.minimum));
        ShowFigure(maximum, Metres(axis.maximum));
        ShowFigure(span, Metres(IsMissing(axis.maximum) ? MISSING_VALUE : axis.maximum - axis.minimum));
        ShowFigure(count, Format("%lld", static_cast<long long>(axis.count)));
        ShowFigure(step, Metres(extents.step));
    };
    showAxis(extents.easting, kMinEasting, kMaxEasting, kEastingSpan, kColumns, kEastingStep);
    showAxis(extents.northing, kMinNorthing, kMaxNorthing, kNorthingSpan, kRows, kNorthingStep);
    ShowFigure(kMinDepth, Metres(extents.minDepth));
    ShowFigure(kMaxDepth, Metres(extents.maxDepth));
}

CDtmDepths::CDtmDepths(Platform& owner, CDtm& target, CWnd* parent)
    : CDtmFiguresDlg(owner, target, kDepthsSize, parent) {
    AddFigure(kColumn, "X", 0, 0);
    AddFigure(kRow, "Y", 0, 1);
    AddFigure(kDepth, "Depth", 1, 0);
}

std::string CDtmDepths::Caption() const {
    return CaptionOf(dtm, "Making Depths Array fo %s", "Making Depths Array fo %s and %s");
}

bool CDtmDepths::Work() {
    return MakeDtmDepths(dtm, progress);
}

void CDtmDepths::OnTick() {
    ShowBar();
    const tagXYZ sample = progress.GetSample();
    if (sample.x != 0.0) dtm.ColumnOf(sample.x);
    if (sample.y != 0.0) dtm.RowOf(sample.y);
    ShowFigure(kColumn, Format("%d", dtm.lastColumn));
    ShowFigure(kRow, Format("%d", dtm.lastRow));
    ShowFigure(kDepth, Centimetres(sample.z));
}

bool LoadDtm(Platform& platform, CDtm* dtm, CWnd* parent) {
    bool loaded = false;
    if (!dtm->NeedsImport()) {
        CLoadDtmDlg reading(platform, *dtm, parent);
        loaded = Run(reading, *dtm);
    } else {
        CImportDtm import(platform, *dtm, parent);
        if (Run(import, *dtm)) {
            CDtmDepths depths(platform, *dtm, parent);
            loaded = Run(depths, *dtm);
        }
    }
    SettleDtm(*dtm);
    return loaded;
}

}  // namespace quillon
