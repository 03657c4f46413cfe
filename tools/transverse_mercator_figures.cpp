// Prints tests/data/geodesy/transverse_mercator.txt with GeographicLib:
//
//     g++ -O2 -o tm_figures tools/transverse_mercator_figures.cpp -lGeographicLib &&
//         ./tm_figures > tests/data/geodesy/transverse_mercator.txt
//
// C. F. F. Karney, "Transverse Mercator with an accuracy of a few nanometers", Journal of Geodesy 85 (2011).
#include <GeographicLib/TransverseMercatorExact.hpp>
#include <cstdio>

int main() {
    const GeographicLib::TransverseMercatorExact tm(6378137.0, 1 / 298.257223563, 0.9996);
    std::puts("# UTM zone 31 on WGS84 by the exact projection (tools/transverse_mercator_figures.cpp): latitude and");
    std::puts("# longitude in degrees, easting and northing in metres.");
    for (const double lat : {-79.0, -60.0, -37.5, -12.0, 0.5, 8.0, 24.0, 41.25, 52.0, 63.0, 75.0, 84.0}) {
        for (const double offset : {-3.0, -2.0, -0.75, 0.0, 1.5, 2.5, 3.0}) {
            double east, north;
            tm.Forward(3, lat, 3 + offset, east, north);
            std::printf("%.2f %.2f %.6f %.6f\n", lat, 3 + offset, east + 500000, north);
        }
    }
}
