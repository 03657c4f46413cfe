#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>

namespace quillon {

/// One thing that a pane tells its host.
enum class POST : std::uint8_t {
    REDRAW,                    ///< the redraw pair
    REDRAW_POINT,              ///< the pair with the point that the pane shows
    REDRAW_VECTOR,             ///< the second message of the pair alone
    RECOMPUTE,                 ///< what the host's cable clearance work stands on has changed
    RECOMPUTE_IF_HIGHLIGHTED,  ///< the same, where the feature is highlighted
    FEATURE_UPDATE,            ///< features of the pane's kind have come, gone or changed
    SET_FOCUS_FEATURE,         ///< the pane's kind of feature gets the focus
    UPDATE_DTM
};

/// What is told, in its order: `Posts{POST::REDRAW, POST::RECOMPUTE}`.
class Posts {
public:
    static constexpr std::size_t kMost = 4;

    template <std::same_as<POST>... Post>
    requires(sizeof...(Post) <= kMost) constexpr Posts(Post... post) : posts{post...}, count(sizeof...(Post)) {}

    constexpr const POST* begin() const { return posts.data(); }
    constexpr const POST* end() const { return posts.data() + count; }

private:
    std::array<POST, kMost> posts;
    std::size_t count;
};

}  // namespace quillon
