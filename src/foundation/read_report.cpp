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
    }
    return {};
}

void ReadReport::Append(const ReadReport& later) {
    for (const PassedLine& line : later.named) {
        if (named.size() < kMostNamed) named.push_back({lines + line.number, line.reason});
    }
    lines += later.lines;
    taken += later.taken;
    passedOver += later.passedOver;
}

void ReadReport::NameLine(PASSED_OVER reason) {
    ++passedOver;
    if (named.size() < kMostNamed) named.push_back({lines, reason});
}

}  // namespace quillon
