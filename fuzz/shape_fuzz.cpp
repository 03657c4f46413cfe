// A shape file with index and table, all of any bytes: four bytes with the lengths of .shx and .dbf, then the .shx, the
// .dbf and the .shp. No record holds more than the file does, and the parts of a record lie in it, one after another.
#include <algorithm>
#include <cstdint>
#include <string_view>

#include "background/shape.h"
#include "feature_fuzz.h"
#include "platform/text.h"

namespace {

void TestRecord(const quillon::ShapeRecord& record) {
    const auto starts = record.PartStarts();
    for (std::size_t i = 0; i < starts.size(); ++i) {
        fuzz::Require(starts[i] >= (i > 0 ? starts[i - 1] : 0));
        fuzz::Require(static_cast<std::size_t>(starts[i]) <= record.GetVertexCount());
    }
    fuzz::Require(quillon::HasLength(record.type) || record.length == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static quillon::FileSystem files("/nonexistent", "Quillon", quillon::FILE_ACCESS::READ_ONLY);
    if (size < 4) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t shx = std::min<std::size_t>(data[0] + data[1] * 256U, size - 4);
    const std::size_t dbf = std::min<std::size_t>(data[2] + data[3] * 256U, size - 4 - shx);
    const std::string_view shp = bytes.substr(4 + shx + dbf);
    const auto open = [&](std::string_view path, quillon::CRandomFile& file) {
        if (path.ends_with(".shx")) file.OpenBytes(bytes.substr(4, shx));
        if (path.ends_with(".dbf")) file.OpenBytes(bytes.substr(4 + shx, dbf));
        if (path.ends_with(".shp")) file.OpenBytes(shp);
        return path.ends_with(".shx") || path.ends_with(".dbf") || path.ends_with(".shp");
    };
    quillon::CShape shape(files);
    shape.SetPath("coast.shp");
    quillon::LoadProgress progress;
    quillon::ShapeReport report;
    quillon::LoadShape(shape, open, progress, &report);
    std::size_t vertices = 0;
    for (const quillon::ShapeRecord& record : shape.records) {
        TestRecord(record);
        vertices += record.GetVertexCount();
    }
    fuzz::Require(vertices * 16 <= shp.size());
    quillon::CAttributeReader values(open, shape.dbase.path);
    for (int row = -1; row < 8; ++row) {
        for (std::size_t column = 0; column <= shape.dbase.columns.size(); ++column) {
            fuzz::Require(values.GetText(row, static_cast<int>(column)).size() <= dbf);
        }
    }
    return 0;
}
