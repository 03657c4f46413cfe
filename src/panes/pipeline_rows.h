#pragma once

#include <string>

#include "features/pipeline.h"

namespace quillon {

// What the two panes of pipelines share: the numbers of their points table.

enum PIPELINE_COLUMN { PIPELINE_KP, PIPELINE_EASTING, PIPELINE_NORTHING, PIPELINE_RANGE, PIPELINE_BEARING };

double PipelineNumber(const PipelineDef& point, int column);
std::string PipelineNumberText(int column, double number);

}  // namespace quillon
