#include "background/dig_load.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

#include "background/dig_converter.h"
#include "background/dxf.h"
#include "foundation/paths.h"
#include "platform/cache_file.h"
#include "platform/parallel.h"
#include "platform/random_file.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::size_t kRecord = sizeof(BinaryDigDef);
/// Records read at once.
constexpr std::size_t kRecordBlock = std::size_t{1} << 15;
/// Names tried for what is kept beside a DIG file.
constexpr int kMostOriginals = 100;

std::string NameOfOriginal(const tagPathParts& parts, int number) {
    return parts.folder + parts.name + (number == 1 ? std::string(" (original)") : Format(" (original %d)", number)) +
           '.' + parts.extension;
}

/// Whether the DIG file is one that a conversion may replace: none, an empty one, or one with a header.
bool IsConverted(const CRandomFile& file) {
    DigHeader header;
    const std::size_t read = file.ReadAt(0, &header, sizeof header);
    return read == 0 || (read == sizeof header && header.IsBelievable());
}

/// Copies a DIG file without a header to a name of its own. True if there is none, or it is safe.
bool KeepOriginal(const CDig& dig, std::string& fault) {
    const FileSystem& files = dig.GetFiles();
    CRandomFile file;
    if (!file.OpenForReading(files, dig.DigPath())) return true;
    if (IsConverted(file)) return true;
    BigArray<char> bytes(static_cast<std::size_t>(file.GetLength()));
    const tagPathParts parts = SplitPath(dig.DigPath());
    fault = "no place for the file of that name, which is nobody's copy";
    if (!bytes || file.ReadAt(0, bytes.Data(), bytes.Size()) != bytes.Size()) return false;
    for (int i = 1; i <= kMostOriginals; ++i) {
        const std::string name = NameOfOriginal(parts, i);
        if (files.Exists(name)) continue;
        const std::array<std::string_view, 1> piece = {std::string_view(bytes.Data(), bytes.Size())};
        return WriteCache(
            files, name, piece, [] { return true; }, &fault);
    }
    return false;
}

/// Makes the converted records the file's, on disk and here.
void TakeConverted(CDig& dig, const DigHeader& header, const std::vector<BinaryDigDef>& records, KindReport report) {
    dig.Clear();
    dig.UseHeader(header);
    dig.converted = true;
    dig.report = std::move(report);
    dig.summary = dig.report.Summary(dig.IsFrom("CSV"));
    if (!dig.Adopt(records)) dig.fault = "not enough memory";
}

void WriteDig(CDig& dig) {
    const std::array<std::string_view, 2> pieces = {BytesOf(dig.header), BytesOf(dig.Records())};
    dig.fileLength = sizeof(DigHeader) + pieces[1].size();
    if (!dig.fault.empty() || !KeepOriginal(dig, dig.fault)) return;
    dig.fault.clear();
    WriteCache(
        dig.GetFiles(), dig.DigPath(), pieces, [] { return true; }, &dig.fault);
}

bool ConvertDxf(CDig& dig, LoadProgress& progress) {
    CDxf dxf(dig.GetFiles());
    KindReport reading;
    // Taken before the first byte is read: a file that changes meanwhile is converted again the next time.
    const auto header = DigHeaderOf(dig.GetFiles(), dig.fileName);
    if (!header || !dxf.Read(dig.fileName, &progress, &reading)) return true;
    std::vector<BinaryDigDef> records;
    KindReport report;
    const bool made = ConvertToDig(dxf, records, report);
    for (const KindReport::Kind& kind : reading.GetKinds()) report.PassOver(kind.reason, kind.line, kind.count);
    TakeConverted(dig, *header, records, std::move(report));
    dig.outsideHeader = !dxf.ownExtents && LiesOutsideHeader(dxf);
    if (progress.IsCancelled()) return false;
    if (made) WriteDig(dig);
    return true;
}

/// A text without a usable line leaves the DIG file of its name alone.
bool ConvertText(CDig& dig, LoadProgress& progress) {
    CStdioFile text(dig.GetFiles());
    const auto header = DigHeaderOf(dig.GetFiles(), dig.fileName);
    if (!header || !text.OpenForReading(dig.fileName)) return true;
    progress.Begin(text.GetLength());
    KindReport report;
    const std::vector<BinaryDigDef> records = ReadDigText(text, progress, report);
    if (records.empty() && !progress.IsCancelled()) return true;
    TakeConverted(dig, *header, records, std::move(report));
    if (progress.IsCancelled()) return false;
    WriteDig(dig);
    return true;
}

void NoteSource(CDig& dig) {
    dig.readStamp = dig.GetFiles().Stamp(dig.fileName);
    dig.ownExtents = dig.IsFrom("DXF") && ReadOwnExtents(dig.GetFiles(), dig.fileName);
}

bool Convert(CDig& dig, LoadProgress& progress) {
    if (dig.IsFrom("DXF")) return ConvertDxf(dig, progress);
    return !dig.IsFrom("CSV") || ConvertText(dig, progress);
}

}  // namespace

// ---- DIG files ----

bool ReadDigFile(CDig& dig, LoadProgress& progress) {
    dig.Clear();
    CRandomFile file;
    if (!file.OpenForReading(dig.GetFiles(), dig.DigPath())) return true;
    dig.report.opened = dig.summary.opened = true;
    dig.fileLength = file.GetLength();
    DigHeader header;
    std::size_t head = sizeof header;
    if (file.ReadAt(0, &header, head) != head || !header.IsBelievable()) {
        head = 0;
        header = DigHeaderOf(dig.GetFiles(), dig.DigPath()).value_or(DigHeader());
    }
    dig.UseHeader(header);
    progress.Begin(file.GetLength());
    const std::uint64_t bytes = file.GetLength() - std::min<std::uint64_t>(head, file.GetLength());
    if (bytes > PhysicalMemory() / 2 || bytes / kRecord > UINT32_MAX) {
        dig.report.PassOver("more records than memory holds");
        return true;
    }
    BigArray<BinaryDigDef> records(static_cast<std::size_t>(bytes / kRecord));
    if (!records && bytes >= kRecord) throw std::bad_alloc();
    std::mutex mutex;  // guards extents and whole
    DigExtents extents;
    std::size_t whole = records.Size();
    const auto readBlock = [&](std::size_t begin, std::size_t end) {
        const std::size_t got =
            file.ReadAt(head + begin * kRecord, records.Data() + begin, (end - begin) * kRecord) / kRecord;
        DigExtents block;
        block.Add({records.Data() + begin, got});
        progress.Advance((end - begin) * kRecord);
        const std::scoped_lock lock(mutex);
        extents.Add(block);
        if (begin + got < end) whole = std::min(whole, begin + got);
    };
    const std::size_t done = RunInBlocks(
        records.Size(), kRecordBlock, [&progress] { return progress.IsCancelled(); }, readBlock);
    dig.Adopt(std::move(records), std::min(done, whole), extents);
    dig.report.taken = static_cast<std::size_t>(dig.GetSize());
    dig.report.PassOver("last record cut short", 0, bytes % kRecord != 0 ? 1 : 0);
    dig.report.PassOver("record at 0, 0, which stretches no extents", 0, extents.atZero);
    dig.report.PassOver("record without a position", 0, extents.nowhere);
    dig.summary = dig.report.Summary();
    return !progress.IsCancelled();
}

bool RemakeDigFile(CDig& dig, LoadProgress& progress) {
    NoteSource(dig);
    dig.Clear();
    if (!Convert(dig, progress)) return false;
    if (!dig.converted) return ReadDigFile(dig, progress);
    return true;
}

bool LoadDigFile(CDig& dig, LoadProgress& progress) {
    NoteSource(dig);
    return (dig.IsFrom("DXF") || dig.IsFrom("CSV")) && dig.IsStale() ? RemakeDigFile(dig, progress)
                                                                     : ReadDigFile(dig, progress);
}

// ---- Drawings ----

bool ReadDxfFile(CDxf& dxf, LoadProgress* progress) {
    dxf.report = {};
    dxf.readStamp = dxf.GetFiles().Stamp(dxf.fileName);
    const bool opened = dxf.Read(dxf.fileName, progress, &dxf.report);
    dxf.summary = dxf.report.Summary();
    return opened;
}

bool LoadDxfFile(CDxf& dxf, LoadProgress& progress) {
    const auto header = DigHeaderOf(dxf.GetFiles(), dxf.fileName);
    CDig dig(dxf.GetFiles());
    dig.fileName = dxf.fileName;
    if (!ReadDxfFile(dxf, &progress)) return true;
    if (progress.IsCancelled()) return false;
    std::vector<BinaryDigDef> records;
    KindReport report;
    if (!header || !dig.IsStale() || !ConvertToDig(dxf, records, report)) return true;
    TakeConverted(dig, *header, records, std::move(report));
    WriteDig(dig);
    return true;
}

bool ReadOwnExtents(FileSystem& files, std::string_view dxfPath) {
    CDxf dxf(files);
    dxf.fileName = dxfPath;
    dxf.LoadSettings();
    return dxf.ownExtents;
}

void SaveOwnExtents(FileSystem& files, std::string_view dxfPath, bool ownExtents) {
    CDxf dxf(files);
    dxf.fileName = dxfPath;
    dxf.LoadSettings();
    if (dxf.ownExtents == ownExtents) return;
    dxf.ownExtents = ownExtents;
    dxf.SaveSettings();
}

}  // namespace quillon
