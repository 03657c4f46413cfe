#pragma once

#include <span>

#include "frame/my_dockable_pane.h"
#include "frame/row_effects.h"
#include "platform/property_grid.h"

namespace quillon {

/// A pane with one property list. What stands above the list and what fills the rest below it, a table or a view, are
/// the derived pane's: members that it names in `LayOutTop` and `GetRest`. What follows a changed row stands in a table
/// of effects.
class CPropertyPane : public CMyDockablePane, private RowEffectTarget {
public:
    /// `listRows`: height of the list in rows, where something fills the rest below it.
    CPropertyPane(Platform& platform, int listRows, std::span<const RowEffect> effects);

    void InitPropList();
    void AdjustLayout() override;
    void RefreshRows() override {
        propertyList.Renew([this] { BuildPropertyRows(); });
    }
    void Refresh() override;
    virtual LRESULT OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row);
    void OnSetFocus() override { SetFocusTo(propertyList); }
    LRESULT OnMessage(const MSG& message) override;

    CMyMFCPropertyGridCtrl& GetPropertyList() { return propertyList; }

protected:
    /// Fills the empty property list.
    virtual void BuildPropertyRows() = 0;
    /// Stores the row's value and refreshes the rows that hang on it. False if the value was the one held.
    virtual bool StoreRow(CMFCPropertyGridProperty& row) = 0;
    /// Writes one of the pane's files; the number is the one of the effects table.
    void SaveFile(std::uint8_t save) override = 0;
    void SetChanged() override {}

    /// Places what stands above the property list in a strip `width` wide; its lower edge.
    virtual int LayOutTop(int) { return 0; }
    /// What fills the rest below the property list; null where the list does.
    virtual CControl* GetRest() { return nullptr; }

private:
    void Broadcast(const Posts& posts) override { BroadcastAll(posts); }

    int listRows;
    std::span<const RowEffect> effects;
    CMyMFCPropertyGridCtrl propertyList;
};

}  // namespace quillon
