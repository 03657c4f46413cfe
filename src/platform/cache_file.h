#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace quillon {

/// Replaces a cache whole, as CStdioFile does a file, with the bytes of all pieces; they go to the disk without a copy.
/// For what can be made anew at any time: no observer is told of success or failure. Any thread. `goOn` is asked before
/// every few megabytes; when it says no, or writing fails, the old file stands and `fault`, if given, says why.
bool WriteCache(const FileSystem& files, std::string_view path, std::span<const std::string_view> pieces,
                const std::function<bool()>& goOn, std::string* fault = nullptr);

}  // namespace quillon
