#include "foundation/config_file.h"

#include <array>
#include <cmath>

#include "foundation/folders.h"
#include "foundation/paths.h"
#include "platform/errors.h"
#include "platform/text.h"

namespace quillon {
namespace {

struct Token {
    std::string_view character;
    std::string_view token;
};
// The text fields of data files have others; see FieldScanner.
constexpr std::array<Token, 3> kTokens = {{{"\r",
                                            "\xAB"
                                            "CR\xBB"},
                                           {"\n",
                                            "\xAB"
                                            "LF\xBB"},
                                           {",",
                                            "\xAB"
                                            "COMMA\xBB"}}};

/// Truncated to 32 bits, so that a colour with its high bit set comes back whole, also where it was written as a
/// negative number.
COLORREF ColourOf(std::string_view text) {
    constexpr double kLimit = 9223372036854775808.0;  // 2^63
    const double value = Atof(text);
    return std::fabs(value) < kLimit ? static_cast<COLORREF>(static_cast<std::int64_t>(value)) : 0;
}

/// Cuts the text behind its next comma; false if there is none.
bool PassComma(std::string_view& text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return false;
    text.remove_prefix(comma + 1);
    return true;
}

}  // namespace

void CConfigFile::SetFilePath(const char* path) {
    if (!path) throw InvalidArgument("absent path of a settings file");
    filePath = path;
}

std::string CConfigFile::GetSettingsPath(std::string_view name, std::string_view extension) const {
    return quillon::GetSettingsPath(files, name, extension);
}

bool CConfigFile::OpenForWrite(std::string_view folder, std::string_view name, std::string_view extension) {
    filePath = MakePath(folder, name, extension);
    return OpenForWriting(filePath);
}

bool CConfigFile::OpenForReadIn(std::string_view folder, std::string_view name, std::string_view extension) {
    filePath = MakePath(folder, name, extension);
    return OpenForReading(filePath);
}

bool CConfigFile::OpenForRead(std::string_view name, std::string_view extension) {
    filePath = GetSettingsPath(name, extension);
    return OpenForReading(filePath);
}

bool CConfigFile::OpenSettingsForWrite(std::string_view name, std::string_view extension) {
    filePath = GetSettingsPath(name, extension);
    return OpenForWriting(filePath);
}

// ---- Reading ----

/// What stands behind the first "=" of the next line; false if there is no line or no "=".
bool CConfigFile::ReadValue(std::string_view& value) {
    std::string_view line;
    if (!ReadLine(line)) return false;
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return false;
    value = line.substr(equals + 1);
    return true;
}

int CConfigFile::ReadInt(int missing) {
    std::string_view value;
    return ReadValue(value) ? Atoi(value) : missing;
}

bool CConfigFile::ReadBool(bool missing) {
    return ReadInt(missing ? 1 : 0) != 0;
}

double CConfigFile::ReadDouble(double missing) {
    std::string_view value;
    if (!ReadValue(value)) return missing;
    const double number = Atof(value);
    return std::isfinite(number) ? number : missing;
}

COLORREF CConfigFile::ReadColour(COLORREF missing) {
    std::string_view value;
    return ReadValue(value) ? ColourOf(value) : missing;
}

char CConfigFile::ReadChar(char missing) {
    std::string_view value;
    if (!ReadValue(value)) return missing;
    value = TrimLeft(value);
    return value.empty() ? missing : value.front();
}

std::string CConfigFile::ReadText(std::string_view missing) {
    std::string_view value;
    if (!ReadValue(value)) return std::string(missing);
    if (value.substr(0, 1) == " ") value.remove_prefix(1);
    std::string text(value);
    for (const auto& [character, token] : kTokens) text = Replace(text, token, character);
    return text;
}

tagPen CConfigFile::ReadPen(tagPen missing) {
    tagPen pen = missing;
    std::string_view value;
    if (!ReadValue(value)) return pen;
    pen.colour = ColourOf(value);
    if (PassComma(value)) pen.style = static_cast<std::int16_t>(Atoi(value));
    if (PassComma(value)) pen.thickness = static_cast<std::int16_t>(Atoi(value));
    if (PassComma(value)) pen.fill = static_cast<std::uint16_t>(Atoi(value));
    return pen;
}

// ---- Writing ----

void CConfigFile::WriteKey(std::string_view key, std::string_view value) {
    std::string line(key);
    // A key may be the name of something, as typed: it must neither end the line nor stand for the "=" that is looked
    // for.
    for (char& c : line) {
        if (c == '\r' || c == '\n' || c == '=') c = ' ';
    }
    line += " = ";
    line += value;
    line += '\n';
    WriteLine(line);
}

void CConfigFile::WriteInt(std::string_view key, int value) {
    WriteKey(key, std::to_string(value));
}

void CConfigFile::WriteUnsigned(std::string_view key, std::uint32_t value) {
    WriteKey(key, std::to_string(value));
}

void CConfigFile::WriteBool(std::string_view key, bool value) {
    WriteKey(key, value ? "1" : "0");
}

void CConfigFile::WriteDouble(std::string_view key, double value, int decimals) {
    std::string text;
    AppendFixed(text, value, decimals);
    WriteKey(key, text);
}

void CConfigFile::WriteText(std::string_view key, std::string_view text) {
    std::string escaped(text);
    for (const auto& [character, token] : kTokens) escaped = Replace(escaped, character, token);
    WriteKey(key, escaped);
}

void CConfigFile::WritePen(std::string_view key, tagPen pen) {
    WriteKey(key, Format("%u, %d, %d, %d", pen.colour, pen.style, pen.thickness, pen.fill));
}

void CConfigFile::WriteBare(std::string_view text) {
    WriteLine(std::string(text) + '\n');
}

void CConfigFile::WriteSection(std::string_view section, std::span<const std::string> strings) {
    WriteBare('[' + std::string(section) + ']');
    for (const std::string& text : strings) WriteBare(text);
}

}  // namespace quillon
