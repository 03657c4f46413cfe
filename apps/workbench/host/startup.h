#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/options.h"

namespace quillon {

// What is settled before the toolkit starts: where the drives are, and what to draw on.

/// Where the drives folder is when the operator names none: quillon/drives in the user's data folder.
std::filesystem::path DefaultDrives();

/// The sample job as it was installed, or as it stands in the source tree; empty if neither is there.
std::filesystem::path FindSampleJob(const std::filesystem::path& program);

/// A drives folder of its own for one run, holding a copy of the sample job. It is removed with the object.
class ScratchJob {
public:
    /// Throws std::filesystem::filesystem_error if it can't be copied.
    explicit ScratchJob(const std::filesystem::path& sample);
    ~ScratchJob();
    ScratchJob(const ScratchJob&) = delete;
    ScratchJob& operator=(const ScratchJob&) = delete;
    const std::filesystem::path& Drives() const { return drives; }

private:
    std::filesystem::path drives;
};

/// Where windows can be shown.
enum class DISPLAY_KIND { NONE, X11, WAYLAND };

/// What the environment names and what answers there.
DISPLAY_KIND FindDisplay();

/// The platform that the toolkit is told to use. Empty: leave it to the toolkit, or to the user who has chosen one.
///
/// On X11 panes that float can be docked again, which the toolkit can't do under Wayland; so X11 comes first where both
/// are there.
std::string ChooseToolkitPlatform(const WorkbenchOptions& options, DISPLAY_KIND display, bool chosenByUser);

}  // namespace quillon
