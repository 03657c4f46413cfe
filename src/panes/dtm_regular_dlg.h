#pragma once

#include <array>
#include <string>

#include "background/dtm.h"
#include "background/dtm_regular.h"
#include "frame/base_edit_ctrl.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "platform/dialog_controls.h"

namespace quillon {

/// Brings the soundings of a depth model's files to regular grids of one step, each in a new file beside its source.
/// Proposes a step at which there are about as many cells as soundings. No file is ever written over.
class CDtmRegularDlg : public CColourDialogEx {
public:
    // Ids of the controls.
    enum : UINT { kStep = 2101, kTake, kFiles, kFirstLabel = 2111 };

    /// The model is lent; it isn't changed.
    CDtmRegularDlg(Platform& owner, const CDtm& model, CWnd* parent = nullptr);

    /// The files written, in the order of the slots; after IDOK.
    const std::array<std::string, CDtm::kSlots>& GetWritten() const { return written; }
    CEditDoubleCtrl& GetStepEdit() { return stepEdit; }

    void OnOK() override;

protected:
    void OnInitDialog() override;

private:
    bool Write(std::size_t slot);

    const CDtm& dtm;
    DtmRegularOptions options;
    std::array<std::string, CDtm::kSlots> written;
    CStatic stepLabel{*this, kFirstLabel, "Side of a cell, metres"};
    CStatic takeLabel{*this, kFirstLabel + 1, "Depth of a cell"};
    CStatic filesText{*this, kFiles, ""};
    CEditDoubleCtrl stepEdit{*this, kStep};
    CComboBox takeList{*this, kTake};
    CColourButton okButton, cancelButton;
};

}  // namespace quillon
