#pragma once

#include "background/dtm.h"

namespace quillon {

// The work of loading a DTM: what a worker runs behind a window, and a command line tool without one. Each takes the
// model, tells its progress and stops soon after it is cancelled; the result is false then, and no cache is written.

/// First pass over the text files: extents, step, stamps. The model's header is changed when it is done.
bool ImportDtm(CDtm& dtm, DtmProgress& progress);

/// Second pass: the array, and the cache beside DTM One. Samples that give no array are refused in the report, and so
/// is, as a fault of the cache alone, a folder that can't be written: the array stands all the same.
bool MakeDtmDepths(CDtm& dtm, DtmProgress& progress);

/// Reads the array from the cache whose header the model holds. What a cancel or a file cut short leaves out has no
/// depth.
bool ReadDtmDepths(CDtm& dtm, DtmProgress& progress);
/// The same from a cache under another name.
bool ReadDtmDepths(CDtm& dtm, DtmProgress& progress, std::string_view path);

/// All of it: from the cache if the text files are as it was made from, else by both passes.
bool LoadDtmFiles(CDtm& dtm, DtmProgress& progress);

/// What a load leaves in order when it has ended in whatever way: an array never stands beside another one's header.
void SettleDtm(CDtm& dtm);

}  // namespace quillon
