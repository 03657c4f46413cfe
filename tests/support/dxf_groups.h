#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace quillon {

/// Groups as "0 LINE|8 Pipes|10 1.5" in the form of a file.
inline std::string Groups(std::string_view groups, std::string_view lineEnd = "\n") {
    std::string text;
    while (!groups.empty()) {
        const std::string_view group = groups.substr(0, groups.find('|'));
        groups.remove_prefix(std::min(group.size() + 1, groups.size()));
        const std::size_t blank = std::min(group.find(' '), group.size());
        text += Format("%3d", Atoi(group.substr(0, blank)));
        text += lineEnd;
        text += group.substr(std::min(blank + 1, group.size()));
        text += lineEnd;
    }
    return text;
}

/// The same inside a section.
inline std::string Section(std::string_view name, std::string_view groups, std::string_view lineEnd = "\n") {
    return Groups("0 SECTION|2 " + std::string(name), lineEnd) + Groups(groups, lineEnd) + Groups("0 ENDSEC", lineEnd);
}

}  // namespace quillon
