// Any bytes as a depth cache: believed only if its length is what its head says, and then read without a cell more.

#include <unistd.h>

#include <fstream>

#include "background/dtm_load.h"
#include "feature_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quillon;
    static const std::string path = fuzz::ScratchPath() + "a.DTM";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    CDtm dtm(fuzz::Files());
    const bool believed = dtm.ReadCacheHeader(path);
    if (believed) {
        const std::uint64_t cells = dtm.header.Grid().CellCount();
        fuzz::Require(size == sizeof(DtmHeader) + cells * 4);
        DtmProgress progress;
        fuzz::Require(ReadDtmDepths(dtm, progress, path));
        fuzz::Require(dtm.depths.Size() == cells && dtm.report.cellsWithDepth <= cells);
        dtm.DepthAt({dtm.extents.easting.maximum, dtm.extents.northing.maximum});
        for (const auto& stamp : dtm.header.stamps) fuzz::Require(DateText(stamp).size() >= 11);
    }
    ::unlink(path.c_str());
    return 0;
}
