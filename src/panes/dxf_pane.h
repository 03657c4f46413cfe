#pragma once

#include "background/dxf.h"
#include "panes/background_pane.h"

namespace quillon {

/// The rows of the pane that react.
enum DXF_ROW : UINT { DXF_DISPLAY = 1, DXF_SHOW_LABELS = 2 };

/// Edits the list of drawings.
class CDxfPane : public CBackgroundListPane<CDxf> {
public:
    static constexpr UINT kTitleId = 12068;
    static constexpr std::string_view kTitle = "DXF Properties";

    explicit CDxfPane(Platform& platform);
    /// False if the pane can't be created.
    bool Create(CWnd* parent, UINT id, CDxfList& drawings, CMutex& listMutex);
    void OnDxfCombo() { OnCombo(); }

private:
    void BuildFileRows(int index) override;
    bool StoreFileRow(int index, CMFCPropertyGridProperty& row) override;
    void SaveFileRow(int index, std::uint8_t save) override;
    bool AddFile(const std::string& path) override;
};

}  // namespace quillon
