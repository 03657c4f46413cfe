#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "background/load_progress.h"
#include "platform/file.h"
#include "platform/random_file.h"

namespace quillon {

// Shape files and dBase tables as shapelib reads them, with its files handed in: it opens none by itself, writes none,
// and prints nothing. Shape files come from everywhere, so nothing in them is believed: what the library can't read is
// no record, and its own limits keep the memory within what the files hold.

/// Opens a file by its library path. For tests and fuzzing, the bytes may stand in memory.
using ShapeFileOpener = std::function<bool(std::string_view path, CRandomFile& file)>;

/// Opens files of the file system, which must outlive the opener.
ShapeFileOpener OpenerOf(const FileSystem& files);

/// A record as the library holds it until the next one is read. X and y have one value a vertex; z and m are empty
/// where the record has none.
struct ShapeView {
    int type = 0;
    std::span<const double> x, y, z, m;
    std::span<const int> partStarts, partTypes;
    std::array<double, 4> boundsMin = {}, boundsMax = {};  ///< x, y, z, m
};

/// The pair of .shp and .shx, for reading.
class ShpFile {
public:
    /// `path` with any extension or none. Only a pair that opened may be asked for more. Reading ends early, as if the
    /// file were cut off, once the load is cancelled.
    ShpFile(const ShapeFileOpener& opener, std::string_view path, const LoadProgress& progress);
    ~ShpFile();
    ShpFile(const ShpFile&) = delete;
    ShpFile& operator=(const ShpFile&) = delete;

    bool IsOpen() const;
    int GetCount() const;
    int GetType() const;
    const std::array<double, 4>& GetBoundsMin() const { return boundsMin; }
    const std::array<double, 4>& GetBoundsMax() const { return boundsMax; }
    /// Bytes of the .shp, and what its header says of them.
    std::uint64_t GetLength() const { return length; }
    std::uint64_t GetClaimedLength() const;

    /// False if the record can't be read.
    bool Read(int index, ShapeView& view);

private:
    struct Handle;
    std::unique_ptr<Handle> handle;
    std::uint64_t length = 0;
    std::array<double, 4> boundsMin = {}, boundsMax = {};
};

/// A .dbf, for reading.
class DbfFile {
public:
    DbfFile(const ShapeFileOpener& opener, std::string_view path);
    ~DbfFile();
    DbfFile(const DbfFile&) = delete;
    DbfFile& operator=(const DbfFile&) = delete;

    bool IsOpen() const;
    int GetRows() const;
    int GetColumns() const;
    /// Without trailing blanks.
    std::string GetColumnName(int column) const;
    /// The value as it is written, without blanks around it; empty for a value that is none, and outside the table.
    /// Text of a table marked as UTF-8 becomes Windows-1252; that of any other code page is taken for it.
    std::string GetText(int row, int column);

private:
    struct Handle;
    std::unique_ptr<Handle> handle;
    bool utf8 = false;
};

}  // namespace quillon
