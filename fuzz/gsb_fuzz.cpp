// The grid-shift reader on any bytes: no crash, and no more nodes than the bytes hold.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "geodesy/gsb_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static quillon::FileSystem files("/nonexistent");
    quillon::CStdioFile file(files);
    file.OpenBytes({reinterpret_cast<const char*>(data), size}, quillon::FILE_MODE::BINARY);
    const auto gsb = quillon::ReadGsb(file);
    if (!gsb) return 0;
    if (gsb->nodes.empty() || gsb->nodes.size() * 16 + quillon::GsbHeader::kSize > size) std::abort();
    for (std::size_t i = 0; i < quillon::GSB_RECORDS; ++i) {
        const auto record = static_cast<quillon::GSB_RECORD>(i);
        if (gsb->header.Keyword(record).size() > 8 || gsb->header.Text(record).size() > 8) std::abort();
    }
    return 0;
}
