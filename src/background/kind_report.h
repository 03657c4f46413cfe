#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/read_report.h"

namespace quillon {

/// What a reader of drawings made of a file: how many records it took, and what it passed over, by kind and count.
/// Reading itself stays quiet; this is for who asks.
class KindReport {
public:
    struct Kind {
        std::string reason;
        std::size_t count = 0;
        std::size_t line = 0;  ///< of the first, from 1; 0 where a line says nothing
    };
    /// Kinds that are told apart; all further ones count as one, so that a report on any file stays short.
    static constexpr std::size_t kMostKinds = 100;
    static constexpr std::string_view kOtherKinds = "further kinds";

    bool opened = false;
    std::size_t taken = 0;

    void PassOver(std::string_view reason, std::size_t line = 0, std::size_t count = 1);
    /// In the order of their first appearance.
    const std::vector<Kind>& GetKinds() const { return kinds; }
    /// The count under this reason; 0 if there is none.
    std::size_t CountOf(std::string_view reason) const;

    /// For people, a sentence a kind: "3DFACE, 2 times, first on line 5".
    std::vector<std::string> Sentences() const;
    /// The counts alone, as of the lines of a file. What a drawing has and line work hasn't isn't counted as passed
    /// over: there is some in nearly every drawing.
    ReadReport Summary(bool ofLines = false) const;

private:
    std::size_t PlaceOf(std::string_view reason, std::size_t line);

    std::vector<Kind> kinds;
    std::map<std::string, std::size_t, std::less<>> places;
};

}  // namespace quillon
