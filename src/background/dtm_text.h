#pragma once

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "background/load_progress.h"
#include "foundation/number_scan.h"
#include "foundation/read_report.h"
#include "foundation/values.h"
#include "platform/big_array.h"
#include "platform/random_file.h"

namespace quillon {

// The text form of a DTM: easting, northing and depth a line, in metres, apart by blanks, tabs or commas; what follows
// them is nobody's. A depth of exactly 0 says that the point has none.

/// Bytes of a line with its line feed. The rest of a longer one is the next line.
inline constexpr std::ptrdiff_t kLongestDtmLine = 1023;
/// Depths from here on don't fit a cell of whole centimetres, metres.
inline constexpr double kDtmDepthLimit = 21474836.47;

/// Takes the three numbers at the front of a line; the place behind the third, or null if there aren't three.
inline const char* TakeDtmSample(const char* p, const char* end, tagXYZ& sample) {
    for (double* const number : {&sample.x, &sample.y, &sample.z}) {
        while (p != end && (*p == ' ' || *p == ',' || (*p != '\n' && *p >= '\t' && *p <= '\r'))) ++p;
        if (!(p = TakeNumber(p, end, *number))) return nullptr;
    }
    return p;
}

inline PASSED_OVER DtmSampleFault(const tagXYZ& sample) {
    const bool placed = std::fabs(sample.x) < MISSING_VALUE && std::fabs(sample.y) < MISSING_VALUE;
    return placed && std::fabs(sample.z) < kDtmDepthLimit ? PASSED_OVER::NO : PASSED_OVER::OUT_OF_RANGE;
}

/// Takes the lines of a block. `take(sample, number)` gets each sample with the number of its line in `report`. The
/// result is the start of the line that the block breaks off, unless it is the `last` one.
template <class Take>
const char* TakeDtmLines(const char* p, const char* end, bool last, ReadReport& report, Take take) {
    while (p != end) {
        const char* const limit = p + std::min(end - p, kLongestDtmLine);
        tagXYZ sample;
        const char* q = TakeDtmSample(p, limit, sample);
        const PASSED_OVER fault = q ? DtmSampleFault(sample) : PASSED_OVER::NOT_THREE_NUMBERS;
        if (!q) q = p;
        const void* const feed = std::memchr(q, '\n', static_cast<std::size_t>(limit - q));
        if (!feed && !last && limit - p < kLongestDtmLine) break;
        p = feed ? static_cast<const char*>(feed) + 1 : limit;
        report.Count(fault);
        if (fault == PASSED_OVER::NO) take(sample, report.lines);
    }
    return p;
}

/// A part of a file, in bytes.
struct DtmTextPart {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

/// Cuts a text into about as many parts as asked for, at line feeds; fewer where lines are too long to find one.
std::vector<DtmTextPart> SplitDtmText(const CRandomFile& text, std::size_t parts);

/// Reads a part of a text, a block at a time, and advances the progress by its bytes. `sink.Take(sample, line)` gets
/// each sample, `sink.EndBlock()` is called after each block. Ends early when the load is cancelled.
template <class Sink>
void ReadDtmText(const CRandomFile& text, DtmTextPart part, LoadProgress& progress, ReadReport& report, Sink& sink) {
    constexpr std::size_t kPage = BigArray<char>::kPage;
    constexpr std::size_t kBlock = std::size_t{256} << 10;
    static_assert(kLongestDtmLine < static_cast<std::ptrdiff_t>(kPage));
    // Blocks are read to and from whole pages; what a block breaks off goes to the end of the page before it.
    BigArray<char> buffer(kPage + kBlock);
    if (!buffer) throw std::bad_alloc();
    char* const block = buffer.Data() + kPage;
    std::uint64_t offset = part.begin / kPage * kPage;
    auto skip = static_cast<std::ptrdiff_t>(part.begin - offset);
    std::ptrdiff_t kept = 0;
    while (offset < part.end && !progress.IsCancelled()) {
        const std::size_t asked = std::min<std::uint64_t>(kBlock, part.end - offset);
        const std::size_t got = text.ReadAt(offset, block, asked);
        offset += got;
        const bool last = got < asked || offset == part.end;
        const char* const end = block + got;
        if (skip > static_cast<std::ptrdiff_t>(got)) break;
        progress.Advance(got - static_cast<std::size_t>(skip));
        const char* const rest =
            TakeDtmLines(block - kept + std::exchange(skip, 0), end, last, report,
                         [&sink](const tagXYZ& sample, std::size_t line) { sink.Take(sample, line); });
        kept = end - rest;
        std::memmove(block - kept, rest, static_cast<std::size_t>(kept));
        sink.EndBlock();
        if (last) break;
    }
}

}  // namespace quillon
