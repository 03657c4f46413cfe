#pragma once

#include <memory>
#include <string_view>

#include "background/shape_file_list.h"
#include "frame/file_strip.h"
#include "panes/property_pane.h"

namespace quillon {

/// The rows of the shape pane that react.
enum SHAPE_PANE_ROW : UINT {
    SHAPE_ROW_DISPLAY = 1,
    SHAPE_ROW_COLOUR = 2,
    SHAPE_ROW_STYLE = 3,
    SHAPE_ROW_THICKNESS = 4,
    SHAPE_ROW_FILL = 5,
    SHAPE_ROW_LABEL_MODE = 6,
    SHAPE_ROW_LABEL_COLUMN = 7,
    SHAPE_ROW_LABEL_POSITION = 8,
    SHAPE_ROW_ICON = 9
};

/// Names the shape files under the job's chart and edits how each is drawn. They are added one by one, or by chart out
/// of a folder tree. The list is the host's and outlives the pane.
class CShapePane : public CPropertyPane {
public:
    static constexpr UINT kTitleId = 12020;
    static constexpr std::string_view kTitle = "Shape Properties";

    explicit CShapePane(Platform& platform);
    bool Create(CWnd* parent, UINT id, CShapeFileList& shapes);

    /// Asks for files, and loads them behind a window each.
    void OnAdd();
    /// The same with charts of a folder tree.
    void OnAddCharts();
    void OnRemove();
    void OnCombo() { InitPropList(); }

    void Refresh() override;
    void OnCommand(UINT control) override;
    LRESULT OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) override;

    CComboBox& GetCombo() { return strip.GetCombo(); }
    CButton* GetFileButton() override { return &strip.GetAddButton(); }
    FileControls GetFileControls() override { return strip.Controls(); }
    CColourButton& GetRemoveButton() { return strip.GetRemoveButton(); }
    CColourButton& GetChartsButton() { return chartsButton; }

private:
    /// The shape that the combo shows; null if there is none, or it couldn't be loaded.
    std::shared_ptr<CShape> Current() const;
    /// Its path; empty for none.
    std::string CurrentPath() const;

    void BuildPropertyRows() override;
    void BuildShapeRows(const CShape& shape);
    bool StoreRow(CMFCPropertyGridProperty& row) override;
    void SaveFile(std::uint8_t save) override;
    int LayOutTop(int width) override;

    void SetupComboBox();
    void AddPaths(const std::vector<std::string>& paths);

    CShapeFileList* list = nullptr;
    CFileStrip strip;
    CColourButton chartsButton;
};

}  // namespace quillon
