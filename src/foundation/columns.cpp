#include "foundation/columns.h"

#include "foundation/angle_units.h"
#include "platform/text.h"

namespace quillon {

std::string_view UnitOf(CELL cell) {
    switch (cell) {
        case CELL::METRES:
        case CELL::RANGE:
        case CELL::KP_METRES:
        case CELL::POSITION:
            return "m";
        case CELL::BEARING:
        case CELL::PLAIN_BEARING:
        case CELL::FULL_BEARING:
        case CELL::ANGLE:
            return "rad";
        case CELL::DEGREES:
            return "deg";
        case CELL::KP_KM:
            return "km";
        case CELL::KM_PER_METRE:
            return "km/m";
        case CELL::ROW_NUMBER:
        case CELL::TEXT:
        case CELL::INTEGER:
            break;
    }
    return {};
}

int DecimalsOf(CELL cell) {
    return cell == CELL::KM_PER_METRE ? 9 : 3;
}

std::string CellText(CELL cell, double number) {
    if (IsMissing(number)) return {};
    switch (cell) {
        case CELL::ROW_NUMBER:
        case CELL::INTEGER:
            return Format("%.0lf", number);
        case CELL::RANGE:
            return Format("%.2lfm", number);
        case CELL::BEARING:
            return Format("%.1lf\xB0", number * kDegreesPerRadian);
        case CELL::PLAIN_BEARING:
            return Format("%.1lf", number * kDegreesPerRadian);
        case CELL::FULL_BEARING:
            return Format("%06.2lf", number * kDegreesPerRadian);
        case CELL::DEGREES:
            return Format("%.1lf", number);
        case CELL::ANGLE:
            return Format("%.4lf", number * kDegreesPerRadian);
        case CELL::KP_KM:
            return Format("%.6lf", number);
        case CELL::KM_PER_METRE:
            return Format("%.9lf", number);
        case CELL::METRES:
        case CELL::KP_METRES:
        case CELL::TEXT:
        case CELL::POSITION:
            break;
    }
    return Format("%.3lf", number);
}

}  // namespace quillon
