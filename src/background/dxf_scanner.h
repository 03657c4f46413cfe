#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "background/load_progress.h"
#include "platform/big_array.h"
#include "platform/random_file.h"

namespace quillon {

/// The number of a value, as atof reads it; 0 also for one too large for a double.
double DxfNumber(std::string_view value);

/// Takes the groups of a drawing from the front, a block of the file at a time: a line with a group code, a line with
/// its value. It knows lines, not entities.
///
///     while (scanner.Next()) {
///         if (scanner.Code() == 0) { scanner.PutBack(); break; }
///         ...
///     }
class DxfScanner {
public:
    /// Both must outlive the scanner. `progress` may be null; it is told of each block, and a load that was cancelled
    /// ends as a file does.
    DxfScanner(const CRandomFile& file, LoadProgress* progress);

    /// False at the end: a code without a value line is none. The value holds until the next call.
    bool Next() {
        if (putBack) {
            putBack = false;
            return true;
        }
        return TakePair();
    }
    /// The next `Next` gives the same group again.
    void PutBack() { putBack = true; }

    int Code() const { return code; }
    /// Without the blanks and the line end behind it; blanks ahead of it stay.
    std::string_view Value() const { return value; }
    double Number() const { return DxfNumber(value); }
    int Whole() const;
    /// The line on which the group's code stands, from 1.
    std::size_t Line() const { return pairs * 2 - 1; }

private:
    bool TakePair();
    bool TakeLine(std::string_view& line);
    bool FindLineEnd(const char*& feed);
    bool Fill();
    void MakeRoom(std::size_t kept);

    const CRandomFile& file;
    LoadProgress* progress;
    BigArray<char> buffer;
    std::size_t carry = 0;       ///< room ahead of the place where blocks are read to
    const char* next = nullptr;  ///< what hasn't been taken
    const char* end = nullptr;   ///< a line feed stands here as a stop
    std::uint64_t filled = 0;    ///< bytes of the file in and before the buffer
    std::size_t pairs = 0;
    int code = 0;
    std::string_view value;
    bool putBack = false;
    bool ended = false;
};

}  // namespace quillon
