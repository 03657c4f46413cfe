#pragma once

#include "foundation/angle_text.h"
#include "platform/file.h"

namespace quillon {

/// How the operator wants angles shown. Latitudes and longitudes have a settings file of their own, "Geographicals
/// Settings"; all other angles follow "Angle Settings", which has no letters. The defaults are what holds where the
/// file can't be opened.
struct tagAngleDisplay {
    int format = ANGLE_DEGREES_MINUTES;
    int decimals = 7;
    char northSouth = 'N';  ///< the letter of a latitude of exactly 0; blank for none chosen
    char eastWest = 'E';    ///< the letter of a longitude of exactly 0; blank for none chosen
    friend bool operator==(const tagAngleDisplay&, const tagAngleDisplay&) = default;
};

/// `files` may be null, which is as if the file couldn't be opened.
tagAngleDisplay ReadAngleSettings(FileSystem* files);
tagAngleDisplay ReadGeographicalsSettings(FileSystem* files);

/// False if the file can't be written; the old one then stands.
bool WriteAngleSettings(FileSystem& files, const tagAngleDisplay& display);
bool WriteGeographicalsSettings(FileSystem& files, const tagAngleDisplay& display);

/// The notation for one type, read from its file each time. `hemisphere` is set for a latitude or longitude and left
/// alone otherwise.
void ReadAngleDisplay(int type, int& format, int& decimals, char& hemisphere, FileSystem* files);

}  // namespace quillon
