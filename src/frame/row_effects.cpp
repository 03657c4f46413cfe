#include "frame/row_effects.h"

#include <algorithm>

namespace quillon {

const RowEffect* FindRowEffect(std::span<const RowEffect> effects, UINT id) {
    const auto found = std::find_if(effects.begin(), effects.end(), [id](const RowEffect& e) { return e.id == id; });
    return id == 0 || found == effects.end() ? nullptr : &*found;
}

void ApplyRowEffect(const RowEffect& effect, bool differed, RowEffectTarget& target) {
    if (!differed && effect.equal == EQUAL_VALUE::ENDS) return;
    if (effect.save != 0) target.SaveFile(effect.save);
    if (!differed && effect.equal == EQUAL_VALUE::SAVES) return;
    if (effect.setsChanged) target.SetChanged();
    target.Broadcast(effect.posts);
}

}  // namespace quillon
