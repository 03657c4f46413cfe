#pragma once

#include <QColor>

#include "platform/palette.h"

namespace quillon {

inline QColor QColorOf(COLORREF colour) {
    return QColor(static_cast<int>(GetRValue(colour)), static_cast<int>(GetGValue(colour)),
                  static_cast<int>(GetBValue(colour)));
}

/// How bright a colour looks, 0 to 255 (weights of ITU-R BT.601).
inline int Luminance(const QColor& colour) {
    return (colour.red() * 299 + colour.green() * 587 + colour.blue() * 114) / 1000;
}

inline bool IsDark(const QColor& colour) {
    return Luminance(colour) < 100;
}

/// Between two colours; `share` of the second, 0 to 1.
inline QColor Mix(const QColor& a, const QColor& b, double share) {
    const auto part = [share](int x, int y) { return static_cast<int>(x + (y - x) * share + 0.5); };
    return QColor(part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue()));
}

/// Text that tells of something gone wrong; 4.5 to 1 and more against grounds of day and night.
inline QColor WarningOn(const QColor& ground) {
    return IsDark(ground) ? QColor(236, 124, 108) : QColor(160, 20, 16);
}

/// The selection's colours on a ground: the blue of the buttons, dimmed at night.
struct SelectionColours {
    QColor ground;
    QColor text;
};

inline SelectionColours SelectionOn(const QColor& ground, bool active) {
    const bool dark = IsDark(ground);
    const QColor blue = dark ? QColor(0, 61, 102) : QColor(0, 102, 170);
    if (active) return {blue, dark ? QColor(208, 208, 208) : QColor(255, 255, 255)};
    return {Mix(ground, blue, dark ? 0.6 : 0.35), dark ? QColor(192, 192, 192) : QColor(0, 0, 0)};
}

}  // namespace quillon
