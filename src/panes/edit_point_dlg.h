#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "foundation/values.h"
#include "frame/base_edit_ctrl.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "platform/dialog_controls.h"

namespace quillon {

/// Shows one point to be edited or deleted. It works on the caller's variables, which it doesn't own and writes only on
/// "Update", each only where its text was changed.
class CEditPointDlg : public CColourDialogEx {
public:
    static constexpr int kDeleted = 7;  ///< what the dialogue ends with on "Delete"
    // Ids of the controls.
    static constexpr UINT kDelete = 12077;
    static constexpr UINT kEasting = 32072;
    static constexpr UINT kNorthing = 32161;
    static constexpr UINT kName = 32073;
    static constexpr UINT kHeight = 32162;
    static constexpr UINT kRadius = 32163;
    static constexpr UINT kHeightLabel = 32354;
    static constexpr UINT kRadiusLabel = 32355;

    CEditPointDlg(Platform& owner, std::string_view title, CWnd* parent = nullptr);

    // What is shown; null for what isn't there, whose row is hidden.
    void SetName(std::string* pointName, bool editable);
    void SetPosition(tagXY* pointPosition) { position = pointPosition; }
    void SetHeight(double* pointHeight) { height = pointHeight; }
    void SetRadius(double* pointRadius) { radius = pointRadius; }

    void OnCommand(UINT control) override;
    void OnOK() override;

protected:
    void OnInitDialog() override;

private:
    /// A number of the caller's, and the text that it was first shown by.
    struct Number {
        CEditDoubleCtrl* edit;
        double* value;
        std::string shown;
    };
    void Place(CControl& control, const tagRECT& place);
    void ShowNumber(CEditDoubleCtrl& edit, const tagNumberStyle& style, double* value);

    CEditDoubleCtrl eastingEdit{*this, kEasting};
    CEditDoubleCtrl northingEdit{*this, kNorthing};
    CColourButton updateButton, cancelButton, deleteButton;
    CEditDoubleCtrl heightEdit{*this, kHeight};
    CStatic heightLabel{*this, kHeightLabel, "Height"};
    CEdit nameEdit{*this, kName};
    CEditDoubleCtrl radiusEdit{*this, kRadius};
    CStatic radiusLabel{*this, kRadiusLabel, "Radius"};
    CStatic nameLabel, eastingLabel, northingLabel;

    std::string* name = nullptr;
    bool nameEditable = false;
    tagXY* position = nullptr;
    double* height = nullptr;
    double* radius = nullptr;
    std::vector<Number> numbers;
};

/// Shows the dialogue for one point. False if the operator pressed "Delete", true in every other case; an update is
/// told from a cancel by the values alone. Metres; height and radius may be null.
bool EditPoint(Platform& platform, std::string_view title, std::string& name, bool nameEditable, tagXY* position,
               double* height, double* radius);

}  // namespace quillon
