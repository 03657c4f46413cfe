#pragma once

#include <QWidget>

#include "geodesy/job_geodesy.h"

namespace quillon {

/// Asks which grid the job's eastings and northings are on: a row of the catalogue, found by name, area or number, or a
/// projection with parameters of one's own; on which ellipsoid; and which shift file belongs to the job. What is chosen
/// is stored at once. True if something was chosen, or the grid given up.
bool ChooseGeodesy(QWidget* parent, CJobGeodesy& geodesy);

}  // namespace quillon
