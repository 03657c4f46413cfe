// Any bytes as a settings file, read by every kind of read in turn; what a text or a pen was read as must come back
// from what is written for it.

#include <stdlib.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "foundation/config_file.h"

namespace {

using quillon::CConfigFile;

void Require(bool held) {
    if (!held) std::abort();
}

/// Keeps the bytes that a settings file would get, in place of a file.
class Written : public CConfigFile {
public:
    using CConfigFile::CConfigFile;
    void WriteLine(std::string_view line) override { bytes += line; }
    std::string bytes;
};

quillon::FileSystem& Files() {
    // Nothing is written to it; the file system only wants a drives folder.
    static quillon::FileSystem files(std::filesystem::temp_directory_path() / "quillon-fuzz");
    return files;
}

void WriteAndReadBack(const std::string& text, quillon::tagPen pen, quillon::COLORREF colour) {
    Written out(Files());
    out.WriteText("Text", text);
    out.WritePen("Pen", pen);
    out.WriteUnsigned(text, colour);
    CConfigFile in(Files());
    in.OpenBytes(out.bytes);
    Require(in.ReadText("?") == text);
    Require(in.ReadPen({}) == pen);
    Require(in.ReadColour(colour + 1) == colour);
    std::string_view line;
    Require(!in.ReadLine(line));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    CConfigFile file(Files());
    file.OpenBytes(input);
    for (std::uint64_t taken = 0; taken < size;) {
        file.ReadInt(1);
        file.ReadBool(true);
        file.ReadDouble(1.5);
        file.ReadChar('x');
        const quillon::COLORREF colour = file.ReadColour(0xFF0000);
        const std::string text = file.ReadText("x");
        WriteAndReadBack(text, file.ReadPen({1, 2, 3, 4}), colour);
        Require(file.GetPosition() > taken);
        taken = file.GetPosition();
    }
    return 0;
}
