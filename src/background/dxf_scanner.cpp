#include "background/dxf_scanner.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <utility>

#include "foundation/number_scan.h"
#include "platform/text.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quillon {
namespace {

constexpr std::size_t kBlock = std::size_t{256} << 10;
constexpr std::size_t kCarry = std::size_t{64} << 10;
/// Bytes behind the last that a search may look at.
constexpr std::size_t kOverrun = 32;

/// The first line feed from `p` on; there is one at `end` at the latest. Lines are short: a call of memchr costs more
/// than its search.
const char* FindFeed(const char* p, [[maybe_unused]] const char* end) {
#if defined(__SSE2__)
    const __m128i feed = _mm_set1_epi8('\n');
    for (;; p += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const auto found = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, feed)));
        if (found) return p + __builtin_ctz(found);
    }
#else
    return static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p) + 1));
#endif
}

std::string_view TrimEnd(const char* first, const char* last) {
    while (last != first && (last[-1] == ' ' || last[-1] == '\r' || last[-1] == '\n')) --last;
    return {first, static_cast<std::size_t>(last - first)};
}

/// As atoi does; nearly all codes are blanks and up to four digits.
int CodeOf(std::string_view line) {
    const char* p = line.data();
    const char* const last = p + line.size();
    while (p != last && *p == ' ') ++p;
    const char* const digits = p;
    int code = 0;
    for (unsigned digit; p != last && (digit = static_cast<unsigned char>(*p) - unsigned{'0'}) < 10; ++p) {
        if (p - digits == 8) return Atoi(line);
        code = code * 10 + static_cast<int>(digit);
    }
    return p == digits ? Atoi(line) : code;
}

}  // namespace

double DxfNumber(std::string_view value) {
    const std::string_view text = TrimLeft(value);
    const char* const last = text.data() + text.size();
    double number = 0.0;
    if (!text.empty() && TakePlainNumber(text.data(), last, number) == last) return number;
    number = Atof(text);
    return std::isfinite(number) ? number : 0.0;
}

DxfScanner::DxfScanner(const CRandomFile& source, LoadProgress* shared) : file(source), progress(shared) {
    MakeRoom(0);
}

int DxfScanner::Whole() const {
    return Atoi(value);
}

bool DxfScanner::TakePair() {
    std::string_view line;
    if (!TakeLine(line)) return false;
    const int taken = CodeOf(line);
    if (!TakeLine(line)) return false;
    code = taken;
    value = TrimEnd(line.data(), line.data() + line.size());
    ++pairs;
    return true;
}

bool DxfScanner::TakeLine(std::string_view& line) {
    const char* feed = nullptr;
    if (!FindLineEnd(feed)) return false;
    line = {next, static_cast<std::size_t>(feed - next)};
    next = feed == end ? end : feed + 1;
    return true;
}

/// `feed` becomes the end of the line that starts at `next`: its line feed, or the end of the file.
bool DxfScanner::FindLineEnd(const char*& feed) {
    feed = FindFeed(next, end);
    while (feed == end) {
        const auto searched = end - next;
        if (!Fill()) {
            feed = end;
            return next != end;
        }
        feed = FindFeed(next + searched, end);
    }
    return true;
}

/// Reads another block behind what hasn't been taken. Blocks go to a place aligned to a page: the system copies there
/// several times as fast as elsewhere.
bool DxfScanner::Fill() {
    if (progress && progress->IsCancelled()) {
        // What is left may be the front of a line.
        ended = true;
        next = end;
    }
    if (ended) return false;
    const auto kept = static_cast<std::size_t>(end - next);
    MakeRoom(kept);
    char* const block = buffer.Data() + carry;
    const std::size_t count = file.ReadAt(filled, block, kBlock);
    block[count] = '\n';
    end = block + count;
    filled += count;
    ended = count == 0;
    if (progress) progress->SetPosition(filled);
    return !ended;
}

/// Moves the last `kept` bytes to just ahead of where the next block is read to; a line longer than the room there gets
/// a larger buffer.
void DxfScanner::MakeRoom(std::size_t kept) {
    if (!buffer || kept > carry) {
        const std::size_t room = kept <= kCarry ? kCarry : (kept * 2 + kBlock - 1) / kBlock * kBlock;
        BigArray<char> larger(room + kBlock + kOverrun);
        if (!larger) throw std::bad_alloc();
        if (kept > 0) std::memcpy(larger.Data() + room - kept, next, kept);
        buffer = std::move(larger);
        carry = room;
    } else if (kept > 0) {
        std::memmove(buffer.Data() + carry - kept, next, kept);
    }
    char* const block = buffer.Data() + carry;
    *block = '\n';
    next = block - kept;
    end = block;
}

}  // namespace quillon
