#pragma once

#include <string>
#include <string_view>

#include "foundation/settings_lines.h"
#include "platform/display_options.h"

namespace quillon {

/// How a feature with symbols or lines is drawn; kept in a file of its own in the data folder of its kind.
struct CDrawingOptions {
    std::string text;  ///< stays empty in this library
    VECTOR_SYMBOL symbol = 5;
    SYMBOL_SIZE symbolSize = 3;
    tagPen pen{.style = 0, .thickness = 1, .colour = RGB(0, 0, 255), .fill = 4};
    SYMBOL_LABEL_MODE labelMode = 1;
    LABEL_POSITION labelPosition = 2;
    bool showLegLabel = false;

    /// False, with all at its defaults, if there is no such file. A missing line leaves its field's default.
    bool LoadDrawing(FileSystem& files, std::string_view folder, std::string_view name);
    /// What another owner of the file has stored meanwhile is taken over first. Skipped if the file can't be written.
    void SaveDrawing(FileSystem& files, std::string_view folder, std::string_view name);
    /// Takes over what another owner of the file has stored; false if nothing.
    bool FollowDrawing(FileSystem& files, std::string_view folder, std::string_view name);

    StoredLines storedDrawing;  ///< see settings_lines.h

    friend bool operator==(const CDrawingOptions&, const CDrawingOptions&) = default;
};

}  // namespace quillon
