#include "target/section_file.h"

#include <vector>

#include "platform/text.h"

namespace quillon {

bool SectionFile::PeekLine(std::string_view& line) {
    if (!holds) {
        std::string_view next;
        if (!CConfigFile::ReadLine(next)) return false;
        held = next;
        holds = true;
    }
    line = held;
    return true;
}

bool SectionFile::ReadLine(std::string_view& line) {
    if (!holds) return CConfigFile::ReadLine(line);
    holds = false;
    line = held;
    return true;
}

OffsetPoints SectionFile::ReadSection(std::string_view section) {
    OffsetPoints points;
    std::string_view line;
    if (!PeekLine(line) || Trim(line) != '[' + std::string(section) + ']') return points;
    for (ReadLine(line); PeekLine(line) && IsOffsetLine(line); ReadLine(line)) points.push_back(OffsetOfLine(line));
    return points;
}

void WriteOffsets(CConfigFile& file, std::string_view section, const OffsetPoints& points) {
    if (points.empty()) return;
    std::vector<std::string> lines;
    lines.reserve(points.size());
    for (const OffsetPoint& point : points) lines.push_back(OffsetLine(point));
    file.WriteSection(section, lines);
}

}  // namespace quillon
