#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace quillon {

/// Reads lines of a fixed count of numbers, in blocks, and hands them on in batches: column by column, so that array
/// forms can take them as they are.
///
/// Numbers stand apart by blanks, tabs or a comma, in plain decimal notation. A line that isn't exactly that is named
/// on `errors` and travels on as NaN in every column, so that results stay line by line with their input. A line ends
/// in a line feed, with or without a carriage return before it; of a line longer than kLongestLine the rest is passed
/// over.
class NumberLines {
public:
    static constexpr std::size_t kBatch = 4096;
    static constexpr std::size_t kMostColumns = 4;
    static constexpr std::size_t kLongestLine = 4096;

    /// `columns` spans of the same length, of the lines from `firstLine` (from 1) on.
    using Batch = std::function<void(std::span<const std::span<double>> columns, std::uint64_t firstLine)>;
    /// Says whether a line's numbers make sense; told as a bad line if not.
    using Check = bool (*)(std::span<const double> numbers);

    NumberLines(std::istream& lines, std::ostream& complaints, std::size_t columnCount, Check check);

    /// To the end of the input. The count of bad lines.
    std::uint64_t Run(const Batch& batch);

private:
    void Block(std::string_view block, const Batch& batch);
    void Line(std::string_view line, const Batch& batch);
    bool Scan(std::string_view line, double* numbers) const;
    void Flush(const Batch& batch);

    std::istream& input;
    std::ostream& errors;
    std::size_t columns;
    Check makesSense;
    std::string rest;  ///< of a line that the block before ended in
    double values[kMostColumns][kBatch];
    std::size_t filled = 0;
    std::uint64_t lineNumber = 0;
    std::uint64_t badLines = 0;
};

}  // namespace quillon
