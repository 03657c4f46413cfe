// The first byte chooses the data order, also one that isn't there; the rest is a route file. KPs never fall along the
// route.

#include "feature_fuzz.h"
#include "features/route.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    quillon::CRoute route(fuzz::Files());
    route.dataOrder = data[0] % 4;
    route.portWidth = 100.0;
    route.starboardWidth = 50.0;
    fuzz::ReadBytes(route, {reinterpret_cast<const char*>(data) + 1, size - 1});
    route.ComputeCorridor();
    for (quillon::CRoute::Index i = 0; i < route.GetSize(); ++i) {
        fuzz::Require(fuzz::IsPosition(route[i].position));
        fuzz::Require(route.dataOrder != 0 || route[i].name == "WPT " + std::to_string(i + 1));
        if (i > 0) fuzz::Require(!(route[i].kp < route[i - 1].kp));
    }
    return 0;
}
