#include "toolkit/theme.h"

#include <QApplication>
#include <QToolTip>
#include <QWidget>
#include <QWindow>
#include <vector>

#include "toolkit/theme_style.h"

namespace quillon {
namespace {

struct RoleColours {
    QPalette::ColorRole role;
    QRgb day;
    QRgb night;
};

// clang-format off
constexpr RoleColours kRoles[] = {
    {QPalette::Window,          0xFFD6D6D6, 0xFF000000},
    {QPalette::WindowText,      0xFF000000, 0xFFC0C0C0},
    {QPalette::Base,            0xFFE6E6E6, 0xFF0E0E0E},
    {QPalette::AlternateBase,   0xFFDCDCDC, 0xFF181818},
    {QPalette::Text,            0xFF000000, 0xFFC0C0C0},
    {QPalette::PlaceholderText, 0xFF6A6A6A, 0xFF7A7A7A},
    {QPalette::Button,          0xFFCACACA, 0xFF303030},
    {QPalette::ButtonText,      0xFF000000, 0xFFC0C0C0},
    {QPalette::BrightText,      0xFFA00000, 0xFFC07070},
    {QPalette::Light,           0xFFEBEBEB, 0xFF3C3C3C},
    {QPalette::Midlight,        0xFFDEDEDE, 0xFF343434},
    {QPalette::Mid,             0xFFA0A0A0, 0xFF555555},
    {QPalette::Dark,            0xFF7D7D7D, 0xFF606060},
    {QPalette::Shadow,          0xFF555555, 0xFF000000},
    {QPalette::Highlight,       0xFF0066AA, 0xFF003D66},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFC0C0C0},
    {QPalette::Link,            0xFF004C80, 0xFF5A9CC8},
    {QPalette::LinkVisited,     0xFF5A3C78, 0xFF9A80B8},
    {QPalette::ToolTipBase,     0xFFEBEBEB, 0xFF202020},
    {QPalette::ToolTipText,     0xFF000000, 0xFFC0C0C0},
};
constexpr RoleColours kDisabled[] = {
    {QPalette::WindowText,      0xFF808080, 0xFF6C6C6C},
    {QPalette::Text,            0xFF808080, 0xFF6C6C6C},
    {QPalette::ButtonText,      0xFF808080, 0xFF6C6C6C},
    {QPalette::Base,            0xFFD6D6D6, 0xFF0A0A0A},
    {QPalette::Button,          0xFFCECECE, 0xFF1E1E1E},
    {QPalette::Highlight,       0xFFA8A8A8, 0xFF303030},
    {QPalette::HighlightedText, 0xFF606060, 0xFF808080},
};
// clang-format on

/// While it lives, no window paints: the change of colours shows in one step.
class HeldUpdates {
public:
    HeldUpdates() {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || !window->updatesEnabled()) continue;
            window->setUpdatesEnabled(false);
            held.push_back(window);
        }
    }
    ~HeldUpdates() {
        for (QWidget* const window : held) window->setUpdatesEnabled(true);
    }
    HeldUpdates(const HeldUpdates&) = delete;
    HeldUpdates& operator=(const HeldUpdates&) = delete;

private:
    std::vector<QWidget*> held;
};

}  // namespace

Theme::Theme(QApplication& host) : application(host) {
    QApplication::setStyle(new ThemeStyle);
    SetNight(false);
}

QPalette Theme::PaletteOf(bool night) {
    QPalette palette;
    for (const RoleColours& entry : kRoles) palette.setColor(entry.role, QColor(night ? entry.night : entry.day));
    for (const RoleColours& entry : kDisabled) {
        palette.setColor(QPalette::Disabled, entry.role, QColor(night ? entry.night : entry.day));
    }
    return palette;
}

void Theme::SetNight(bool on) {
    night = on;
    const HeldUpdates still;
    const QPalette palette = PaletteOf(on);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    // The toolkit posts the change to each window. It is delivered here, before anything is painted: half a window in
    // the old colours would flash.
    for (QWindow* const window : QGuiApplication::allWindows()) {
        QCoreApplication::sendPostedEvents(window, QEvent::ApplicationPaletteChange);
    }
    application.setProperty("night", on);
}

}  // namespace quillon
