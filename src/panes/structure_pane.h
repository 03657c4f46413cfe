#pragma once

#include <string>
#include <string_view>

#include "display/outline_view.h"
#include "features/structure.h"
#include "frame/file_strip.h"
#include "panes/property_pane.h"

namespace quillon {

/// The rows of the structure pane that react.
enum STRUCTURE_ROW : UINT {
    STRUCTURE_DISPLAY = 1,
    STRUCTURE_NAME = 2,
    STRUCTURE_EASTING = 3,
    STRUCTURE_NORTHING = 4,
    STRUCTURE_HEIGHT = 5,
    STRUCTURE_HEADING = 6,
    STRUCTURE_BUTTONS = 7,
    STRUCTURE_SHAPE = 8,
    STRUCTURE_LENGTH = 9
};

/// Draws the shape of the list's current structure, turned by its heading, in the units of the drawing.
class CStructureView : public COutlineView {
public:
    using COutlineView::COutlineView;
    void SetList(CStructureList* structures) { list = structures; }
    void Paint(CDrawDevice& device) override;

private:
    CStructureList* list = nullptr;
};

/// Edits one structure of one file at a time: the one that the list's edit cursor names, since the host moves it too.
/// Under the properties stands the structure's shape.
class CStructurePane : public CPropertyPane {
public:
    static constexpr UINT kTitleId = 12088;
    static constexpr std::string_view kTitle = "Structure Property";

    explicit CStructurePane(Platform& platform);
    bool Create(CWnd* parent, UINT id, CStructureList& structures);

    void SetupComboBox();
    /// Builds the rows for the file of this path. Without `force` rows that are for it already stay.
    void InitPropList(std::string_view path, bool force);
    void UpdateProperty();
    void UpdatePosition();
    void UpdateShape();
    void UpdateNameComboBox();

    // For the host.

    /// The host has moved the cursor.
    void Update();
    void UpdateView() { view.Invalidate(); }
    /// The host has added a structure and put the cursor on it.
    void AddStructure();
    /// Asks for the cursor's structure to be shown. False if there is none.
    bool MoveToEditPoint();
    /// The host has moved or turned the cursor's structure on its chart: it is stored and written, once. Metres and
    /// degrees; of what lies beyond the heading's row a whole turn is taken off or added.
    void PlaceStructure(tagXY position, double headingDegrees);
    /// The structures are edited on the chart: the pane says so by its colours.
    void SetEdit(bool on);

    void Refresh() override;
    void RefreshRows() override;
    void SetNightMode(bool on) override;
    LRESULT OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) override;
    void OnCommand(UINT control) override;

    CButton* GetFileButton() override { return &strip.GetAddButton(); }
    FileControls GetFileControls() override { return strip.Controls(); }
    CComboBox& GetCombo() { return strip.GetCombo(); }
    CColourButton& GetAddButton() { return strip.GetAddButton(); }
    CColourButton& GetRemoveButton() { return strip.GetRemoveButton(); }
    CStructureView& GetView() { return view; }

private:
    void BuildPropertyRows() override;
    void BuildStructureRows(const StructureDef& structure);
    /// Places of the rows in the group "Shape" that have no reaction and so no id.
    enum SHAPE_ROW { SHAPE_X = 1, SHAPE_Y = 2, SHAPE_SCALE = 4 };
    void SetShapeRow(SHAPE_ROW row, double value);
    void BuildShapeRows(const StructureDef& structure);
    bool StoreRow(CMFCPropertyGridProperty& row) override;
    void SaveFile(std::uint8_t save) override;
    void SetChanged() override { list->changed = true; }
    int LayOutTop(int width) override { return strip.LayOut(width); }
    CControl* GetRest() override { return &view; }
    FEATURE_TYPES GetFeatureType() const override { return FEATURE_TYPES::STRUCTURE; }
    std::optional<tagXY> GetShownPoint() const override;

    void OnStructureCombo();
    void OnAdd();
    void OnRemove();
    void StoreName(CMFCPropertyGridProperty& row);
    void OnButtons(int button);
    void AppendDefault();
    void RemoveCurrent();
    void MoveCursor(int file, int structure);

    CStructure* CurrentFile() const;
    StructureDef* CurrentStructure() const;
    void SetRow(UINT id, RowValue value);

    CFileStrip strip;
    CStructureView view;
    CStructureList* list = nullptr;
    std::string shownPath;
    std::string lastName;
};

}  // namespace quillon
