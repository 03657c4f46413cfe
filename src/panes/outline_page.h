#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "foundation/paths.h"
#include "panes/row_values.h"
#include "target/outline.h"

namespace quillon {

/// One tab of the target pane: a property list over a vessel or template, or over none. Rows without an id are known
/// by their place, since a list brought up to date keeps its rows.
class COutlinePage {
public:
    COutlinePage(CWnd& tabs, UINT id) : list(tabs, id) {}
    virtual ~COutlinePage() = default;

    virtual std::string_view GetLabel() const = 0;
    CMyMFCPropertyGridCtrl& GetList() { return list; }
    void SetObject(COutline* edited) { object = edited; }

    /// Builds the list anew; its colours stay.
    void Init();
    /// Brings the rows up to date.
    void Renew() {
        list.Renew([this] { Build(); });
    }
    /// Stores the value of one of the page's rows. There is an object.
    virtual void Store(const CMFCPropertyGridProperty& row) = 0;

protected:
    struct Place {
        int group;
        int row;
    };

    virtual void BuildRows() = 0;
    COutline& Object() const { return *object; }

    void SetRow(UINT id, RowValue value);
    void SetRow(Place place, double value);
    void SetChoicesOf(UINT id, const Choices& choices);
    void ShowRow(UINT id, bool shown);
    /// True and grid alignment and convergence, the rows of a group "Alignment".
    void BuildAlignment(UINT trueId);
    void ShowAlignment(UINT trueId, int group);

    /// A number that is worked out and can't be typed.
    static void AddShown(CMFCPropertyGridProperty& group, std::string_view name, double value, std::string_view format,
                         std::string_view description = {}, UINT id = 0);
    static void AddShownAngle(CMFCPropertyGridProperty& group, std::string_view name, double degrees);
    static void AddChoices(CMFCPropertyGridProperty& group, std::string_view name, const Choices& choices,
                           std::string_view description, UINT id);

private:
    void Build();

    CMyMFCPropertyGridCtrl list;
    COutline* object = nullptr;
};

/// The names of a list's files, with one of them chosen.
template <class List>
Choices FileChoices(const List* files, int chosen) {
    std::vector<std::string> names;
    for (int i = 0; files && i < files->GetCount(); ++i) names.push_back(NameOfPath(files->GetPath(i)));
    return DistinctChoices(std::move(names), chosen);
}

}  // namespace quillon
