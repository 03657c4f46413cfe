#include "geodesy/geodesic_bearing.h"

#include <cmath>
#include <numbers>

namespace quillon {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kSettled = 1e-13;
constexpr int kMostRounds = 60;

/// A point on the auxiliary sphere by its reduced latitude.
struct Reduced {
    double sine;
    double cosine;
};

Reduced ReducedLatitude(double latitude, double flattening) {
    // Through the arc's own sine and cosine, so that a pole is no exception.
    const double y = (1.0 - flattening) * std::sin(latitude), x = std::cos(latitude);
    const double length = std::hypot(x, y);
    return {y / length, x / length};
}

double Bearing(const Reduced& from, const Reduced& to, double lambda) {
    const double bearing =
        std::atan2(to.cosine * std::sin(lambda), from.cosine * to.sine - from.sine * to.cosine * std::cos(lambda));
    return bearing < 0.0 ? bearing + kTurn : bearing;
}

/// The longitude on the auxiliary sphere that follows from an earlier one.
double NextLambda(const Reduced& from, const Reduced& to, double lambda, double difference, double flattening) {
    const double across = to.cosine * std::sin(lambda);
    const double along = from.cosine * to.sine - from.sine * to.cosine * std::cos(lambda);
    const double sinSigma = std::hypot(across, along);
    if (sinSigma == 0.0) return difference;
    const double cosSigma = from.sine * to.sine + from.cosine * to.cosine * std::cos(lambda);
    const double sinAlpha = from.cosine * across / sinSigma;
    const double cosAlpha2 = 1.0 - sinAlpha * sinAlpha;
    const double middle = cosAlpha2 > 0.0 ? cosSigma - 2.0 * from.sine * to.sine / cosAlpha2 : 0.0;
    const double c = flattening / 16.0 * cosAlpha2 * (4.0 + flattening * (4.0 - 3.0 * cosAlpha2));
    const double sigma = std::atan2(sinSigma, cosSigma);
    const double series = sigma + c * sinSigma * (middle + c * cosSigma * (2.0 * middle * middle - 1.0));
    return difference + (1.0 - c) * flattening * sinAlpha * series;
}

}  // namespace

double GeodesicBearing(const CEllipsoid& ellipsoid, double lat1, double lon1, double lat2, double lon2) {
    const double flattening = ellipsoid.a > 0.0 ? 1.0 - ellipsoid.b / ellipsoid.a : 0.0;
    const double difference = std::remainder(lon2 - lon1, kTurn);
    if (lat1 == lat2 && difference == 0.0) return 0.0;
    const Reduced from = ReducedLatitude(lat1, flattening), to = ReducedLatitude(lat2, flattening);
    double lambda = difference;
    for (int round = 0; round < kMostRounds; ++round) {
        const double next = NextLambda(from, to, lambda, difference, flattening);
        if (std::fabs(next) > std::numbers::pi) break;
        const bool settled = std::fabs(next - lambda) < kSettled;
        lambda = next;
        if (settled) return Bearing(from, to, lambda);
    }
    return Bearing(from, to, difference);
}

}  // namespace quillon
