#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "job/kinds.h"

namespace quillon {

/// A file of a job, by its number within its kind.
struct RenewedFile {
    KIND kind = KIND::NONE;
    int file = -1;
    friend bool operator==(const RenewedFile&, const RenewedFile&) = default;
};

/// What a job holds in another form than before.
struct Restored {
    std::vector<RenewedFile> files;  ///< what came or changed, in the order of the kinds
    bool targets = false;            ///< vessels, templates or the target plot
    bool geodesy = false;
};

/// Brings a job in line with files whose bytes were put back behind its back: members come and go with their list's
/// file of paths, data and settings are read anew where their files are among `paths`, cursors go where their files
/// say. Nothing is written.
Restored ReadRestored(JobRecord& job, std::span<const std::string> paths);

}  // namespace quillon
