#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "foundation/values.h"

namespace quillon {

/// The figures of a finite number, as few as it takes to read the same number back.
std::string ShortestText(double value);

/// One JSON object. Texts come in as Windows-1252 and go out as UTF-8; a number that is none, or that is missing, as
/// null. It stands on one line, but for the arrays of records in it, which have a line a record. Keys are our own
/// words: nothing in them needs an escape.
class JsonObject {
public:
    void Text(std::string_view key, std::string_view value);
    void Int(std::string_view key, long long value);
    void Real(std::string_view key, double value);
    void Reals(std::string_view key, std::span<const double> values);
    void Texts(std::string_view key, std::span<const std::string> values);
    void Bool(std::string_view key, bool value);
    void Object(std::string_view key, const JsonObject& value);
    /// [easting, northing]
    void Pair(std::string_view key, tagXY position);

    /// An array of records or lists; nothing but AddRecord and AddList between the two.
    void BeginRecords(std::string_view key);
    void AddRecord(const JsonObject& record);
    void AddList(std::span<const double> values);
    void EndRecords();

    std::string End() const { return begun ? text + "}" : "{}"; }

    /// Characters since the last TakeTo, which moves them out: for who prints a large object while it grows.
    std::size_t Pending() const { return text.size(); }
    void TakeTo(std::string& out);
    /// Empty again, with the storage kept.
    void Clear();

private:
    void Key(std::string_view key);
    void NextRecord();

    std::string text;
    bool begun = false;
    bool firstRecord = true;
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
