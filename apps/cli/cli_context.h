#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace quillon {

/// Exit codes: done, a file that can't be read or is of no use, wrong usage.
enum CLI_RESULT { CLI_OK = 0, CLI_USELESS = 1, CLI_USAGE = 2 };

/// What every command works with: its streams, the files, and how it ended.
class CliContext {
public:
    CliContext(std::istream& input, std::ostream& output, std::ostream& errors) : in(input), out(output), err(errors) {}

    /// The files under the drives folder in force. Made at the first call, so that `--help` touches no disk. Looking at
    /// files changes nothing: no folder is created and none of them can be written, unless the command asks first.
    FileSystem& Files(FILE_ACCESS access = FILE_ACCESS::READ_ONLY);

    /// Names a file on the error stream, with what is wrong with it. The program will end with CLI_USELESS.
    void Fail(std::string_view path, std::string_view why);
    /// The same for a file (UTF-8) that couldn't be read by a reader that doesn't say why: the reason that the system
    /// gives.
    void FailToRead(const std::string& path);

    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    std::string drives;  ///< as given by --drives; empty for the user's own
    int result = CLI_OK;
    bool errIsTerminal = false;  ///< somebody watches the error stream: progress may be shown there

private:
    std::unique_ptr<FileSystem> files;
};

}  // namespace quillon
