#include "panes/structure_pane.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "foundation/angle_rows.h"
#include "foundation/angle_units.h"
#include "foundation/paths.h"
#include "frame/colour_schemes.h"
#include "frame/select_feature_files.h"
#include "panes/row_values.h"
#include "platform/platform.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr CFileStrip::Ids kStrip = {.combo = 12086, .add = 12087, .remove = 12089};
constexpr UINT kViewId = 2;
constexpr int kListRows = 20;
constexpr int kEditScheme = 7;
constexpr std::string_view kNoName = "n/a";

enum SAVE : std::uint8_t { NOTHING, FLAGS, DATA };

// clang-format off
constexpr std::array<RowEffect, 7> kEffects = {{
    // row                 equal   save   changed  messages
    {STRUCTURE_DISPLAY,  ENDS,   FLAGS, true,    {REDRAW}},
    {STRUCTURE_EASTING,  COUNTS, DATA,  false,   {REDRAW_POINT, FEATURE_UPDATE}},
    {STRUCTURE_NORTHING, COUNTS, DATA,  false,   {REDRAW_POINT, FEATURE_UPDATE}},
    {STRUCTURE_HEIGHT,   COUNTS, DATA,  false,   {FEATURE_UPDATE}},
    {STRUCTURE_HEADING,  COUNTS, DATA,  false,   {FEATURE_UPDATE, REDRAW}},
    {STRUCTURE_SHAPE,    COUNTS, DATA,  false,   {FEATURE_UPDATE, REDRAW}},
    {STRUCTURE_LENGTH,   COUNTS, DATA,  false,   {REDRAW}},
}};
// clang-format on

/// Turns a drawing as its structure is turned, about its own origin.
void Turn(CDxf& shape, double headingDegrees) {
    const double heading = headingDegrees > 0.0 ? headingDegrees : 0.0;
    shape.offsetEasting = shape.offsetNorthing = 0.0;
    shape.rotation = heading;
    shape.sinRotation = heading > 0.0 ? std::sin(heading * kRadiansPerDegree) : 0.0;
    shape.cosRotation = heading > 0.0 ? std::cos(heading * kRadiansPerDegree) : 1.0;
}

}  // namespace

// ---- The view ----

void CStructureView::Paint(CDrawDevice& device) {
    const tagRECT client = {0, 0, GetRect().Width(), GetRect().Height()};
    CMyDC dc(&device);
    dc.background = GetBackground();
    dc.FillSolidRect(client.left, client.top, client.right, client.bottom, GetBackground());
    if (!list) return;
    const FeatureEditState& cursor = list->editState;
    CDxf* const shape = list->ShapeOf(cursor.editFileIndex, cursor.editPointIndex);
    if (!shape) return;
    ComputeScaling(client, shape->extMin.x, shape->extMin.y, shape->extMax.x, shape->extMax.y);
    Turn(*shape, (*list)[cursor.editFileIndex][cursor.editPointIndex].heading);
    DrawDxf(dc, shape);
    DrawGrid(dc);
}

// ---- The pane ----

CStructurePane::CStructurePane(Platform& owner)
    : CPropertyPane(owner, kListRows, kEffects), strip(*this, kStrip), view(*this, kViewId) {
    AddControl(GetPropertyList());
    AddControl(view);
}

bool CStructurePane::Create(CWnd* parent, UINT id, CStructureList& structures) {
    list = &structures;
    view.SetList(list);
    if (!CreatePane(parent, id, kTitle)) return false;
    SetupComboBox();
    AdjustLayout();
    return true;
}

CStructure* CStructurePane::CurrentFile() const {
    const int file = list->editState.editFileIndex;
    return list->IsValidIndex(file) ? &(*list)[file] : nullptr;
}

StructureDef* CStructurePane::CurrentStructure() const {
    CStructure* const file = CurrentFile();
    const int structure = list->editState.editPointIndex;
    return file && file->IsValidIndex(structure) ? &(*file)[structure] : nullptr;
}

std::optional<tagXY> CStructurePane::GetShownPoint() const {
    const StructureDef* const structure = CurrentStructure();
    return structure ? std::optional<tagXY>(structure->position) : std::nullopt;
}

/// Puts the cursor on a file, on a structure of it as far as it is there.
void CStructurePane::MoveCursor(int file, int structure) {
    list->ResetEditCursor();
    list->SetEditCursor(file, structure);
}

void CStructurePane::SetupComboBox() {
    std::vector<std::string> names;
    for (int i = 0; i < list->GetCount(); ++i) names.push_back(NameOfPath(list->GetPath(i)));
    strip.SetNames(names);
    std::string noted;
    if (!list->IsEmpty()) {
        const int point = list->editState.editPointIndex;
        noted = list->CurrentFileName();
        const int file = noted.empty() ? 0 : std::max(list->Find(noted), 0);
        MoveCursor(file, point);
        strip.GetCombo().SetCurSel(list->editState.editFileIndex);
    }
    InitPropList(noted, false);
}

// ---- Rows ----

void CStructurePane::InitPropList(std::string_view path, bool force) {
    if (!path.empty() && !force && path == shownPath && GetPropertyList().GetPropertyCount() > 0) return;
    shownPath = path;
    if (!shownPath.empty()) {
        const int file = list->Find(shownPath);
        const int point = list->editState.editPointIndex;
        MoveCursor(std::max(file, 0), file >= 0 ? point : 0);
        if (!CurrentStructure()) MoveCursor(list->editState.editFileIndex, 0);
    }
    CPropertyPane::InitPropList();
    view.Invalidate();
}

void CStructurePane::BuildPropertyRows() {
    const CStructure* const file = CurrentFile();
    if (shownPath.empty() || !file) {
        GetPropertyList().Add<CMFCPropertyGridTitleProperty>("No Files Selected");
        return;
    }
    GetPropertyList()
        .AddGroup("Properties")
        .Add<CMFCPropertyGridProperty>("Display", file->Status, "Determine whether to display Structure File",
                                       STRUCTURE_DISPLAY);
    const StructureDef none{.name = std::string(kNoName)};
    const StructureDef* const structure = CurrentStructure();
    BuildStructureRows(structure ? *structure : none);
    BuildShapeRows(structure ? *structure : none);
}

void CStructurePane::BuildStructureRows(const StructureDef& structure) {
    auto& group = GetPropertyList().AddGroup("Structure");
    lastName = structure.name;
    auto& name = group.Add<CMFCPropertyGridProperty>("Name", structure.name, "Name of Structure", STRUCTURE_NAME);
    for (const StructureDef& other : *CurrentFile()) name.AddOption(other.name);
    group.Add<CMFCPropertyGridDouble>("Easting", structure.position.x, "%10.2lfE", "Easting of the Structure",
                                      STRUCTURE_EASTING);
    group.Add<CMFCPropertyGridDouble>("Northing", structure.position.y, "%10.2lfN", "Northing of the Structure",
                                      STRUCTURE_NORTHING);
    group.Add<CMFCPropertyGridDouble>("Height", structure.height, "%10.2lf", "Height of the Structure",
                                      STRUCTURE_HEIGHT);
    group.Add<CMFCPropertyGridAngleDouble>("Heading", structure.heading, AS_SHORT, "Alignment of Structure",
                                           STRUCTURE_HEADING);
    group.Add<CMFCPropertyGridDualButton>("Add", "Delete", "Add and delete Structures", STRUCTURE_BUTTONS);
}

void CStructurePane::BuildShapeRows(const StructureDef& structure) {
    auto& group = GetPropertyList().AddGroup("Shape");
    auto& file =
        group.Add<CMFCPropertyGridProperty>("File", structure.shape, "File File for Structure", STRUCTURE_SHAPE);
    for (const auto& shape : list->Shapes()) file.AddOption(NameOfPath(shape->fileName));
    file.AllowEdit(false);
    const tagXY size = list->ShapeSize(structure);
    auto& x = group.Add<CMFCPropertyGridDouble>("X (Units)", size.x, "%10.2lf", "Width of Shape", 0u);
    auto& y = group.Add<CMFCPropertyGridDouble>("Y (Units)", size.y, "%10.2lf", "Width of Shape", 0u);
    group
        .Add<CMFCPropertyGridDouble>("Length", structure.length, "%10.2lf",
                                     "Required length of the longest side of the Structure", STRUCTURE_LENGTH)
        .SetRange(kMetresRange);
    auto& scale = group.Add<CMFCPropertyGridDouble>("Scale Factor", list->ScaleFactor(structure), "%16.8lf",
                                                    "Scale Factor to change Shape Units int Real World Units", 0u);
    for (CMFCPropertyGridProperty* const row : std::initializer_list<CMFCPropertyGridProperty*>{&x, &y, &scale}) {
        row->AllowEdit(false);
    }
}

/// Rows without an id are known by their place.
void CStructurePane::SetShapeRow(SHAPE_ROW row, double value) {
    constexpr int kShapeGroup = 2;
    if (GetPropertyList().GetPropertyCount() <= kShapeGroup) return;
    GetPropertyList().GetProperty(kShapeGroup).GetSubItem(row).SetValue(value);
}

void CStructurePane::SetRow(UINT id, RowValue value) {
    if (CMFCPropertyGridProperty* const row = GetPropertyList().FindItemByData(id)) row->SetValue(std::move(value));
}

void CStructurePane::UpdateProperty() {
    if (const CStructure* const file = CurrentFile()) SetRow(STRUCTURE_DISPLAY, file->Status);
    UpdatePosition();
}

void CStructurePane::UpdatePosition() {
    const StructureDef* const structure = CurrentStructure();
    if (!structure) return;
    SetRow(STRUCTURE_EASTING, structure->position.x);
    SetRow(STRUCTURE_NORTHING, structure->position.y);
    SetRow(STRUCTURE_HEIGHT, structure->height);
    SetRow(STRUCTURE_HEADING, structure->heading);
}

void CStructurePane::UpdateShape() {
    const StructureDef* const structure = CurrentStructure();
    if (!structure) return;
    SetRow(STRUCTURE_SHAPE, structure->shape);
    const tagXY size = list->ShapeSize(*structure);
    SetShapeRow(SHAPE_X, size.x);
    SetShapeRow(SHAPE_Y, size.y);
    SetRow(STRUCTURE_LENGTH, structure->length);
    SetShapeRow(SHAPE_SCALE, list->ScaleFactor(*structure));
    view.Invalidate();
}

void CStructurePane::UpdateNameComboBox() {
    CMFCPropertyGridProperty* const name = GetPropertyList().FindItemByData(STRUCTURE_NAME);
    const CStructure* const file = CurrentFile();
    if (!name || !file) return;
    name->RemoveAllOptions();
    for (const StructureDef& structure : *file) name->AddOption(structure.name);
    name->SetValue(lastName);
}

// ---- The host's ----

void CStructurePane::Update() {
    if (!GetPropertyList().FindItemByData(STRUCTURE_NAME)) return;
    strip.GetCombo().SetCurSel(list->editState.editFileIndex);
    if (const StructureDef* const structure = CurrentStructure()) {
        lastName = structure->name;
        UpdateNameComboBox();
    }
    UpdateProperty();
    UpdateShape();
}

void CStructurePane::AddStructure() {
    UpdateNameComboBox();
    UpdatePosition();
    UpdateShape();
    BroadcastAll({FEATURE_UPDATE});
}

bool CStructurePane::MoveToEditPoint() {
    const StructureDef* const structure = CurrentStructure();
    if (structure) {
        BroadcastRedraw(structure->position);
        return true;
    }
    list->editState.editPointIndex = -1;
    return false;
}

void CStructurePane::PlaceStructure(tagXY position, double headingDegrees) {
    StructureDef* const structure = CurrentStructure();
    if (!structure) return;
    constexpr double kFullTurn = 360.0;
    const double heading = std::fmod(headingDegrees, kFullTurn);
    structure->position = position;
    structure->heading = heading < 0.0 ? heading + kFullTurn : heading;
    CurrentFile()->Write();
    UpdatePosition();
    view.Invalidate();
    BroadcastAll({REDRAW_POINT, FEATURE_UPDATE});
}

void CStructurePane::SetEdit(bool on) {
    ApplyColourScheme(GetPropertyList(), on ? kEditScheme : kFeaturePaneScheme);
}

void CStructurePane::Refresh() {
    SetupComboBox();
    RefreshRows();
    AdjustLayout();
}

/// The list may have got its first file after the combo was set up: its rows are built by the path of the cursor.
void CStructurePane::RefreshRows() {
    InitPropList(list->CurrentFileName(), true);
}

void CStructurePane::SetNightMode(bool on) {
    CPropertyPane::SetNightMode(on);
    view.SetNightMode(on);
}

// ---- Changes ----

LRESULT CStructurePane::OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) {
    const UINT id = row.GetData();
    if (!CurrentFile() || (id >= STRUCTURE_EASTING && !CurrentStructure())) return 0;
    if (id == STRUCTURE_NAME) {
        StoreName(row);
    } else if (id == STRUCTURE_BUTTONS) {
        OnButtons(row.Get<std::int32_t>());
    } else {
        CPropertyPane::OnPropertyChanged(wParam, row);
    }
    return 0;
}

bool CStructurePane::StoreRow(CMFCPropertyGridProperty& row) {
    if (row.GetData() == STRUCTURE_DISPLAY) return Take(CurrentFile()->Status, row);
    StructureDef& structure = *CurrentStructure();
    switch (static_cast<STRUCTURE_ROW>(row.GetData())) {
        case STRUCTURE_EASTING:
            return Take(structure.position.x, row);
        case STRUCTURE_NORTHING:
            return Take(structure.position.y, row);
        case STRUCTURE_HEIGHT:
            return Take(structure.height, row);
        case STRUCTURE_HEADING: {
            const bool differed = Take(structure.heading, row);
            view.Invalidate();
            return differed;
        }
        case STRUCTURE_SHAPE: {
            const bool differed = Take(structure.shape, row);
            UpdateShape();
            return differed;
        }
        case STRUCTURE_LENGTH: {
            const bool differed = Take(structure.length, row);
            UpdateShape();
            return differed;
        }
        case STRUCTURE_DISPLAY:
        case STRUCTURE_NAME:
        case STRUCTURE_BUTTONS:
            break;
    }
    return false;
}

void CStructurePane::SaveFile(std::uint8_t save) {
    CStructure* const file = CurrentFile();
    if (!file) return;
    if (save == FLAGS) file->SaveCommon();
    if (save == DATA) file->Write();
}

/// A name that another structure has chooses that structure; any other one renames the current.
void CStructurePane::StoreName(CMFCPropertyGridProperty& row) {
    CStructure& file = *CurrentFile();
    const std::string text = row.Get<std::string>();
    const auto named = std::find_if(file.begin(), file.end(),
                                    [&](const StructureDef& structure) { return EqualNoCase(structure.name, text); });
    if (named != file.end()) {
        MoveCursor(list->editState.editFileIndex, static_cast<int>(named - file.begin()));
        list->Save();
        lastName = named->name;
        row.SetValue(lastName);
        MoveToEditPoint();
        UpdatePosition();
        UpdateShape();
        return;
    }
    StructureDef* const structure = CurrentStructure();
    if (!structure) return;
    structure->name = lastName = SettledStructureName(text, list->editState.editPointIndex);
    UpdateNameComboBox();
    BroadcastAll({FEATURE_UPDATE});
}

void CStructurePane::OnButtons(int button) {
    if (button == 0) {
        AppendDefault();
    } else if (!CurrentFile()->IsEmpty()) {
        RemoveCurrent();
    }
    UpdatePosition();
    UpdateShape();
    BroadcastAll({REDRAW_POINT});
    if (const StructureDef* const structure = CurrentStructure()) lastName = structure->name;
    UpdateNameComboBox();
    BroadcastAll({REDRAW, FEATURE_UPDATE});
}

void CStructurePane::AppendDefault() {
    CStructure& file = *CurrentFile();
    StructureDef added{.name = SettledStructureName({}, file.GetSize())};
    list->TakeDefaultShape(added);
    const CStructure::Index place = file.Add(std::move(added));
    MoveCursor(list->editState.editFileIndex, static_cast<int>(place));
    list->Save();
}

void CStructurePane::RemoveCurrent() {
    CStructure& file = *CurrentFile();
    const int fileIndex = list->editState.editFileIndex;
    const int current = list->editState.editPointIndex;
    file.RemoveAt(current);
    if (file.IsEmpty()) {
        AppendDefault();
    } else {
        MoveCursor(fileIndex, std::min(current, static_cast<int>(file.GetUpperBound())));
        list->Save();
    }
    file.Write();
}

// ---- Files ----

void CStructurePane::OnCommand(UINT control) {
    if (control == kStrip.add) OnAdd();
    if (control == kStrip.remove) OnRemove();
    if (control == kStrip.combo) OnStructureCombo();
}

void CStructurePane::OnStructureCombo() {
    const int chosen = strip.GetCombo().GetCurSel();
    if (chosen == list->editState.editFileIndex || !list->IsValidIndex(chosen)) return;
    MoveCursor(chosen, 0);
    list->Save();
    InitPropList(list->GetPath(chosen), false);
    UpdateProperty();
    MoveToEditPoint();
    BroadcastAll({SET_FOCUS_FEATURE});
}

void CStructurePane::OnAdd() {
    std::vector<std::string> paths;
    if (!SelectFeatureFiles(*this, "Structure", paths)) return;
    for (const std::string& path : paths) list->Add(path);
    SetupComboBox();
    strip.GetCombo().SetCurSel(strip.GetCombo().GetCount() - 1);
    list->Save();
    BroadcastAll({REDRAW, FEATURE_UPDATE});
}

void CStructurePane::OnRemove() {
    const int removed = strip.GetCombo().GetCurSel();
    if (!list->IsValidIndex(removed)) return;
    list->RemoveAt(removed);
    FeatureEditState& cursor = list->editState;
    if (cursor.editFileIndex == removed) {
        cursor.editFileIndex = static_cast<std::int16_t>(removed - 1);
        cursor.editPointIndex = cursor.editFileIndex < 0 ? -1 : 0;
    }
    if (!list->IsValidIndex(cursor.editFileIndex)) list->ResetEditCursor();
    list->Save();
    shownPath.clear();
    SetupComboBox();
    list->Save();
    BroadcastAll({FEATURE_UPDATE, REDRAW});
}

}  // namespace quillon
