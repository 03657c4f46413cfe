#include "json_text.h"

#include <array>
#include <cmath>

#include "platform/text.h"

namespace quillon {

namespace {

void AppendQuoted(std::string& text, std::string_view value) {
    text += '"';
    for (const char c : Utf8FromText(value)) {
        if (c == '"' || c == '\\') {
            text += '\\';
            text += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            text += Format("\\u%04x", static_cast<unsigned>(c));
        } else {
            text += c;
        }
    }
    text += '"';
}

void AppendReal(std::string& text, double value) {
    if (std::isfinite(value) && !IsMissing(value)) {
        AppendShortest(text, value);
    } else {
        text += "null";
    }
}

void AppendList(std::string& text, std::span<const double> values) {
    text += '[';
    for (const double value : values) {
        if (text.back() != '[') text += ", ";
        AppendReal(text, value);
    }
    text += ']';
}

}  // namespace

std::string ShortestText(double value) {
    std::string text;
    AppendShortest(text, value);
    return text;
}

void JsonObject::Key(std::string_view key) {
    text += begun ? ", " : "{";
    begun = true;
    text += '"';
    text += key;
    text += "\": ";
}

void JsonObject::Text(std::string_view key, std::string_view value) {
    Key(key);
    AppendQuoted(text, value);
}
void JsonObject::Int(std::string_view key, long long value) {
    Key(key);
    text += Format("%lld", value);
}
void JsonObject::Real(std::string_view key, double value) {
    Key(key);
    AppendReal(text, value);
}
void JsonObject::Reals(std::string_view key, std::span<const double> values) {
    Key(key);
    AppendList(text, values);
}
void JsonObject::Texts(std::string_view key, std::span<const std::string> values) {
    Key(key);
    text += '[';
    for (const std::string& value : values) {
        if (text.back() != '[') text += ", ";
        AppendQuoted(text, value);
    }
    text += ']';
}
void JsonObject::Bool(std::string_view key, bool value) {
    Key(key);
    text += value ? "true" : "false";
}

void JsonObject::Object(std::string_view key, const JsonObject& value) {
    Key(key);
    text += value.End();
}
void JsonObject::Pair(std::string_view key, tagXY position) {
    Reals(key, std::array{position.x, position.y});
}

void JsonObject::BeginRecords(std::string_view key) {
    Key(key);
    text += '[';
    firstRecord = true;
}
void JsonObject::NextRecord() {
    text += firstRecord ? "\n" : ",\n";
    firstRecord = false;
}
void JsonObject::AddList(std::span<const double> values) {
    NextRecord();
    AppendList(text, values);
}
void JsonObject::AddRecord(const JsonObject& record) {
    NextRecord();
    text += record.text;
    text += record.begun ? "}" : "{}";
}
void JsonObject::EndRecords() {
    text += firstRecord ? "]" : "\n]";
}

void JsonObject::TakeTo(std::string& out) {
    out += text;
    text.clear();
}
void JsonObject::Clear() {
    text.clear();
    begun = false;
}

void JsonArray::Add(const JsonObject& object) {
    text += text.empty() ? "[\n" : ",\n";
    text += object.End();
}

}  // namespace quillon
