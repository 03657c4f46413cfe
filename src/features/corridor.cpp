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

bool CCorridor::LoadCorridor(FileSystem& files, std::string_view name) {
    *this = CCorridor();
    CConfigFile file(files);
    const bool opened = file.OpenForReadIn(GetDataFolder(files, kFolder), name, kExtension);
    if (opened) ReadLines(file, *this);
    NoteLines(*this, storedCorridor);
    return opened;
}

void CCorridor::SaveCorridor(FileSystem& files, std::string_view name) {
    FollowCorridor(files, name);
    CConfigFile file(files);
    if (!file.OpenForWrite(GetDataFolder(files, kFolder), name, kExtension)) return;
    WriteLines(file, *this);
    if (file.Commit()) NoteLines(*this, storedCorridor);
}

bool CCorridor::FollowCorridor(FileSystem& files, std::string_view name) {
    CConfigFile file(files);
    return file.OpenForReadIn(GetDataFolder(files, kFolder), name, kExtension) &&
           FollowFile(file, *this, storedCorridor);
}

}  // namespace quillon
