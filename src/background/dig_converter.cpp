#include "background/dig_converter.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "foundation/angle_units.h"
#include "foundation/field_scanner.h"
#include "foundation/read_report.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr double kFullTurn = 6.283185307179586;

tagXY PlaneOf(const tagXYZ& point) {
    return {point.x, point.y};
}

std::int16_t CodeOf(int colourIndex) {
    return static_cast<std::int16_t>(colourIndex + 1);
}

}  // namespace

// ---- Drawings ----

bool DigConverter::Add(const CDxf& dxf) {
    const auto addAll = [this](const std::vector<const CDxfEntity*>& entities) {
        for (const CDxfEntity* entity : entities) {
            if (records.size() > kMostRecords) return false;
            Add(*entity);
        }
        return records.size() <= kMostRecords;
    };
    return std::ranges::all_of(dxf.blocks, [&](const CDxfBlock& block) { return addAll(block.entities); }) &&
           addAll(dxf.entities);
}

void DigConverter::Add(const CDxfEntity& entity) {
    const std::size_t before = records.size();
    code = CodeOf(ColourIndexOf(entity));
    VisitEntity(entity, [this](const auto& record) { AddLines(record); });
    if (records.size() > before) ++taken;
}

DigConverter::Nothing& DigConverter::NothingOf(const CDxfEntity& entity) {
    Nothing& kind = entity.multiline ? nothing.back() : nothing[static_cast<std::size_t>(entity.type)];
    if (!kind.example) kind.example = &entity;
    return kind;
}

void DigConverter::AddLines(const CDxfLine& line) {
    const tagXY start = PlaneOf(line.start), end = PlaneOf(line.end);
    if (!IsInside(start) || !IsInside(end)) return CountOutside(line);
    AddPoint(start, true);
    AddPoint(end, false);
}

void DigConverter::AddLines(const CDxfCircle& circle) {
    if (!IsInside(PlaneOf(circle.centre))) return CountOutside(circle);
    AddArc(1, PlaneOf(circle.centre), circle.radius, 0.0, kFullTurn);
}

void DigConverter::AddLines(const CDxfArc& arc) {
    if (!IsInside(PlaneOf(arc.centre))) return CountOutside(arc);
    AddArc(-1, PlaneOf(arc.centre), arc.radius, arc.startBearing * kRadiansPerDegree,
           arc.endBearing * kRadiansPerDegree);
}

void DigConverter::AddLines(const CDxfPolyline& line) {
    const std::size_t before = records.size();
    for (std::size_t i = 0; i < line.count; ++i) {
        const tagXY at = line.GetPosition(i);
        if (IsInside(at)) {
            AddPoint(at, records.size() == before);
        } else {
            ++verticesOutside;
        }
    }
    const std::size_t count = records.size() - before;
    if (count == 0) CountOutside(line);
    if (count >= 2 && line.IsClosed()) AddPoint(records[before].Position(), false);
}

void DigConverter::AddLines(const CDxfSolid& solid) {
    if (!IsInside(PlaneOf(solid.corners[0]))) return CountOutside(solid);
    for (std::size_t i = 0; i < solid.corners.size(); ++i) AddPoint(PlaneOf(solid.corners[i]), i == 0);
    AddPoint(PlaneOf(solid.corners[0]), false);
}

void DigConverter::AddPoint(tagXY at, bool startsLine) {
    records.push_back({at.x, at.y, static_cast<std::int16_t>(startsLine ? -code : code)});
}

/// Angles are bearings in radians, clockwise from north. The walk goes from `a` to `b`, or the other way round for a
/// direction of -1.
void DigConverter::AddArc(int direction, tagXY centre, double radius, double a, double b) {
    if (!(radius > 0.0)) {
        ++withoutRadius;
        return;
    }
    const auto at = [&](double bearing) {
        return tagXY{centre.x + radius * std::sin(bearing), centre.y + radius * std::cos(bearing)};
    };
    const double start = direction > 0 ? a : b;
    double end = direction > 0 ? b : a;
    if (start > end) end += kFullTurn;
    AddPoint(at(start), true);
    const double cosine = (radius - kChordError) / radius;
    if (cosine >= -1.0 && cosine <= 1.0) {
        const double steps = std::min(std::ceil((end - start) / (2.0 * std::acos(cosine))), kMostSteps);
        const double step = (end - start) / steps;
        if (step > 0.0) {
            // By multiples, so that rounding doesn't gather along the arc.
            for (double i = 0.0; i < steps; ++i) AddPoint(at(start + i * step), false);
        }
    }
    const tagXY last = at(direction > 0 ? b : a);
    AddPoint(last, false);
    if (direction < 0) AddPoint(last, false);
}

void DigConverter::Report(KindReport& report) const {
    report.taken += taken;
    for (const Nothing& kind : nothing) {
        if (!kind.example) continue;
        const std::string keyword(DxfKeyword(*kind.example));
        report.PassOver(keyword + " outside the extents", 0, kind.outside);
        report.PassOver(keyword + " without line work", 0, kind.withoutLines);
    }
    report.PassOver("vertex of a polyline outside the extents", 0, verticesOutside);
    report.PassOver("circle or arc without a radius", 0, withoutRadius);
}

bool ConvertToDig(const CDxf& dxf, std::vector<BinaryDigDef>& records, KindReport& report) {
    tagXY least = PlaneOf(dxf.extMin), most = PlaneOf(dxf.extMax);
    if (dxf.ownExtents) dxf.FindOwnExtents(least, most);
    DigConverter converter(least, most);
    report = {};
    report.opened = true;
    if (!converter.Add(dxf)) {
        report.PassOver("more points than a DIG file can be made of: its arcs are too large or too many");
        return false;
    }
    converter.Report(report);
    if (!dxf.ownExtents && !dxf.HasExtents()) {
        report.PassOver(dxf.extMin == tagXYZ() && dxf.extMax == tagXYZ()
                            ? "extents in the header: there are none, and all that isn't at 0, 0 is left out"
                            : "extents in the header: they are turned round, and everything is left out");
    }
    records = converter.TakeRecords();
    return true;
}

bool LiesOutsideHeader(const CDxf& dxf) {
    tagXY least, most;
    if (!dxf.FindOwnExtents(least, most)) return false;
    if (!dxf.HasExtents()) return true;
    return most.x < dxf.extMin.x || least.x > dxf.extMax.x || most.y < dxf.extMin.y || least.y > dxf.extMax.y;
}

// ---- Text ----

namespace {

/// What stands behind the position: pen and colour.
struct PenAndColour {
    bool up = false;
    int colourIndex = kDxfWhite;
    bool unknownColour = false;

    explicit PenAndColour(FieldScanner fields) {
        const std::string_view rest = fields.Rest();
        const std::size_t at = rest.find_first_not_of(" \t,\"");
        const char first = at == std::string_view::npos ? '\0' : rest[at];
        if ((first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z')) {
            up = std::string_view("UuMm").find(first) != std::string_view::npos;
            fields.NextField();
        } else {
            const double pen = fields.NextNumber();
            up = pen <= 0.0;
        }
        const double colour = fields.NextNumber();
        if (IsMissing(colour)) return;
        unknownColour = !(colour >= 0.0 && colour < static_cast<double>(kDxfPalette.size()));
        if (!unknownColour) colourIndex = static_cast<int>(colour);
    }
};

PASSED_OVER PositionFault(tagXY at) {
    if (IsMissing(at.x)) return PASSED_OVER::NO_EASTING;
    if (IsMissing(at.y)) return PASSED_OVER::NO_NORTHING;
    return at == tagXY() ? PASSED_OVER::ZERO_POSITION : PASSED_OVER::NO;
}

}  // namespace

std::vector<BinaryDigDef> ReadDigText(CStdioFile& text, LoadProgress& progress, KindReport& report) {
    constexpr std::size_t kLinesPerLook = 4096;
    std::vector<BinaryDigDef> records;
    std::string_view line;
    bool startsLine = true;
    report = {};
    report.opened = true;
    for (std::size_t number = 1; text.ReadString(line); ++number) {
        if (number % kLinesPerLook == 0) {
            if (progress.IsCancelled()) break;
            progress.SetPosition(text.GetPosition());
        }
        FieldScanner fields(line);
        const double easting = fields.NextNumber(), northing = fields.NextNumber();
        const PASSED_OVER fault = PositionFault({easting, northing});
        if (fault != PASSED_OVER::NO) {
            if (!Trim(line).empty()) report.PassOver(ReasonText(fault), number);
            startsLine = true;
            continue;
        }
        const PenAndColour drawn(fields);
        if (drawn.unknownColour) report.PassOver("a colour outside 0 to 255; white in its place", number);
        const std::int16_t code = CodeOf(drawn.colourIndex);
        startsLine |= drawn.up;
        records.push_back({easting, northing, static_cast<std::int16_t>(startsLine ? -code : code)});
        startsLine = false;
    }
    report.taken = records.size();
    return records;
}

}  // namespace quillon
