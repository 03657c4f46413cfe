#include "background/dtm_text.h"

namespace quillon {
namespace {

/// The place behind the first line feed from `offset` on; the file's end if there is none nearby.
std::uint64_t NextLine(const CRandomFile& text, std::uint64_t offset) {
    constexpr std::size_t kReach = std::size_t{16} << 10;
    std::vector<char> bytes(kReach);
    bytes.resize(text.ReadAt(offset, bytes.data(), kReach));
    const auto feed = std::find(bytes.begin(), bytes.end(), '\n');
    return feed == bytes.end() ? text.GetLength() : offset + static_cast<std::uint64_t>(feed - bytes.begin()) + 1;
}

}  // namespace

std::vector<DtmTextPart> SplitDtmText(const CRandomFile& text, std::size_t parts) {
    const std::uint64_t length = text.GetLength();
    std::vector<DtmTextPart> split;
    std::uint64_t begin = 0;
    for (std::size_t i = 1; i < parts; ++i) {
        const std::uint64_t end = NextLine(text, std::max(begin, length / parts * i));
        if (end >= length) break;
        split.push_back({begin, end});
        begin = end;
    }
    split.push_back({begin, length});
    return split;
}

}  // namespace quillon
