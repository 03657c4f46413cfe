#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// UTF-8 of a library text for a terminal: control characters, which it would take for orders, become blanks.
std::string Printable(std::string_view text);

/// The same of a text that is UTF-8 already, or any bytes.
std::string PrintableUtf8(std::string_view utf8);

}  // namespace quillon
