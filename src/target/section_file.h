#pragma once

#include <string>
#include <string_view>

#include "foundation/config_file.h"
#include "target/offset_point.h"

namespace quillon {

/// A settings file with sections of points between its plain lines. A section that has no points isn't in the file, so
/// the reader looks at the next line before it takes it.
class SectionFile : public CConfigFile {
public:
    using CConfigFile::CConfigFile;

    bool ReadLine(std::string_view& line) override;
    /// The points below the head of this name; none, and nothing taken, if another line comes next.
    OffsetPoints ReadSection(std::string_view section);

private:
    bool PeekLine(std::string_view& line);

    std::string held;
    bool holds = false;
};

/// Writes the section, or nothing if there are no points.
void WriteOffsets(CConfigFile& file, std::string_view section, const OffsetPoints& points);

/// Runs over the sections of a record in one direction: `lines.Section("Antenna", record.antennas)`.
class SectionReader {
public:
    explicit SectionReader(SectionFile& settings) : file(settings) {}
    void Section(std::string_view section, OffsetPoints& points) { points = file.ReadSection(section); }

private:
    SectionFile& file;
};

class SectionWriter {
public:
    explicit SectionWriter(CConfigFile& settings) : file(settings) {}
    void Section(std::string_view section, const OffsetPoints& points) { WriteOffsets(file, section, points); }

private:
    CConfigFile& file;
};

}  // namespace quillon
