#pragma once

#include <cstdint>
#include <memory>

#include "geodesy/gsb_file.h"
#include "platform/file.h"

namespace quillon {

/// The pair of OSTN15 files, ETRS89 to OSGB36 and back, in NTv2 form. Holds them for whoever converts; applies no
/// shift. Either loaded (both node arrays there, window and columns valid) or empty.
class COstnShift {
public:
    /// Constants of an ellipsoid given by its axes, and its meridian arc to 49 degrees north, the origin of the
    /// national grid of Great Britain.
    struct Spheroid {
        double a = 0;
        double e2 = 0;
        double oneMinusE2 = 0;
        double A0 = 0, A2 = 0, A4 = 0, A6 = 0;
        double M49 = 0;
    };
    /// Seconds of arc; longitudes positive west.
    struct Window {
        double eLong = 0, sLat = 0, wLong = 0, nLat = 0;
        double longInc = 0, latInc = 0;
    };

    GsbHeader forwardHeader;
    std::shared_ptr<const GridShiftNodes> forwardNodes;  ///< shared with other owners; null when not loaded
    GsbHeader reverseHeader;
    std::shared_ptr<const GridShiftNodes> reverseNodes;
    Spheroid fromSpheroid;  ///< this and what follows from the second file
    Spheroid toSpheroid;
    Window window;
    std::int32_t columns = 0;  ///< nodes in a row

    /// Looks for the pair beside the program. Stays empty, silently, unless both files are there and whole.
    void Load(FileSystem& files);
    void Clear();
};

}  // namespace quillon
