#include "platform/property_rows.h"

#include <string.h>

#include <charconv>
#include <cmath>

#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kDegreeSign = "\xB0";

bool IsFinite(const RowValue& value) {
    const auto* number = std::get_if<double>(&value);
    return number && std::isfinite(*number);
}

/// Takes a unit off the end of typed text, if it stands there.
std::string_view WithoutUnit(std::string_view text, std::string_view unit) {
    text = Trim(text);
    unit = Trim(unit);
    if (text.size() < unit.size() || !EqualNoCase(text.substr(text.size() - unit.size()), unit)) return text;
    return TrimRight(text.substr(0, text.size() - unit.size()));
}

/// The number that typed text is, with or without its unit; false for any other text.
bool ReadNumber(std::string_view text, std::string_view unit, double& number) {
    text = WithoutUnit(text, unit);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec == std::errc::invalid_argument || result.ptr != end) return false;
    // What is too small for a double is zero; from_chars leaves it aside.
    if (result.ec != std::errc{}) number = Atof(text);
    return std::isfinite(number);
}

/// A printf format with one number conversion, taken apart: what stands around the conversion, flags, width and
/// decimals.
struct NumberFormat {
    std::string before, after;
    int width = 0;
    int decimals = 6;
    bool zeros = false;
    bool plus = false;
};

NumberFormat TakeApart(std::string_view format) {
    NumberFormat parts;
    const std::size_t percent = format.find('%');
    parts.before = format.substr(0, percent);
    if (percent == std::string_view::npos) return parts;
    std::string_view rest = format.substr(percent + 1);
    for (; rest.starts_with('+') || rest.starts_with('0'); rest.remove_prefix(1)) {
        (rest.front() == '+' ? parts.plus : parts.zeros) = true;
    }
    const std::size_t type = rest.find('f');
    const std::size_t point = rest.find('.');
    parts.width = Atoi(rest);
    if (point < type) parts.decimals = Atoi(rest.substr(point + 1));
    if (type != std::string_view::npos) parts.after = Replace(rest.substr(type + 1), "%%", "%");
    return parts;
}

std::string FormatNumber(const NumberFormat& parts, double number) {
    if (parts.plus && parts.zeros) return Format("%+0*.*f", parts.width, parts.decimals, number);
    if (parts.plus) return Format("%+*.*f", parts.width, parts.decimals, number);
    if (parts.zeros) return Format("%0*.*f", parts.width, parts.decimals, number);
    return Format("%*.*f", parts.width, parts.decimals, number);
}

template <std::size_t N>
std::vector<RowChoice> Numbered(const std::array<std::string_view, N>& texts) {
    std::vector<RowChoice> choices;
    for (std::size_t i = 0; i < N; ++i) choices.push_back({static_cast<std::int32_t>(i), std::string(texts[i])});
    return choices;
}

}  // namespace

// ---- Numbers ----

CMFCPropertyGridDouble::CMFCPropertyGridDouble(std::string_view name, double value, std::string_view format,
                                               std::string_view description, UINT id)
    : CMFCPropertyGridProperty(name, value, description, id), numberFormat(format) {}

std::string CMFCPropertyGridDouble::FormatProperty() const {
    const NumberFormat parts = TakeApart(numberFormat);
    return parts.before + FormatNumber(parts, Get<double>()) + parts.after;
}

bool CMFCPropertyGridDouble::Parse(std::string_view text, RowValue& parsed) const {
    double number = 0;
    if (!ReadNumber(text, TakeApart(numberFormat).after, number)) return false;
    parsed = number;
    return true;
}

bool CMFCPropertyGridDouble::Accept(const RowValue& candidate) const {
    if (!IsFinite(candidate)) return false;
    const double number = std::get<double>(candidate);
    return !range || (number >= range->minimum && number <= range->maximum);
}

std::string CMFCPropertyGridDouble::WhyRefused(std::string_view text) const {
    RowValue parsed;
    if (Parse(text, parsed) && range) {
        const std::string unit(Trim(TakeApart(numberFormat).after));
        return Format("Type a number from %g%s to %g%s.", range->minimum, unit.c_str(), range->maximum, unit.c_str());
    }
    if (text.find(',') != std::string_view::npos) return "Type a point, not a comma, before the decimals.";
    return "That is no number.";
}

CMFCPropertyGridInteger::CMFCPropertyGridInteger(std::string_view name, std::int32_t value, std::string_view,
                                                 std::string_view description, UINT id)
    : CMFCPropertyGridProperty(name, value, description, id) {}

CMFCPropertyGridAngleInteger::CMFCPropertyGridAngleInteger(std::string_view name, std::int32_t value,
                                                           std::string_view description, UINT id)
    : CMFCPropertyGridProperty(name, value, description, id) {}

std::string CMFCPropertyGridAngleInteger::FormatProperty() const {
    return Format("%d\xB0", Get<std::int32_t>());
}

bool CMFCPropertyGridAngleInteger::Parse(std::string_view text, RowValue& parsed) const {
    return CMFCPropertyGridProperty::Parse(WithoutUnit(text, kDegreeSign), parsed);
}

// ---- Pickers ----

CPickerProperty::CPickerProperty(std::string_view name, RowValue value, COLORREF colour, std::string_view description,
                                 UINT id)
    : CMFCPropertyGridProperty(name, std::move(value), description, id), drawnIn(colour) {
    AllowEdit(false);
}

std::string CPickerProperty::FormatProperty() const {
    for (const RowChoice& choice : GetChoices()) {
        if (choice.value == GetValue()) return choice.text;
    }
    const auto* number = std::get_if<std::int32_t>(&GetValue());
    return number ? Format("%d", *number) : std::string();
}

bool CPickerProperty::Parse(std::string_view, RowValue&) const {
    return false;
}

bool CPickerProperty::Accept(const RowValue& candidate) const {
    for (const RowChoice& choice : GetChoices()) {
        if (choice.value == candidate) return true;
    }
    return false;
}

void CPickerProperty::Follow(const CMFCPropertyGridProperty& fresh) {
    CMFCPropertyGridProperty::Follow(fresh);
    const COLORREF colour = static_cast<const CPickerProperty&>(fresh).drawnIn;
    if (drawnIn != colour) SetColour(colour);
}

void CPickerProperty::SetColour(COLORREF newColour) {
    drawnIn = newColour;
    Redraw();
}

CMFCPropertyGridPrimaryColourProperty::CMFCPropertyGridPrimaryColourProperty(std::string_view name, COLORREF value,
                                                                             int count, std::string_view description,
                                                                             UINT id)
    : CPickerProperty(name, value, value, description, id), offered(count) {}

std::vector<RowChoice> CMFCPropertyGridPrimaryColourProperty::GetChoices() const {
    std::vector<RowChoice> choices;
    for (int i = 0; i < offered && i < kPaletteCount; ++i) {
        const PaletteColour& entry = kPalette[static_cast<std::size_t>(i)];
        choices.push_back({entry.colour, std::string(entry.name)});
    }
    return choices;
}

std::string CMFCPropertyGridPrimaryColourProperty::FormatProperty() const {
    const COLORREF held = GetColour();
    const int index = PaletteIndex(held);
    if (index >= 0) return std::string(kPalette[static_cast<std::size_t>(index)].name);
    return Format("%u, %u, %u", GetRValue(held), GetGValue(held), GetBValue(held));
}

CMFCPropertyGridFillStyleProperty::CMFCPropertyGridFillStyleProperty(FILL_STYLE value, COLORREF colour, UINT id)
    : CPickerProperty("Fill Style", static_cast<std::int32_t>(value), colour, "How the area is filled", id) {}

std::vector<RowChoice> CMFCPropertyGridFillStyleProperty::GetChoices() const {
    std::vector<RowChoice> choices;
    for (const FillChoice& fill : kFillChoices) {
        choices.push_back({static_cast<std::int32_t>(fill.style), std::string(fill.name)});
    }
    return choices;
}

CMFCPropertyGridLineThicknessProperty::CMFCPropertyGridLineThicknessProperty(LINE_THICKNESS value, COLORREF colour,
                                                                             UINT id)
    : CPickerProperty("Line Thickness", value, colour, "Thickness of the line in pixels", id) {}

std::vector<RowChoice> CMFCPropertyGridLineThicknessProperty::GetChoices() const {
    std::vector<RowChoice> choices;
    for (const LINE_THICKNESS thickness : kLineThicknesses) choices.push_back({thickness, Format("%d", thickness)});
    return choices;
}

CMFCPropertyGridVectorSymbolProperty::CMFCPropertyGridVectorSymbolProperty(std::string_view name, VECTOR_SYMBOL value,
                                                                           int count, std::string_view description,
                                                                           UINT id)
    : CPickerProperty(name, value, 0, description, id), offered(count) {}

std::vector<RowChoice> CMFCPropertyGridVectorSymbolProperty::GetChoices() const {
    std::vector<RowChoice> choices;
    for (VECTOR_SYMBOL symbol = 0; symbol < offered; ++symbol) {
        choices.push_back({symbol, symbol == 0 ? std::string("None") : Format("Symbol %d", symbol)});
    }
    return choices;
}

CMFCPropertyGridSymbolSizeProperty::CMFCPropertyGridSymbolSizeProperty(SYMBOL_SIZE value, UINT id)
    : CPickerProperty("Symbol Size", value, 0, "Size of the symbol", id) {}

std::vector<RowChoice> CMFCPropertyGridSymbolSizeProperty::GetChoices() const {
    return Numbered(m_SymbolSizeTxt);
}

CMFCPropertyGridLabelModeProperty::CMFCPropertyGridLabelModeProperty(SYMBOL_LABEL_MODE value, UINT id)
    : CPickerProperty("Label", value, 0, "What the label shows", id) {}

std::vector<RowChoice> CMFCPropertyGridLabelModeProperty::GetChoices() const {
    return Numbered(m_LabelModeTxt);
}

CMFCPropertyGridLabelPositionProperty::CMFCPropertyGridLabelPositionProperty(LABEL_POSITION value, UINT id)
    : CPickerProperty("Label Position", value, 0, "Where the label stands beside the symbol", id) {}

std::vector<RowChoice> CMFCPropertyGridLabelPositionProperty::GetChoices() const {
    return Numbered(m_LabelPositionTxt);
}

// ---- The password ----

CMFCPropertyGridPasswordProperty::CMFCPropertyGridPasswordProperty(Platform& platform, UINT id)
    : CMFCPropertyGridProperty("Password", std::string(), "Opens the locked rows", id),
      passwords(platform.Passwords()) {}

bool CMFCPropertyGridPasswordProperty::IsPasswordPresent(Platform& platform) {
    return platform.Passwords().IsPasswordPresent();
}

bool CMFCPropertyGridPasswordProperty::Accept(const RowValue& candidate) const {
    const auto* text = std::get_if<std::string>(&candidate);
    return text && !text->empty();
}

void CMFCPropertyGridPasswordProperty::OnEdited(RowValue value) {
    auto& text = std::get<std::string>(value);
    const PASSWORD_ANSWER answer = passwords.Check(text);
    ::explicit_bzero(text.data(), text.size());
    right = answer == PASSWORD_ANSWER::RIGHT;
    if (!right) Refuse(passwords.Complaint(answer));
    Redraw();
}

// ---- Buttons ----

CMFCPropertyGridDualButton::CMFCPropertyGridDualButton(std::string_view first, std::string_view second,
                                                       std::string_view description, UINT id)
    : CMFCPropertyGridProperty("", std::int32_t{0}, description, id), firstCaption(first), secondCaption(second) {
    AllowEdit(false);
}

bool CMFCPropertyGridDualButton::Accept(const RowValue& candidate) const {
    const auto* button = std::get_if<std::int32_t>(&candidate);
    return button && (*button == 0 || *button == 1);
}

}  // namespace quillon
