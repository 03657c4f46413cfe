#include "foundation/angle_display.h"

#include "foundation/config_file.h"

namespace quillon {
namespace {

constexpr std::string_view kAngleSettings = "Angle Settings";
constexpr std::string_view kGeographicalsSettings = "Geographicals Settings";
constexpr char kNoLetter = ' ';

void ReadNotation(CConfigFile& file, tagAngleDisplay& display) {
    display.format = file.ReadInt(display.format);
    display.decimals = file.ReadInt(display.decimals);
}

void WriteNotation(CConfigFile& file, const tagAngleDisplay& display) {
    file.WriteInt("Format", display.format);
    file.WriteInt("Decimals", display.decimals);
}

std::string LetterText(char letter) {
    return letter == 0 ? "" : std::string(1, letter);
}

}  // namespace

tagAngleDisplay ReadAngleSettings(FileSystem* files) {
    tagAngleDisplay display;
    if (!files) return display;
    CConfigFile file(*files);
    if (file.OpenForRead(kAngleSettings)) ReadNotation(file, display);
    return display;
}

bool WriteAngleSettings(FileSystem& files, const tagAngleDisplay& display) {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(kAngleSettings)) return false;
    WriteNotation(file, display);
    return file.Commit();
}

tagAngleDisplay ReadGeographicalsSettings(FileSystem* files) {
    tagAngleDisplay display;
    if (!files) return display;
    CConfigFile file(*files);
    if (!file.OpenForRead(kGeographicalsSettings)) return display;
    ReadNotation(file, display);
    display.northSouth = file.ReadChar(kNoLetter);
    display.eastWest = file.ReadChar(kNoLetter);
    return display;
}

bool WriteGeographicalsSettings(FileSystem& files, const tagAngleDisplay& display) {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(kGeographicalsSettings)) return false;
    WriteNotation(file, display);
    file.WriteText("North South", LetterText(display.northSouth));
    file.WriteText("East West", LetterText(display.eastWest));
    return file.Commit();
}

void ReadAngleDisplay(int type, int& format, int& decimals, char& hemisphere, FileSystem* files) {
    const bool isPosition = type == ANGLE_LATITUDE || type == ANGLE_LONGITUDE;
    const tagAngleDisplay display = isPosition ? ReadGeographicalsSettings(files) : ReadAngleSettings(files);
    format = display.format;
    decimals = display.decimals;
    if (type == ANGLE_LATITUDE) hemisphere = display.northSouth;
    if (type == ANGLE_LONGITUDE) hemisphere = display.eastWest;
}

}  // namespace quillon
