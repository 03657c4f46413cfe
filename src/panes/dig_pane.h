#pragma once

#include "background/dig.h"
#include "panes/background_pane.h"

namespace quillon {

/// The rows of the pane that react.
enum DIG_ROW : UINT { DIG_DISPLAY = 1, DIG_OWN_EXTENTS = 2 };

/// Edits the list of digitised files.
class CDigPane : public CBackgroundListPane<CDig> {
public:
    static constexpr UINT kTitleId = 12007;
    static constexpr std::string_view kTitle = "Digitized Data Properties";

    explicit CDigPane(Platform& platform);
    /// False if the pane can't be created.
    bool Create(CWnd* parent, UINT id, CDigList& digs, CMutex& listMutex);
    void OnDigCombo() { OnCombo(); }

private:
    void BuildFileRows(int index) override;
    bool StoreFileRow(int index, CMFCPropertyGridProperty& row) override;
    void SaveFileRow(int index, std::uint8_t save) override;
    bool AddFile(const std::string& path) override;
    void ConvertAnew(CDig& dig, bool ownExtents);
};

}  // namespace quillon
