#include "background/kind_report.h"

#include "platform/text.h"

namespace quillon {

void KindReport::PassOver(std::string_view reason, std::size_t line, std::size_t count) {
    if (count > 0) kinds[PlaceOf(reason, line)].count += count;
}

std::size_t KindReport::CountOf(std::string_view reason) const {
    const auto found = places.find(reason);
    return found == places.end() ? 0 : kinds[found->second].count;
}

std::vector<std::string> KindReport::Sentences() const {
    std::vector<std::string> sentences;
    for (const Kind& kind : kinds) {
        std::string& text = sentences.emplace_back(kind.reason);
        if (kind.count > 1) text += Format(", %zu times", kind.count);
        if (kind.line > 0) text += Format(kind.count > 1 ? ", first on line %zu" : ", on line %zu", kind.line);
    }
    return sentences;
}

ReadReport KindReport::Summary(bool ofLines) const {
    ReadReport summary;
    summary.opened = opened;
    summary.taken = taken;
    for (const Kind& kind : kinds) summary.passedOver += ofLines ? kind.count : 0;
    summary.lines = summary.taken + summary.passedOver;
    return summary;
}

std::size_t KindReport::PlaceOf(std::string_view reason, std::size_t line) {
    const auto found = places.find(reason);
    if (found != places.end()) return found->second;
    if (kinds.size() >= kMostKinds && reason != kOtherKinds) return PlaceOf(kOtherKinds, line);
    kinds.push_back({std::string(reason), 0, line});
    return places.emplace(reason, kinds.size() - 1).first->second;
}

}  // namespace quillon
