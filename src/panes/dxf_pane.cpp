#include "panes/dxf_pane.h"

#include <array>

#include "background/load_dig.h"
#include "panes/row_values.h"
#include "platform/platform.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::uint8_t kSaveSettings = 1;

// clang-format off
constexpr std::array<RowEffect, 2> kEffects = {{
    // row             equal  save           changed  messages
    {DXF_DISPLAY,      ENDS,  kSaveSettings, false,   {REDRAW_VECTOR}},
    {DXF_SHOW_LABELS,  ENDS,  kSaveSettings, false,   {REDRAW_VECTOR}},
}};
// clang-format on

constexpr BackgroundPaneTraits kTraits = {.strip = {.combo = 12065, .add = 12066, .remove = 12067},
                                          .filter = "DXF Files (*.dxf)|*.dxf||",
                                          .effects = kEffects};

}  // namespace

CDxfPane::CDxfPane(Platform& owner) : CBackgroundListPane(owner, kTraits) {}

bool CDxfPane::Create(CWnd* parent, UINT id, CDxfList& drawings, CMutex& listMutex) {
    SetList(drawings);
    return CreateOver(parent, id, kTitle, listMutex);
}

void CDxfPane::BuildFileRows(int index) {
    const CDxf& dxf = List()[index];
    auto& properties = GetPropertyList().AddGroup("Properties");
    properties.Add<CMFCPropertyGridBool>("Display", dxf.use, "Determine whether to display DXF File", DXF_DISPLAY);
    AddStampRows(properties, dxf.sizeText, dxf.dateText);
    properties.Add<CMFCPropertyGridBool>("Show Labels", dxf.showText, "Determine whether to display Text",
                                         DXF_SHOW_LABELS);
    AddExtentRows({dxf.extMin.x, dxf.extMin.y}, {dxf.extMax.x, dxf.extMax.y}, "%10.2lfN ");
}

bool CDxfPane::StoreFileRow(int index, CMFCPropertyGridProperty& row) {
    CDxf& dxf = List()[index];
    switch (static_cast<DXF_ROW>(row.GetData())) {
        case DXF_DISPLAY:
            return Take(dxf.use, row);
        case DXF_SHOW_LABELS:
            return Take(dxf.showText, row);
    }
    return false;
}

void CDxfPane::SaveFileRow(int index, std::uint8_t) {
    List()[index].SaveSettings();
}

bool CDxfPane::AddFile(const std::string& path) {
    CDxf* const dxf = List().Add(path);
    if (!dxf) return false;
    CLoadDxf load(GetPlatform(), this);
    load.SetDxf(dxf);
    load.DoModal();
    return true;
}

}  // namespace quillon
