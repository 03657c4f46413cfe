#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/values.h"

namespace quillon {

/// The bytes of a shape file and its index, record by record (Shapefile Technical Description, ESRI, 1998).
class ShapeBytes {
public:
    using Path = std::vector<tagXY>;

    explicit ShapeBytes(int fileType) : type(fileType) {}

    void AddNull() { Add(Little(0)); }
    void AddPoint(tagXY at) { Add(Little(1) + Double(at.x) + Double(at.y)); }
    /// A polyline (3) or a polygon (5).
    void AddPaths(int recordType, const std::vector<Path>& paths) {
        std::string starts, vertices;
        std::uint32_t count = 0;
        for (const Path& path : paths) {
            starts += Little(count);
            count += static_cast<std::uint32_t>(path.size());
            for (const tagXY at : path) vertices += Double(at.x) + Double(at.y);
        }
        Add(Little(static_cast<std::uint32_t>(recordType)) + std::string(32, '\0') +
            Little(static_cast<std::uint32_t>(paths.size())) + Little(count) + starts + vertices);
    }
    /// A record of any content.
    void Add(const std::string& content) {
        const auto words = static_cast<std::uint32_t>(content.size() / 2);
        index += Big(static_cast<std::uint32_t>((kHead + records.size()) / 2)) + Big(words);
        records += Big(static_cast<std::uint32_t>(index.size() / 8)) + Big(words) + content;
    }
    void SetBounds(tagXY low, tagXY high) { bounds = Double(low.x) + Double(low.y) + Double(high.x) + Double(high.y); }

    std::string Shp() const { return Head(records.size()) + records; }
    std::string Shx() const { return Head(index.size()) + index; }

    static std::string Little(std::uint32_t value) { return {reinterpret_cast<const char*>(&value), sizeof value}; }
    static std::string Double(double value) { return {reinterpret_cast<const char*>(&value), sizeof value}; }
    static std::string Big(std::uint32_t value) { return Little(__builtin_bswap32(value)); }

private:
    static constexpr std::size_t kHead = 100;

    std::string Head(std::size_t behind) const {
        return Big(9994) + std::string(20, '\0') + Big(static_cast<std::uint32_t>((kHead + behind) / 2)) +
               Little(1000) + Little(static_cast<std::uint32_t>(type)) + bounds + std::string(32, '\0');
    }

    int type;
    std::string bounds = std::string(32, '\0');
    std::string records;
    std::string index;
};

/// A dBase table of text columns, each `width` bytes wide.
inline std::string DbaseBytes(const std::vector<std::string>& columns,
                              const std::vector<std::vector<std::string>>& rows, std::uint8_t width = 12) {
    const auto word = [](std::size_t n) { return ShapeBytes::Little(static_cast<std::uint32_t>(n)).substr(0, 2); };
    std::string bytes = std::string("\x03\x7A\x01\x01", 4) +
                        ShapeBytes::Little(static_cast<std::uint32_t>(rows.size())) + word(33 + 32 * columns.size()) +
                        word(1 + width * columns.size()) + std::string(20, '\0');
    for (const std::string& column : columns) {
        std::string field = column;
        field.resize(11, '\0');
        field += std::string("C\0\0\0\0", 5) + static_cast<char>(width);
        field.resize(32, '\0');
        bytes += field;
    }
    bytes += '\r';
    for (const auto& row : rows) {
        bytes += ' ';
        for (std::string value : row) {
            value.resize(width, ' ');
            bytes += value;
        }
    }
    return bytes + '\x1A';
}

}  // namespace quillon
