#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/file.h"
#include "platform/palette.h"

namespace quillon {

/// How a line is drawn, and the area it bounds.
struct tagPen {
    std::int16_t style = 0;
    std::int16_t thickness = 0;
    COLORREF colour = 0;
    std::uint16_t fill = 0;  ///< a FILL_STYLE
    friend bool operator==(const tagPen&, const tagPen&) = default;
};

/// A settings file: one value a line, written as "key = value" and read by position. Every read takes the next line and
/// converts what stands behind its first "="; the key is there for people and never looked at. A default stands where
/// the file has ended or its line has no "=". So writer and reader must keep one order of lines: see settings_lines.h.
///
/// An object is short-lived: open, write all lines, `Commit` (or read them), drop. A file that can't be opened for
/// writing stays as it was. No operation reports more than that.
class CConfigFile : public CStdioFile {
public:
    using CStdioFile::CStdioFile;

    /// Raises InvalidArgument for a null path.
    virtual void SetFilePath(const char* path);
    const std::string& GetFilePath() const { return filePath; }

    virtual void WriteLine(std::string_view line) { WriteString(line); }
    virtual bool ReadLine(std::string_view& line) { return ReadString(line); }

    /// The full path of a settings file; see GetSettingsPath in folders.h.
    virtual std::string GetSettingsPath(std::string_view name, std::string_view extension = {}) const;

    // Opening. `folder` ends in a separator; an empty extension is "INI".
    bool OpenForWrite(std::string_view folder, std::string_view name, std::string_view extension = {});
    bool OpenForReadIn(std::string_view folder, std::string_view name, std::string_view extension = {});
    /// In the settings folder.
    bool OpenForRead(std::string_view name, std::string_view extension = {});
    bool OpenSettingsForWrite(std::string_view name, std::string_view extension = {});

    // Reading. Each takes one line.
    int ReadInt(int missing);
    bool ReadBool(bool missing);
    /// A number too large for a double counts as missing.
    double ReadDouble(double missing);
    COLORREF ReadColour(COLORREF missing);
    /// The first character behind the white space that follows the "=".
    char ReadChar(char missing);
    std::string ReadText(std::string_view missing = {});
    /// A part that the line doesn't reach keeps its value in `missing`.
    tagPen ReadPen(tagPen missing);

    // Writing. Each writes one line, WriteSection one for its head and one a string.
    void WriteInt(std::string_view key, int value);
    void WriteUnsigned(std::string_view key, std::uint32_t value);
    void WriteBool(std::string_view key, bool value);
    void WriteDouble(std::string_view key, double value, int decimals);
    void WriteText(std::string_view key, std::string_view text);
    void WritePen(std::string_view key, tagPen pen);
    void WriteBare(std::string_view text);
    void WriteSection(std::string_view section, std::span<const std::string> strings);

private:
    bool ReadValue(std::string_view& value);
    void WriteKey(std::string_view key, std::string_view value);

    std::string filePath;
};

}  // namespace quillon
