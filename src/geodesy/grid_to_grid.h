#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "geodesy/ellipsoid.h"
#include "geodesy/grid.h"
#include "geodesy/ntv2.h"
#include "geodesy/ostn_shift.h"
#include "platform/file.h"

namespace quillon {

/// What it takes to relate two grids: an ellipsoid and a grid on either side, the names of the datums, the parameters
/// of a datum shift, and the shift files. It converts no point itself: it is the filled record that a converter needs.
///
///     CGridToGrid conversion(files);
///     conversion.linkedEllipsoid = &ellipsoid;  // the source side, lent
///     conversion.linkedGrid = &grid;
///     conversion.SetIdentity(0, conversion.option);
///
/// The grids point into the object, so it is neither copied nor moved.
class CGridToGrid {
public:
    /// A place for a shift file of the converter's own.
    struct GridFile {
        std::string first;
        std::string second;
        std::array<std::byte, 208> block = {};
        std::unique_ptr<double[]> firstArray;
        std::unique_ptr<double[]> secondArray;

        /// Frees the arrays and clears the head of the block.
        void Clear();
    };

    CEllipsoid ellipsoid;
    CGrid grid;
    CEllipsoid* linkedEllipsoid = nullptr;
    CGrid* linkedGrid = nullptr;
    std::int32_t spare = 0;
    COstnShift ostn;
    CNTv2 ntv2;
    std::int32_t status = 0;
    std::int32_t option = 1;
    std::int32_t kind = 0;  ///< 0, the identity, is the only one known here
    std::string firstSpareText;
    std::string secondSpareText;
    std::string sourceDatum;         ///< name of the embedded ellipsoid
    std::string targetDatum;         ///< name of the linked ellipsoid
    std::string transformationName;  ///< or the datum name of a .prj file
    // The slots of a datum transformation, at their reset values.
    std::array<double, 7> shift = {};
    std::int32_t shiftFlag = 0;
    std::array<double, 9> blockA = {};
    std::array<std::uint8_t, 2> switches = {0, 1};
    std::array<double, 6> blockB = {};
    std::array<double, 2> factors = {1, 1};
    std::array<double, 4> blockC = {};
    std::array<GridFile, 2> gridFile;
    CEllipsoid secondEllipsoid;
    CGrid secondGrid;
    std::uint16_t mode = 0;

    /// WGS84 and UTM zone 31 on the embedded side, GRS80 and "OSGRS80 Grid" as the second pair. Looks for the OSTN15
    /// pair beside the program.
    explicit CGridToGrid(FileSystem& files);
    CGridToGrid(const CGridToGrid&) = delete;
    CGridToGrid& operator=(const CGridToGrid&) = delete;

    /// Sets the case up by its kind: the linked ellipsoid becomes the embedded one, the shift is none. False for a kind
    /// that isn't known, and the names stay. Either way both grids are brought in line with their ellipsoids.
    bool SetIdentity(std::int32_t newKind, std::int32_t newOption);

private:
    void LinkEllipsoid();
};

}  // namespace quillon
