#include "background/dtm.h"

#include <algorithm>

#include "foundation/paths.h"
#include "platform/random_file.h"

namespace quillon {
namespace {

constexpr const char* kSettingsName = "DTM";
constexpr const char* kCacheExtension = "DTM";

std::int32_t CountOf(std::int64_t count) {
    return static_cast<std::int32_t>(std::min<std::int64_t>(count, INT32_MAX));
}

/// The largest coordinate that has a cell.
double EndOf(double minimum, std::int32_t count, double step) {
    return (count - 1) * step + minimum;
}

}  // namespace

void CDtm::SaveSettings() const {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(kSettingsName)) return;
    WriteLines(file, *this);
    file.Commit();
}

void CDtm::ReadSettings() {
    CConfigFile file(files);
    if (file.OpenForRead(kSettingsName)) ReadLines(file, *this);
}

void CDtm::Clear() {
    header = {};
    extents = {};
    for (auto* const texts : {&sizeText, &dateText, &timeText}) texts->fill({});
    lastColumn = lastRow = -1;
}

void CDtm::Unload() {
    depths = {};
    Clear();
}

void CDtm::TakeModel(CDtm& loaded) {
    sizeText = loaded.sizeText;
    dateText = loaded.dateText;
    timeText = loaded.timeText;
    header = loaded.header;
    extents = loaded.extents;
    depths = std::move(loaded.depths);
    lastColumn = lastRow = -1;
    report = std::move(loaded.report);
    loaded.Unload();
}

std::size_t CDtm::CountFiles() const {
    return static_cast<std::size_t>(
        std::count_if(fileName.begin(), fileName.end(), [](const std::string& name) { return !name.empty(); }));
}

// ---- Cache ----

std::string CDtm::CacheFileName() const {
    if (fileName[1].empty()) return ReplaceExtension(fileName[0], kCacheExtension);
    return MakePath(FolderOfPath(fileName[0]), fileName[2].empty() ? "Combined" : "Triple", kCacheExtension);
}

bool CDtm::ReadCacheHeader() {
    return ReadCacheHeader(fileName[0].empty() ? std::string() : CacheFileName());
}

bool CDtm::ReadCacheHeader(std::string_view path) {
    Clear();
    CRandomFile file;
    DtmHeader read;
    if (path.empty() || !file.OpenForReading(files, path)) return false;
    if (file.ReadAt(0, &read, sizeof read) != sizeof read || !read.IsHeadOf(file.GetLength())) return false;
    UseHeader(read);
    return true;
}

void CDtm::UseHeader(const DtmHeader& newHeader) {
    header = newHeader;
    extents = {};
    extents.easting.minimum = header.minEasting;
    extents.easting.maximum = EndOf(header.minEasting, header.columns, header.step);
    extents.easting.count = header.columns;
    extents.northing.minimum = header.minNorthing;
    extents.northing.maximum = EndOf(header.minNorthing, header.rows, header.step);
    extents.northing.count = header.rows;
    extents.step = header.step;
    extents.minDepth = header.minDepth;
    extents.maxDepth = header.maxDepth;
    for (std::size_t slot = 0; slot < kSlots; ++slot) {
        sizeText[slot] = SizeText(header.stamps[slot].length);
        dateText[slot] = DateText(header.stamps[slot]);
        timeText[slot] = TimeText(header.stamps[slot]);
    }
}

bool CDtm::SourceChanged(std::size_t slot) const {
    return !IsStampOf(files, fileName[slot], header.stamps[slot]);
}

bool CDtm::NeedsImport() {
    if (!ReadCacheHeader()) return true;
    for (std::size_t slot = 0; slot < kSlots; ++slot) {
        if ((slot == 0 || !fileName[slot].empty()) && SourceChanged(slot)) return true;
    }
    return false;
}

// ---- Grid ----

bool CDtm::AddSample(double easting, double northing, double depth) {
    const bool complete = extents.AddSample(easting, northing, depth);
    header.minEasting = extents.easting.minimum;
    header.minNorthing = extents.northing.minimum;
    header.step = extents.step;
    header.columns = CountOf(extents.easting.count);
    header.rows = CountOf(extents.northing.count);
    header.minDepth = extents.minDepth;
    header.maxDepth = extents.maxDepth;
    return complete;
}

bool CDtm::NewDepths() {
    depths = {};
    const std::uint64_t cells = header.Grid().CellCount();
    if (cells <= limits.mostBytes / sizeof(std::int32_t)) {
        depths = BigArray<std::int32_t>(static_cast<std::size_t>(cells));
    }
    return IsLoaded();
}

bool CDtm::AllocateDepths() {
    if (NewDepths()) std::ranges::fill(depths.Span(), kNoDepth);
    return IsLoaded();
}

int CDtm::ColumnOf(double easting) {
    return lastColumn = static_cast<int>(header.Grid().ColumnOf(easting));
}

int CDtm::RowOf(double northing) {
    return lastRow = static_cast<int>(header.Grid().RowOf(northing));
}

std::int64_t CDtm::CellOf(double easting, double northing) {
    const std::int64_t column = ColumnOf(easting);
    const std::int64_t row = RowOf(northing);
    return column < 0 || row < 0 ? -1 : header.columns * row + column;
}

double CDtm::DepthAt(tagXY position) const {
    const double half = 0.5 * header.step;
    const std::int64_t cell = IsLoaded() ? header.Grid().CellOf(position.x + half, position.y + half) : -1;
    if (cell < 0) return MISSING_VALUE;
    const std::int32_t depth = depths[static_cast<std::size_t>(cell)];
    return depth == kNoDepth ? MISSING_VALUE : depth / 100.0;
}

}  // namespace quillon
