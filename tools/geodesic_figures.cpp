// Prints tests/data/geodesy/geodesics.txt with GeographicLib:
//
//     g++ -O2 -o geodesic_figures tools/geodesic_figures.cpp -lGeographicLib && ./geodesic_figures > geodesics.txt
//
// C. F. F. Karney, "Algorithms for geodesics", Journal of Geodesy 87 (2013): accurate to 15 nanometres.
#include <GeographicLib/Geodesic.hpp>
#include <cstdio>

int main() {
    const GeographicLib::Geodesic& earth = GeographicLib::Geodesic::WGS84();
    std::puts("# Geodesics on WGS84 from GeographicLib (tools/geodesic_figures.cpp): lat1 lon1 lat2 lon2 in degrees,");
    std::puts("# distance in metres.");
    for (const double range : {1.0, 100.0, 10e3, 100e3, 500e3, 1000e3, 2000e3, 5000e3, 10000e3}) {
        for (const double lat : {-71.5, -38.0, -0.5, 12.25, 52.0, 66.0}) {
            for (const double azimuth : {0.0, 37.0, 90.0, 141.0, 203.0, 289.0}) {
                const double lon = 3.5 - azimuth / 2;
                double lat2, lon2, distance;
                earth.Direct(lat, lon, azimuth, range, lat2, lon2);
                earth.Inverse(lat, lon, lat2, lon2, distance);
                std::printf("%.2f %.1f %.15f %.15f %.9f\n", lat, lon, lat2, lon2, distance);
            }
        }
    }
}
