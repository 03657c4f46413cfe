#include "foundation/field_scanner.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include "support/comma_locale.h"

namespace quillon {
namespace {

using testing::ElementsAreArray;

constexpr double kNone = MISSING_VALUE;

std::vector<double> TakeNumbers(std::string_view line, std::size_t count) {
    FieldScanner fields(line);
    std::vector<double> numbers;
    while (numbers.size() < count) numbers.push_back(fields.NextNumber());
    return numbers;
}

TEST(FieldScanner, ReadsNumbersInEveryFormOfTheFiles) {
    struct Row {
        const char* name;
        std::string_view line;
        std::vector<double> numbers;
    };
    const std::vector<Row> rows = {
        {"comma", "123.4, 567.8", {123.4, 567.8, kNone}},
        {"blank", "123.4 567.8", {123.4, 567.8, kNone}},
        {"tab and ends of line", "\t123.4\t567.8\r\n", {123.4, 567.8, kNone}},
        {"letters ahead", "E 123.4 N 567.8", {123.4, 567.8, kNone}},
        {"letters ahead, no blank", "E123.4N567.8", {123.4, 567.8, kNone}},
        {"empty field between", "1.5,,3", {1.5, kNone, 3}},
        {"blank field between", "1.5, ,3", {1.5, kNone, 3}},
        {"empty field in front", ",2", {kNone, 2}},
        {"unknown value", "?,2", {kNone, 2}},
        {"unknown value in digits", "12?4,2", {kNone, 2}},
        {"separator last", "1,2,", {1, 2, kNone, kNone}},
        {"nothing", "", {kNone}},
        {"white space only", " \t\r\n", {kNone, kNone}},
        {"no digit in the line", "Jobs!", {kNone, kNone}},
        // What is passed over ahead of a number may hold a separator.
        {"text field ahead", "Wk, 5,6", {5, 6, kNone}},
        {"text field behind", "5,Wk,6", {5, 6, kNone}},
        {"letters behind", "12ft,6", {12, 6}},
        {"small e counts, capital doesn't", "1e2,1E2", {100, 1, 2}},
        {"a lone e is a number", "e,7", {0, 7}},
        {"a lone sign, a lone point", "-,.,7", {0, 0, 7}},
        {"signs", "-1.5,+2.5,--5,+-5", {-1.5, 2.5, 0, 0}},
        {"two points", "1.2.3,4", {1.2, 4}},
        {"dates and times fall apart", "2024-03-05 10:20", {2024, 10, 20}},
        {"points at the edges", ".5,5.,-.5", {0.5, 5, -0.5}},
        {"exponent cut short", "5e,5e+,5e-2", {5, 5, 0.05}},
        {"beyond a double", "1e999,-1e999,1e-999,7", {kNone, kNone, 0, 7}},
        {"more digits than 53 bits",
         "9007199254740993,0.10000000000000000555,12345678901234567890123",
         {9007199254740992, 0.1, 1.2345678901234568e22}},
        {"byte 0 and bytes above 127", std::string_view("\0\xE9 3\xB0,4", 7), {3, 4, kNone}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_THAT(TakeNumbers(row.line, row.numbers.size()), ElementsAreArray(row.numbers));
    }
}

TEST(FieldScanner, NotesTheEndOnlyWhenAskedBehindIt) {
    FieldScanner fields("1,2,");
    fields.NextNumber();
    fields.NextNumber();
    EXPECT_FALSE(fields.IsEndReached());
    EXPECT_TRUE(fields.IsEmpty());
    EXPECT_EQ(fields.NextNumber(), MISSING_VALUE);
    EXPECT_TRUE(fields.IsEndReached());

    FieldScanner blank("  ");
    EXPECT_EQ(blank.NextString(), "");
    EXPECT_TRUE(blank.IsEndReached());
}

/// The plain slow way to take a number: step by step, on a string that is eaten from the front.
double SlowNextNumber(std::string& text, char separator) {
    const auto trimLeft = [&] { text.erase(0, text.find_first_not_of(" \t\n\v\f\r")); };
    trimLeft();
    if (text.empty()) return MISSING_VALUE;
    std::string token;
    if (text.front() != separator) {
        const char* const set = "+-0123456789.e?";
        text.erase(0, text.find_first_of(set));
        token = text.substr(0, text.find_first_not_of(set));
        text.erase(0, token.size());
        trimLeft();
    }
    if (!text.empty() && text.front() == separator) text.erase(0, 1);
    const bool known = !token.empty() && token.find('?') == std::string::npos;
    const double value = known ? std::strtod(token.c_str(), nullptr) : MISSING_VALUE;
    return std::isinf(value) ? MISSING_VALUE : value;
}

std::string RandomLine(std::mt19937& random) {
    // Digits weigh most, so that plain numbers of every length come up as well as wreckage.
    static constexpr std::string_view kAlphabet = "00112233445566778899000111222333444555.....,,, \t-+e?EnifW\r\"\xB0";
    std::string line(random() % 40, ' ');
    for (char& c : line) c = kAlphabet[random() % kAlphabet.size()];
    return line;
}

TEST(FieldScanner, AgreesWithThePlainSlowWay) {
    std::mt19937 random(1);
    for (int i = 0; i < 100000; ++i) {
        const std::string line = RandomLine(random);
        const char separator = ",;\t "[random() % 4];
        std::string slow = line;
        FieldScanner fields(line, separator);
        for (int field = 0; field < 8; ++field) {
            const double expected = SlowNextNumber(slow, separator);
            const double got = fields.NextNumber();
            // Bit for bit: the sign of zero counts.
            ASSERT_EQ(std::memcmp(&got, &expected, sizeof got), 0)
                << '"' << line << "\" field " << field << ": " << got << ", not " << expected;
            ASSERT_EQ(fields.Rest(), slow) << '"' << line << '"';
        }
    }
}

TEST(FieldScanner, ReadsCoordinatesToTheLastBit) {
    std::mt19937_64 random(2);
    for (int i = 0; i < 100000; ++i) {
        std::string text = std::to_string(random() % 10'000'000'000'000'000'000u);
        text.resize(1 + random() % text.size());
        text.insert(random() % (text.size() + 1), ".");
        ASSERT_EQ(FieldScanner(text).NextNumber(), std::strtod(text.c_str(), nullptr)) << text;
    }
}

TEST(FieldScanner, TakesTextsAndQuotedTexts) {
    struct Row {
        const char* name;
        std::string_view line;
        std::vector<std::string> fields;
        std::string_view rest = "";
    };
    const std::vector<Row> rows = {
        {"plain", "Wreck 1, B,C", {"Wreck 1", "B", "C", ""}},
        // Only the front of a field is trimmed; what is left of the line is trimmed at both ends.
        {"blanks behind a field stay", "  A  ,B  ", {"A  ", "B"}},
        {"empty fields", "A,,C", {"A", "", "C"}},
        {"quotes hold the separator", "\"a, b\"", {"a, b", ""}},
        {"text between quote and separator is dropped", "\"a\" x ,5", {"a"}, "5"},
        {"quote never closed", "\"a,b", {"a,b"}},
        {"empty quotes", "\"\",5", {""}, "5"},
        {"quote inside", "5\" pipe,6", {"5\" pipe"}, "6"},
        {"escapes",
         "a\xAB"
         "CR>\xBB"
         "b\xAB"
         "LF>\xBB"
         "c\xAB"
         "COMMA>\xBB"
         "d",
         {"a\rb\nc,d"}},
        {"tokens of settings files stay",
         "a\xAB"
         "CR\xBB",
         {"a\xAB"
          "CR\xBB"}},
        {"end of line", "A,B\r\n", {"A", "B"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        FieldScanner fields(row.line);
        std::vector<std::string> taken;
        while (taken.size() < row.fields.size()) taken.push_back(fields.NextString());
        EXPECT_THAT(taken, ElementsAreArray(row.fields));
        EXPECT_EQ(fields.Rest(), row.rest);
    }
}

TEST(FieldScanner, ReadsThePointUnderALocaleWithAComma) {
    const CommaLocale locale;
    if (!locale.IsSet()) GTEST_SKIP() << "no locale with a decimal comma on this machine";
    EXPECT_THAT(TakeNumbers("1.25,2.5e1", 2), ElementsAreArray({1.25, 25.0}));
}

}  // namespace
}  // namespace quillon
