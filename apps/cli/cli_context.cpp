#include "cli_context.h"

#include <ostream>

namespace quillon {

FileSystem& CliContext::Files(FILE_ACCESS access) {
    if (!files) {
        files = std::make_unique<FileSystem>(drives.empty() ? DefaultDrivesFolder() : std::filesystem::path(drives),
                                             "Quillon", access);
    }
    return *files;
}

void CliContext::Fail(std::string_view path, std::string_view why) {
    err << path << ": " << why << '\n';
    result = CLI_USELESS;
}

}  // namespace quillon
