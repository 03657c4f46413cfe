#include "features/drawing_options.h"

#include "foundation/settings_lines.h"

namespace quillon {
namespace {

constexpr std::string_view kExtension = "DRW";

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<CDrawingOptions> auto& options) {
    lines.Int("Vector Symbol", options.symbol);
    lines.Int("Symbol Size", options.symbolSize);
    lines.Colour("Colour", options.pen.colour);
    lines.Int("Line Thickness", options.pen.thickness);
    lines.Int("Fill", options.pen.fill);
    lines.Int("Pen Style", options.pen.style);
    lines.Int("Label Mode", options.labelMode);
    lines.Int("Label Position", options.labelPosition);
    lines.Bool("Show Leg Label", options.showLegLabel);
}

bool CDrawingOptions::LoadDrawing(FileSystem& files, std::string_view folder, std::string_view name) {
    *this = CDrawingOptions();
    CConfigFile file(files);
    const bool opened = file.OpenForReadIn(folder, name, kExtension);
    if (opened) ReadLines(file, *this);
    NoteLines(*this, storedDrawing);
    return opened;
}

void CDrawingOptions::SaveDrawing(FileSystem& files, std::string_view folder, std::string_view name) {
    FollowDrawing(files, folder, name);
    CConfigFile file(files);
    if (!file.OpenForWrite(folder, name, kExtension)) return;
    WriteLines(file, *this);
    if (file.Commit()) NoteLines(*this, storedDrawing);
}

bool CDrawingOptions::FollowDrawing(FileSystem& files, std::string_view folder, std::string_view name) {
    CConfigFile file(files);
    return file.OpenForReadIn(folder, name, kExtension) && FollowFile(file, *this, storedDrawing);
}

}  // namespace quillon
