#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "background/dtm_depths.h"
#include "background/dtm_grid.h"
#include "background/dtm_header.h"
#include "background/dtm_progress.h"
#include "background/dtm_report.h"
#include "foundation/config_file.h"
#include "foundation/settings_lines.h"
#include "platform/display_options.h"

namespace quillon {

/// A depth model: up to three text files of samples that together describe one regular grid of depths, how their
/// coverage is drawn, and, once loaded, the array of depths. The array is kept in a cache beside the first file.
///
/// The slots are packed: DTM Two is named only if DTM One is, DTM Three only if DTM Two is. Whoever changes a slot
/// calls `Unload` first.
class CDtm {
public:
    static constexpr std::size_t kSlots = 3;

    explicit CDtm(FileSystem& fileSystem) : files(fileSystem) {}

    // Settings.
    std::array<std::string, kSlots> fileName;  ///< full paths of DTM One, Two, Three; empty when unused
    bool displayCoverage = true;               ///< the limits of the files are drawn
    std::array<tagPen, kSlots> pen = {tagPen{.thickness = 1, .colour = RGB(0, 128, 0), .fill = kFillNone},
                                      tagPen{.thickness = 1, .colour = RGB(0, 0, 255), .fill = kFillNone},
                                      tagPen{.thickness = 1, .colour = RGB(128, 0, 128), .fill = kFillNone}};

    /// Skipped if the file can't be written.
    void SaveSettings() const;
    /// What the settings file doesn't hold stays as it is.
    void ReadSettings();

    // The loaded model.
    std::array<std::string, kSlots> sizeText, dateText, timeText;  ///< of the text files, for people
    DtmHeader header;
    DtmExtents extents;   ///< running; from a cache, those that its header tells
    DtmDepths depths;     ///< centimetres or kNoDepth, `header.rows` rows of `header.columns`; or none
    int lastColumn = -1;  ///< what ColumnOf found last: -1 below the minimum, -2 past the end
    int lastRow = -1;
    DtmReport report;
    DtmLimits limits;

    bool IsLoaded() const { return static_cast<bool>(depths); }
    /// Empties header, texts and running state; the array stays.
    void Clear();
    /// Drops the array and all that is known of it.
    void Unload();
    /// Takes over what another one has loaded, with its report; its settings stay.
    void TakeModel(CDtm& loaded);
    /// Number of files named.
    std::size_t CountFiles() const;

    /// Beside DTM One: its own name, or "Combined" or "Triple" with two or three files.
    std::string CacheFileName() const;
    /// False, with the state cleared, unless there is a cache that is whole: right magic, version and length.
    bool ReadCacheHeader();
    /// The same of a cache under another name.
    bool ReadCacheHeader(std::string_view path);
    /// Whether the text file of a slot is another one than the header's stamp tells; so too if it is gone.
    bool SourceChanged(std::size_t slot) const;
    /// Whether the text files must be read; reads the header of the cache.
    bool NeedsImport();

    /// One sample of the first pass. True if it has position and depth.
    bool AddSample(double easting, double northing, double depth);
    /// A new array for the header's grid, without depths; false if there is none or it can't be had.
    bool AllocateDepths();
    /// The same for who fills every cell.
    bool NewDepths();

    /// Column, row and cell of a position; the indices are noted in lastColumn and lastRow. A cell out of range is -1.
    int ColumnOf(double easting);
    int RowOf(double northing);
    std::int64_t CellOf(double easting, double northing);

    /// Depth in metres of the sample that a position lies nearest to, half a step away from it at most on either axis;
    /// MISSING_VALUE where there is none.
    double DepthAt(tagXY position) const;

    /// Takes a header over, with what follows from it.
    void UseHeader(const DtmHeader& newHeader);
    FileSystem& GetFiles() const { return files; }

private:
    FileSystem& files;
};

template <class Lines>
void EachLine(Lines& lines, RecordOf<CDtm> auto& dtm) {
    lines.Text("Dtm One File Name", dtm.fileName[0]);
    lines.Text("Dtm Two File Name", dtm.fileName[1]);
    lines.Text("Dtm Three File Name", dtm.fileName[2]);
    lines.Bool("Display Coverage", dtm.displayCoverage);
    lines.Pen("Dtm One Pen", dtm.pen[0]);
    lines.Pen("Dtm Two Pen", dtm.pen[1]);
    lines.Pen("Dtm Three Pen", dtm.pen[2]);
}

}  // namespace quillon
