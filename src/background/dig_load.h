#pragma once

#include "background/dig.h"
#include "background/load_progress.h"

namespace quillon {

class CDxf;

// The work of loading digitised lines and drawings: what a worker runs behind a window, and a command line tool without
// one. Each stops soon after it is cancelled; the result is false then. What was read so far stays, and no file is
// written.

/// Reads the DIG file, after it has been made anew if its source is a drawing or a text that has changed. Where the new
/// one can't be written, the records are those that it would have held, and `fault` says why. A DIG file without a
/// header was made by somebody else: before it is replaced it is kept as "NAME (original).DIG".
bool LoadDigFile(CDig& dig, LoadProgress& progress);

/// The same, but the DIG file is made anew in any case. For a file that is its own source it is LoadDigFile.
bool RemakeDigFile(CDig& dig, LoadProgress& progress);

/// Reads the DIG file as it stands.
bool ReadDigFile(CDig& dig, LoadProgress& progress);

/// Reads a drawing whose name is set, with its settings. False if it can't be opened.
bool ReadDxfFile(CDxf& dxf, LoadProgress* progress = nullptr);
/// The same, and makes its DIG file anew if that is stale.
bool LoadDxfFile(CDxf& dxf, LoadProgress& progress);

/// How a drawing is to be converted, as its settings file says.
bool ReadOwnExtents(FileSystem& files, std::string_view dxfPath);
/// Stores that, with the other settings of the drawing as they stand.
void SaveOwnExtents(FileSystem& files, std::string_view dxfPath, bool ownExtents);

}  // namespace quillon
