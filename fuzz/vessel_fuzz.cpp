// Any bytes as the settings file of a vessel, and as an outline. What was read is written and read again: the same.

#include <cstdint>
#include <string_view>

#include "feature_fuzz.h"
#include "target/barge.h"

using namespace quillon;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CBarge barge(fuzz::Files());
    SectionFile settings(fuzz::Files());
    settings.OpenBytes(bytes);
    barge.ReadFrom(settings);
    barge.UpdateAlignment();
    barge.UpdateBox();
    barge.UpdateZones();
    barge.TrackedPosition();
    for (const OffsetPoint& point : barge.antennas) {
        const std::string line = OffsetLine(point);
        fuzz::Require(IsOffsetLine(line));
        fuzz::Require(OffsetLine(OffsetOfLine(line)) == line);
    }
    CStdioFile outline(fuzz::Files());
    outline.OpenBytes(bytes);
    for (const OutlinePoint& point : ReadOutlineText(outline)) {
        fuzz::Require(!IsMissing(point.position.x) && !IsMissing(point.position.y));
    }
    return 0;
}
