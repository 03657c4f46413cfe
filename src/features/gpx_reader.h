#pragma once

#include <optional>
#include <string_view>

#include "features/gpx.h"

namespace quillon {

/// Reads GPX 1.0 and 1.1 (Topografix, GPX 1.1 Schema Documentation, 2004) from its bytes: tracks with their segments,
/// routes behind them as tracks without times, waypoints. Names are Windows-1252 then, and one that the file doesn't
/// give tells the place: "Track 2". Takes the encodings that XML has byte order marks for, UTF-8 and Latin 1. Legs are
/// left at 0.
void ReadGpx(std::string_view bytes, CGPX& gpx, GpxReport& report);

/// Seconds since 00:00 on 2 January 2000, UTC, of a date and time as XML writes them ("2014-12-13T16:32:51.88+01:00");
/// a time without a zone is UTC. None for anything else.
std::optional<double> GpxTime(std::string_view text);

}  // namespace quillon
