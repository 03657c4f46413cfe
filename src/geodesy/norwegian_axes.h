#pragma once

#include <cstdint>
#include <optional>

#include "foundation/values.h"

namespace quillon {

/// A position on a Norwegian axis: X northward, Y eastward, metres. All 0 where there is none.
struct tagNorwegian {
    double X = 0;
    double Y = 0;
    std::int32_t axis = 0;  ///< the one that serves, 1 to 8
};

/// When the substitution ends: the published way, as soon as one of the two coordinates is within a centimetre, or when
/// nothing moves any more.
enum class NORWEGIAN_END { FIRST_COORDINATE, SETTLED };

/// The NGO position whose polynomial image is a UTM position, by successive substitution. In zones below 33 the
/// position chooses axis I, II or III; in their north-east, and from zone 33 on, the axis asked for (1 to 8) serves.
/// There is no position for an axis out of range, or so far away that the substitution doesn't settle.
///
/// Ended at the first coordinate, the other one is within 8 cm; on lines a few centimetres wide, where the first one
/// fits by chance before the other is near, it may be off by more.
tagNorwegian NorwegianFromUtm(std::int32_t utmZone, std::int32_t axis, double easting, double northing,
                              NORWEGIAN_END end = NORWEGIAN_END::FIRST_COORDINATE);

/// The UTM position, easting then northing, of one on an axis; none where the axis doesn't reach. The blocks into which
/// the southern axes are cut meet within metres: a position between two of them takes the nearer one.
std::optional<tagXY> UtmFromNorwegian(std::int32_t utmZone, std::int32_t axis, double X, double Y);

/// "NGO (Axis II)"; `axis` is 1 to 8.
const char* NorwegianAxisName(std::int32_t axis);

}  // namespace quillon
