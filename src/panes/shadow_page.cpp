#include "panes/shadow_page.h"

#include <algorithm>

#include "panes/target_rows.h"

namespace quillon {
namespace {

enum GROUP { GROUP_SHADOW, GROUP_ALIGNMENT, GROUP_REFERENCE };
/// Places of rows without an id.
enum REFERENCE_PLACE { PLACE_EASTING = 4, PLACE_NORTHING = 5 };

}  // namespace

/// The names as they are: a class is known by its name. One that isn't offered, from a file of another program, is
/// named all the same.
Choices CShadowPage::TypeChoices() const {
    Choices choices{.texts = {}, .shown = std::string(Object().TrackTypeName())};
    for (const std::int32_t type : Object().OfferedTrackTypes()) {
        choices.texts.emplace_back(kTrackTypeNames[static_cast<std::size_t>(type)]);
    }
    return choices;
}

Choices CShadowPage::OffsetChoices() const {
    std::vector<std::string> names;
    if (const OffsetPoints* const points = Object().OffsetsOf(Object().trackType)) {
        for (const OffsetPoint& point : *points) names.push_back(point.name);
    }
    Choices choices = DistinctChoices(std::move(names), Object().trackIndex);
    if (!Object().OffsetAt(Object().trackType, Object().trackIndex)) choices.shown = Object().TrackedName();
    return choices;
}

tagXY CShadowPage::OffsetOfTracked() const {
    const OffsetPoint* const point = Object().OffsetAt(Object().trackType, Object().trackIndex);
    return point ? tagXY{point->x, point->y} : tagXY();
}

// ---- Rows ----

void CShadowPage::BuildRows() {
    const COutline& outline = Object();
    GetList().AddGroup("Shadow").Add<CMFCPropertyGridBool>("Show", outline.show,
                                                           "Determine whether to display the outline", SHADOW_SHOW);
    BuildAlignment(SHADOW_TRUE);
    auto& reference = GetList().AddGroup("Common Reference Point");
    AddChoices(reference, "Type", TypeChoices(), "Select the type offset to track", SHADOW_TYPE);
    AddChoices(reference, "Offset", OffsetChoices(), "Select Offset Point", SHADOW_OFFSET);
    const tagXY offset = OffsetOfTracked();
    AddShown(reference, "X", offset.x, "%+8.3lfm", "Offset X from Outline CRP to Tracking Point", SHADOW_X);
    AddShown(reference, "Y", offset.y, "%+8.3lfm", "Offset Y from Outline CRP to Tracking Point", SHADOW_Y);
    AddShown(reference, "Easting", outline.trackedPosition.x, "%10.2lfE");
    AddShown(reference, "Northing", outline.trackedPosition.y, "%10.2lfN");
    auto& shape = GetList().AddGroup("Shape");
    const tagPen& pen = outline.shadowPen;
    AddColour(shape, "Colour", pen.colour, "Colour of outline (Except DXF file)", SHADOW_COLOUR);
    shape.Add<CMFCPropertyGridLineThicknessProperty>(pen.thickness, pen.colour, SHADOW_THICKNESS);
    shape.Add<CMFCPropertyGridFillStyleProperty>(pen.fill, pen.colour, SHADOW_FILL);
}

void CShadowPage::ShowAlignment() {
    COutlinePage::ShowAlignment(SHADOW_TRUE, GROUP_ALIGNMENT);
}

void CShadowPage::ShowType() {
    SetChoicesOf(SHADOW_TYPE, TypeChoices());
}

void CShadowPage::ShowOffsets() {
    SetChoicesOf(SHADOW_OFFSET, OffsetChoices());
}

void CShadowPage::ShowOffset() {
    const tagXY offset = OffsetOfTracked();
    SetRow(SHADOW_X, offset.x);
    SetRow(SHADOW_Y, offset.y);
}

void CShadowPage::ShowTracked() {
    SetRow({GROUP_REFERENCE, PLACE_EASTING}, Object().trackedPosition.x);
    SetRow({GROUP_REFERENCE, PLACE_NORTHING}, Object().trackedPosition.y);
}

// ---- Changes ----

void CShadowPage::Store(const CMFCPropertyGridProperty& row) {
    COutline& outline = Object();
    switch (row.GetData()) {
        case SHADOW_SHOW:
            Take(outline.show, row);
            return;
        case SHADOW_TRUE:
            if (Take(outline.trueAlignment, row)) outline.UpdateAlignment();
            return;
        case SHADOW_TYPE:
            return StoreType(row);
        case SHADOW_OFFSET:
            if (const int chosen = ChosenOption(row); chosen >= 0) outline.trackIndex = chosen;
            return;
        case SHADOW_COLOUR:
            return StoreColour(row);
        case SHADOW_THICKNESS:
            Take(outline.shadowPen.thickness, row);
            return;
        case SHADOW_FILL:
            Take(outline.shadowPen.fill, row);
            return;
        default:
            return;
    }
}

void CShadowPage::StoreType(const CMFCPropertyGridProperty& row) {
    const auto found = std::find(kTrackTypeNames.begin(), kTrackTypeNames.end(), row.Get<std::string>());
    if (found == kTrackTypeNames.end()) return;
    Object().trackType = static_cast<std::int32_t>(found - kTrackTypeNames.begin());
}

void CShadowPage::StoreColour(const CMFCPropertyGridProperty& row) {
    if (!Take(Object().shadowPen.colour, row)) return;
    for (const UINT id : {SHADOW_THICKNESS, SHADOW_FILL}) ColourRow(GetList(), id, Object().shadowPen.colour);
}

}  // namespace quillon
