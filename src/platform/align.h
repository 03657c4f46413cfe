#pragma once

#include <cstdint>

namespace quillon {

/// Where a text stands in its cell.
enum class ALIGN : std::uint8_t { LEFT, RIGHT, CENTRE };

}  // namespace quillon
