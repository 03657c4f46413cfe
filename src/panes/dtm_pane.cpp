#include "panes/dtm_pane.h"

#include <algorithm>

#include "background/dtm_dialogs.h"
#include "foundation/paths.h"
#include "frame/pane_layout.h"
#include "panes/dtm_regular_dlg.h"
#include "panes/row_values.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::uint8_t kSaveSettings = 1;
constexpr std::array<std::string_view, CDtm::kSlots> kSlotNames = {"One", "Two", "Three"};
constexpr std::string_view kFilter =
    "XYZ Files (*.xyz)|*.xyz|CSV Files (*.csv)|*.csv|Text Files (*.txt)|*.txt|ASCII Files (*.asc)|*.asc|"
    "All Files (*.*)|*.*||";

// clang-format off
constexpr RowEffect Pen(UINT row, UINT slot) {
    return {row + slot * CDtmPane::kSlotRows, ENDS, kSaveSettings, false, {REDRAW}};
}
constexpr std::array<RowEffect, 10> kEffects = {{
    // row             equal   save           changed  messages
    {DTM_COVERAGE,     COUNTS, kSaveSettings, false,   {REDRAW}},
    Pen(DTM_COLOUR, 0), Pen(DTM_FILL, 0), Pen(DTM_THICKNESS, 0),
    Pen(DTM_COLOUR, 1), Pen(DTM_FILL, 1), Pen(DTM_THICKNESS, 1),
    Pen(DTM_COLOUR, 2), Pen(DTM_FILL, 2), Pen(DTM_THICKNESS, 2),
}};
// clang-format on

template <class Row, class Value>
void AddShown(CMFCPropertyGridProperty& group, std::string_view name, Value value) {
    group.Add<Row>(name, std::move(value), "", 0u).AllowEdit(false);
}

void AddAxisRows(CMFCPropertyGridProperty& group, double minimum, double maximum, std::int32_t steps, double step) {
    const auto add = [&group](std::string_view name, double value) {
        group.Add<CMFCPropertyGridDouble>(name, value, "%12.3lf", "", 0u).AllowEdit(false);
    };
    add("Minimum", minimum);
    add("Maximum", maximum);
    add("Difference", maximum - minimum);
    group.Add<CMFCPropertyGridInteger>("No Steps", steps, "", "", 0u).AllowEdit(false);
    add("Step Size", step);
}

/// Whether a coarser grid would give what the samples couldn't.
bool IsTooLarge(DTM_REFUSAL refusal) {
    return refusal == DTM_REFUSAL::TOO_MANY_CELLS || refusal == DTM_REFUSAL::TOO_MUCH_MEMORY ||
           refusal == DTM_REFUSAL::NO_MEMORY;
}

}  // namespace

CDtmPane::CDtmPane(Platform& owner)
    : CPropertyPane(owner, 0, kEffects), loadButton(*this, kLoadButton, "Load DTMs", false) {
    for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) {
        addButtons.emplace_back(*this, kSlotButtons[slot].add, Format("Add DTM %zu", slot + 1), false);
        clearButtons.emplace_back(*this, kSlotButtons[slot].clear, Format("Clear DTM %zu", slot + 1), false);
    }
    for (auto* const buttons : {&addButtons, &clearButtons}) {
        for (CColourButton& button : *buttons) AddControl(button);
    }
    AddControl(loadButton);
    AddControl(GetPropertyList());
}

bool CDtmPane::Create(CWnd* parent, UINT id, CDtm& depthModel) {
    dtm = &depthModel;
    if (!CreatePane(parent, id, kTitle)) return false;
    Refresh();
    return true;
}

int CDtmPane::LayOutTop(int width) {
    const int slotsWidth = width * 3 / 4;
    PlaceInRow({&addButtons[0], &addButtons[1], &addButtons[2]}, {0, 0, slotsWidth, kPaneButtonHeight});
    PlaceInRow({&clearButtons[0], &clearButtons[1], &clearButtons[2]},
               {0, kPaneButtonHeight, slotsWidth, 2 * kPaneButtonHeight});
    return PlaceInRow({&loadButton}, {slotsWidth, 0, width, 2 * kPaneButtonHeight});
}

/// The button of the first slot that is free; with none, of the last.
CButton* CDtmPane::GetFileButton() {
    return &addButtons[std::min(dtm ? dtm->CountFiles() : std::size_t{0}, CDtm::kSlots - 1)];
}

// ---- Rows ----

void CDtmPane::BuildPropertyRows() {
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display DTM Coverage", dtm->displayCoverage,
                                             "Determine whether to display the limits of the DTM", DTM_COVERAGE);
    for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) {
        if (!dtm->fileName[slot].empty()) BuildSlotRows(slot);
    }
    if (dtm->IsLoaded()) BuildExtentsRows();
    if (!dtm->IsLoaded() && IsTooLarge(dtm->report.refusal)) BuildRefusalRows();
}

void CDtmPane::BuildSlotRows(std::size_t slot) {
    constexpr std::array<std::string_view, CDtm::kSlots> kTitles = {"DTM One File", "DTM TWO File", "DTM THREE File"};
    const bool alone = slot == 0 && dtm->fileName[1].empty();
    const UINT rows = static_cast<UINT>(slot) * kSlotRows;
    const tagPen& pen = dtm->pen[slot];
    auto& group = GetPropertyList().AddGroup(alone ? "DTM File" : kTitles[slot]);
    group
        .Add<CMFCPropertyGridProperty>(
            "Name", NameOfPath(dtm->fileName[slot]),
            "File format needs to be Easting, Northing, Depth. With the Depth should be a negative value", 0u)
        .AllowEdit(false);
    if (dtm->header.stamps[slot].length != 0) {
        AddShown<CMFCPropertyGridProperty>(group, "File Size", dtm->sizeText[slot]);
        AddShown<CMFCPropertyGridProperty>(group, "File Date", dtm->dateText[slot]);
    }
    group.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", pen.colour, kPaletteCount,
                                                     "Specifies the pen color for the DTM Coverage", DTM_COLOUR + rows);
    group.Add<CMFCPropertyGridFillStyleProperty>(pen.fill, pen.colour, DTM_FILL + rows);
    group.Add<CMFCPropertyGridLineThicknessProperty>(pen.thickness, pen.colour, DTM_THICKNESS + rows);
}

void CDtmPane::BuildExtentsRows() {
    const DtmHeader& header = dtm->header;
    const DtmExtents& extents = dtm->extents;
    AddAxisRows(GetPropertyList().AddGroup("Easting"), extents.easting.minimum, extents.easting.maximum, header.columns,
                header.step);
    AddAxisRows(GetPropertyList().AddGroup("Northing"), extents.northing.minimum, extents.northing.maximum, header.rows,
                header.step);
    auto& depth = GetPropertyList().AddGroup("Depth");
    for (const auto& [name, value] : {std::pair{"Minimum", extents.minDepth}, {"Maximum", extents.maxDepth}}) {
        depth.Add<CMFCPropertyGridDouble>(name, value, "%6.1lf", "", 0u).AllowEdit(false);
    }
}

void CDtmPane::BuildRefusalRows() {
    std::array<std::string, CDtm::kSlots> names;
    for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) names[slot] = NameOfPath(dtm->fileName[slot]);
    const std::string reason = RefusalText(dtm->report, names);
    auto& group = GetPropertyList().AddGroup("Not Loaded");
    group.Add<CMFCPropertyGridProperty>("Reason", reason, reason, 0u).AllowEdit(false);
    group.Add<CMFCPropertyGridDualButton>("Make Regular...", "Load Again",
                                          "Bring the soundings to a regular grid, in files of their own",
                                          DTM_MAKE_REGULAR);
}

// ---- Changes ----

LRESULT CDtmPane::OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) {
    if (row.GetData() == DTM_MAKE_REGULAR) {
        row.Get<std::int32_t>() == 0 ? OnMakeRegular() : OnLoadDtm();
        return 0;
    }
    return CPropertyPane::OnPropertyChanged(wParam, row);
}

bool CDtmPane::StoreRow(CMFCPropertyGridProperty& row) {
    const UINT id = row.GetData();
    if (id == DTM_COVERAGE) return Take(dtm->displayCoverage, row);
    const UINT slot = (id - DTM_COLOUR) / kSlotRows;
    tagPen& pen = dtm->pen[slot];
    switch (static_cast<DTM_ROW>(id - slot * kSlotRows)) {
        case DTM_COLOUR: {
            const bool differed = Take(pen.colour, row);
            ColourRow(GetPropertyList(), DTM_FILL + slot * kSlotRows, pen.colour);
            ColourRow(GetPropertyList(), DTM_THICKNESS + slot * kSlotRows, pen.colour);
            return differed;
        }
        case DTM_FILL:
            return Take(pen.fill, row);
        case DTM_THICKNESS:
            return Take(pen.thickness, row);
        case DTM_COVERAGE:
        case DTM_MAKE_REGULAR:
            break;
    }
    return false;
}

void CDtmPane::OnCommand(UINT control) {
    for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) {
        if (control == kSlotButtons[slot].add) OnAdd(slot);
        if (control == kSlotButtons[slot].clear) OnRemove(slot);
    }
    if (control == kLoadButton) OnLoadDtm();
}

// ---- Files ----

void CDtmPane::OnAdd(std::size_t slot) {
    const FileQuestion question{.title = "DTM " + std::string(kSlotNames[slot]) + " (XYZ Format)",
                                .filter = std::string(kFilter)};
    std::vector<std::string> paths;
    if (!GetPlatform().ChooseFiles(question, paths) || paths.empty()) return;
    auto& names = dtm->fileName;
    // The slots stay packed, so that the file may come to stand in a lower one.
    const std::size_t place = std::min(slot, dtm->CountFiles());
    const std::size_t compared = slot == 2 ? 2 : slot + 1;
    if (std::find(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(compared), paths.front()) !=
        names.begin() + static_cast<std::ptrdiff_t>(compared)) {
        return;
    }
    names[place] = paths.front();
    FollowSlots();
}

void CDtmPane::OnRemove(std::size_t slot) {
    auto& names = dtm->fileName;
    if (names[slot].empty()) return;
    std::move(names.begin() + static_cast<std::ptrdiff_t>(slot) + 1, names.end(),
              names.begin() + static_cast<std::ptrdiff_t>(slot));
    names.back().clear();
    FollowSlots();
}

/// The array was that of other files.
void CDtmPane::FollowSlots() {
    dtm->Unload();
    dtm->report = {};
    dtm->SaveSettings();
    InitPropList();
    BroadcastAll({UPDATE_DTM});
}

void CDtmPane::OnLoadDtm() {
    // Whoever draws while the window is open sees no array rather than half of one.
    CDtm loading(dtm->GetFiles());
    loading.fileName = dtm->fileName;
    loading.limits = dtm->limits;
    dtm->Unload();
    LoadDtm(GetPlatform(), &loading, this);
    dtm->TakeModel(loading);
    InitPropList();
    BroadcastAll({REDRAW, UPDATE_DTM});
}

void CDtmPane::OnMakeRegular() {
    CDtmRegularDlg dialog(GetPlatform(), *dtm, this);
    if (dialog.DoModal() != IDOK) return;
    dtm->fileName = dialog.GetWritten();
    FollowSlots();
    OnLoadDtm();
}

}  // namespace quillon
