#pragma once

#include <array>
#include <deque>
#include <string_view>

#include "background/dtm.h"
#include "frame/colour_button.h"
#include "panes/property_pane.h"

namespace quillon {

/// The rows of the DTM pane that react; those of the second and third file follow at kSlotRows each.
enum DTM_ROW : UINT {
    DTM_COVERAGE = 1,
    DTM_COLOUR = 2,
    DTM_FILL = 3,
    DTM_THICKNESS = 4,
    DTM_MAKE_REGULAR = 11  ///< stands only where the samples gave no array
};

/// Names the files of the job's depth model, loads it, and edits how its coverage is drawn. The model is the host's and
/// outlives the pane.
///
/// A change of a slot drops the array; it is loaded again by "Load DTMs". Where the samples would make too large an
/// array the pane says so in rows of its own, and offers to bring them to a regular grid.
class CDtmPane : public CPropertyPane {
public:
    static constexpr UINT kTitleId = 12004;
    static constexpr std::string_view kTitle = "DTM Properties";
    static constexpr UINT kSlotRows = 3;

    explicit CDtmPane(Platform& platform);
    bool Create(CWnd* parent, UINT id, CDtm& depthModel);

    // Handlers of the buttons.
    void OnAddDtmOne() { OnAdd(0); }
    void OnAddDtmTwo() { OnAdd(1); }
    void OnAddDtmThree() { OnAdd(2); }
    void OnRemoveDtmOne() { OnRemove(0); }
    void OnRemoveDtmTwo() { OnRemove(1); }
    void OnRemoveDtmThree() { OnRemove(2); }
    void OnLoadDtm();
    /// Asks how, and brings the files of all slots to regular grids of one step; the new files take their places and
    /// are loaded.
    void OnMakeRegular();

    void OnCommand(UINT control) override;
    LRESULT OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) override;
    CButton* GetFileButton() override;

private:
    /// A button over the property list, and the slot that it is about.
    struct SlotButtons {
        UINT add, clear;
    };
    static constexpr std::array<SlotButtons, CDtm::kSlots> kSlotButtons = {
        {{12912, 12913}, {12914, 12915}, {12916, 12918}}};
    static constexpr UINT kLoadButton = 12919;

    void BuildPropertyRows() override;
    void BuildSlotRows(std::size_t slot);
    void BuildExtentsRows();
    void BuildRefusalRows();
    bool StoreRow(CMFCPropertyGridProperty& row) override;
    void SaveFile(std::uint8_t) override { dtm->SaveSettings(); }
    int LayOutTop(int width) override;

    void OnAdd(std::size_t slot);
    void OnRemove(std::size_t slot);
    void FollowSlots();

    CDtm* dtm = nullptr;
    std::deque<CColourButton> addButtons, clearButtons;
    CColourButton loadButton;
};

}  // namespace quillon
