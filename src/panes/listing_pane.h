#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "display/feature_view.h"
#include "frame/my_dockable_pane.h"
#include "job/job_record.h"

namespace quillon {

/// Lists the points of the current file of a kind that the operator chooses. A click on a row moves the edit cursor of
/// the kind's list and shows the point on the chart. The kind chosen is kept in the profile.
class CListingPane : public CMyDockablePane {
public:
    static constexpr UINT kTitleId = 12140;
    static constexpr std::string_view kTitle = "Feature Listing";

    explicit CListingPane(Platform& platform);
    bool Create(CWnd* parent, UINT id, JobRecord& job);

    void AdjustLayout() override;
    /// Lists anew what is another file or other records than before; a look costs nothing otherwise.
    void RefreshRows() override;
    void Refresh() override { RefreshRows(); }
    void OnCommand(UINT control) override;
    void OnSetFocus() override { SetFocusTo(view); }

    CComboBox& GetTypeCombo() { return types; }
    CFeatureView& GetView() { return view; }

private:
    enum CONTROL : UINT { TYPES = 1, VIEW = 2 };
    /// What tells one listing from another: its type, its file, the records of it.
    using Listed = std::pair<std::pair<FEATURE_TYPES, int>, std::pair<std::string, std::uint64_t>>;

    FEATURE_TYPES GetFeatureType() const override { return view.GetFeatureType(); }
    void ChooseType(int index);
    void OnCursorMoved();
    /// A design route is what a route position list describes; they are made anew where these are others.
    void MakeDesigns();
    Listed What() const;

    JobRecord* job = nullptr;
    CComboBox types;
    CDesignRouteList designs;                                 // of the route position lists
    std::vector<std::pair<std::string, std::uint64_t>> made;  // paths and stamps that the designs are made of
    CFeatureView view;
    Listed listed;
};

}  // namespace quillon
