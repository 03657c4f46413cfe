#include "frame/row_effects.h"

#include <algorithm>

namespace quillon {
namespace {

void PostMessages(ROW_MESSAGES messages, RowEffectTarget& target) {
    switch (messages) {
        case ROW_MESSAGES::NONE:
            break;
        case ROW_MESSAGES::REDRAW:
            target.PostRedraw();
            break;
        case ROW_MESSAGES::RECOMPUTE:
            target.PostRecompute();
            break;
        case ROW_MESSAGES::REDRAW_RECOMPUTE:
            target.PostRedraw();
            target.PostRecompute();
            break;
        case ROW_MESSAGES::RECOMPUTE_REDRAW:
            target.PostRecompute();
            target.PostRedraw();
            break;
        case ROW_MESSAGES::REDRAW_RECOMPUTE_IF_HIGHLIGHTED:
            target.PostRedraw();
            if (target.IsHighlighted()) target.PostRecompute();
            break;
    }
}

}  // namespace

const RowEffect* FindRowEffect(std::span<const RowEffect> effects, UINT id) {
    const auto found = std::find_if(effects.begin(), effects.end(), [id](const RowEffect& e) { return e.id == id; });
    return id == 0 || found == effects.end() ? nullptr : &*found;
}

void ApplyRowEffect(const RowEffect& effect, bool differed, RowEffectTarget& target) {
    if (!differed && effect.equal == EQUAL_VALUE::ENDS) return;
    if (effect.save != 0) target.SaveFile(effect.save);
    if (!differed && effect.equal == EQUAL_VALUE::SAVES) return;
    if (effect.setsChanged) target.SetChanged();
    PostMessages(effect.messages, target);
}

}  // namespace quillon
