// Any bytes as the note of a swap: what is taken is written out as the very same bytes.

#include <cstddef>
#include <cstdint>

#include "feature_fuzz.h"
#include "job/file_swap.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto changes = quillon::DecodeSwap(bytes)) fuzz::Require(quillon::EncodeSwap(*changes) == bytes);
    return 0;
}
