#include "window/hover_names.h"

#include <QToolTip>
#include <cmath>

#include "toolkit/text_edge.h"

namespace quillon {
namespace {

/// Long enough that nothing pops up while the mouse is on its way.
constexpr int kRestMs = 600;
/// A mouse that moves no farther still rests.
constexpr double kRestPixels = 4.0;
constexpr std::size_t kMostLines = 6;

}  // namespace

HoverNames::HoverNames(const SceneBuilder& sceneBuilder, ChartWidget& widget, StatusLine& statusLine)
    : scenes(sceneBuilder), chart(widget), status(statusLine) {
    rest.setSingleShot(true);
    rest.setInterval(kRestMs);
    QObject::connect(&rest, &QTimer::timeout, &rest, [this] { ShowTip(); });
}

void HoverNames::OnCursor(const std::optional<tagXY>& position) {
    if (!position) {
        there.clear();
        status.SetUnderCursor({});
        return Hide();
    }
    at = chart.View().ToPixel(*position);
    there = Identify(scenes, chart.HitsAt(at));
    status.SetUnderCursor(there.empty() ? QString() : ToQString(there.front().text));
    if (tipShown && std::hypot(at.x - tipAt.x, at.y - tipAt.y) <= kRestPixels) return;
    Hide();
    if (!there.empty()) rest.start();
}

void HoverNames::Hide() {
    rest.stop();
    if (std::exchange(tipShown, false)) QToolTip::hideText();
}

void HoverNames::ShowTip() {
    if (there.empty()) return;
    QStringList lines;
    for (std::size_t i = 0; i < std::min(there.size(), kMostLines); ++i) {
        lines += ToQString(there[i].text).toHtmlEscaped();
    }
    if (there.size() > kMostLines) lines += QString("and %1 more").arg(there.size() - kMostLines);
    tipShown = true;
    tipAt = at;
    const QPoint place = chart.mapToGlobal(QPoint(static_cast<int>(at.x), static_cast<int>(at.y)));
    QToolTip::showText(place, "<p style='white-space:pre'>" + lines.join("<br>") + "</p>", &chart);
}

}  // namespace quillon
