#include "panes/dig_pane.h"

#include <array>

#include "background/dig_load.h"
#include "background/load_dig.h"
#include "panes/row_values.h"
#include "platform/platform.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::uint8_t kSaveDig = 1;

// clang-format off
constexpr std::array<RowEffect, 2> kEffects = {{
    // row             equal  save      changed  messages
    {DIG_DISPLAY,      ENDS,  kSaveDig, false,   {REDRAW_VECTOR}},
    {DIG_OWN_EXTENTS,  ENDS,  0,        false,   {REDRAW_VECTOR}},
}};
// clang-format on

constexpr BackgroundPaneTraits kTraits = {
    .strip = {.combo = 12010, .add = 12013, .remove = 12017},
    .filter = "DXF Files (*.dxf)|*.dxf|CSV Files (*.csv)|*.csv|DIG Files (*.dig)|*.dig||",
    .effects = kEffects};

/// Whether its drawing may be converted by the extents of its geometry: where those of its header are of no use, or
/// where that was chosen.
bool OffersOwnExtents(const CDig& dig) {
    return dig.IsFrom("DXF") && (dig.ownExtents || dig.IsEmpty() || dig.outsideHeader);
}

}  // namespace

CDigPane::CDigPane(Platform& owner) : CBackgroundListPane(owner, kTraits) {}

bool CDigPane::Create(CWnd* parent, UINT id, CDigList& digs, CMutex& listMutex) {
    SetList(digs);
    return CreateOver(parent, id, kTitle, listMutex);
}

void CDigPane::BuildFileRows(int index) {
    const CDig& dig = List()[index];
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridBool>("Display", dig.header.display != 0, "Determine whether to display DIG File",
                                         DIG_DISPLAY);
    AddStampRows(properties, dig.sizeText, dig.dateText);
    const DigExtents& box = dig.extents;
    AddExtentRows({box.minEasting, box.minNorthing}, {box.maxEasting, box.maxNorthing}, "%10.2lfN");
    if (!OffersOwnExtents(dig)) return;
    properties.Add<CMFCPropertyGridBool>(
        "Own Extents", dig.ownExtents,
        "The header of the drawing has no extents that hold it. Determine whether to convert it by the extents of "
        "what it draws",
        DIG_OWN_EXTENTS);
}

bool CDigPane::StoreFileRow(int index, CMFCPropertyGridProperty& row) {
    CDig& dig = List()[index];
    switch (static_cast<DIG_ROW>(row.GetData())) {
        case DIG_DISPLAY: {
            bool shown = dig.header.display != 0;
            const bool differed = Take(shown, row);
            if (differed) dig.header.display = shown ? 1 : 0;
            return differed;
        }
        case DIG_OWN_EXTENTS:
            if (dig.ownExtents == row.Get<bool>()) return false;
            ConvertAnew(dig, row.Get<bool>());
            return true;
    }
    return false;
}

void CDigPane::ConvertAnew(CDig& dig, bool ownExtents) {
    const auto lock = Lock();
    SaveOwnExtents(dig.GetFiles(), dig.fileName, ownExtents);
    CLoadDig load(GetPlatform(), this);
    load.SetDig(&dig, true);
    load.DoModal();
    RefreshRows();
}

void CDigPane::SaveFileRow(int index, std::uint8_t) {
    List()[index].Save();
}

bool CDigPane::AddFile(const std::string& path) {
    CDig* const dig = List().Add(path);
    if (!dig) return false;
    CLoadDig load(GetPlatform(), this);
    load.SetDig(dig);
    load.DoModal();
    return true;
}

}  // namespace quillon
