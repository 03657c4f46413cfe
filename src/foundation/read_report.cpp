#include "foundation/read_report.h"

namespace quillon {

std::string_view ReasonText(PASSED_OVER reason) {
    switch (reason) {
        case PASSED_OVER::NO:
            return "taken";
        case PASSED_OVER::NO_EASTING:
            return "no easting";
        case PASSED_OVER::NO_NORTHING:
            return "no northing";
        case PASSED_OVER::ZERO_POSITION:
            return "0, 0 stands for no position";
        case PASSED_OVER::REPEATED_POSITION:
            return "the position of the point before";
        case PASSED_OVER::UNKNOWN_ORDER:
            return "unknown data order";
        case PASSED_OVER::NOT_THREE_NUMBERS:
            return "not three numbers";
        case PASSED_OVER::CUT_BLOCK:
            return "no whole block";
        case PASSED_OVER::OUT_OF_RANGE:
            return "a number out of range";
        case PASSED_OVER::NO_RADIUS:
            return "a position for which no radius came";
    }
    return {};
}

std::string_view RemarkText(LINE_REMARK remark) {
    switch (remark) {
        case LINE_REMARK::NEGATIVE_RADIUS:
            return "a negative radius; a plain corner";
        case LINE_REMARK::RADIUS_AT_END:
            return "a radius at an end of the route; no curve";
        case LINE_REMARK::LEG_BACK:
            return "the route turns straight back; a plain corner";
        case LINE_REMARK::RADIUS_TOO_LARGE:
            return "the curve doesn't fit between its neighbours; a plain corner";
        case LINE_REMARK::NO_CURVE:
            return "no curve runs through these points; a plain corner";
        case LINE_REMARK::NUMBER_MISSING:
            return "a number is missing; the row is taken by what stands around it";
        case LINE_REMARK::ARC_MISSES_END:
            return "the arc ends a metre or more from the end that the file gives";
    }
    return {};
}

void ReadReport::Append(const ReadReport& later) {
    for (const PassedLine& line : later.named) {
        if (named.size() < kMostNamed) named.push_back({lines + line.number, line.reason});
    }
    for (const RemarkedLine& line : later.remarked) {
        if (remarked.size() < kMostNamed) remarked.push_back({lines + line.number, line.remark});
    }
    headings += later.headings;
    remarks += later.remarks;
    lines += later.lines;
    taken += later.taken;
    passedOver += later.passedOver;
}

void ReadReport::TakeBack(std::size_t line, PASSED_OVER reason) {
    --taken;
    ++passedOver;
    if (named.size() < kMostNamed) named.push_back({line, reason});
}

void ReadReport::Remark(std::size_t line, LINE_REMARK remark) {
    ++remarks;
    if (remarked.size() < kMostNamed) remarked.push_back({line, remark});
}

void ReadReport::NameLine(PASSED_OVER reason) {
    ++passedOver;
    if (named.size() < kMostNamed) named.push_back({lines, reason});
}

}  // namespace quillon
