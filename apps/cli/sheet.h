#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "foundation/values.h"
#include "platform/palette.h"

namespace quillon {

/// What a file holds, written as it is named: fields first, then tables. One description serves both forms, text for
/// people and JSON for programs.
///
///     sheet.Text("name", boundary.GetName());
///     sheet.BeginTable("points", boundary.GetSize());
///     for (...) { sheet.BeginRow(); sheet.Metres("easting", point.x); ... sheet.EndRow(); }
///     sheet.EndTable();
///     sheet.Finish();
///
/// Keys are lower case with "_" between words. Inside a row, a text comes last. Texts are the library's; UTF-8 goes
/// out, in large blocks. A number that is missing or not finite is null, "-" for people.
class Sheet {
public:
    virtual ~Sheet() = default;

    virtual void Text(std::string_view key, std::string_view value) = 0;
    virtual void Int(std::string_view key, long long value) = 0;
    virtual void Bool(std::string_view key, bool value) = 0;
    /// `decimals` for people; programs get all there is.
    virtual void Real(std::string_view key, double value, int decimals) = 0;
    /// Radians; degrees for people.
    virtual void Angle(std::string_view key, double radians) = 0;
    virtual void Pair(std::string_view key, tagXY position) = 0;
    /// A stored number with what it is called, if it has a name.
    virtual void Choice(std::string_view key, long long value, std::string_view name) = 0;
    virtual void Colour(std::string_view key, COLORREF colour) = 0;

    virtual void BeginGroup(std::string_view key) = 0;
    virtual void EndGroup() = 0;

    virtual void BeginTable(std::string_view key, std::ptrdiff_t rows) = 0;
    virtual void BeginRow() = 0;
    virtual void EndRow() = 0;
    virtual void EndTable() = 0;
    virtual void Finish() = 0;

    void Metres(std::string_view key, double value) { Real(key, value, 3); }
    void Choice(std::string_view key, long long value, std::span<const std::string_view> names) {
        const bool named = value >= 0 && value < static_cast<long long>(names.size());
        Choice(key, value, named ? names[static_cast<std::size_t>(value)] : std::string_view());
    }
};

std::unique_ptr<Sheet> MakeTextSheet(std::ostream& out);
std::unique_ptr<Sheet> MakeJsonSheet(std::ostream& out);

}  // namespace quillon
