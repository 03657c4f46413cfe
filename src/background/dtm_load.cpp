#include "background/dtm_load.h"

#include <algorithm>
#include <array>

#include "background/dtm_passes.h"
#include "platform/cache_file.h"
#include "platform/parallel.h"

namespace quillon {
namespace {

/// Cells read from a cache at once.
constexpr std::size_t kCellBlock = std::size_t{1} << 19;

DtmHeader HeaderOf(const DtmSurvey& survey, const std::array<DosStamp, 3>& stamps) {
    const DtmExtents& extents = survey.run.Get();
    DtmHeader header;
    header.minEasting = extents.easting.minimum;
    header.minNorthing = extents.northing.minimum;
    header.step = extents.step;
    header.columns = static_cast<std::int32_t>(std::min<std::int64_t>(extents.easting.count, INT32_MAX));
    header.rows = static_cast<std::int32_t>(std::min<std::int64_t>(extents.northing.count, INT32_MAX));
    header.minDepth = extents.minDepth;
    header.maxDepth = extents.maxDepth;
    header.stamps = stamps;
    for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) {
        if (!IsMissing(survey.areas[slot].minEasting)) header.areas[slot] = survey.areas[slot];
    }
    return header;
}

/// Calls `add(file, slot)` for each file that can be opened, in their order.
template <class Add>
void EachTextFile(const CDtm& dtm, const LoadProgress& progress, Add add) {
    for (std::size_t slot = 0; slot < CDtm::kSlots && !progress.IsCancelled(); ++slot) {
        CRandomFile text;
        if (dtm.fileName[slot].empty() || !text.OpenForReading(dtm.GetFiles(), dtm.fileName[slot])) continue;
        add(text, static_cast<int>(slot));
    }
}

std::string_view BytesOf(const DtmHeader& header) {
    return {reinterpret_cast<const char*>(&header), sizeof header};
}
std::string_view BytesOf(const DtmDepths& cells) {
    return {reinterpret_cast<const char*>(cells.Data()), cells.Size() * sizeof(std::int32_t)};
}

/// Whether a file may be replaced by the cache: it isn't there, or is one, also a damaged one. Whatever else bears the
/// cache's name, such as samples called "Survey.dtm", is somebody's data.
bool MayReplace(const FileSystem& files, const std::string& path) {
    CRandomFile file;
    if (!files.Exists(path)) return true;
    DtmHeader head;
    head.rest.fill(1);
    if (!file.OpenForReading(files, path)) return false;
    const std::size_t read = file.ReadAt(0, &head, sizeof head);
    return read == 0 || head.magic == DtmHeader::kMagic || head.rest == DtmHeader{}.rest;
}

void SaveCache(CDtm& dtm, const LoadProgress& progress) {
    const std::string path = dtm.CacheFileName();
    if (!MayReplace(dtm.GetFiles(), path)) {
        dtm.report.cacheFault = path + " is no depth cache; it is left as it is";
        return;
    }
    const std::array<std::string_view, 2> pieces = {BytesOf(dtm.header), BytesOf(dtm.depths)};
    WriteCache(
        dtm.GetFiles(), path, pieces, [&progress] { return !progress.IsCancelled(); }, &dtm.report.cacheFault);
}

/// Fills the array; a refusal if it can't be had.
DTM_REFUSAL FillDepths(CDtm& dtm, DtmProgress& progress) {
    DtmDepthsMaker maker(dtm.header.Grid(), dtm.limits.mostBytes, dtm.limits.parts);
    if (!maker.IsReady()) return DTM_REFUSAL::NO_MEMORY;
    EachTextFile(dtm, progress, [&](const CRandomFile& text, int) { maker.AddFile(text, progress); });
    BigArray<std::int32_t> cells = maker.Finish(progress);
    if (!progress.IsCancelled()) dtm.depths = std::move(cells);
    dtm.report.merged = maker.GetMerged();
    dtm.report.dropped = maker.GetDropped();
    dtm.report.cellsWithDepth = maker.GetFilled();
    return DTM_REFUSAL::NO;
}

}  // namespace

bool ImportDtm(CDtm& dtm, DtmProgress& progress) {
    // Taken before the first byte is read: a file that changes meanwhile is read again the next time.
    std::array<DosStamp, 3> stamps;
    for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) {
        stamps[slot] = dtm.fileName[slot].empty() ? DosStamp{} : DosStampOf(dtm.GetFiles(), dtm.fileName[slot]);
    }
    DtmSurvey survey;
    EachTextFile(dtm, progress,
                 [&](const CRandomFile& text, int slot) { survey.AddFile(text, slot, progress, dtm.limits.parts); });
    if (progress.IsCancelled()) return false;
    dtm.Clear();
    dtm.header = HeaderOf(survey, stamps);
    dtm.extents = survey.run.Get();
    dtm.report = {};
    dtm.report.imported = true;
    dtm.report.lines = survey.lines;
    dtm.report.extents = dtm.extents;
    dtm.report.stepSource = survey.run.GetStepSource();
    dtm.report.withoutDepth = survey.run.GetWithoutDepth();
    return true;
}

bool MakeDtmDepths(CDtm& dtm, DtmProgress& progress) {
    dtm.depths = {};
    dtm.report.refusal = JudgeExtents(dtm.extents, dtm.limits);
    if (dtm.report.refusal != DTM_REFUSAL::NO) return true;
    dtm.report.refusal = FillDepths(dtm, progress);
    if (dtm.depths && !progress.IsCancelled()) SaveCache(dtm, progress);
    if (!progress.IsCancelled()) return true;
    dtm.depths = {};
    return false;
}

bool ReadDtmDepths(CDtm& dtm, DtmProgress& progress) {
    return ReadDtmDepths(dtm, progress, dtm.CacheFileName());
}

bool ReadDtmDepths(CDtm& dtm, DtmProgress& progress, std::string_view path) {
    CRandomFile file;
    if (!file.OpenForReading(dtm.GetFiles(), path)) return true;
    progress.Begin(file.GetLength());
    dtm.report = {};
    if (!dtm.NewDepths()) return true;
    std::atomic<std::uint64_t> withDepth{0};
    const auto readBlock = [&](std::size_t begin, std::size_t end) {
        std::int32_t* const cells = dtm.depths.Data() + begin;
        const std::size_t bytes = (end - begin) * sizeof *cells;
        const std::size_t read = file.ReadAt(sizeof(DtmHeader) + begin * sizeof *cells, cells, bytes) / sizeof *cells;
        std::fill(cells + read, cells + (end - begin), kNoDepth);
        withDepth.fetch_add(bytes / sizeof *cells -
                            static_cast<std::uint64_t>(std::count(cells, cells + (end - begin), kNoDepth)));
        progress.Advance(bytes);
    };
    const std::size_t done = RunInBlocks(
        dtm.depths.Size(), kCellBlock, [&progress] { return progress.IsCancelled(); }, readBlock);
    std::fill(dtm.depths.Data() + done, dtm.depths.Data() + dtm.depths.Size(), kNoDepth);
    dtm.report.cellsWithDepth = withDepth.load();
    return !progress.IsCancelled();
}

bool LoadDtmFiles(CDtm& dtm, DtmProgress& progress) {
    bool loaded = false;
    if (!dtm.NeedsImport()) {
        loaded = ReadDtmDepths(dtm, progress);
    } else {
        loaded = ImportDtm(dtm, progress) && MakeDtmDepths(dtm, progress);
    }
    SettleDtm(dtm);
    return loaded;
}

void SettleDtm(CDtm& dtm) {
    if (dtm.depths.Size() != dtm.header.Grid().CellCount()) dtm.depths = {};
    if (!dtm.IsLoaded()) {
        dtm.Unload();
    } else if (dtm.report.imported) {
        dtm.UseHeader(DtmHeader(dtm.header));
    } else {
        // The texts stand behind their cache, which wouldn't be fresh without them.
        for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) {
            dtm.report.lines[slot].opened = !dtm.fileName[slot].empty();
        }
    }
}

}  // namespace quillon
