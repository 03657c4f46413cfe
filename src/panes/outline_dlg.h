#pragma once

#include <string>

#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "job/outline_list.h"
#include "platform/dialog_controls.h"

namespace quillon {

/// Asks for the name and the outline of a new vessel or template and adds it to its list. What stands in the way is
/// told in the dialog, which stays open until it is put right.
class COutlineDlg : public CColourDialogEx {
public:
    enum : UINT { kName = 101, kOutline, kBrowse, kFault, kFirstLabel };

    COutlineDlg(Platform& owner, COutlineList& outlines);

    void OnCommand(UINT control) override;
    void OnOK() override;

private:
    COutlineList& list;
    CStatic nameLabel{*this, kFirstLabel, "Name"};
    CStatic outlineLabel{*this, kFirstLabel + 1, "Outline"};
    CEdit name{*this, kName};
    CEdit outline{*this, kOutline};
    CColourButton browse{*this, kBrowse, "Browse", GetNightMode()};
    CStatic fault{*this, kFault, ""};
    CColourButton ok{*this, IDOK, "OK", GetNightMode()};
    CColourButton cancel{*this, IDCANCEL, "Cancel", GetNightMode()};
};

/// Asks for the file of an outline. False if the operator leaves.
bool ChooseOutlineFile(Platform& platform, std::string& path);

}  // namespace quillon
