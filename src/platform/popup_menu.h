#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/palette.h"

namespace quillon {

enum class MENU_ENTRY {
    ITEM,
    HEADING,   ///< names the items below it and can't be chosen; white text on 0x404040
    SEPARATOR  ///< a line
};

/// A menu that opens at the cursor and is gone with the choice.
struct PopupMenu {
    struct Entry {
        int id = 0;  ///< above 0 where it can be chosen
        std::string text = {};
        MENU_ENTRY kind = MENU_ENTRY::ITEM;
    };
    std::vector<Entry> entries;
    COLORREF background = 0xD6D6D6;

    void AddHeading(std::string_view text) { entries.push_back({0, std::string(text), MENU_ENTRY::HEADING}); }
    void AddItem(int id, std::string_view text) { entries.push_back({id, std::string(text)}); }
    void AddSeparator() { entries.push_back({0, {}, MENU_ENTRY::SEPARATOR}); }
};

}  // namespace quillon
