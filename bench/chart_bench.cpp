// Painting a boundary of 1 000 000 points on a raster of 1600 by 1000: from afar, from the middle and from near, for
// the first time and again; and what a painter takes for the same line without levels of detail.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <cmath>
#include <random>
#include <vector>

#include "chart/chart_painter.h"

namespace quillon {
namespace {

constexpr std::size_t kPoints = 1000000;
constexpr int kWidth = 1600, kHeight = 1000;

enum SHAPE { COAST, NOISE };
enum WITH { LINE = 1, FILL = 2, MARKS = 4, LABELS = 8 };

/// A coast with bays of every size and a jitter of 2 m; or points that each jump by up to 1 km, so that the line covers
/// a band of its neighbourhood.
const std::vector<tagXY>& Boundary(int shape) {
    static const auto make = [](double noise) {
        std::mt19937 random(1);
        std::vector<tagXY> points(kPoints);
        const auto jitter = [&] { return noise * (static_cast<double>(random()) / 2147483647.5 - 1.0); };
        for (std::size_t i = 0; i < kPoints; ++i) {
            const double t = 6.283185307179586 * static_cast<double>(i) / kPoints;
            double radius = 10000.0;
            for (double waves = 3.0, height = 1500.0; height > 0.1; waves = waves * 2.3 + 1.0, height *= 0.45) {
                radius += height * std::sin(waves * t + waves);
            }
            points[i] = {500000.0 + 1.6 * radius * std::sin(t) + jitter(), 6000000.0 + radius * std::cos(t) + jitter()};
        }
        return points;
    };
    static const std::vector<tagXY> coast = make(2.0), noise = make(1000.0);
    return shape == COAST ? coast : noise;
}

ChartScene SceneOf(int shape, int thickness, int with) {
    ChartPath path;
    path.points = Boundary(shape);
    path.closed = true;
    path.line = {RGB(0, 0, 255), thickness, PS_SOLID};
    if (with & FILL) path.fill = {4, RGB(0, 0, 255)};
    if (with & MARKS) path.marks = {5, 3, RGB(0, 0, 255), RGB(0, 0, 0), 0, {}};
    if (with & LABELS) {
        path.marks.labelPosition = 2;
        path.marks.label = [](std::size_t i) { return "Point " + std::to_string(i + 1); };
    }
    ChartScene scene;
    scene.layers.push_back({.id = 1, .paths = {path}, .circles = {}, .texts = {}});
    return scene;
}

/// Zoomed in on a point by so many halvings of the whole.
ChartView ViewOf(int shape, int halvings) {
    ChartBox box;
    for (const tagXY& p : Boundary(shape)) box.Add(p.x, p.y);
    ChartView view;
    view.SetSize(kWidth, kHeight);
    view.ZoomTo(box);
    const tagXY at = Boundary(shape)[kPoints / 7];
    if (halvings > 0) {
        view.SetCentre(at);
        view.SetScale(view.MetresPerPixel() * std::exp2(-halvings));
    }
    return view;
}

void PaintAgain(benchmark::State& state) {
    const int shape = static_cast<int>(state.range(0));
    const ChartScene scene = SceneOf(shape, static_cast<int>(state.range(2)), static_cast<int>(state.range(3)));
    ChartView view = ViewOf(shape, static_cast<int>(state.range(1)));
    QImage picture(kWidth, kHeight, QImage::Format_RGB32);
    ChartPainter chart;
    {
        QPainter painter(&picture);
        chart.Paint(painter, view, scene, false);
    }
    int shift = 1;
    for (auto _ : state) {
        QPainter painter(&picture);
        chart.Paint(painter, view, scene, false);
        view.Pan(shift = -shift, 0);
    }
}

void PaintFirst(benchmark::State& state) {
    const ChartScene scene = SceneOf(static_cast<int>(state.range(0)), 1, FILL | MARKS | LABELS);
    const ChartView view = ViewOf(static_cast<int>(state.range(0)), 0);
    QImage picture(kWidth, kHeight, QImage::Format_RGB32);
    for (auto _ : state) {
        ChartPainter chart;
        QPainter painter(&picture);
        chart.Paint(painter, view, scene, false);
    }
}

void PaintEveryPoint(benchmark::State& state) {
    const ChartView view = ViewOf(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    QImage picture(kWidth, kHeight, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&picture);
        painter.fillRect(picture.rect(), Qt::white);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::blue, static_cast<double>(state.range(2))));
        QPolygonF line;
        line.reserve(kPoints);
        for (const tagXY& p : Boundary(static_cast<int>(state.range(0)))) {
            const PixelPoint pixel = view.ToPixel(p);
            line << QPointF(pixel.x, pixel.y);
        }
        painter.drawPolyline(line);
    }
}

void Hit(benchmark::State& state) {
    const ChartScene scene = SceneOf(static_cast<int>(state.range(0)), 1, 0);
    const ChartView view = ViewOf(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    ScenePaths paths;
    paths.Update(scene);
    const tagXY target = Boundary(static_cast<int>(state.range(0)))[kPoints / 7];
    PixelPoint at = view.ToPixel(target);
    at.x += 3.0;
    for (auto _ : state) benchmark::DoNotOptimize(paths.Hit(scene, view, at, 8.0));
}

BENCHMARK(PaintAgain)
    ->ArgNames({"noise", "halvings", "thick", "with"})
    ->ArgsProduct({{COAST, NOISE}, {0, 3, 6, 9, 12, 15}, {1}, {LINE, LINE | FILL | MARKS | LABELS}})
    ->ArgsProduct({{COAST, NOISE}, {0, 6}, {3}, {LINE, LINE | FILL | MARKS | LABELS}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(PaintFirst)->ArgNames({"noise"})->Arg(COAST)->Arg(NOISE)->Unit(benchmark::kMillisecond);
BENCHMARK(Hit)
    ->ArgNames({"noise", "halvings"})
    ->ArgsProduct({{COAST, NOISE}, {0, 6, 12}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(PaintEveryPoint)
    ->ArgNames({"noise", "halvings", "thick"})
    ->ArgsProduct({{COAST}, {0, 6, 12}, {1}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2);

}  // namespace
}  // namespace quillon

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
