// Any bytes as a text file: its lines, the numbers in front of them, and its characters in UTF-8 and back.

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/file.h"
#include "platform/text.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckNumber(std::string_view line) {
    const double value = quillon::Atof(line);
    Require(!std::isnan(value));
    if (std::isfinite(value)) {
        // 17 significant digits name a double.
        Require(quillon::Atof(quillon::Format("%.16e", value)) == value);
        Require(quillon::Atof(quillon::Format("%30.17g|", value)) == value);
    }
    Require(quillon::Atoi(quillon::Format("%d", quillon::Atoi(line))) == quillon::Atoi(line));
}

void CheckLines(quillon::FileSystem& files, std::string_view bytes, quillon::FILE_MODE mode) {
    quillon::CStdioFile file(files);
    file.OpenBytes(bytes, mode);
    std::string_view line;
    std::uint64_t last = 0;
    while (file.ReadString(line)) {
        Require(line.size() <= quillon::CStdioFile::kLongestLine && line.find('\n') == std::string_view::npos);
        Require(file.GetPosition() > last);
        last = file.GetPosition();
        CheckNumber(line);
    }
    Require(last == bytes.size());
}

void CheckCharacters(const std::string& bytes) {
    const std::string text = quillon::TextFromUtf8(bytes);
    const std::string utf8 = quillon::Utf8FromText(text);
    // Whatever the bytes were, what comes out is UTF-8, and that goes there and back unchanged.
    Require(quillon::Utf8FromText(quillon::TextFromUtf8(utf8)) == utf8);
    Require(quillon::EqualNoCase(bytes, quillon::ToUpper(bytes)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static quillon::FileSystem files(std::filesystem::temp_directory_path() / "quillon-fuzz-drives");
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    CheckLines(files, bytes, quillon::FILE_MODE::TEXT);
    CheckLines(files, bytes, quillon::FILE_MODE::BINARY);
    CheckCharacters(bytes);
    return 0;
}
