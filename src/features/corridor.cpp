#include "features/corridor.h"

#include "foundation/folders.h"
#include "foundation/settings_lines.h"

namespace quillon {
namespace {

constexpr std::string_view kExtension = "COR";
constexpr std::string_view kFolder = "Routes";

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<CCorridor> auto& corridor) {
    lines.Bool("Display Corridor", corridor.displayCorridor);
    lines.Double("Port Corridor Width", corridor.portWidth, 3);
    lines.Double("Starboard Corridor Width", corridor.starboardWidth, 3);
    lines.Colour("Corridor Colour", corridor.corridorColour);
    lines.Int("Corridor Fill", corridor.fill);
}

void CCorridor::LoadCorridor(FileSystem& files, std::string_view name) {
    *this = CCorridor();
    CConfigFile file(files);
    if (file.OpenForReadIn(GetDataFolder(files, kFolder), name, kExtension)) ReadLines(file, *this);
}

void CCorridor::SaveCorridor(FileSystem& files, std::string_view name) const {
    CConfigFile file(files);
    if (!file.OpenForWrite(GetDataFolder(files, kFolder), name, kExtension)) return;
    WriteLines(file, *this);
    file.Commit();
}

}  // namespace quillon
