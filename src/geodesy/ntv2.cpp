#include "geodesy/ntv2.h"

#include <limits>

#include "foundation/config_file.h"
#include "foundation/settings_lines.h"

namespace quillon {

namespace {

constexpr const char* kSettingsName = "NTv2";
constexpr int kDecimals = 16;

template <class F, class T>
void EachLine(F& lines, T& point) {
    lines.Double("NAD27 Latitude", point.nad27Latitude, kDecimals);
    lines.Double("NAD27 Longitude", point.nad27Longitude, kDecimals);
    lines.Double("NAD83 Latitude", point.nad83Latitude, kDecimals);
    lines.Double("NAD83 Longitude", point.nad83Longitude, kDecimals);
}

}  // namespace

CNTv2::~CNTv2() {
    if (!SettingsStand()) WriteSettings();
}

/// True if the file says the same already. Every shape file owns one of these objects; a job of a thousand would
/// otherwise end with a thousand flushes of the same four lines.
bool CNTv2::SettingsStand() const {
    CConfigFile file(files);
    if (!file.OpenForRead(kSettingsName)) return false;
    constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();
    ReferencePoint stored{kMissing, kMissing, kMissing, kMissing};
    LineReader reader(file);
    EachLine(reader, stored);
    std::string_view more;
    return stored == reference && !file.ReadLine(more);
}

void CNTv2::WriteSettings() const {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(kSettingsName)) return;
    LineWriter writer(file);
    EachLine(writer, reference);
    file.Commit();
}

}  // namespace quillon
