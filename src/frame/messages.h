#pragma once

#include "platform/message_queue.h"

namespace quillon {

// The registered window messages by which the library and its host talk. A host registers the same strings and gets the
// same numbers. All are posted, but those of the list control (UM_LIST_...), which are sent.

/// Every feature pane, to its parent; always followed by the next one. wParam: 0, or the address of a tagXY to be
/// shown.
inline const UINT UM_REDRAW_CHART = RegisterWindowMessage("UM_REDRAW_CHART-{B4AB50B7-71FA-49B5-9AED-9542935FE08C}");

/// The same arguments; the DIG and DXF panes post this one alone.
inline const UINT UM_REDRAW_VECTOR_DISPLAY =
    RegisterWindowMessage("UM_REDRAW_VECTOR_DISPLAY-{4A2F2607-858E-4441-A158-B5EAEC0DF087}");

/// Something that bears on the host's cable clearance work has come, gone or changed.
inline const UINT UM_RECOMPUTE_CATENARY_DATA =
    RegisterWindowMessage("UM_RECOMPUTE_CATENARY_DATA-{A4CE1045-EAC7-484E-BC98-51CEFF14CDBC}");

/// wParam: a FEATURE_TYPES. Features of that kind were added or removed, or a structure changed.
inline const UINT UM_FEATURE_UPDATE = RegisterWindowMessage("UM_FEATURE_UPDATE-{AEF9F662-572B-47C4-97DE-69C2B6BC940D}");

/// wParam: a FEATURE_TYPES, 7 in all uses.
inline const UINT UM_SET_FOCUS_FEATURE =
    RegisterWindowMessage("UM_SET_FOCUS_FEATURE-{66638E31-1D19-4E04-8644-B1F2231F611C}");

/// A click in a points table, to the pane that owns it. lParam: the row.
inline const UINT UM_SELECT_FEATURE = RegisterWindowMessage("UM_SELECT_FEATURE-{5C93CA4F-CAD5-40A0-9491-CEAE5415A58A}");

/// wParam: the address of a tagXY, the click in metres.
inline const UINT UM_CLICK_ON_VESSEL_OUTLINE =
    RegisterWindowMessage("UM_CLICK_ON_VESSEL_OUTLINE-{50AB646D-CB71-47F2-8A18-A5A26150FCF8}");
inline const UINT UM_UPDATE_DTM = RegisterWindowMessage("UM_UPDATE_DTM-{53EBC282-85B0-44E1-90AF-F76CF4143CFE}");

/// The end of a background load, from its worker to its dialogue. wParam: the worker's flag.
inline const UINT UM_DTM_THREAD = RegisterWindowMessage("UM_DTM_THREAD-{9F2A6FA3-F880-49BD-A419-2FF832AEB925}");
inline const UINT UM_DIG_THREAD = RegisterWindowMessage("UM_DIG_THREAD-{E133FF3E-0E67-4ED0-AC7B-AF761B5A2C91}");
inline const UINT UM_DXF_THREAD = RegisterWindowMessage("UM_DXF_THREAD-{975DB4D0-EECB-4E2D-9923-D997961574DC}");
inline const UINT UM_SHAPE_THREAD = RegisterWindowMessage("UM_SHAPE_THREAD-{818769EA-707B-473E-A385-13648520391D}");

/// A number edit has another value. wParam: message number in the high half, control id in the low half.
inline const UINT UM_EDIT_UPDATE = RegisterWindowMessage("UM_EDIT_UPDATE-{152748D2-5AB3-468A-85C3-E383DF168347}");

/// An edit control has got or lost the keyboard; to the main window.
inline const UINT UM_EDITBOX_FOCUS_DATA =
    RegisterWindowMessage("UM_EDITBOX_FOCUS_DATA-{67f4b673-533f-4e09-8003-365c753e8457}");
inline const UINT UM_EDITBOX_KILL_FOCUS_DATA =
    RegisterWindowMessage("UM_EDITBOX_KILL_FOCUS_DATA-{9db42070-6b61-4e40-861f-c7d57f74ec34}");

/// The grid list control, sent to its parent.
inline const UINT UM_LIST_VALIDATE = RegisterWindowMessage("UM_LIST_VALIDATE-{6C311578-E643-42A6-84F5-4E453E27A11C}");
inline const UINT UM_LIST_START_EDIT =
    RegisterWindowMessage("UM_LIST_START_EDIT-{B151B0C2-F50D-45B6-A9D2-D394C0B04B07}");
inline const UINT UM_LIST_SET_ITEMS = RegisterWindowMessage("UM_LIST_SET_ITEMS-{DFD60003-CA7F-4702-B4EC-26E3A9B87C75}");
inline const UINT UM_LIST_IMAGE_LIST =
    RegisterWindowMessage("UM_LIST_IMAGE_LIST-{7F2CA28D-1A45-4ECC-878A-15E64D3C92B9}");
inline const UINT UM_LIST_BUTTON_PRESS =
    RegisterWindowMessage("UM_LIST_BUTTON_PRESS-{9D0A06D6-A65D-4FFC-ACEF-101B0AC20CA4}");

// Shared with the host only: the library neither posts nor handles them.
inline const UINT UM_FEATURE_CLICK = RegisterWindowMessage("UM_FEATURE_CLICK-{4978D3EA-A4BF-4038-B027-8BA13F563165}");
inline const UINT UM_CLICK_ON_CHART = RegisterWindowMessage("UM_CLICK_ON_CHART-{8E0C70FA-1F26-4425-91C5-6837E0F0ADB6}");
inline const UINT UM_END_FEATURE_EDIT =
    RegisterWindowMessage("UM_END_FEATURE_EDIT-{91699B74-506B-4F2B-9254-330B15D1B89A}");
inline const UINT UM_UPDATE_FEATURE_POSITION =
    RegisterWindowMessage("UM_UPDATE_FEATURE_POSITION-{9C170A19-3E7A-40B6-8B43-6A0D798FB790}");
inline const UINT UM_ADD_FEATURE = RegisterWindowMessage("UM_ADD_FEATURE-{B17B9B27-AD15-4662-8CC1-ED2D57C54E71}");
inline const UINT UM_LIVE_EDIT_MODE = RegisterWindowMessage("UM_LIVE_EDIT_MODE-{2E07FB4F-A1D2-4A63-9759-CBDF75627FDB}");
inline const UINT UM_TRAINING = RegisterWindowMessage("UM_TRAINING-{1A610530-4137-4B1F-9795-9F393CD1CB36}");
inline const UINT UM_RESET_GRAPH = RegisterWindowMessage("UM_RESET_GRAPH-{26B62658-F4B5-492A-A1EB-45FD645A5CF1}");
inline const UINT UM_RESET_TIME_SPAN =
    RegisterWindowMessage("UM_RESET_TIME_SPAN-{CDEB9DB6-A4F7-4D10-8A0A-31B09A7C915E}");
inline const UINT UM_RESET_Y_SPAN = RegisterWindowMessage("UM_RESET_Y_SPAN-{642855E3-0920-4AC3-80F7-48C2FDC356DB}");
inline const UINT UM_AIS_TARGET_DATA =
    RegisterWindowMessage("UM_AIS_TARGET_DATA-{AABD2EFD-0B79-4173-B733-B2DB0F734342}");

/// What kind of feature a message or the listing is about.
enum class FEATURE_TYPES : int {
    NONE = 0,
    WAYPOINT = 1,
    SAIL_LINE = 2,
    ROUTE = 3,
    DESIGN_ROUTE = 4,
    PIPELINE = 5,
    BOUNDARY = 6,
    STRUCTURE = 7
};

}  // namespace quillon
