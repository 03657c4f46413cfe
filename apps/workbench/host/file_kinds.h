#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "job/kinds.h"

namespace quillon {

/// What kinds of files a file could be.
struct FileKinds {
    std::vector<KIND> kinds;  ///< the likeliest first; more than one where only the operator can tell
    std::string reason;       ///< why there is none, for people

    bool IsPlain() const { return kinds.size() == 1; }
};

/// By its name and by what its first lines hold. A file that the job holds already is of the kind that it is there.
/// The pipe route is chosen in its pane and is no answer.
FileKinds KindsOfFile(const JobRecord& job, FileSystem& files, std::string_view path);

/// Why a file that was added isn't in the job, or is there without data; empty where it is there with data.
std::string RefusalOf(const JobRecord& job, FileSystem& files, KIND kind, std::string_view path);

}  // namespace quillon
