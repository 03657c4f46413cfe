#include "panes/property_pane.h"

#include <algorithm>

#include "frame/colour_schemes.h"
#include "frame/size_columns.h"
#include "platform/platform.h"

namespace quillon {
namespace {

constexpr UINT kPropertyListId = 1;

}  // namespace

CPropertyPane::CPropertyPane(Platform& owner, UINT tableId, int rows)
    : CMyDockablePane(owner), listRows(rows), propertyList(*this, kPropertyListId), table(*this, tableId) {}

void CPropertyPane::InitPropList() {
    propertyList.EnableHeaderCtrl(false, "Property", "Value");
    propertyList.SetVSDotNetLook(true);
    propertyList.EnableDescriptionArea(true);
    ApplyColourScheme(propertyList, kFeaturePaneScheme);
    propertyList.MarkModifiedProperties(true);
    propertyList.RemoveAll();
    BuildPropertyRows();
}

void CPropertyPane::CreateTable() {
    table.DeleteAllItems();
    table.DeleteAllColumns();
    for (const CListCtrl::Column& column : CurrentTable().columns) table.InsertColumn(column.header, column.align);
    UpdateAllPositions();
}

void CPropertyPane::UpdateAllPositions() {
    table.SetRows(CurrentTable().rows);
    SizeColumns(table, false);
}

LRESULT CPropertyPane::OnSelectPoint(WPARAM, LPARAM) {
    return 0;
}

void CPropertyPane::AdjustLayout() {
    const tagSIZE client = GetClientSize();
    const int listTop = LayOutTop(client.width);
    const int tableTop = listTop + listRows * GetPlatform().GetMetric(SYSTEM_METRIC::ROW_HEIGHT);
    propertyList.MoveWindow({0, listTop, client.width, tableTop});
    table.ShowWindow(tableTop < client.height);
    table.MoveWindow({0, tableTop, client.width, std::max(tableTop, client.height)});
}

void CPropertyPane::OnSize(tagSIZE) {
    AdjustLayout();
    SizeColumns(table, false);
}

void CPropertyPane::OnSetFocus() {
    SetFocusTo(propertyList);
}

void CPropertyPane::OnSettingChange() {
    AdjustLayout();
}

void CPropertyPane::SetNightMode(bool night) {
    propertyList.night = night;
    ApplyColourScheme(propertyList, propertyList.colourScheme);
    table.SetNightMode(night);
}

void CPropertyPane::SetVSDotNetLook(int look) {
    propertyList.SetVSDotNetLook(look != 0);
    propertyList.SetGroupNameFullWidth(look != 0);
}

LRESULT CPropertyPane::OnMessage(const MSG& message) {
    if (message.message == UM_SELECT_FEATURE) return OnSelectPoint(message.wParam, message.lParam);
    if (message.message == AFX_WM_PROPERTY_CHANGED) {
        return OnPropertyChanged(message.wParam, *reinterpret_cast<CMFCPropertyGridProperty*>(message.lParam));
    }
    return CMyDockablePane::OnMessage(message);
}

}  // namespace quillon
