#include "panes/pipeline_rows.h"

#include "panes/table_texts.h"

namespace quillon {

double PipelineNumber(const PipelineDef& point, int column) {
    switch (column) {
        case PIPELINE_KP:
            return point.kp;
        case PIPELINE_EASTING:
            return point.easting;
        case PIPELINE_NORTHING:
            return point.northing;
        case PIPELINE_RANGE:
            return point.range;
        default:
            return point.bearing;
    }
}

std::string PipelineNumberText(int column, double number) {
    switch (column) {
        case PIPELINE_KP:
            return Format("%.6lf", number);
        case PIPELINE_RANGE:
            return RangeText(number);
        case PIPELINE_BEARING:
            return Format("%.1lf", number * kDegreesPerRadian);
        default:
            return MetresText(number);
    }
}

}  // namespace quillon
