// The bytes are a drawing. Whatever they are, the entities that come out can be walked, belong to the drawing, and are
// counted.

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <string>
#include <vector>

#include "background/dxf.h"
#include "feature_fuzz.h"

namespace {

using namespace quillon;
using fuzz::Require;

template <class Record>
bool Holds(const std::deque<Record>& records, const Record* record) {
    if (!record) return true;
    for (const Record& held : records) {
        if (&held == record) return true;
    }
    return false;
}

void Walk(const CDxf& dxf, const std::vector<const CDxfEntity*>& entities, std::size_t size) {
    for (const CDxfEntity* entity : entities) {
        Require(!DxfKeyword(*entity).empty() && entity->GetHandle().size() <= size);
        Require(entity->attributes->layerName.size() <= size);
        Require(Holds(dxf.layers, entity->attributes->layer) && Holds(dxf.linetypes, entity->attributes->linetype));
        Require(ColourIndexOf(*entity) >= 0 && ColourIndexOf(*entity) < 256);
        if (entity->type == DXF_TYPE::TEXT) Require(dxf.ShownText(entity->As<CDxfText>()).size() <= 5 * size);
        if (entity->type != DXF_TYPE::POLYLINE && entity->type != DXF_TYPE::LWPOLYLINE) continue;
        const auto& line = entity->As<CDxfPolyline>();
        Require(line.count > 0 && line.count <= size);
        for (std::size_t i = 0; i < line.count; ++i) Require(std::isfinite(line.GetPosition(i).x));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CDxf dxf(fuzz::Files());
    KindReport report;
    dxf.OpenBytes({reinterpret_cast<const char*>(data), size}, nullptr, &report);
    while (dxf.ReadSection()) {
    }
    dxf.Close();
    Require(report.taken == dxf.GetEntityCount() && report.GetKinds().size() <= KindReport::kMostKinds + 1);
    Walk(dxf, dxf.entities, size);
    for (const CDxfBlock& block : dxf.blocks) Walk(dxf, block.entities, size);
    tagXY least, most;
    if (dxf.FindOwnExtents(least, most)) Require(least.x <= most.x && least.y <= most.y);
    return 0;
}
