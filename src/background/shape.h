#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "background/dbase.h"
#include "background/file_stamp.h"
#include "background/load_progress.h"
#include "background/prj_reader.h"
#include "background/shape_record.h"
#include "background/shape_report.h"
#include "foundation/config_file.h"
#include "geodesy/grid_to_grid.h"
#include "platform/array_stamp.h"

namespace quillon {

/// How a shape file is drawn and labelled: what its settings file holds.
struct ShapeOptions {
    bool status = true;  ///< shown
    tagPen pen{.style = 0, .thickness = 1, .colour = 0x808080, .fill = 0};
    std::int32_t labelMode = 0;
    std::int32_t labelPosition = 0;
    std::int16_t labelColumn = 0;  ///< of the attribute table
    bool iconMode = false;
    friend bool operator==(const ShapeOptions&, const ShapeOptions&) = default;
};

/// From an opened settings file; what a line is missing for keeps its value.
void ReadShapeOptions(CConfigFile& file, ShapeOptions& options);
void WriteShapeOptions(CConfigFile& file, const ShapeOptions& options);

/// A shape file with the files beside it: geometry (.shp, .shx), the columns of its attributes (.dbf), its projection
/// (.prj) and how it is drawn (.INI). Everything stays in the coordinates of the file; `conversion` links its ellipsoid
/// and grid for whoever draws it.
///
///     CShape shape(files);
///     shape.SetPath("C:\\Charts\\DK_coast.shp");
///     LoadShape(shape, progress);
///
/// The conversion points into the object, so it is neither copied nor moved.
class CShape : public ShapeOptions {
public:
    explicit CShape(FileSystem& fileSystem);
    CShape(const CShape&) = delete;
    CShape& operator=(const CShape&) = delete;

    CGridToGrid conversion;
    CEllipsoid ellipsoid;    ///< of the .prj, WGS 84 without one
    CGrid grid;              ///< of the .prj
    bool geographic = true;  ///< no .prj has named a projection
    ProjectionRemarks projection;

    const std::string& GetPath() const { return path; }
    const std::string& GetName() const { return name; }
    void SetPath(std::string_view newPath);
    FileSystem& GetFiles() const { return files; }

    /// One for each record of the file, in its order.
    std::vector<ShapeRecord> records;
    int shapeType = 0;                                     ///< SHAPE_TYPE in the header of the file
    std::array<double, 4> boundsMin = {}, boundsMax = {};  ///< x, y, z, m in that header
    CDbase dbase;

    DosStamp source;  ///< of the .shp that was loaded
    /// What the last load made of it, if whoever loaded it asked for that.
    ShapeReport report;
    /// A number for the records; no others of this run have it.
    std::uint64_t GetStamp() const { return stamp.Get(); }

    /// Whether the coordinates are degrees, as far as .prj and bounds tell.
    bool HasDegrees() const;
    /// Whether the file tells positions that its ellipsoid and grid lead from: degrees, or metres on a projection that
    /// is known.
    bool IsProjectionKnown() const;

    /// Metres, the sum over the records that have a length; meaningless unless the coordinates are degrees.
    double GetTotalLength() const;

    /// The defaults stand where the file, or a line of it, is missing.
    void ReadSettings();
    /// Skipped if the file can't be written.
    void WriteSettings() const;
    /// The load has taken a column of the table for the labels that the settings file doesn't name yet.
    bool hasTakenColumn = false;

private:
    friend bool LoadShape(CShape& shape, const ShapeFileOpener& opener, LoadProgress& progress, ShapeReport* report);

    FileSystem& files;
    std::string path;
    std::string name;
    ShapeArena arena;
    ArrayStamp stamp;
};

/// Reads the shape file of the path that is set, and all that stands beside it, into the shape. The progress counts
/// records. False if the .shp or its .shx can't be opened or the load was cancelled; the shape is then of no use. A
/// file with a column "TEXTSTRING" is labelled by it; nothing is written here, so that this may run on any thread: who
/// takes the shape in writes its settings, if they are new. What is damaged or doubtful has a line in the report, named
/// by record from 1.
bool LoadShape(CShape& shape, LoadProgress& progress, ShapeReport* report = nullptr);
/// The same with the files of the group opened otherwise.
bool LoadShape(CShape& shape, const ShapeFileOpener& opener, LoadProgress& progress, ShapeReport* report = nullptr);

}  // namespace quillon
