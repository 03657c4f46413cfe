#include "foundation/delimited_line.h"

#include <algorithm>

#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::size_t kChecksumLength = 3;  // "*hh"

std::string ChecksumOf(std::string_view sentence) {
    unsigned sum = 0;
    for (const char c : sentence) sum ^= static_cast<unsigned char>(c);
    return Format("%c%02X", '*', sum);
}

void CollapseBlanks(std::string& text) {
    const auto bothBlank = [](char a, char b) { return a == ' ' && b == ' '; };
    text.erase(std::unique(text.begin(), text.end(), bothBlank), text.end());
}

}  // namespace

void CDelimitedLine::SetSeparator(char c) {
    separator = c;
    separatorText.assign(1, c);
    separatorAndBlank = separatorText + ' ';
}

void CDelimitedLine::SetLine(std::string_view line) {
    Fill(line);
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    TestChecksum();
}

void CDelimitedLine::Fill(std::string_view line) {
    text.assign(line);
    taken = 0;
    endReached = false;
}

void CDelimitedLine::TestChecksum() {
    checksumMatched = false;
    if (text.size() <= kChecksumLength || text.front() != '$' || text[text.size() - kChecksumLength] != '*') return;
    const std::string_view whole = text;
    const std::size_t star = whole.size() - kChecksumLength;
    checksumMatched = whole.substr(star) == ChecksumOf(whole.substr(1, star - 1));
    text.resize(star);
}

const std::string& CDelimitedLine::GetText() {
    DropTaken();
    return text;
}

void CDelimitedLine::DropTaken() {
    text.erase(0, taken);
    taken = 0;
}

void CDelimitedLine::Keep(const FieldScanner& scanner) {
    // The scanner may also have shortened the text at its end.
    const auto behind = static_cast<std::size_t>(scanner.Rest().data() - text.data());
    text.resize(behind + scanner.Rest().size());
    taken = behind;
    if (scanner.IsEndReached()) endReached = true;
}

double CDelimitedLine::NextNumber() {
    FieldScanner scanner = Scanner();
    const double value = scanner.NextNumber();
    Keep(scanner);
    return value;
}

std::string CDelimitedLine::NextString() {
    FieldScanner scanner = Scanner();
    std::string value = scanner.NextString();
    Keep(scanner);
    return value;
}

const std::string& CDelimitedLine::DetectSeparators() {
    DropTaken();
    if (text.find(',') != std::string::npos) return text;
    char found = '\t';
    if (text.find(found) == std::string::npos) {
        found = ' ';
        CollapseBlanks(text);
        SetLine(std::string(text));
    }
    std::replace(text.begin(), text.end(), found, ',');
    return text;
}

void CDelimitedLine::BeginField() {
    DropTaken();
    if (!text.empty()) text += separatorAndBlank;
}

const std::string& CDelimitedLine::AddNumber(double value, int decimals) {
    BeginField();
    AppendFixed(text, value, decimals);
    return text;
}

const std::string& CDelimitedLine::AddInt(std::int32_t value) {
    return AddLong(value);
}

const std::string& CDelimitedLine::AddLong(std::int64_t value) {
    BeginField();
    return text += std::to_string(value);
}

const std::string& CDelimitedLine::AddShort(std::int16_t value) {
    return AddLong(value);
}

const std::string& CDelimitedLine::AddBool(bool value) {
    return AddLong(value ? 1 : 0);
}

const std::string& CDelimitedLine::AddString(std::string_view value, bool quoted) {
    std::string field = FieldScanner::Escape(value, separator);
    if (quoted) field = '"' + field + '"';
    const bool showBlank = IsEmpty() && field.empty();
    BeginField();
    return text += showBlank ? " " : field;
}

const std::string& CDelimitedLine::Finish() {
    DropTaken();
    if (!text.empty()) text += "\r\n";
    return text;
}

}  // namespace quillon
