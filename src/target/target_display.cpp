#include "target/target_display.h"

namespace quillon {
namespace {

constexpr double kMetresPerNauticalMile = 1852.0;  // International Hydrographic Conference, Monaco, 1929

}  // namespace

double RingRadiusMetres(const TargetDisplay& display) {
    return display.nauticalMiles ? display.ringRadiusNauticalMiles * kMetresPerNauticalMile : display.ringRadiusMetres;
}

}  // namespace quillon
