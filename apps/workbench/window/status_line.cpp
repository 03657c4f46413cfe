#include "window/status_line.h"

#include <QFontDatabase>
#include <cmath>
#include <string>

#include "platform/text.h"

namespace quillon {
namespace {

/// A blank that is narrow and never breaks a line.
constexpr char16_t kThinBlank = 0x202F;

constexpr const char* kWidestGeographic = "88\u00B0 88'.88888N  188\u00B0 88'.88888E";
constexpr const char* kWidestGridScale = "convergence -88.8888\u00B0  scale 0.888888";
/// Pixels of a status line that has room for convergence and scale factor too.
constexpr int kRoomForGridScale = 1400;

/// Groups the figures before the point by threes.
QString Grouped(const std::string& number) {
    QString grouped = QString::fromStdString(number);
    const auto point = grouped.indexOf('.');
    const qsizetype first = grouped.startsWith('-') ? 1 : 0;
    for (qsizetype at = (point < 0 ? grouped.size() : point) - 3; at > first; at -= 3) {
        grouped.insert(at, QChar(kThinBlank));
    }
    return grouped;
}

}  // namespace

QString PositionText(tagXY position) {
    return "E " + Grouped(Format("%.3lf", position.x)) + "   N " + Grouped(Format("%.3lf", position.y));
}

QString ScaleText(double denominator) {
    if (!(denominator > 0.0) || denominator > 1e12) return {};
    // A scale of a screen is known to three figures at most.
    const double step = std::pow(10.0, std::max(0.0, std::floor(std::log10(denominator)) - 2.0));
    return "1 : " + Grouped(Format("%.0lf", std::round(denominator / step) * step));
}

StatusLine::StatusLine(QStatusBar& statusBar) : bar(statusBar) {
    under = new QLabel;
    under->setTextFormat(Qt::PlainText);
    under->setContentsMargins(8, 0, 8, 0);
    // As wide as there is room: a long name doesn't push the numbers about.
    under->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar.addWidget(under, 1);
    note = new QLabel;
    note->setContentsMargins(8, 0, 8, 0);
    note->hide();
    bar.addPermanentWidget(note);
    grid = new QToolButton;
    grid->setAutoRaise(true);
    grid->setFocusPolicy(Qt::NoFocus);
    QObject::connect(grid, &QToolButton::clicked, grid, [this] {
        if (onGrid) onGrid();
    });
    bar.addPermanentWidget(grid);
    gridScale =
        AddField(kWidestGridScale,
                 "At the cursor: what is added to a grid bearing for the true one, and grid length over true length");
    geographic = AddField(kWidestGeographic, "Latitude and longitude under the cursor, on the ellipsoid of the grid");
    gridScale->hide();
    geographic->hide();
    position = AddField(PositionText({-8'888'888.888, -88'888'888.888}), "Position under the cursor, metres");
    scale = AddField(ScaleText(88'800'000.0), "Scale of the chart on this screen");
}

QLabel* StatusLine::AddField(const QString& widest, const QString& tip) {
    auto* const field = new QLabel;
    QFont figures = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    figures.setPointSizeF(bar.font().pointSizeF());
    field->setFont(figures);
    field->setToolTip(tip);
    field->setContentsMargins(8, 0, 8, 0);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setMinimumWidth(QFontMetrics(figures).horizontalAdvance(widest) + 16);
    bar.addPermanentWidget(field);
    return field;
}

void StatusLine::SetNote(const QString& text) {
    note->setText(text);
    note->setVisible(!text.isEmpty());
}

void StatusLine::SetPosition(const std::optional<tagXY>& under) {
    position->setText(under ? PositionText(*under) : QString());
}

void StatusLine::SetGrid(const QString& text, bool chosen) {
    grid->setText(text);
    grid->setToolTip(chosen ? "Grid and datum of the job; a click chooses another"
                            : "The grid of the job isn't known: no latitude is shown. A click chooses one");
    geographic->setVisible(chosen);
    gridScale->setVisible(chosen && bar.width() >= kRoomForGridScale);
    if (!chosen) SetGeographic({}, {});
}

void StatusLine::SetGeographic(const QString& latLon, const QString& scaleThere) {
    geographic->setText(latLon);
    gridScale->setText(scaleThere);
    gridScale->setVisible(!geographic->isHidden() && bar.width() >= kRoomForGridScale);
}

void StatusLine::SetScale(double denominator) {
    scale->setText(ScaleText(denominator));
}

}  // namespace quillon
