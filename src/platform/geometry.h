#pragma once

namespace quillon {

/// Pixels, y growing downwards.
struct tagPOINT {
    int x = 0;
    int y = 0;
    friend bool operator==(const tagPOINT&, const tagPOINT&) = default;
};

struct tagSIZE {
    int width = 0;
    int height = 0;
    friend bool operator==(const tagSIZE&, const tagSIZE&) = default;
};

/// Right and bottom lie one behind the last pixel.
struct tagRECT {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    friend bool operator==(const tagRECT&, const tagRECT&) = default;
};

}  // namespace quillon
