#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// Why a line of a data file gave nothing.
enum class PASSED_OVER {
    NO,                 ///< it gave something
    NO_EASTING,         ///< no number where the first coordinate should be
    NO_NORTHING,        ///< no number where the second should be
    ZERO_POSITION,      ///< 0, 0 stands for no position
    REPEATED_POSITION,  ///< the position of the point before it
    UNKNOWN_ORDER,      ///< the data order names no fields
    NOT_THREE_NUMBERS,  ///< of easting, northing and depth one is missing
    CUT_BLOCK,          ///< a block of lines that the file ends in, or that something else stands in
    OUT_OF_RANGE,       ///< a number that is no position or depth on this earth
    NO_RADIUS           ///< a position of a listing for which no radius came
};

std::string_view ReasonText(PASSED_OVER reason);

/// Why a line gave something, but not all that it asked for.
enum class LINE_REMARK {
    NEGATIVE_RADIUS,   ///< plain corner
    RADIUS_AT_END,     ///< a curve needs a leg to either side of it
    LEG_BACK,          ///< the route turns straight back: plain corner
    RADIUS_TOO_LARGE,  ///< the curve doesn't fit between its neighbours: plain corner
    NO_CURVE,          ///< no circle runs through the tangent points: plain corner
    NUMBER_MISSING,    ///< in a row of straights and arcs: plain corner, or the position of the row beside it
    ARC_MISSES_END     ///< the arc ends a metre or more from the end that the file gives it
};

std::string_view RemarkText(LINE_REMARK remark);

/// What a reader made of the lines of a file. Reading itself stays quiet; this is for who asks.
struct ReadReport {
    struct PassedLine {
        std::size_t number = 0;  ///< from 1
        PASSED_OVER reason = PASSED_OVER::NO;
    };
    struct RemarkedLine {
        std::size_t number = 0;
        LINE_REMARK remark = LINE_REMARK::NO_CURVE;
    };
    /// Lines named at most, so that a report on any file stays short.
    static constexpr std::size_t kMostNamed = 20;

    bool opened = false;
    std::string fault;  ///< why it couldn't be opened, for people
    std::size_t lines = 0;
    std::size_t taken = 0;
    std::size_t passedOver = 0;
    std::vector<PassedLine> named;       ///< the first of those passed over
    std::size_t headings = 0;            ///< lines that can hold nothing but words
    std::size_t remarks = 0;             ///< lines that gave less than they asked for
    std::vector<RemarkedLine> remarked;  ///< the first of them
    bool labelsCut = false;              ///< a pipeline's interval asks for more KP labels than are listed

    void Count(PASSED_OVER reason) {
        ++lines;
        if (reason == PASSED_OVER::NO) {
            ++taken;
        } else {
            NameLine(reason);
        }
    }

    void CountHeading() {
        ++lines;
        ++headings;
    }
    /// A line counted as taken gives nothing after all.
    void TakeBack(std::size_t line, PASSED_OVER reason);
    void Remark(std::size_t line, LINE_REMARK remark);

    /// Adds what was made of the lines behind these, numbered from 1 there.
    void Append(const ReadReport& later);

private:
    void NameLine(PASSED_OVER reason);
};

}  // namespace quillon
