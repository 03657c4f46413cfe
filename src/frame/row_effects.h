#pragma once

#include <cstdint>
#include <span>

#include "frame/posts.h"
#include "platform/message_queue.h"

namespace quillon {

/// What a row does when the operator sets it to the value that it has.
enum class EQUAL_VALUE : std::uint8_t {
    ENDS,   ///< nothing
    SAVES,  ///< the file is written all the same, and nothing else
    COUNTS  ///< all that a new value does
};

/// What follows a changed row, beside the value that its pane stores: one line of a table that stands beside the row
/// ids. `save` is the pane's own number for a file, 0 for none.
struct RowEffect {
    UINT id;
    EQUAL_VALUE equal;
    std::uint8_t save;
    bool setsChanged;
    Posts posts;
};

/// What the effects act upon.
class RowEffectTarget {
public:
    virtual ~RowEffectTarget() = default;
    virtual void SaveFile(std::uint8_t save) = 0;
    virtual void SetChanged() = 0;
    virtual void Broadcast(const Posts& posts) = 0;
};

/// The line of a row; null for an id without a reaction.
const RowEffect* FindRowEffect(std::span<const RowEffect> effects, UINT id);

/// Saves, flags and posts as the line says. `differed` tells whether the value was another one.
void ApplyRowEffect(const RowEffect& effect, bool differed, RowEffectTarget& target);

}  // namespace quillon
