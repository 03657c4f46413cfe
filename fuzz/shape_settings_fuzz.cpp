// Any bytes as the settings of a shape file; what they were read as comes back from what is written for it.
#include <cstdint>
#include <string>
#include <string_view>

#include "background/shape.h"
#include "feature_fuzz.h"

namespace {

/// Keeps the bytes that a settings file would get, in place of a file.
class Written : public quillon::CConfigFile {
public:
    using CConfigFile::CConfigFile;
    void WriteLine(std::string_view line) override { bytes += line; }
    std::string bytes;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillon::CConfigFile file(fuzz::Files());
    file.OpenBytes({reinterpret_cast<const char*>(data), size});
    quillon::ShapeOptions options, again;
    quillon::ReadShapeOptions(file, options);
    Written written(fuzz::Files());
    quillon::WriteShapeOptions(written, options);
    file.OpenBytes(written.bytes);
    quillon::ReadShapeOptions(file, again);
    fuzz::Require(again == options);
    return 0;
}
