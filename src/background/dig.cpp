#include "background/dig.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "foundation/paths.h"
#include "platform/errors.h"
#include "platform/random_file.h"
#include "platform/text.h"

namespace quillon {

// ---- Extents ----

void DigExtents::Add(std::span<const BinaryDigDef> records) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    tagXY least{kInfinity, kInfinity}, most{-kInfinity, -kInfinity};
    std::uint64_t zeros = 0, passed = 0;
    for (const BinaryDigDef& record : records) {
        const tagXY at = record.Position();
        const double size = std::fabs(at.x) + std::fabs(at.y);
        if (!(size > 0.0 && size < kInfinity)) {
            ++passed;
            zeros += size == 0.0;
            continue;
        }
        least = {std::min(least.x, at.x), std::min(least.y, at.y)};
        most = {std::max(most.x, at.x), std::max(most.y, at.y)};
    }
    Add(DigExtents{least.x, least.y, most.x, most.y, records.size() - passed, zeros, passed - zeros});
}

void DigExtents::Add(const DigExtents& other) {
    atZero += other.atZero;
    nowhere += other.nowhere;
    if (other.counted == 0) return;
    const bool first = counted == 0;
    minEasting = first ? other.minEasting : std::min(minEasting, other.minEasting);
    minNorthing = first ? other.minNorthing : std::min(minNorthing, other.minNorthing);
    maxEasting = first ? other.maxEasting : std::max(maxEasting, other.maxEasting);
    maxNorthing = first ? other.maxNorthing : std::max(maxNorthing, other.maxNorthing);
    counted += other.counted;
}

// ---- Records ----

std::string CDig::DigPath() const {
    return IsFrom("DIG") ? fileName : ReplaceExtension(fileName, "DIG");
}

bool CDig::IsFrom(std::string_view extension) const {
    return EqualNoCase(SplitPath(fileName).extension, extension);
}

const BinaryDigDef& CDig::operator[](std::ptrdiff_t index) const {
    if (index < 0 || index >= GetSize()) throw InvalidArgument("record index out of range");
    return Data()[index];
}

void CDig::Clear() {
    records.reset();
    count = 0;
    stamp.Renew();
    extents = {};
    fileLength = 0;
    sizeText.clear();
    dateText.clear();
    timeText.clear();
    report = {};
    summary = {};
    converted = outsideHeader = false;
    fault.clear();
}

void CDig::Adopt(BigArray<BinaryDigDef>&& array, std::size_t size, const DigExtents& known) {
    count = std::min(size, array.Size());
    records = count > 0 ? std::make_shared<const BigArray<BinaryDigDef>>(std::move(array)) : nullptr;
    extents = known;
    stamp.Renew();
}

bool CDig::Adopt(const std::vector<BinaryDigDef>& made) {
    BigArray<BinaryDigDef> array(made.size());
    if (!array && !made.empty()) return false;
    std::copy(made.begin(), made.end(), array.Data());
    DigExtents all;
    all.Add(made);
    Adopt(std::move(array), made.size(), all);
    return true;
}

void CDig::UseHeader(const DigHeader& newHeader) {
    header = newHeader;
    const DosStamp source = header.Stamp();
    sizeText = SizeText(source.length);
    dateText = DateText(source);
    timeText = TimeText(source);
}

// ---- The file ----

bool CDig::IsStale() const {
    CRandomFile file;
    DigHeader read;
    if (!file.OpenForReading(files, DigPath()) || file.ReadAt(0, &read, sizeof read) != sizeof read) return true;
    const auto source = DigHeaderOf(files, fileName);
    return !read.IsBelievable() || !source || !read.IsOf(*source);
}

bool CDig::Save() {
    CStdioFile file(files);
    if (!file.OpenForWriting(DigPath(), FILE_MODE::BINARY)) return false;
    file.WriteString(BytesOf(header));
    file.WriteString(BytesOf(Records()));
    if (!file.Commit()) return false;
    if (IsFrom("DIG")) readStamp = file.GetStamp();
    return true;
}

std::string_view BytesOf(const DigHeader& header) {
    return {reinterpret_cast<const char*>(&header), sizeof header};
}

std::string_view BytesOf(std::span<const BinaryDigDef> records) {
    return {reinterpret_cast<const char*>(records.data()), records.size_bytes()};
}

}  // namespace quillon
