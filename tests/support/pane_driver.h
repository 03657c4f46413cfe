#pragma once

#include <string>
#include <variant>
#include <vector>

#include "frame/my_dockable_pane.h"
#include "platform/property_grid.h"
#include "platform/tab_ctrl.h"
#include "platform/text.h"

namespace quillon {

// What the sweeps over all panes do with a pane, whichever it is.

inline void CollectRows(CMFCPropertyGridProperty& row, std::vector<CMFCPropertyGridProperty*>& rows) {
    if (row.IsGroup()) {
        for (int i = 0; i < row.GetSubItemsCount(); ++i) CollectRows(row.GetSubItem(i), rows);
    } else {
        rows.push_back(&row);
    }
}

/// The property lists of a pane, those on the pages of tabs too.
inline std::vector<CMyMFCPropertyGridCtrl*> ListsOf(const CMyDockablePane& pane) {
    std::vector<CMyMFCPropertyGridCtrl*> lists;
    const auto add = [&lists](CControl& control) {
        if (auto* const list = dynamic_cast<CMyMFCPropertyGridCtrl*>(&control)) lists.push_back(list);
    };
    for (CControl* const control : pane.GetControls()) {
        add(*control);
        const auto* const tabs = dynamic_cast<const CMFCTabCtrl*>(control);
        for (int i = 0; tabs && i < tabs->GetTabsNum(); ++i) add(tabs->GetTabWnd(i));
    }
    return lists;
}

inline CListCtrl* TableOf(const CMyDockablePane& pane) {
    for (CControl* const control : pane.GetControls()) {
        if (auto* const table = dynamic_cast<CListCtrl*>(control)) return table;
    }
    return nullptr;
}

struct ListRow {
    CMyMFCPropertyGridCtrl* list;
    CMFCPropertyGridProperty* row;
};

inline std::vector<ListRow> AllRows(const CMyDockablePane& pane) {
    std::vector<ListRow> all;
    for (CMyMFCPropertyGridCtrl* const list : ListsOf(pane)) {
        std::vector<CMFCPropertyGridProperty*> rows;
        for (int i = 0; i < list->GetPropertyCount(); ++i) CollectRows(list->GetProperty(i), rows);
        for (CMFCPropertyGridProperty* const row : rows) all.push_back({list, row});
    }
    return all;
}

/// The text of a value that the row offers and doesn't hold; its own where it offers no other.
inline std::string AnotherText(const CMFCPropertyGridProperty& row) {
    const std::string now = row.FormatProperty();
    for (const RowChoice& choice : row.GetChoices()) {
        if (choice.text != now) return choice.text;
    }
    for (int i = 0; i < row.GetOptionCount(); ++i) {
        if (row.GetOption(i) != now) return row.GetOption(i);
    }
    if (std::holds_alternative<bool>(row.GetValue())) return row.Get<bool>() ? "False" : "True";
    if (std::holds_alternative<double>(row.GetValue())) return Format("%.1lf", row.Get<double>() + 12.0);
    if (std::holds_alternative<std::int32_t>(row.GetValue())) return Format("%d", row.Get<std::int32_t>() + 3);
    return now;
}

}  // namespace quillon
