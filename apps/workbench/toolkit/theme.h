#pragma once

#include <QPalette>

class QApplication;

namespace quillon {

/// Day and night for the whole program: windows, menus, dialogs, file choice, tool and status bar, dock titles, scroll
/// bars, tips. By day a grey ground with dark grey headings; at night black, light grey text, and nothing brighter than
/// that text.
///
/// The look is drawn from a palette by one style; what the toolkit leaves too bright or too dark for a black ground
/// (frames, dock titles and their buttons) the style draws itself.
class Theme {
public:
    /// Sets the style of the application. Before the first window is shown.
    explicit Theme(QApplication& application);

    bool IsNight() const { return night; }
    /// All windows turn at once.
    void SetNight(bool on);

    static QPalette PaletteOf(bool night);

private:
    QApplication& application;
    bool night = false;
};

}  // namespace quillon
