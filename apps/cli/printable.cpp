#include "printable.h"

#include <algorithm>

#include "platform/text.h"

namespace quillon {

std::string PrintableUtf8(std::string_view utf8) {
    std::string text(utf8);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return text;
}

std::string Printable(std::string_view text) {
    return PrintableUtf8(Utf8FromText(text));
}

}  // namespace quillon
