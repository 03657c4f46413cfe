#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/edit_text.h"
#include "platform/text.h"

namespace quillon {

/// Spells edit scenarios: keys as one types them, with <BS>, <CUT>, <PASTE>, <COPY>, <DEL>, <INS> for the keys without
/// a picture; <3> puts the caret behind the third character, <1-4> selects, <ALL> selects everything. `type` gets one
/// character (or a command's name, for which `command` is called), `select` the two ends.
template <class Type, class Command, class Select>
void PlayKeys(std::string_view keys, const Type& type, const Command& command, const Select& select) {
    while (!keys.empty()) {
        const std::size_t close = keys.front() == '<' ? keys.find('>') : std::string_view::npos;
        if (close == std::string_view::npos) {
            type(keys.front());
            keys.remove_prefix(1);
            continue;
        }
        const std::string_view name = keys.substr(1, close - 1);
        keys.remove_prefix(close + 1);
        if (name == "BS") {
            type(kBackspace);
        } else if (IsDigit(name.front())) {
            const std::size_t dash = name.find('-');
            const auto from = static_cast<std::size_t>(Atoi(name));
            const std::string_view end = dash == std::string_view::npos ? name : name.substr(dash + 1);
            select(from, static_cast<std::size_t>(Atoi(end)));
        } else {
            command(name);
        }
    }
}

/// The text with its caret as "|", or its selection as "[...]".
inline std::string ShowEdit(const tagEditText& edit) {
    std::string shown = edit.text;
    if (!edit.HasSelection()) return shown.insert(edit.from, "|");
    shown.insert(edit.to, "]");
    return shown.insert(edit.from, "[");
}

}  // namespace quillon
