#include "cli_context.h"

#include <ostream>

#include "platform/text.h"

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

void CliContext::FailToRead(const std::string& path) {
    CStdioFile file(Files());
    const bool opened = file.OpenForReading(TextFromUtf8(path), FILE_MODE::BINARY);
    Fail(path, opened ? "can't be read" : "can't be read: " + file.GetFault());
}

}  // namespace quillon
