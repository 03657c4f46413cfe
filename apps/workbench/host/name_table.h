#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// Many short texts in one block: of a million names, a tenth of what as many strings take.
class NameTable {
public:
    void Add(std::string_view name) {
        all += name;
        ends.push_back(all.size());
    }
    /// Empty behind the last.
    std::string Of(std::size_t index) const {
        if (index >= ends.size()) return {};
        const std::size_t first = index == 0 ? 0 : ends[index - 1];
        return all.substr(first, ends[index] - first);
    }

private:
    std::string all;
    std::vector<std::size_t> ends;
};

}  // namespace quillon
