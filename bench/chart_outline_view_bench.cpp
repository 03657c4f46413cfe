// Repainting the view of a structure's shape, on the device that the workbench paints views with: a drawing of lines,
// polylines, arcs, circles, texts and solids, all of it in sight in a pane of 400 by 500 pixels. By day and by night a
// repaint takes less than two frames of a screen, 33 ms, for 100,000 entities.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <filesystem>

#include "chart/qpainter_device.h"
#include "display/outline_view.h"
#include "drawing_sample.h"
#include "platform/headless.h"

namespace quillon {
namespace {

constexpr int kWidth = 400, kHeight = 500;

class DrawingView : public COutlineView {
public:
    DrawingView(CWnd& parent, const CDxf& shown) : COutlineView(parent, 1), drawing(shown) {}
    void Paint(CDrawDevice& device) override {
        CMyDC dc(&device);
        dc.background = GetBackground();
        dc.FillSolidRect(0, 0, kWidth, kHeight, GetBackground());
        ComputeScaling({0, 0, kWidth, kHeight}, drawing.extMin.x, drawing.extMin.y, drawing.extMax.x, drawing.extMax.y);
        DrawDxf(dc, &drawing);
        DrawGrid(dc);
    }

private:
    const CDxf& drawing;
};

void Repaint(benchmark::State& state) {
    HeadlessPlatform platform(std::filesystem::temp_directory_path() / "quillon-bench");
    CWnd parent(platform);
    const DrawingSample sample(static_cast<std::size_t>(state.range(0)));
    CDxf drawing(platform.Files());
    drawing.OpenBytes(sample.text);
    while (drawing.ReadSection()) {
    }
    drawing.Close();
    DrawingView view(parent, drawing);
    view.SetNightMode(state.range(1) != 0);
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        QPainterDevice device(painter);
        view.Paint(device);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(Repaint)
    ->ArgNames({"entities", "night"})
    ->ArgsProduct({{1000, 10000, 100000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillon

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
