#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace quillon {

// The data order of a route or sail line file, kept in the settings folder under the data file's name.
//
// A data file that is rewritten in another order and the file of its order are two files, and a kill may fall between
// them. So the order file first notes what is about to come of the data file (NoteRewrite); who loads the order next
// sees by the data file whether it came to that, and takes the old order or the new one for good.

/// The order to read a data file by. A missing file means 0. Where a rewrite was cut short, the order file is brought
/// in line with the data file, unless the files are open for reading only.
std::int32_t LoadDataOrder(FileSystem& files, std::string_view path);
/// `name` is the data file's, without folder and extension. False if the order file can't be written.
bool SaveDataOrder(FileSystem& files, std::string_view name, std::int32_t order);

/// What the order file says; none while a rewrite is under way, and without the file.
std::optional<std::int32_t> StoredDataOrder(FileSystem& files, std::string_view name);

/// A data file as it will be once it has been rewritten.
struct PlannedRewrite {
    std::string path;
    std::int32_t order = 0;
    std::string check;  ///< of its bytes; see CheckOfBytes
};

/// Adds to the order in force, `current`, the rewrite that is about to begin. SaveDataOrder ends it. False if the order
/// file can't be written; then there must be no rewrite.
bool NoteRewrite(FileSystem& files, std::int32_t current, const PlannedRewrite& planned);

/// Tells whether two files hold the same bytes: their count and a hash of 64 bits (Fowler, Noll, Vo, FNV-1a, 1991).
class CheckOfBytes {
public:
    void Add(std::string_view bytes);
    std::string Text() const;

private:
    std::uint64_t size = 0;
    std::uint64_t hash = 0xCBF29CE484222325u;
};

}  // namespace quillon
