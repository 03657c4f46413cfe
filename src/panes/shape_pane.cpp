#include "panes/shape_pane.h"

#include <algorithm>
#include <array>

#include "background/load_shape.h"
#include "background/shape_file_selector_dlg.h"
#include "foundation/paths.h"
#include "frame/pane_layout.h"
#include "frame/select_feature_files.h"
#include "panes/row_values.h"
#include "platform/dc.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr CFileStrip::Ids kStripIds = {.combo = 12106, .add = 12107, .remove = 12108};
constexpr UINT kChartsButton = 12109;
constexpr std::uint8_t kSaveSettings = 1;
constexpr std::string_view kFilter = "Shape Files (*.shp)|*.shp|All Files (*.*)|*.*||";

/// The styles of a pen, by their numbers.
constexpr std::array<std::string_view, 5> kStyleNames = {"Solid", "Dash", "Dot", "Dash Dot", "Dash Dot Dot"};

// clang-format off
constexpr RowEffect Plain(UINT row) {
    return {row, ENDS, kSaveSettings, true, {REDRAW}};
}
constexpr std::array<RowEffect, 9> kEffects = {{
    Plain(SHAPE_ROW_DISPLAY), Plain(SHAPE_ROW_COLOUR), Plain(SHAPE_ROW_STYLE), Plain(SHAPE_ROW_THICKNESS),
    Plain(SHAPE_ROW_FILL), Plain(SHAPE_ROW_LABEL_MODE), Plain(SHAPE_ROW_LABEL_COLUMN), Plain(SHAPE_ROW_LABEL_POSITION),
    Plain(SHAPE_ROW_ICON),
}};
// clang-format on

template <class Names>
void AddChoice(CMFCPropertyGridProperty& group, std::string_view name, const Names& texts, int chosen,
               std::string_view description, UINT id) {
    const bool known = chosen >= 0 && static_cast<std::size_t>(chosen) < texts.size();
    auto& row = group.Add<CMFCPropertyGridProperty>(
        name, std::string(known ? std::string_view(texts[static_cast<std::size_t>(chosen)]) : std::string_view()),
        description, id);
    for (const auto& text : texts) row.AddOption(text);
    row.AllowEdit(false);
}

/// The chosen option by its number; false if it is the one held, or none.
template <class Number>
bool TakeChoice(Number& number, const CMFCPropertyGridProperty& row) {
    const int chosen = ChosenOption(row);
    if (chosen < 0 || chosen == number) return false;
    number = static_cast<Number>(chosen);
    return true;
}

void AddFixed(CMFCPropertyGridProperty& group, std::string_view name, const std::string& text,
              std::string_view description) {
    group.Add<CMFCPropertyGridProperty>(name, text, description, 0u).AllowEdit(false);
}

}  // namespace

CShapePane::CShapePane(Platform& owner)
    : CPropertyPane(owner, 0, kEffects),
      strip(*this, kStripIds),
      chartsButton(*this, kChartsButton, "Charts...", false) {
    AddControl(chartsButton);
    AddControl(GetPropertyList());
}

bool CShapePane::Create(CWnd* parent, UINT id, CShapeFileList& shapes) {
    list = &shapes;
    if (!CreatePane(parent, id, kTitle)) return false;
    Refresh();
    return true;
}

void CShapePane::Refresh() {
    SetupComboBox();
    CPropertyPane::Refresh();
}

int CShapePane::LayOutTop(int width) {
    const int bottom = strip.LayOut(width);
    PlaceInRow({&strip.GetAddButton(), &chartsButton, &strip.GetRemoveButton()}, {0, 0, width, kPaneButtonHeight});
    return bottom;
}

void CShapePane::SetupComboBox() {
    CComboBox& combo = strip.GetCombo();
    const int noted = combo.GetCurSel();
    std::vector<std::string> names;
    for (const std::string& path : list->files.paths) names.push_back(NameOfPath(path));
    strip.SetNames(names);
    if (!names.empty()) combo.SetCurSel(std::clamp(noted, 0, static_cast<int>(names.size()) - 1));
}

std::string CShapePane::CurrentPath() const {
    const auto selected = static_cast<std::size_t>(strip.GetCombo().GetCurSel());
    return list && selected < list->files.paths.size() ? list->files.paths[selected] : std::string();
}

std::shared_ptr<CShape> CShapePane::Current() const {
    const std::string path = CurrentPath();
    return path.empty() ? nullptr : list->Find(path);
}

// ---- Rows ----

void CShapePane::BuildPropertyRows() {
    const std::string path = CurrentPath();
    const auto shape = Current();
    if (path.empty()) {
        GetPropertyList().Add<CMFCPropertyGridTitleProperty>("No Files Selected");
    } else if (shape) {
        BuildShapeRows(*shape);
    } else {
        auto& group = GetPropertyList().AddGroup("Not Loaded");
        AddFixed(group, "File", path, "Where the shape file is looked for");
        AddFixed(group, "Reason", list->ReportOf(path).fault, "Why it isn't shown");
    }
}

void CShapePane::BuildShapeRows(const CShape& shape) {
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridProperty>("Display", shape.status, "Determine whether to display Shape File",
                                             SHAPE_ROW_DISPLAY);
    AddFixed(properties, "Type", std::string(ShapeTypeName(shape.shapeType)), "What the records of the file are");
    AddFixed(properties, "Records", Format("%zu", shape.records.size()), "Number of records");
    AddFixed(properties, "Projection", shape.geographic ? "Geographic" : shape.grid.name, "From the .prj beside it");

    const tagPen& pen = shape.pen;
    auto& drawing = GetPropertyList().AddGroup("Drawing");
    drawing.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", pen.colour, kPaletteCount,
                                                       "Specifies the pen colour of the Shape File", SHAPE_ROW_COLOUR);
    AddChoice(drawing, "Style", kStyleNames, pen.style, "Specifies the pen style of lines", SHAPE_ROW_STYLE);
    drawing.Add<CMFCPropertyGridLineThicknessProperty>(pen.thickness, pen.colour, SHAPE_ROW_THICKNESS);
    drawing.Add<CMFCPropertyGridFillStyleProperty>(pen.fill, pen.colour, SHAPE_ROW_FILL);
    drawing.Add<CMFCPropertyGridProperty>("Icon", shape.iconMode, "Draw points as icons, not as dots", SHAPE_ROW_ICON);

    auto& labels = GetPropertyList().AddGroup("Labels");
    labels.Add<CMFCPropertyGridLabelModeProperty>(shape.labelMode, SHAPE_ROW_LABEL_MODE);
    AddChoice(labels, "Label Column", shape.dbase.columns, shape.labelColumn,
              "Column of the attribute table that names the records", SHAPE_ROW_LABEL_COLUMN);
    labels.Add<CMFCPropertyGridLabelPositionProperty>(shape.labelPosition, SHAPE_ROW_LABEL_POSITION);
}

// ---- Changes ----

LRESULT CShapePane::OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) {
    return Current() ? CPropertyPane::OnPropertyChanged(wParam, row) : 0;
}

bool CShapePane::StoreRow(CMFCPropertyGridProperty& row) {
    CShape& shape = *Current();
    switch (static_cast<SHAPE_PANE_ROW>(row.GetData())) {
        case SHAPE_ROW_DISPLAY:
            return Take(shape.status, row);
        case SHAPE_ROW_COLOUR: {
            const bool differed = Take(shape.pen.colour, row);
            ColourRow(GetPropertyList(), SHAPE_ROW_THICKNESS, shape.pen.colour);
            ColourRow(GetPropertyList(), SHAPE_ROW_FILL, shape.pen.colour);
            return differed;
        }
        case SHAPE_ROW_STYLE:
            return TakeChoice(shape.pen.style, row);
        case SHAPE_ROW_THICKNESS:
            return Take(shape.pen.thickness, row);
        case SHAPE_ROW_FILL:
            return Take(shape.pen.fill, row);
        case SHAPE_ROW_LABEL_MODE:
            return Take(shape.labelMode, row);
        case SHAPE_ROW_LABEL_COLUMN:
            return TakeChoice(shape.labelColumn, row);
        case SHAPE_ROW_LABEL_POSITION:
            return Take(shape.labelPosition, row);
        case SHAPE_ROW_ICON:
            return Take(shape.iconMode, row);
    }
    return false;
}

void CShapePane::SaveFile(std::uint8_t) {
    if (const auto shape = Current()) shape->WriteSettings();
}

// ---- Files that come and go ----

void CShapePane::OnCommand(UINT control) {
    if (control == kStripIds.add) OnAdd();
    if (control == kStripIds.remove) OnRemove();
    if (control == kStripIds.combo) OnCombo();
    if (control == kChartsButton) OnAddCharts();
}

void CShapePane::OnAdd() {
    std::vector<std::string> paths;
    if (SelectFeatureFiles(*this, "Shape", paths, kFilter)) AddPaths(paths);
}

void CShapePane::OnAddCharts() {
    CShapeFileSelectorDlg dialog(GetPlatform(), this);
    std::string folder = list->files.folder;
    if (!folder.empty()) EndInSeparator(folder);
    std::vector<std::string> paths;
    dialog.SetPath(folder, true);
    dialog.SetFiles(&paths);
    if (dialog.DoModal() == IDOK) AddPaths(paths);
}

/// A file that stands in the list isn't loaded again. One that can't be read is told at once: it leaves no row behind
/// in which the reason could be seen.
void CShapePane::AddPaths(const std::vector<std::string>& paths) {
    std::string failed;
    for (const std::string& path : paths) {
        const bool listed = std::any_of(list->files.paths.begin(), list->files.paths.end(),
                                        [&path](const std::string& known) { return EqualNoCase(known, path); });
        if (listed || AddShapeFile(path, *list, LoadShapeInWindow(GetPlatform(), this))) continue;
        failed += path + "\n" + list->ReportOf(path).fault + "\n";
    }
    SetupComboBox();
    strip.GetCombo().SetCurSel(strip.GetCombo().GetCount() - 1);
    InitPropList();
    BroadcastAll({REDRAW});
    if (!failed.empty()) GetPlatform().WarningMessage(Trim(failed));
}

void CShapePane::OnRemove() {
    const std::string path = CurrentPath();
    if (path.empty()) return;
    CComboBox& combo = strip.GetCombo();
    const int noted = combo.GetCurSel();
    GetPropertyList().RemoveAll();
    list->Remove(path);
    list->Save();
    SetupComboBox();
    if (combo.GetCount() > 0) combo.SetCurSel(std::max(noted - 1, 0));
    InitPropList();
    BroadcastAll({REDRAW});
}

}  // namespace quillon
