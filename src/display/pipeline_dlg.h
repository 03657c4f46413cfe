#pragma once

#include <memory>
#include <string>

#include "background/load_thread.h"
#include "display/excel_column_combo_box.h"
#include "display/list_ctrl_import.h"
#include "display/pipeline_thinning.h"
#include "frame/base_edit_ctrl.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "platform/dialog_controls.h"

namespace quillon {

/// Thins a contractor's survey of a pipeline: the operator says which column is which, sees the first row as a check,
/// and writes a copy with as few rows as it takes to stay within a tolerance. The file is what is loaded afterwards.
///
/// Thinning runs on a worker; the button that began it stops it, and so does the end of the dialog. A thinning that was
/// stopped leaves the files as they were.
class CPipelineDlg : public CColourDialogEx {
public:
    // Ids of the controls.
    enum : UINT {
        kFirstColumn = 2001,  ///< KP; easting, northing and depth follow
        kFirstSample = 2011,
        kThin = 2021,
        kProgress,
        kTolerance,
        kTotal,
        kUsed,
        kSelectFile,
        kFolder,
        kName,
        kSkip,
        kFirstLabel = 2041
    };

    explicit CPipelineDlg(Platform& owner, CWnd* parent = nullptr);
    ~CPipelineDlg() override;

    void OnCommand(UINT control) override;
    void OnTimer(UINT timer) override;
    LRESULT OnMessage(const MSG& message) override;
    void OnOK() override;
    void OnCancel() override;

    bool IsThinning() const { return worker != nullptr; }

protected:
    void OnInitDialog() override;

private:
    static constexpr int kColumns = 4;

    void Place();
    void Label(UINT id, std::string_view text, const tagRECT& place);
    void ShowPath();
    void SelectFile();
    /// Shows the first row.
    void Sample();
    void OnThinData();
    void ShowProgress();
    void EndThinning();
    void StopThinning();
    void EnableChoices(bool on);
    void TellResult();

    CListCtrlImport import;
    double tolerance = 1.0;

    std::vector<std::unique_ptr<CStatic>> labels;
    std::vector<std::unique_ptr<CExcelColumnComboBox>> columns;
    std::vector<std::unique_ptr<CStatic>> samples;
    CColourButton thinButton, selectButton, okButton;
    CProgressCtrl bar{*this, kProgress};
    CEditDoubleCtrl toleranceEdit{*this, kTolerance};
    CStatic totalText{*this, kTotal, "0"};
    CStatic usedText{*this, kUsed, "0  (0%)"};
    CStatic folderText{*this, kFolder, ""};
    CStatic nameText{*this, kName, ""};
    CComboBox skipList{*this, kSkip};

    ThinResult result;
    std::unique_ptr<ThinProgress> progress;
    std::unique_ptr<CLoadThread> worker;  ///< goes before what it fills
};

}  // namespace quillon
