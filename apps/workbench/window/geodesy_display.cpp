#include "window/geodesy_display.h"

#include <QFontDatabase>

#include "foundation/angle_text.h"
#include "foundation/angle_units.h"
#include "host/graticule.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "toolkit/text_edge.h"
#include "window/geodesy_dialog.h"

namespace quillon {
namespace {

constexpr const char* kSection = "Workbench";
constexpr const char* kGraticuleKey = "Graticule";

QLabel* MakeFigures(QStatusBar& bar, const QString& widest) {
    auto* const field = new QLabel;
    QFont figures = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    figures.setPointSizeF(bar.font().pointSizeF());
    field->setFont(figures);
    field->setContentsMargins(8, 0, 8, 0);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setMinimumWidth(QFontMetrics(figures).horizontalAdvance(widest) + 16);
    return field;
}

}  // namespace

QString GeographicText(const std::optional<tagLatLon>& position, FileSystem& files) {
    if (!position) return "outside the grid";
    const auto angle = [&](double degrees, int type) {
        return ToQString(
            FormatAngle(degrees * kRadiansPerDegree, type, ANGLE_BY_SETTINGS, kDefaultDecimals, 0, &files));
    };
    return angle(position->latitude, ANGLE_LATITUDE) + "  " + angle(position->longitude, ANGLE_LONGITUDE);
}

QString GridScaleText(const tagGridScale& scale) {
    return ToQString(
        Format("grid convergence %+.4lf\xB0, scale factor %.6lf", scale.convergence / kRadiansPerDegree, scale.scale));
}

GeodesyDisplay::GeodesyDisplay(Job& shownJob, ChartWidget& shownChart, QStatusBar& bar)
    : job(shownJob), chart(shownChart), badge(new QToolButton), geographic(nullptr) {
    choose = new QAction("&Grid and Datum...", &bar);
    choose->setShortcut(QKeySequence("Ctrl+G"));
    choose->setToolTip("Choose the grid that the job's positions are on (Ctrl+G)");
    choose->setStatusTip("Choose the grid that the job's positions are on; no position changes");
    QObject::connect(choose, &QAction::triggered, &bar, [this] { Choose(); });
    graticule = new QAction("&Latitudes and Longitudes", &bar);
    graticule->setShortcut(QKeySequence("Ctrl+L"));
    graticule->setToolTip("Lines of latitude and longitude on the chart (Ctrl+L)");
    graticule->setStatusTip("Lines of latitude and longitude on the chart");
    graticule->setCheckable(true);
    graticule->setChecked(job.GetPlatform().GetProfile().GetInt(kSection, kGraticuleKey, 0) != 0);
    QObject::connect(graticule, &QAction::toggled, &bar, [this](bool on) {
        job.GetPlatform().GetProfile().SetInt(kSection, kGraticuleKey, on ? 1 : 0);
        FollowView();
    });
    badge->setAutoRaise(true);
    badge->setFocusPolicy(Qt::NoFocus);
    QObject::connect(badge, &QToolButton::clicked, choose, &QAction::trigger);
    geographic = MakeFigures(bar, GeographicText(tagLatLon{-88.888888, -178.888888}, job.GetPlatform().Files()));
    bar.addPermanentWidget(badge);
    bar.addPermanentWidget(geographic);
    Refresh();
}

void GeodesyDisplay::Refresh() {
    const CJobGeodesy& geodesy = job.Record().geodesy;
    const QString grid = ToQString(geodesy.GridText());
    badge->setText(geodesy.IsChosen() ? grid + " \u00b7 " + ToQString(geodesy.DatumText()) : grid);
    badge->setToolTip(geodesy.LoadFault() == GEODESY_FAULT::NONE || geodesy.IsChosen()
                          ? choose->toolTip()
                          : "The grid stored can't be used: " + ToQString(FaultText(geodesy.LoadFault())));
    geographic->setVisible(geodesy.IsChosen());
    graticule->setEnabled(geodesy.IsChosen());
    OnCursor(std::nullopt);
    FollowView();
}

void GeodesyDisplay::OnCursor(const std::optional<tagXY>& position) {
    const CJobGeodesy& geodesy = job.Record().geodesy;
    if (!position || !geodesy.IsChosen()) return geographic->clear();
    geographic->setText(GeographicText(geodesy.ToGeographic(*position), job.GetPlatform().Files()));
    const auto scale = geodesy.ScaleAt(*position);
    geographic->setToolTip(scale ? GridScaleText(*scale) : QString());
}

std::shared_ptr<const ChartGraticule> GeodesyDisplay::Lines() const {
    if (!graticule->isChecked()) return nullptr;
    const ChartView& view = chart.View();
    return std::make_shared<const ChartGraticule>(
        GraticuleOf(job.Record().geodesy, view.WorldBox(), view.MetresPerPixel()));
}

void GeodesyDisplay::FollowView() {
    if (graticule->isChecked() || chart.Scene().graticule) chart.SetGraticule(Lines());
}

void GeodesyDisplay::Choose() {
    GeodesyDialog dialog(badge->window(), job.GetPlatform().Files(), job.Record().geodesy.Choice());
    if (dialog.exec() != QDialog::Accepted) return;
    if (const auto choice = dialog.Choice(); choice.chosen) {
        job.ChooseGeodesy(choice);
    } else {
        job.ClearGeodesy();
    }
}

}  // namespace quillon
