#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/field_scanner.h"

namespace quillon {

/// One line of text with separated fields: taken apart from the front, or built at the end. A reader uses one object
/// for the whole file (`Fill` keeps its storage); where the bytes of the line stay put, a FieldScanner over them saves
/// the copy.
///
/// No operation reports an error. A missing field is MISSING_VALUE or an empty text, and IsEndReached() from then on.
class CDelimitedLine {
public:
    void SetSeparator(char c);
    char GetSeparator() const { return separator; }

    /// Takes a line as it comes from an instrument: carriage returns and line feeds are removed, and a sentence
    /// "$...*hh" has its checksum tested and cut off.
    void SetLine(std::string_view line);
    /// Takes the line of a data file as it is.
    void Fill(std::string_view line);

    /// What hasn't been taken yet, or what has been built so far.
    const std::string& GetText();

    // Taking apart; see FieldScanner.
    double NextNumber();
    std::string NextString();
    int FieldCount() const { return Scanner().FieldCount(); }
    bool IsEmpty() const { return taken == text.size(); }
    bool IsEndReached() const { return endReached; }
    bool IsChecksumMatched() const { return checksumMatched; }

    /// Brings a line to commas: a line without a comma has its tabs, or else its runs of blanks, turned into commas.
    const std::string& DetectSeparators();

    // Building: each adds one field, behind a separator and a blank unless it is the first, and returns the text so
    // far.
    const std::string& AddNumber(double value, int decimals);
    const std::string& AddInt(std::int32_t value);
    const std::string& AddLong(std::int64_t value);
    const std::string& AddShort(std::int16_t value);
    const std::string& AddBool(bool value);
    /// Carriage return, line feed and separator are written as tokens. An empty first field is written as a blank, so
    /// that it can be seen.
    const std::string& AddString(std::string_view value, bool quoted = false);
    /// Ends the line in carriage return and line feed, unless it is empty.
    const std::string& Finish();

private:
    FieldScanner Scanner() const { return FieldScanner(std::string_view(text).substr(taken), separator); }
    void Keep(const FieldScanner& scanner);
    void DropTaken();
    void BeginField();
    void TestChecksum();

    std::string text;
    char separator = ',';
    std::string separatorText = ",";
    std::string separatorAndBlank = ", ";
    bool endReached = false;
    bool checksumMatched = false;
    std::size_t taken = 0;  ///< characters at the front that have been read
};

}  // namespace quillon
