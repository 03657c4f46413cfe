// Any bytes as a file of sail lines: both ends of every line taken are positions, and its leg is theirs.

#include "feature_fuzz.h"
#include "features/sail_line.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillon::CSailLine lines(fuzz::Files());
    fuzz::ReadBytes(lines, {reinterpret_cast<const char*>(data), size});
    for (const quillon::SailLineDef& line : lines) {
        fuzz::Require(fuzz::IsPosition(line.sol) && fuzz::IsPosition(line.eol));
        fuzz::Require(!(line.leg.range < 0.0) && !(line.leg.bearing < 0.0) && line.leg.running == 0.0);
    }
    return 0;
}
