#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "foundation/config_file.h"

namespace quillon {

// The lines of a settings file in their order, written down once and run by both its reader and its writer:
//
//     template <class Lines>
//     void EachLine(Lines& lines, RecordOf<CBoundary> auto& boundary) {      // const when it is written
//         lines.Int("Vector Symbol", boundary.symbol);
//         lines.Colour("Colour", boundary.pen.colour);
//         lines.Bool("Show Leg Label", boundary.showLegLabel);
//     }
//
//     ReadLines(file, boundary);     WriteLines(file, boundary);
//
// The reader leaves a member alone if its line is missing, so what the record holds beforehand are the file's defaults.

/// The record itself, const or not: what makes the EachLine of one record another template than that of the next.
template <class T, class Record>
concept RecordOf = std::same_as<std::remove_const_t<T>, Record>;

/// A whole number or an enumeration that may hold any number of its type.
template <class T>
concept SettingsInt = (std::integral<T> && !std::same_as<T, bool>) || (std::is_enum_v<T> && requires { T{0}; });

class LineReader {
public:
    explicit LineReader(CConfigFile& settings) : file(settings) {}

    template <SettingsInt T>
    void Int(std::string_view, T& value) {
        value = static_cast<T>(file.ReadInt(static_cast<int>(value)));
    }
    void Bool(std::string_view, bool& value) { value = file.ReadBool(value); }
    void Double(std::string_view, double& value, int /*decimals*/) { value = file.ReadDouble(value); }
    void Colour(std::string_view, COLORREF& value) { value = file.ReadColour(value); }
    void Text(std::string_view, std::string& value) { value = file.ReadText(value); }
    void Pen(std::string_view, tagPen& value) { value = file.ReadPen(value); }

private:
    CConfigFile& file;
};

class LineWriter {
public:
    explicit LineWriter(CConfigFile& settings) : file(settings) {}

    template <SettingsInt T>
    void Int(std::string_view key, const T& value) {
        file.WriteInt(key, static_cast<int>(value));
    }
    void Bool(std::string_view key, bool value) { file.WriteBool(key, value); }
    void Double(std::string_view key, double value, int decimals) { file.WriteDouble(key, value, decimals); }
    void Colour(std::string_view key, COLORREF value) { file.WriteUnsigned(key, value); }
    void Text(std::string_view key, std::string_view value) { file.WriteText(key, value); }
    void Pen(std::string_view key, const tagPen& value) { file.WritePen(key, value); }

private:
    CConfigFile& file;
};

template <class T>
void ReadLines(CConfigFile& file, T& record) {
    LineReader reader(file);
    EachLine(reader, record);
}

template <class T>
void WriteLines(CConfigFile& file, const T& record) {
    LineWriter writer(file);
    EachLine(writer, record);
}

}  // namespace quillon
