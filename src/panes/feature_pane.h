#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "features/file_list.h"
#include "frame/file_strip.h"
#include "frame/points_table.h"
#include "panes/property_pane.h"

namespace quillon {

/// Where SetupComboBox leaves the list's edit cursor.
enum class COMBO_CURSOR : std::uint8_t {
    FOLLOWS,       ///< on the combo's file and its first point; reset with an empty list
    FOLLOWS_ZERO,  ///< the same, at 0, 0 with an empty list and whether or not the file has a point
    STAYS          ///< the pane moves no cursor
};

/// All that tells one feature pane from another without code: one constant beside its row ids.
struct FeaturePaneTraits {
    CFileStrip::Ids strip;
    UINT tableId;
    std::string_view fileKind;  ///< in the title of the file question
    int listRows;               ///< height of the property list in rows
    FEATURE_TYPES type;
    Posts added;    ///< what is told after files came
    Posts removed;  ///< what is told after one went
    COMBO_CURSOR cursor;
    bool removeMovesCursor;  ///< the edit indexes are brought along when the file that they name goes
    std::span<const RowEffect> effects;
};

/// The pattern of most feature panes: the strip of a file list on top, below it the properties of the combo's file,
/// below that its points. What differs from kind to kind is in the traits and the few virtual steps.
///
/// The list is the host's and outlives the pane. All calls on the user-interface thread.
class CFeaturePane : public CPropertyPane {
public:
    /// Makes the table of a pane.
    using MakeTableControl = std::unique_ptr<CListCtrl> (*)(CWnd& pane, UINT id);

    CFeaturePane(Platform& platform, const FeaturePaneTraits& paneTraits);
    /// With a table of its own kind.
    CFeaturePane(Platform& platform, const FeaturePaneTraits& paneTraits, MakeTableControl makeTable);

    /// False if the pane can't be created.
    bool Create(CWnd* parent, UINT id, std::string_view title, CFileListBase& features);

    // A host that changes the list by itself brings the pane up to date by `Refresh`, which is these and InitPropList
    // and AdjustLayout.
    void SetupComboBox();
    void CreateTable();
    void UpdateAllPositions();
    void Refresh() override;

    // Handlers.
    void OnAdd();
    void OnRemove();
    void OnCombo();
    /// The host has chosen a point of the member that is shown: its row becomes the selected one.
    virtual void SelectPoint(int point) { table->SetSelection(point); }
    LRESULT OnSelectPoint(WPARAM wParam, LPARAM row);
    LRESULT OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) override;
    void OnCommand(UINT control) override;
    void OnSize(tagSIZE size) override;
    LRESULT OnMessage(const MSG& message) override;

    // The controls, for a host that shows them and for tests.
    CComboBox& GetCombo() { return strip.GetCombo(); }
    CColourButton& GetAddButton() { return strip.GetAddButton(); }
    CButton* GetFileButton() override { return &strip.GetAddButton(); }
    FileControls GetFileControls() override { return strip.Controls(); }
    CColourButton& GetRemoveButton() { return strip.GetRemoveButton(); }
    CListCtrl& GetTable() { return *table; }
    const CListCtrl& GetTable() const { return *table; }

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
    virtual bool StoreMemberRow(int index, CMFCPropertyGridProperty& row) = 0;
    /// Writes one of the member's files; the number is the one of the effects table.
    virtual void SaveMember(int index, std::uint8_t save) = 0;
    virtual bool IsMemberHighlighted(int) const { return false; }
    /// Asks the operator for files; false if there is nothing to be added.
    virtual bool AskForFiles(std::vector<std::string>& paths);
    /// The member that is shown once one has gone; at least one is left.
    virtual int ShownAfterRemoval(int removed) const;
    /// The paths chosen by the operator, in their order.
    virtual void AddPaths(const std::vector<std::string>& paths);

    /// The records of a member, for a table: none once it has gone.
    template <class Record, class List>
    RecordSource<Record> RecordsOf(const List& features, int index) const {
        return [&features, index]() -> std::span<const Record> {
            if (!features.IsValidIndex(index)) return {};
            return {features[index].GetData(), static_cast<std::size_t>(features[index].GetSize())};
        };
    }

    // The steps of every pane, for the member that the combo shows.
    void BuildPropertyRows() override;

private:
    void SelectLast();
    void MoveCursorAfterRemoval(int removed);
    void PointCursorAtCombo();

    bool StoreRow(CMFCPropertyGridProperty& row) override { return StoreMemberRow(Current(), row); }
    void SaveFile(std::uint8_t save) override;
    void SetChanged() override { list->changed = true; }
    int LayOutTop(int width) override { return strip.LayOut(width); }
    CControl* GetRest() override { return table.get(); }
    FEATURE_TYPES GetFeatureType() const override { return traits.type; }
    bool IsHighlighted() const override;

    const FeaturePaneTraits& traits;
    CFileListBase* list = nullptr;
    CFileStrip strip;
    std::unique_ptr<CListCtrl> table;
};

}  // namespace quillon
