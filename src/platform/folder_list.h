#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file.h"

namespace quillon {

/// The files below a folder and its sub-folders whose names `wanted` takes, as full library paths. The entries of a
/// folder come in the order of their names, regardless of case, and a sub-folder's files in its place. `folder` ends in
/// a separator. A folder that can't be read counts as empty, and one that is reached twice over links comes once.
std::vector<std::string> FindFiles(const FileSystem& files, const std::string& folder,
                                   const std::function<bool(std::string_view name)>& wanted);

}  // namespace quillon
