#pragma once

#include <string>
#include <vector>

#include "foundation/angle_rows.h"
#include "frame/colour_button.h"
#include "frame/colour_schemes.h"
#include "platform/dockable_pane.h"
#include "platform/platform.h"
#include "platform/property_rows.h"
#include "platform/text.h"

namespace quillon::test {

enum SAMPLE_ID : UINT {
    ADD_BUTTON = 1,
    REMOVE_BUTTON,
    FILE_COMBO,
    PROPERTY_LIST,
    POINTS_TABLE,
};

enum SAMPLE_ROW : UINT {
    DISPLAY_ROW = 1,
    OPTION_ROW,
    COUNT_ROW,
    DEPTH_ROW,
    HEADING_ROW,
    COLOUR_ROW,
    FILL_ROW,
    THICKNESS_ROW,
    SYMBOL_ROW,
    SIZE_ROW,
    LABEL_ROW,
    POSITION_ROW,
    PASSWORD_ROW,
    BUTTONS_ROW,
    LOCKED_ROW,
    COMMENT_ROW,
};

class SampleTable : public CListCtrl {
public:
    using CListCtrl::CListCtrl;
    std::vector<int> clicks;
    void OnItemClick(int row) override { clicks.push_back(row); }
};

/// A pane with each control and each kind of row, laid out as panes are. It writes down what reaches it.
class SamplePane : public CDockablePane {
public:
    explicit SamplePane(Platform& host, bool night = false)
        : CDockablePane(host),
          add(*this, ADD_BUTTON, "Add File", false),
          remove(*this, REMOVE_BUTTON, "Remove File", false),
          files(*this, FILE_COMBO),
          list(*this, PROPERTY_LIST),
          table(*this, POINTS_TABLE) {
        Create("Sample Properties", {300, 700}, 12047);
        for (CControl* control : std::vector<CControl*>{&add, &remove, &files, &list, &table}) AddControl(*control);
        for (const char* file : {"prospect limits.csv", "exclusion zone north.csv", "harbour.csv"})
            files.AddString(file);
        files.SetCurSel(0);
        SetNight(night);
        FillList();
        FillTable(200);
        OnSize(GetClientSize());
    }

    void SetNight(bool night) {
        list.night = night;
        ApplyColourScheme(list, kFeaturePaneScheme);
        const TableColours colours = PointsTableColours(night);
        table.SetColours(colours.background, colours.text);
        table.SetHeaderColours(kTableHeaderColours.background, kTableHeaderColours.text);
    }

    /// All rows anew, as panes do.
    void FillList() {
        list.EnableHeaderCtrl(false, "Property", "Value");
        list.SetVSDotNetLook(true);
        list.SetGroupNameFullWidth(true);
        list.EnableDescriptionArea(true);
        list.MarkModifiedProperties(true);
        list.RemoveAll();
        AddValues(list.AddGroup("Properties"));
        AddPickers(list.AddGroup("Appearance"));
        AddRest(list.AddGroup("Access"));
    }

    void FillTable(int points) {
        table.DeleteAllItems();
        table.DeleteAllColumns();
        for (const char* header : {"No", "Easting", "Northing"}) table.InsertColumn(header, ALIGN::RIGHT);
        table.InsertColumn("Name");
        table.SetRows({points,
                       [this](int row, int column) {
                           ++cellsAsked;
                           if (column == 0) return Format("%d", row + 1);
                           if (column == 3) return Format("WP %d", row);
                           return Format("%.3f", column == 1 ? 512300.25 + row * 12.5 : 6213456.75 - row * 3.125);
                       },
                       {}});
        const int widths[] = {40, 90, 96, 60};
        for (int i = 0; i < 4; ++i) table.SetColumnWidth(i, widths[i]);
    }

    CMFCPropertyGridProperty& Row(SAMPLE_ROW id) { return *list.FindItemByData(id); }

    void OnCommand(UINT control) override { commands.push_back(control); }
    void OnSetFocus() override { SetFocusTo(list); }
    LRESULT OnMessage(const MSG& message) override {
        if (message.message != AFX_WM_PROPERTY_CHANGED) return 0;
        changedRows.push_back(reinterpret_cast<CMFCPropertyGridProperty*>(message.lParam)->GetData());
        if (rebuildOnChange) FillList();
        return 0;
    }

    CColourButton add, remove;
    CComboBox files;
    CMyMFCPropertyGridCtrl list;
    SampleTable table;
    std::vector<UINT> commands;
    std::vector<UINT> changedRows;
    bool rebuildOnChange = false;
    int cellsAsked = 0;

protected:
    void OnSize(tagSIZE size) override {
        const int half = size.width / 2;
        const int combo = GetPlatform().GetMetric(SYSTEM_METRIC::COMBO_HEIGHT);
        const int listEnd = 30 + combo + 24 * GetPlatform().GetMetric(SYSTEM_METRIC::ROW_HEIGHT);
        add.MoveWindow({0, 0, half, 30});
        remove.MoveWindow({half, 0, size.width, 30});
        files.MoveWindow({0, 30, size.width, 30 + combo});
        list.MoveWindow({0, 30 + combo, size.width, listEnd});
        table.MoveWindow({0, listEnd, size.width, size.height});
        table.ShowWindow(size.height > listEnd);
    }

private:
    void AddValues(CMFCPropertyGridProperty& group) {
        group.Add<CMFCPropertyGridBool>("Display", true, "Determine whether to display the file", DISPLAY_ROW);
        auto& order =
            group.Add<CMFCPropertyGridProperty>("Data Order", std::string("Eng, Nng"), "Order of data", OPTION_ROW);
        for (const char* option : {"Eng, Nng", "Nng, Eng", "Lat, Long"}) order.AddOption(option);
        order.AllowEdit(false);
        group.Add<CMFCPropertyGridInteger>("Points", 12, "", "How many points are shown", COUNT_ROW)
            .EnableSpinControl(true, 0, 20);
        group.Add<CMFCPropertyGridDouble>(
            "Depth", 102.53, "%7.1lfm",
            "Depth of the seabed at the feature, below the lowest tide that the chart counts with; positive down",
            DEPTH_ROW);
        group.Add<CMFCPropertyGridAngleDouble>("Heading", 57.5, AS_SHORT, "Heading of the vessel", HEADING_ROW);
        group.Add<CMFCPropertyGridProperty>("Comment", std::string("Caf\xE9 \x80 12"), "Any text", COMMENT_ROW);
    }
    void AddPickers(CMFCPropertyGridProperty& group) {
        group.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", kPalette[12].colour, 28, "Colour of the pen",
                                                         COLOUR_ROW);
        group.Add<CMFCPropertyGridFillStyleProperty>(FILL_STYLE{3}, kPalette[12].colour, FILL_ROW);
        group.Add<CMFCPropertyGridLineThicknessProperty>(3, kPalette[12].colour, THICKNESS_ROW);
        auto& symbol =
            group.Add<CMFCPropertyGridVectorSymbolProperty>("Symbol", 2, 13, "Shape at each point", SYMBOL_ROW);
        symbol.SetColour(kPalette[12].colour);
        group.Add<CMFCPropertyGridSymbolSizeProperty>(3, SIZE_ROW);
        group.Add<CMFCPropertyGridLabelModeProperty>(1, LABEL_ROW);
        group.Add<CMFCPropertyGridLabelPositionProperty>(4, POSITION_ROW);
    }
    void AddRest(CMFCPropertyGridProperty& group) {
        group.Add<CMFCPropertyGridPasswordProperty>(GetPlatform(), PASSWORD_ROW);
        group.Add<CMFCPropertyGridDualButton>("Reverse", "Recompute", "Turns the order of the points round",
                                              BUTTONS_ROW);
        auto& locked = group.Add<CMFCPropertyGridDouble>("Length", 1234.5, "%.2lfm", "From the points", LOCKED_ROW);
        locked.SetLock(true);
        auto& off = group.Add<CMFCPropertyGridProperty>("Disabled", std::string("Not now"), "", 0);
        off.Enable(false);
    }
};

}  // namespace quillon::test
