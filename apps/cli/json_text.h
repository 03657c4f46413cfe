#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quillon {

/// The figures of a finite number, as few as it takes to read the same number back.
std::string ShortestText(double value);

/// One JSON object on one line. Texts come in as Windows-1252 and go out as UTF-8; a number that is none as null.
class JsonObject {
public:
    void Text(std::string_view key, std::string_view value);
    void Int(std::string_view key, long long value);
    void Real(std::string_view key, double value);
    void Reals(std::string_view key, std::span<const double> values);
    void Bool(std::string_view key, bool value);

    std::string End() const { return text.empty() ? "{}" : text + "}"; }

private:
    void Key(std::string_view key);

    std::string text;
};

/// The objects as an array, one a line.
class JsonArray {
public:
    void Add(const JsonObject& object);
    std::string End() const { return text.empty() ? "[]\n" : text + "\n]\n"; }

private:
    std::string text;
};

}  // namespace quillon
