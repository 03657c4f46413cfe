#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/feature_list_ctrl.h"
#include "frame/my_dockable_pane.h"
#include "frame/points_table.h"
#include "platform/property_grid.h"

namespace quillon {

/// A pane of a property list and a points table, and what stands above them. The base of every pane of the library.
class CPropertyPane : public CMyDockablePane {
public:
    CPropertyPane(Platform& platform, UINT tableId, int listRows);

    // A host that changes the pane's objects by itself brings the pane up to date by these, in this order.
    virtual void SetupComboBox() {}
    void InitPropList();
    void CreateTable();
    void AdjustLayout();

    virtual void UpdateAllPositions();

    void SetNightMode(bool night);
    void SetDaylightMode() { SetNightMode(false); }
    bool GetNightMode() const { return propertyList.night; }
    void SetVSDotNetLook(int look);

    virtual LRESULT OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) = 0;
    virtual LRESULT OnSelectPoint(WPARAM wParam, LPARAM row);
    void OnSetFocus() override;
    void OnSettingChange() override;
    LRESULT OnMessage(const MSG& message) override;

    CMyMFCPropertyGridCtrl& GetPropertyList() { return propertyList; }
    CFeatureListCtrl& GetTable() { return table; }

protected:
    /// Fills the empty property list.
    virtual void BuildPropertyRows() = 0;
    /// The points table as it should be now; without rows where there is nothing to show.
    virtual PointsTable CurrentTable() = 0;
    /// Places what stands above the property list in a strip `width` wide; its lower edge.
    virtual int LayOutTop(int width) = 0;

    void OnSize(tagSIZE size) override;

private:
    int listRows;
    CMyMFCPropertyGridCtrl propertyList;
    CFeatureListCtrl table;
};

/// Height of the strip of buttons at the top of a pane, pixels.
inline constexpr int kPaneButtonHeight = 30;

}  // namespace quillon
