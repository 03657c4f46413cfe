#include "geodesy/grid_to_grid.h"

#include <algorithm>

namespace quillon {

namespace {

constexpr std::size_t kBlockHead = 96;

}  // namespace

void CGridToGrid::GridFile::Clear() {
    std::fill_n(block.begin(), kBlockHead, std::byte{0});
    firstArray.reset();
    secondArray.reset();
}

CGridToGrid::CGridToGrid(FileSystem& files) : ntv2(files) {
    ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    grid.ellipsoid = &ellipsoid;
    grid.Init();
    ostn.Load(files);
    secondGrid.ellipsoid = &secondEllipsoid;
    secondGrid.SetGrid(1, TRANSVERSE_MERCATOR, 0);
}

void CGridToGrid::LinkEllipsoid() {
    linkedEllipsoid->name = ellipsoid.name;
    linkedEllipsoid->comment = ellipsoid.comment;
    linkedEllipsoid->SetAxes(ellipsoid.a, ellipsoid.rf);
    linkedEllipsoid->code = ellipsoid.code;
    targetDatum = linkedEllipsoid->name;
}

bool CGridToGrid::SetIdentity(std::int32_t newKind, std::int32_t newOption) {
    kind = newKind;
    option = newOption;
    status = 0;
    for (GridFile& file : gridFile) file.Clear();
    const bool known = kind == 0;
    if (known) {
        transformationName = "Grid To Grid";
        sourceDatum = ellipsoid.name;
        targetDatum.clear();
        if (linkedEllipsoid) LinkEllipsoid();
        shift.fill(0);
    }
    grid.MatchEllipsoid();
    if (linkedGrid) linkedGrid->MatchEllipsoid();
    return known;
}

}  // namespace quillon
