#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillon {

/// A row of the catalogue of grids, whichever family holds it: figures as published, not yet derived. Angles are
/// degrees, lengths metres.
struct GridRow {
    static constexpr std::int32_t kEllipsoidInUse = -1;

    std::string name;
    std::string comment;
    std::int32_t ellipsoid = kEllipsoidInUse;  ///< catalogue index
    bool ellipsoidFixed = true;
    std::int32_t subtype = 0;
    double lat0 = 0, lon0 = 0;
    double falseEasting = 0, falseNorthing = 0;
    double scale = 1;
    double lat1 = 0, lat2 = 0;
    std::int32_t utmZone = 0;
    std::int32_t axis = 0;
    std::span<const double> table;  ///< first slots of the work area; types 11 and 12
};

inline constexpr std::int32_t kGridTypes = 15;

/// Rows of each family, by type: 430 in all.
extern const std::array<std::int32_t, kGridTypes> kGridFamilySizes;

/// The row of a family, or none. The subtype counts where a family leaves it to its user (UTM north and south, the
/// Norwegian axis number); rows that have one of their own bring it.
std::optional<GridRow> FindGridRow(std::int32_t zone, std::int32_t type, std::int32_t subtype);

/// By how much, and why, a row lies a centimetre or more from the grid that its name promises; empty for all others.
std::string_view KnownDeviation(std::int32_t type, std::int32_t zone);

}  // namespace quillon
