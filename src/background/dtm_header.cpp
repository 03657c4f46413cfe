#include "background/dtm_header.h"

#include <cmath>

namespace quillon {

bool DtmHeader::IsHeadOf(std::uint64_t length) const {
    const bool known = magic == kMagic && version == kVersion;
    const bool hasGrid = columns > 0 && rows > 0 && std::isfinite(step) && step > 0.0 &&
                         std::fabs(minEasting) < MISSING_VALUE && std::fabs(minNorthing) < MISSING_VALUE;
    return known && hasGrid && length == sizeof(DtmHeader) + Grid().CellCount() * sizeof(std::int32_t);
}

}  // namespace quillon
