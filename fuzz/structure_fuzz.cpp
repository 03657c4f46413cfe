// Any bytes as a structure file: records are whole, named and finite.

#include <cmath>

#include "feature_fuzz.h"
#include "features/structure.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillon::CStructure structures(fuzz::Files());
    fuzz::ReadBytes(structures, {reinterpret_cast<const char*>(data), size});
    for (const quillon::StructureDef& record : structures) {
        fuzz::Require(!record.name.empty());
        fuzz::Require(record.heading >= 0.0 && record.heading <= 360.0);
        fuzz::Require(std::isfinite(record.position.x) && std::isfinite(record.length));
    }
    return 0;
}
