#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "foundation/config_file.h"
#include "platform/text.h"

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

// ---- Two owners of one file ----
//
// Two objects may keep their settings in one file: two data files of one name, or a pipeline that is also the pipe
// route. Each notes what the file held when it last read or wrote it. A save then takes over every line that the other
// has stored since and that it hasn't changed itself:
//
//     if (old.OpenForRead(name)) FollowFile(old, record, stored);
//     if (!fresh.OpenSettingsForWrite(name)) return;
//     WriteLines(fresh, record);
//     if (fresh.Commit()) NoteLines(record, stored);

/// The value of a line as the file gives it back.
using SettingsValue = std::variant<bool, std::int64_t, double, std::uint32_t, tagPen, std::string>;

/// The lines of a settings file as they were last read or written; none before that. No part of a record's value.
struct StoredLines {
    std::vector<SettingsValue> values;
    friend bool operator==(const StoredLines&, const StoredLines&) { return true; }
};

class LineCollector {
public:
    explicit LineCollector(std::vector<SettingsValue>& collected) : values(collected) {}

    template <SettingsInt T>
    void Int(std::string_view, const T& value) {
        values.emplace_back(static_cast<std::int64_t>(value));
    }
    void Bool(std::string_view, bool value) { values.emplace_back(value); }
    void Double(std::string_view, double value, int decimals) { values.emplace_back(AsWritten(value, decimals)); }
    void Colour(std::string_view, COLORREF value) { values.emplace_back(value); }
    void Text(std::string_view, const std::string& value) { values.emplace_back(value); }
    void Pen(std::string_view, const tagPen& value) { values.emplace_back(value); }

    static double AsWritten(double value, int decimals) {
        std::string text;
        AppendFixed(text, value, decimals);
        return Atof(text);
    }

private:
    std::vector<SettingsValue>& values;
};

/// Runs over a record beside what was stored of it and what the file holds now.
class LineFollower {
public:
    LineFollower(const std::vector<SettingsValue>& before, const std::vector<SettingsValue>& current)
        : stored(before), now(current) {}

    template <SettingsInt T>
    void Int(std::string_view, T& value) {
        std::int64_t held = static_cast<std::int64_t>(value);
        if (Follow(held, held)) value = static_cast<T>(held);
    }
    void Bool(std::string_view, bool& value) { Follow(value, value); }
    void Double(std::string_view, double& value, int decimals) {
        Follow(value, LineCollector::AsWritten(value, decimals));
    }
    void Colour(std::string_view, COLORREF& value) { Follow(value, value); }
    void Text(std::string_view, std::string& value) { Follow(value, value); }
    void Pen(std::string_view, tagPen& value) { Follow(value, value); }

    bool HasFollowed() const { return followed; }

private:
    /// `written` is the value as it would be read back.
    template <class T>
    bool Follow(T& value, const T& written) {
        const std::size_t line = next++;
        if (stored[line] != SettingsValue(written) || now[line] == stored[line]) return false;
        value = std::get<T>(now[line]);
        return followed = true;
    }

    const std::vector<SettingsValue>& stored;
    const std::vector<SettingsValue>& now;
    std::size_t next = 0;
    bool followed = false;
};

template <class T>
void NoteLines(const T& record, StoredLines& stored) {
    stored.values.clear();
    LineCollector collector(stored.values);
    EachLine(collector, record);
}

/// Takes from an opened file every line that the record has as it was stored, and notes what the file holds. True if
/// that changed the record. Nothing is taken from a line that is missing, or where nothing was stored yet.
template <class T>
bool FollowFile(CConfigFile& file, T& record, StoredLines& stored) {
    T now = record;
    ReadLines(file, now);
    StoredLines held;
    NoteLines(now, held);
    const StoredLines before = std::exchange(stored, std::move(held));
    if (before.values.empty()) return false;
    LineFollower follower(before.values, stored.values);
    EachLine(follower, record);
    return follower.HasFollowed();
}

}  // namespace quillon
