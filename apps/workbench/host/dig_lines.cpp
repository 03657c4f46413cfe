#include "host/dig_lines.h"

#include <array>
#include <cmath>

#include "background/dxf_palette.h"

namespace quillon {
namespace {

bool HasPosition(const BinaryDigDef& record) {
    const double size = std::fabs(record.easting) + std::fabs(record.northing);
    return size > 0.0 && std::isfinite(size);
}

}  // namespace

std::map<int, DigLines> SplitDig(std::span<const BinaryDigDef> records) {
    std::array<DigLines, kDxfPalette.size()> byColour;
    int lineColour = -1;  // of the piece before; -1 at the start of a line
    bool wasPlace = false;
    for (std::uint32_t i = 0; i < records.size(); ++i) {
        const bool isPlace = HasPosition(records[i]);
        if (isPlace && wasPlace && !records[i].StartsLine()) {
            const int colour = records[i].ColourIndex();
            DigLines& lines = byColour[static_cast<std::size_t>(colour)];
            if (colour != lineColour) {
                lines.starts.push_back(static_cast<std::uint32_t>(lines.records.size()));
                lines.records.push_back(i - 1);
            }
            lines.records.push_back(i);
            lineColour = colour;
        } else {
            lineColour = -1;
        }
        wasPlace = isPlace;
    }
    std::map<int, DigLines> split;
    for (std::size_t colour = 0; colour < byColour.size(); ++colour) {
        if (!byColour[colour].records.empty()) split.emplace(static_cast<int>(colour), std::move(byColour[colour]));
    }
    return split;
}

}  // namespace quillon
