#pragma once

#include <array>
#include <cstdint>

#include "foundation/settings_lines.h"
#include "foundation/values.h"
#include "platform/palette.h"

namespace quillon {

/// Rings, zone lines and the tolerance box round a target.
struct TargetDisplay {
    bool drawRings = true;
    std::int16_t ringCount = 3;
    double ringRadiusMetres = 50.0;
    double ringRadiusNauticalMiles = 0.1;
    COLORREF ringColour = RGB(255, 0, 255);
    bool boxShape = false;  ///< the tolerance is a box and no circle
    bool northUp = true;
    bool nauticalMiles = false;
    bool displayLabels = true;  ///< of the cardinal points
    bool labelRings = true;
    bool drawZoneLines = false;
    double startZone = 0.0;  ///< degrees clockwise from grid north
    double stopZone = 0.0;
    COLORREF textColour = RGB(0, 128, 128);
    COLORREF cardinalColour = RGB(255, 128, 0);
    COLORREF zoneColour = RGB(255, 0, 0);
    double boxX = 10.0;          ///< half the width of the box, metres
    double boxY = 10.0;          ///< half its length
    std::array<tagXY, 4> box{};  ///< its corners on the grid; worked out, not stored

    friend bool operator==(const TargetDisplay&, const TargetDisplay&) = default;
};

/// Most rings that a pane stores: its spin control offers one more, which is not taken.
inline constexpr int kMostStoredRings = 24;

/// The radius of one ring in metres, in the unit chosen.
double RingRadiusMetres(const TargetDisplay& display);

template <class Lines>
void EachLine(Lines& lines, RecordOf<TargetDisplay> auto& display) {
    lines.Bool("North Up", display.northUp);
    lines.Bool("Nautical Miles", display.nauticalMiles);
    lines.Bool("Display Labels", display.displayLabels);
    lines.Bool("Label Rings", display.labelRings);
    lines.Colour("Cardinal Colour", display.cardinalColour);
    lines.Colour("Text Colour", display.textColour);
    lines.Bool("Draw Zone Lines", display.drawZoneLines);
    lines.Double("Start Zone Line", display.startZone, 3);
    lines.Double("Stop Zone Line", display.stopZone, 3);
    lines.Colour("Zone Line Colour", display.zoneColour);
    lines.Bool("Shape Box", display.boxShape);
    lines.Double("Box Size X", display.boxX, 3);
    lines.Double("Box Size Y", display.boxY, 3);
    lines.Bool("Draw Rings", display.drawRings);
    lines.Int("No Rings", display.ringCount);
    lines.Double("Radius Metres", display.ringRadiusMetres, 3);
    // Other programs of the system know the radius in nautical miles under this key, the second of its name.
    lines.Double("Box Size Y", display.ringRadiusNauticalMiles, 3);
    lines.Colour("Ring Colour", display.ringColour);
}

}  // namespace quillon
