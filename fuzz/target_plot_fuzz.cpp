// Any bytes as the settings file of the target plot.

#include <cstdint>
#include <string_view>

#include "feature_fuzz.h"
#include "target/target_plot.h"

using namespace quillon;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CEllipsoid figure;
    figure.SetEllipsoid(CEllipsoid::kWgs84);
    CTargetPlot plot(figure);
    CConfigFile settings(fuzz::Files());
    settings.OpenBytes({reinterpret_cast<const char*>(data), size});
    plot.ReadFrom(settings);
    fuzz::Require(!plot.display.northUp || plot.cosOrientation == 1.0);
    return 0;
}
