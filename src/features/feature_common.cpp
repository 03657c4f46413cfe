#include "features/feature_common.h"

#include <array>

#include "foundation/config_file.h"
#include "foundation/paths.h"
#include "foundation/settings_lines.h"
#include "platform/text.h"

namespace quillon {

template <class Lines>
void EachLine(Lines& lines, RecordOf<CFeatureCommon> auto& feature) {
    lines.Bool("Status", feature.Status);
    lines.Bool("Highlight", feature.Highlight);
}

/// A data file that is called "INI" itself stands where its flags would: it is data, and neither read as flags nor
/// replaced by them.
bool CFeatureCommon::HasFlagsFile() const {
    return !path.empty() && !EqualNoCase(SplitPath(path).extension, "INI");
}

void CFeatureCommon::SetPathAndLoad(std::string_view newPath) {
    path = newPath;
    const tagPathParts parts = SplitPath(path);
    folder = parts.folder;
    name = parts.name;
    ReadCommon();
}

bool CFeatureCommon::ReadCommon() {
    const bool shown = Status, lit = Highlight;
    Status = true;
    Highlight = false;
    CConfigFile file(files);
    if (HasFlagsFile() && file.OpenForReadIn(folder, name)) ReadLines(file, *this);
    NoteLines(*this, storedFlags);
    return Status != shown || Highlight != lit;
}

void CFeatureCommon::KeepCommon() {
    const std::array now = {Status, Highlight};
    const bool stored = storedFlags.values.size() == now.size() && storedFlags.values[0] == SettingsValue(Status) &&
                        storedFlags.values[1] == SettingsValue(Highlight);
    if (stored || triedFlags == now || !HasFlagsFile()) return;
    SaveCommon();
    triedFlags = now;
}

void CFeatureCommon::SaveCommon() {
    FollowCommon();
    CConfigFile file(files);
    if (!HasFlagsFile() || !file.OpenForWrite(folder, name)) return;
    WriteLines(file, *this);
    if (file.Commit()) NoteLines(*this, storedFlags);
}

bool CFeatureCommon::FollowCommon() {
    CConfigFile file(files);
    return HasFlagsFile() && file.OpenForReadIn(folder, name) && FollowFile(file, *this, storedFlags);
}

}  // namespace quillon
