#include "features/rpl_rows.h"

#include <cmath>
#include <optional>
#include <string>

#include "features/record_reader.h"
#include "foundation/field_scanner.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::uint32_t kRlxHeadings = 2;
constexpr std::size_t kCodeLength = 2;

/// The rule of all feature files, and no position beyond every grid.
PASSED_OVER RplPositionFault(tagXY at) {
    const PASSED_OVER fault = PositionFault(at.x, at.y);
    if (fault != PASSED_OVER::NO) return fault;
    const bool near = std::fabs(at.x) <= kFarthestPosition && std::fabs(at.y) <= kFarthestPosition;
    return near ? PASSED_OVER::NO : PASSED_OVER::OUT_OF_RANGE;
}

tagXY NextPosition(FieldScanner& fields) {
    tagXY at;
    at.x = fields.NextNumber();
    at.y = fields.NextNumber();
    return at;
}

RPL_FORM FormOf(int fields) {
    switch (fields) {
        case 2:
            return RPL_FORM::TANGENT;
        case 3:
            return RPL_FORM::RADIUS;
        case 5:
            return RPL_FORM::LISTING;
        default:
            return RPL_FORM::NONE;
    }
}

/// Takes the lines of the two forms that give a position a line.
class PositionLines {
public:
    PositionLines(std::vector<RplRow>& target, bool radii) : rows(target), withRadius(radii) {}

    PASSED_OVER Take(std::string_view line, std::uint32_t number) {
        FieldScanner fields(line);
        const tagXY at = NextPosition(fields);
        const double radius = withRadius ? fields.NextNumber() : 0.0;
        const PASSED_OVER fault = RplPositionFault(at);
        if (fault == PASSED_OVER::NO) rows.push_back({at, IsMissing(radius) ? 0.0 : radius, number});
        return fault;
    }

private:
    std::vector<RplRow>& rows;
    bool withRadius;
};

/// Takes the lines of a listing. A position waits for the line that brings its radius; the first one waits for none.
class ListingLines {
public:
    ListingLines(std::vector<RplRow>& target, ReadReport& lost) : rows(target), report(lost) {}

    PASSED_OVER Take(std::string_view line, std::uint32_t number) {
        FieldScanner fields(line);
        const std::string_view code = Trim(fields.NextField()).substr(0, kCodeLength);
        fields.NextNumber();
        const tagXY at = NextPosition(fields);
        const double radius = fields.NextNumber();
        PASSED_OVER fault = PASSED_OVER::NO;
        if (!IsMissing(radius)) {
            working.radius = radius;
            haveRadius = true;
        }
        if (!EqualNoCase(code, "TP") && !EqualNoCase(code, "CP")) fault = TakePosition(at, number);
        if (havePosition && haveRadius) Append();
        return fault;
    }

    /// A last position without a radius is the end of the route.
    void End() {
        if (havePosition) Append();
    }

private:
    PASSED_OVER TakePosition(tagXY at, std::uint32_t number) {
        if (havePosition) report.TakeBack(working.line, PASSED_OVER::NO_RADIUS);
        const PASSED_OVER fault = RplPositionFault(at);
        havePosition = fault == PASSED_OVER::NO;
        working.position = havePosition ? at : tagXY{};
        working.line = number;
        return fault;
    }
    void Append() {
        rows.push_back(working);
        working.radius = 0.0;
        havePosition = haveRadius = false;
    }

    std::vector<RplRow>& rows;
    ReadReport& report;
    RplRow working;
    bool havePosition = false;
    bool haveRadius = true;
};

/// Counts what `take` makes of each line, from the first one on, which was read to tell the form.
template <class Take>
void EachLine(CStdioFile& file, std::string_view first, ReadReport& report, Take take) {
    std::uint32_t number = 1;
    for (std::string_view line = first;; number++) {
        const PASSED_OVER fault = take(line, number);
        report.Count(fault);
        if (!file.ReadString(line)) return;
    }
}

void ReadRlx(CStdioFile& file, RplRows& read, ReadReport& report) {
    std::string_view line;
    for (std::uint32_t number = 1; file.ReadString(line); number++) {
        if (number <= kRlxHeadings) {
            report.CountHeading();
            continue;
        }
        FieldScanner fields(line);
        RLXDef& row = read.rlx.emplace_back();
        for (double* const field : {&row.startEasting, &row.startNorthing, &row.endEasting, &row.endNorthing,
                                    &row.bearing, &row.length, &row.radius}) {
            *field = fields.NextNumber();
        }
        row.line = number;
        report.Count(PASSED_OVER::NO);
    }
}

}  // namespace

std::string_view FormText(RPL_FORM form) {
    switch (form) {
        case RPL_FORM::NONE:
            return "none";
        case RPL_FORM::RADIUS:
            return "radius";
        case RPL_FORM::LISTING:
            return "listing";
        case RPL_FORM::TANGENT:
            return "tangent points";
        case RPL_FORM::RLX:
            return "RLX";
    }
    return {};
}

RplRows ReadRplRows(CStdioFile& file, bool isRlx, ReadReport& report) {
    RplRows read;
    report = ReadReport();
    report.opened = true;
    if (isRlx) {
        read.form = RPL_FORM::RLX;
        ReadRlx(file, read, report);
        return read;
    }
    std::string_view line;
    if (!file.ReadString(line)) return read;
    read.form = FormOf(FieldScanner(line).FieldCount());
    const std::string first(line);  // the view ends with the next reading
    if (read.form == RPL_FORM::LISTING) {
        ListingLines listing(read.rows, report);
        EachLine(file, first, report, [&](auto text, auto number) { return listing.Take(text, number); });
        listing.End();
    } else if (read.form != RPL_FORM::NONE) {
        PositionLines positions(read.rows, read.form == RPL_FORM::RADIUS);
        EachLine(file, first, report, [&](auto text, auto number) { return positions.Take(text, number); });
    }
    return read;
}

}  // namespace quillon
