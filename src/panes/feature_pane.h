#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "features/file_list.h"
#include "frame/colour_button.h"
#include "frame/row_effects.h"
#include "panes/property_pane.h"

namespace quillon {

/// What is told to the host after files came or went.
enum class LIST_MESSAGES : std::uint8_t {
    REDRAW_RECOMPUTE,
    REDRAW_RECOMPUTE_UPDATE,  ///< ... then UM_FEATURE_UPDATE
    UPDATE_REDRAW             ///< UM_FEATURE_UPDATE first, and no recompute
};

/// Where SetupComboBox leaves the list's edit cursor.
enum class COMBO_CURSOR : std::uint8_t {
    FOLLOWS,       ///< on the combo's file and its first point; reset with an empty list
    FOLLOWS_ZERO,  ///< the same, at 0, 0 with an empty list and whether or not the file has a point
    STAYS          ///< the pane moves no cursor
};

/// All that tells one feature pane from another without code: one constant beside its row ids.
struct FeaturePaneTraits {
    UINT comboId;
    UINT addId;
    UINT removeId;
    UINT tableId;
    std::string_view fileKind;  ///< in the title of the file question
    int listRows;               ///< height of the property list in rows
    FEATURE_TYPES type;
    LIST_MESSAGES addMessages;
    LIST_MESSAGES removeMessages;
    COMBO_CURSOR cursor;
    bool removeMovesCursor;  ///< the edit indexes are brought along when the file that they name goes
    std::span<const RowEffect> effects;
};

/// The pattern of every feature pane: an add and a remove button and a file combo on top, below it the properties of
/// the combo's file, below that its points. What differs from kind to kind is in the traits and the few virtual steps.
///
/// The list is the host's and outlives the pane. All calls on the user-interface thread.
class CFeaturePane : public CPropertyPane, private RowEffectTarget {
public:
    CFeaturePane(Platform& platform, const FeaturePaneTraits& paneTraits);

    /// The four steps below in their order. False if the pane can't be created.
    bool Create(CWnd* parent, UINT id, std::string_view title, CFileListBase& features);

    void SetupComboBox() override;

    // Handlers.
    void OnAdd();
    void OnRemove();
    void OnCombo();
    LRESULT OnSelectPoint(WPARAM wParam, LPARAM row) override;
    LRESULT OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) override;
    void OnCommand(UINT control) override;

    // The controls, for a host that shows them and for tests.
    CComboBox& GetCombo() { return combo; }
    CColourButton& GetAddButton() { return addButton; }
    CColourButton& GetRemoveButton() { return removeButton; }

protected:
    CFileListBase& List() const { return *list; }
    /// The member that the combo shows; -1 with an empty list or no selection.
    int Current() const;

    // ---- What a pane says of its own kind. `index` is a valid member. ----

    /// Adds the groups and rows of the member to the empty property list.
    virtual void BuildRows(int index) = 0;
    /// The points table; -1 stands for no member. Its rows are asked for later, when the member may have gone.
    virtual PointsTable MakeTable(int index) = 0;
    /// The position of a table row that is to be shown; false if there is none.
    virtual bool PointOfRow(int index, int row, tagXY& point) const = 0;
    /// Stores the row's value in the member and refreshes the rows that hang on it. False if the member had that value.
    virtual bool StoreRow(int index, CMFCPropertyGridProperty& row) = 0;
    /// Writes one of the member's files; the number is the one of the effects table.
    virtual void SaveMember(int index, std::uint8_t save) = 0;
    virtual bool IsMemberHighlighted(int index) const;
    /// The paths chosen by the operator, in their order.
    virtual void AddPaths(const std::vector<std::string>& paths);

    // The steps of every pane, for the member that the combo shows.
    void BuildPropertyRows() override;
    PointsTable CurrentTable() override { return MakeTable(Current()); }
    int LayOutTop(int width) override;

    /// The records of a member, for a table: none once it has gone.
    template <class Record, class List>
    RecordSource<Record> RecordsOf(const List& features, int index) const {
        return [&features, index]() -> std::span<const Record> {
            if (!features.IsValidIndex(index)) return {};
            return {features[index].GetData(), static_cast<std::size_t>(features[index].GetSize())};
        };
    }

private:
    void SelectLast();
    void MoveCursorAfterRemoval(int removed);
    void PointCursorAtCombo();
    void BroadcastList(LIST_MESSAGES messages);

    void SaveFile(std::uint8_t save) override;
    void SetChanged() override { list->changed = true; }
    void PostRedraw() override { BroadcastRedraw(); }
    void PostRecompute() override { BroadcastRecompute(); }
    bool IsHighlighted() const override;

    const FeaturePaneTraits& traits;
    CFileListBase* list = nullptr;
    CComboBox combo;
    CColourButton addButton;
    CColourButton removeButton;
};

}  // namespace quillon
