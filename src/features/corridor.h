#pragma once

#include <string_view>

#include "foundation/settings_lines.h"
#include "foundation/values.h"
#include "platform/display_options.h"

namespace quillon {

/// The strip of sea bed either side of a route: widths in metres, and how it is drawn.
struct CCorridor {
    bool displayCorridor = false;
    double portWidth = 0.0;
    double starboardWidth = 0.0;
    FILL_STYLE fill = 4;
    tagXY work[2] = {};
    COLORREF corridorColour = RGB(0, 255, 255);

    /// From the routes' data folder. A missing file gives the defaults and false, a missing line its field's default.
    bool LoadCorridor(FileSystem& files, std::string_view name);
    /// What another owner of the file has stored meanwhile is taken over first. Skipped if the file can't be written.
    void SaveCorridor(FileSystem& files, std::string_view name);
    /// Takes over what another owner of the file has stored; false if nothing.
    bool FollowCorridor(FileSystem& files, std::string_view name);

    StoredLines storedCorridor;  ///< see settings_lines.h

    friend bool operator==(const CCorridor&, const CCorridor&) = default;
};

}  // namespace quillon
