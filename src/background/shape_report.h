#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/read_report.h"

namespace quillon {

/// What a load made of a shape file and of those beside it. Loading itself stays quiet; this is for who asks.
struct ShapeReport {
    struct Line {
        std::size_t record = 0;  ///< from 1; 0 for what concerns a whole file
        std::string reason;
    };
    /// Lines on records, and lines on files, named at most, so that a report on any file stays short.
    static constexpr std::size_t kMostNamed = 20;

    bool opened = false;
    std::size_t records = 0;  ///< of the file
    std::size_t taken = 0;    ///< that have a geometry
    std::size_t nullRecords = 0;
    std::size_t unnamed = 0;  ///< notes beyond those named
    std::vector<Line> lines;  ///< in the order in which they were found

    void NoteRecord(std::size_t record, std::string_view reason) { Note(namedRecords, record, reason); }
    void NoteFile(std::string_view reason) { Note(namedFiles, 0, reason); }

private:
    void Note(std::size_t& named, std::size_t record, std::string_view reason) {
        if (named == kMostNamed) {
            ++unnamed;
            return;
        }
        ++named;
        lines.push_back({record, std::string(reason)});
    }

    std::size_t namedRecords = 0;
    std::size_t namedFiles = 0;
};

/// The same with records in place of lines.
ReadReport LinesOf(const ShapeReport& report);
/// For people: "record 5: a null record".
std::vector<std::string> NotesOf(const ShapeReport& report);

}  // namespace quillon
