// Any bytes as a DIG file, and as a text of digitised lines that becomes one. What is taken out of a file lies in it,
// and what is converted is read back as it was.

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "background/dig_load.h"
#include "feature_fuzz.h"

namespace {

using namespace quillon;
using fuzz::Require;

void CheckExtents(const CDig& dig) {
    const DigExtents& box = dig.extents;
    Require(box.counted + box.atZero + box.nowhere == static_cast<std::uint64_t>(dig.GetSize()));
    Require(box.minEasting <= box.maxEasting && box.minNorthing <= box.maxNorthing && std::isfinite(box.maxNorthing));
    for (const BinaryDigDef& record : dig.Records()) Require(record.ColourIndex() >= 0 && record.ColourIndex() < 256);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string folder = fuzz::ScratchPath();
    const auto write = [&](const std::string& path) {
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    };
    LoadProgress progress;
    CDig dig(fuzz::Files());
    dig.fileName = folder + "a.DIG";
    write(dig.fileName);
    Require(LoadDigFile(dig, progress) && static_cast<std::size_t>(dig.GetSize()) <= size / sizeof(BinaryDigDef));
    CheckExtents(dig);
    ::unlink(dig.fileName.c_str());

    dig.fileName = folder + "b.CSV";
    write(dig.fileName);
    Require(LoadDigFile(dig, progress));
    CheckExtents(dig);
    if (dig.converted) {
        const std::string made(BytesOf(dig.Records()));
        Require(dig.fault.empty() && ReadDigFile(dig, progress) && BytesOf(dig.Records()) == made);
    }
    ::unlink(dig.fileName.c_str());
    ::unlink(dig.DigPath().c_str());
    return 0;
}
