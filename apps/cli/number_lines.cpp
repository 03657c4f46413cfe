#include "number_lines.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <istream>
#include <limits>
#include <memory>
#include <ostream>
#include <system_error>

#include "platform/errors.h"
#include "platform/text.h"
#include "printable.h"

namespace quillon {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18;

bool Separates(char c) {
    return c == ' ' || c == '\t' || c == ',';
}

}  // namespace

NumberLines::NumberLines(std::istream& lines, std::ostream& complaints, std::size_t columnCount, Check check)
    : input(lines), errors(complaints), columns(columnCount), makesSense(check) {
    if (columns == 0 || columns > kMostColumns) throw InvalidArgument("count of columns");
}

std::uint64_t NumberLines::Run(const Batch& batch) {
    const auto block = std::make_unique<char[]>(kBlock);
    errno = 0;
    while (input) {
        input.read(block.get(), kBlock);
        Block({block.get(), static_cast<std::size_t>(input.gcount())}, batch);
    }
    if (!rest.empty()) Line(rest, batch);
    Flush(batch);
    if (input.bad()) {
        errors << "the input can't be read";
        if (errno != 0) errors << ": " << std::generic_category().message(errno);
        errors << '\n';
        ++badLines;
    }
    return badLines;
}

void NumberLines::Block(std::string_view block, const Batch& batch) {
    while (!block.empty()) {
        const std::size_t end = block.find('\n');
        const std::string_view piece = block.substr(0, end);
        if (end == std::string_view::npos || !rest.empty()) {
            // One byte more than the longest line shows that it is too long.
            rest.append(piece.substr(0, kLongestLine + 1 - std::min(rest.size(), kLongestLine + 1)));
        }
        if (end == std::string_view::npos) return;
        Line(rest.empty() ? piece : std::string_view(rest), batch);
        rest.clear();
        block.remove_prefix(end + 1);
    }
}

bool NumberLines::Scan(std::string_view line, double* numbers) const {
    if (line.size() > kLongestLine) return false;
    std::size_t count = 0;
    for (std::size_t i = 0; i < line.size();) {
        if (Separates(line[i])) {
            ++i;
            continue;
        }
        const std::size_t first = i;
        while (i < line.size() && !Separates(line[i])) ++i;
        if (count == columns || !ScanNumber(line.substr(first, i - first), numbers[count++])) return false;
    }
    return count == columns && makesSense({numbers, columns});
}

void NumberLines::Line(std::string_view line, const Batch& batch) {
    ++lineNumber;
    if (line.ends_with('\r')) line.remove_suffix(1);
    std::array<double, kMostColumns> numbers;
    if (!Scan(line, numbers.data())) {
        numbers.fill(std::numeric_limits<double>::quiet_NaN());
        ++badLines;
        errors << "line " << lineNumber << ": not a position: " << PrintableUtf8(line.substr(0, 60)) << '\n';
    }
    for (std::size_t c = 0; c < columns; ++c) values[c][filled] = numbers[c];
    if (++filled == kBatch) Flush(batch);
}

void NumberLines::Flush(const Batch& batch) {
    if (filled == 0) return;
    std::array<std::span<double>, kMostColumns> spans;
    for (std::size_t c = 0; c < columns; ++c) spans[c] = {values[c], filled};
    batch(std::span(spans).first(columns), lineNumber - filled + 1);
    filled = 0;
}

}  // namespace quillon
