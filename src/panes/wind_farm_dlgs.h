#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "features/wind_farm.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "frame/colour_picker_combo.h"
#include "panes/dialog_table.h"
#include "platform/dialog_controls.h"

namespace quillon {

// The lists that these dialogs get are lent, and set before the dialog is shown.

/// What the chart shows of wind farms, and in which colours.
class CWindFarmDlg : public CColourDialogEx {
public:
    static constexpr UINT kTurbines = 101, kLabelTurbine = 102, kBoundary = 103, kLabelName = 104, kTurbineColour = 105,
                          kBoundaryColour = 106;

    explicit CWindFarmDlg(Platform& owner, CWnd* parent = nullptr);
    void SetData(CWindFarmList* data) { list = data; }
    /// Takes all choices back and stores them.
    void OnOK() override;

protected:
    void OnInitDialog() override;

private:
    CWindFarmList* list = nullptr;
    CCheckBox turbines, labelTurbine, boundary, labelName;
    CColourPickerComboBoxEx turbineColour, boundaryColour;
    CColourButton okButton, cancelButton;
};

/// Finds a wind farm by its name.
class CFindWindFarm : public CColourDialogEx {
public:
    static constexpr UINT kNames = 101;

    explicit CFindWindFarm(Platform& owner, CWnd* parent = nullptr);
    void SetData(CWindFarmList* data) { list = data; }
    /// The position of the wind farm found: longitude and latitude, radians.
    tagXY GetFound() const { return found; }
    const std::string& GetFoundName() const { return foundName; }

    void OnOK() override;
    void OnDoubleClick(UINT control) override;

protected:
    void OnInitDialog() override;

private:
    bool Find();

    CWindFarmList* list = nullptr;
    tagXY found;
    std::string foundName;
    CListBox names;
    CColourButton findButton, cancelButton;
};

/// Shows the turbines of one wind farm, and the remarks on one of them.
class CWindFarmTurbinesDlg : public CColourDialogEx {
public:
    static constexpr UINT kTable = 101, kRemarks = 102;

    explicit CWindFarmTurbinesDlg(Platform& owner, CWnd* parent = nullptr);
    void SetData(const char* farmName, const char* turbineId, CWindFarmList* data);

    CListCtrl& GetTable() { return table; }
    bool IsResizable() const override { return true; }

protected:
    void OnInitDialog() override;
    void OnSize(tagSIZE size) override;

private:
    /// Of this farm, the last of the list on top.
    std::vector<const TurbineDef*> TurbinesOfFarm() const;
    void OnRow(int row);

    CWindFarmList* list = nullptr;
    std::string farm;
    std::string turbine;
    std::vector<const TurbineDef*> rows;
    CDialogTable table;
    CStatic remarksText;
    CEdit remarks;
    CColourButton closeButton;
};

}  // namespace quillon
