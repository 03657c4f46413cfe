#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file.h"

namespace quillon {

class CRoute;
struct RouteDef;

/// What a rewritten route file can't hold of the one before it.
enum class LOSS : std::uint8_t {
    LINE,      ///< a line that gave no point
    TEXT,      ///< text on a point's line that belongs to none of its fields
    NAME,      ///< a name that the new order has no place for, or that reads back as another one
    POSITION,  ///< decimals beyond the third, or a position that doesn't read back at all
    MARK       ///< a byte order mark that told how characters are to be read
};
inline constexpr std::size_t kLossKinds = 5;

/// "lines without a point".
std::string_view LossText(LOSS loss);

/// Every loss of a rewrite, counted by kind, the first of them by their lines.
struct RewriteLosses {
    struct Named {
        std::size_t line = 0;  ///< from 1
        LOSS loss = LOSS::LINE;
        std::string text;  ///< the start of the line as it was
    };
    static constexpr std::size_t kMostNamed = 20;

    std::array<std::size_t, kLossKinds> counts{};
    std::vector<Named> named;

    std::size_t Count(LOSS loss) const { return counts[static_cast<std::size_t>(loss)]; }
    bool Any() const;
    void Add(LOSS loss, std::size_t line, std::string_view text);
};

/// What came of saving a route.
struct RouteSave {
    bool saved = false;
    std::string fault;  ///< why the data file was left as it was, for people; empty if it was not
    RewriteLosses losses;
    /// Where the file stands as it was before; empty if nothing of it was lost.
    std::string original;
    explicit operator bool() const { return saved; }
};

/// The data file of a route on its way to new bytes: what would be lost is known before anything is written.
///
/// The points go to the route's data order; the file on the disk is read by the order that they were read by. Of every
/// line on the disk each byte is accounted for: as a field that reads back the same from the new bytes, as a separator
/// or white space, or as a loss.
class CRouteRewrite {
public:
    explicit CRouteRewrite(CRoute& route);

    /// Why there will be no rewrite, as in RouteSave.
    const std::string& GetFault() const { return result.fault; }
    const RewriteLosses& Losses() const { return result.losses; }

    /// Keeps the file as it is beside it ("NAME (original).csv", a further number where such a file stands already) if
    /// anything is lost, then replaces it and stores the data order. A kill leaves the old file under the old order or
    /// the new one under the new.
    const RouteSave& Commit();

private:
    bool ReadOld();
    void Compare();
    void CompareLine(std::string_view line);
    void ComparePoint(std::string_view line, const RouteDef& was);
    std::string_view NewLine(std::size_t index) const;
    bool KeepOriginal();
    bool Holds(const std::string& path, std::string_view wanted);
    bool Write(const std::string& path, std::string_view contents, bool overOld);
    bool Replace();

    CRoute& route;
    FileSystem& files;
    RouteSave result;
    std::string oldBytes;
    std::string newBytes;
    std::vector<std::size_t> newEnds;  ///< of the new lines
    std::size_t line = 0;              ///< of the old file, from 1
    std::size_t points = 0;            ///< met in the old file
};

}  // namespace quillon
