#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "background/background_list.h"
#include "background/dig_file.h"
#include "background/kind_report.h"
#include "platform/array_stamp.h"
#include "platform/big_array.h"

namespace quillon {

/// A box round records. Those at 0, 0 and those that are nowhere don't count.
struct DigExtents {
    double minEasting = 0.0;
    double minNorthing = 0.0;
    double maxEasting = 0.0;
    double maxNorthing = 0.0;
    std::uint64_t counted = 0;
    std::uint64_t atZero = 0;
    std::uint64_t nowhere = 0;

    void Add(std::span<const BinaryDigDef> records);
    void Add(const DigExtents& other);
};

/// Digitised line work in memory: the records of one DIG file, as they stand in it. The operator names a drawing, a CSV
/// file or the DIG file itself; the first two are converted to a DIG file beside them, which is made anew when its
/// source has changed. See dig_load.h.
///
/// The records never change; a load replaces them.
class CDig {
public:
    explicit CDig(FileSystem& fileSystem) : files(fileSystem) {}

    std::string fileName;  ///< as the operator chose it
    DigHeader header;
    std::uint64_t fileLength = 0;              ///< of the DIG file
    std::string sizeText, dateText, timeText;  ///< of the file that the header tells of, for people
    DigExtents extents;                        ///< all 0 without a record
    KindReport report;                         ///< of the last load: records, and what its conversion passed over
    ReadReport summary;                        ///< its counts
    std::optional<FileStamp> readStamp;        ///< of the file chosen, at the last load
    bool converted = false;                    ///< the last load made it from its source
    bool ownExtents = false;                   ///< how its drawing was to be converted at the last load
    bool outsideHeader = false;                ///< the conversion left everything outside the drawing's header extents
    std::string fault;                         ///< why the DIG file couldn't be written

    const std::string& GetPath() const { return fileName; }
    /// Where its DIG file is.
    std::string DigPath() const;
    bool IsFrom(std::string_view extension) const;

    std::ptrdiff_t GetSize() const { return static_cast<std::ptrdiff_t>(count); }
    bool IsEmpty() const { return count == 0; }
    /// InvalidArgument for an index outside.
    const BinaryDigDef& operator[](std::ptrdiff_t index) const;
    std::span<const BinaryDigDef> Records() const { return {Data(), count}; }
    /// What keeps the records where they are for as long as somebody holds it.
    std::shared_ptr<const void> ShareRecords() const { return records; }
    /// Another for other records.
    std::uint64_t GetStamp() const { return stamp.Get(); }

    /// Empties records, extents, texts and report; name and header stay.
    void Clear();
    /// Takes records over, the first `size` of the array; with their extents if they are known.
    void Adopt(BigArray<BinaryDigDef>&& array, std::size_t size, const DigExtents& known);
    /// The same of records that were made here. False if the memory can't be had.
    bool Adopt(const std::vector<BinaryDigDef>& made);
    /// Takes a header over, with its texts.
    void UseHeader(const DigHeader& newHeader);

    /// Whether the DIG file must be made anew from its source: unless it has a believable header that tells of the
    /// source as it is now.
    bool IsStale() const;
    /// Replaces the DIG file, header and records. False leaves the old one, and the observer of commits is told.
    bool Save();

    FileSystem& GetFiles() const { return files; }

private:
    const BinaryDigDef* Data() const { return records ? records->Data() : nullptr; }

    FileSystem& files;
    std::shared_ptr<const BigArray<BinaryDigDef>> records;
    std::size_t count = 0;
    ArrayStamp stamp;
};

/// The digitised files that the host shows.
class CDigList : public CBackgroundList<CDig> {
public:
    using CBackgroundList::CBackgroundList;

protected:
    std::string_view GetSettingsName() const override { return "Dig List"; }
    std::string_view GetSection() const override { return "Dig File"; }
};

/// The bytes of a header and of records, as in a file.
std::string_view BytesOf(const DigHeader& header);
std::string_view BytesOf(std::span<const BinaryDigDef> records);

}  // namespace quillon
