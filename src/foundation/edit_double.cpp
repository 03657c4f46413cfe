#include "foundation/edit_double.h"

#include <algorithm>

#include "foundation/number_text.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kNotAvailable = "n/a";
constexpr int kInPlaceMarginPixels = 5;

/// Whether there is a number at the front of a text, 0 or another.
bool BeginsWithNumber(std::string_view text) {
    text = TrimLeft(text);
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
    if (!text.empty() && text.front() == '.') text.remove_prefix(1);
    return !text.empty() && IsDigit(text.front());
}

}  // namespace

int InPlaceWidth(int textPixels, int parentPixels) {
    return std::min(textPixels + kInPlaceMarginPixels, parentPixels);
}

// ---- CBaseEdit ----

void CBaseEdit::SetSelection(std::size_t from, std::size_t to) {
    edit.from = from;
    edit.to = to;
    edit.Clamp();
}

void CBaseEdit::Enable(bool on) {
    enabled = on;
    if (on) {
        ShowValue();
    } else {
        edit = {std::string(kNotAvailable), 0, 0};
    }
}

bool CBaseEdit::EndInPlace(char key) {
    switch (key) {
        case kEscape:
            end = EDIT_END::CANCELLED;
            break;
        case kEnter:
            end = EDIT_END::ENTERED;
            break;
        case kTab:
            end = EDIT_END::TABBED;
            break;
        default:
            return false;
    }
    host.FocusParent();
    return true;
}

/// Runs an operation on the text and reads the value again.
template <class Operation>
bool CBaseEdit::Change(const Operation& operation) {
    const double before = TextValue();
    if (!operation()) return false;
    value = TextValue();
    if (value != before) {
        dirty = true;
        host.PostEditUpdate();
    }
    return true;
}

bool CBaseEdit::OnChar(char key) {
    if (!enabled) return false;
    key = TranslateKey(key);
    if (key == kCtrlC) {
        Copy();
        return true;
    }
    if (inPlace && EndInPlace(key)) return true;
    if (key == kCtrlX || key == kCtrlV) {
        key == kCtrlX ? Cut() : Paste();
        return true;
    }
    return !readOnly && Change([&] { return Type(key); });
}

void CBaseEdit::OnDelete() {
    if (edit.to == 0) {
        OnChar(kBackspace);
    } else {
        Cut();
    }
}

void CBaseEdit::OnSetFocus() {
    end = EDIT_END::NONE;
    if (enabled) MendText();
    edit.text = std::string(Trim(edit.text));
    edit.SelectAll();
    host.PostFocus(true);
}

void CBaseEdit::OnKillFocus() {
    if (enabled) {
        value = TextValue();
        ShowValue();
    }
    host.PostFocus(false);
}

void CBaseEdit::Copy() {
    // An empty selection would wipe out what the operator has in the clipboard.
    if (edit.HasSelection()) host.SetClipboardText(edit.Selected());
}

void CBaseEdit::Cut() {
    if (!enabled || readOnly) return;
    Copy();
    Change([&] { return RemoveSelection(); });
}

void CBaseEdit::Paste() {
    if (!enabled || readOnly) return;
    Change([&] { return PasteText(host.ClipboardText()); });
}

std::vector<tagEditMenuItem> CBaseEdit::ContextMenu() const {
    if (!enabled) return {};
    return {{EDIT_CUT, "Cut", !readOnly}, {EDIT_COPY, "Copy", true}, {EDIT_PASTE, "Paste", !readOnly}};
}

void CBaseEdit::OnCommand(int id) {
    if (id == EDIT_CUT) Cut();
    if (id == EDIT_COPY) Copy();
    if (id == EDIT_PASTE) Paste();
}

// ---- CEditDouble ----

CEditDouble::CEditDouble(EditHost& editHost) : CBaseEdit(editHost) {
    edit = {std::string(kNotAvailable), 0, 0};
}

std::string CEditDouble::NumberText(double number) const {
    return std::string(Trim(FormatDouble(number, style.maxLength, style.decimals, style.forceSign, style.fixedFormat)));
}

void CEditDouble::SetDouble(double newValue) {
    editLimit = style.maxLength;
    value = newValue;
    dirty = false;
    const bool shown = IsEnabled() && !IsMissing(value);
    edit.text = shown ? std::string(Trim(NumberText(value) + suffix)) : std::string(kNotAvailable);
    edit.Clamp();
}

/// Characters of the text ahead of the unit, which stays where it is whatever is typed.
std::size_t CEditDouble::NumberLength() const {
    const std::string_view unit = TrimRight(suffix);
    const std::string_view text = edit.text;
    return unit.empty() || !text.ends_with(unit) ? text.size() : text.size() - unit.size();
}

tagEditText CEditDouble::NumberPart() const {
    if (IsNone()) return {};
    const std::size_t length = NumberLength();
    return {edit.text.substr(0, length), std::min(edit.from, length), std::min(edit.to, length)};
}

void CEditDouble::SetNumberPart(const tagEditText& number) {
    const std::string unit = IsNone() ? std::string(TrimRight(suffix)) : edit.text.substr(NumberLength());
    edit = {number.text + unit, number.from, number.to};
}

bool CEditDouble::IsWithinBounds(double number) const {
    return !(checkMax && number > maximum) && !(checkMin && number < minimum);
}

bool CEditDouble::IsNone() const {
    return edit.text == kNotAvailable;
}

bool CEditDouble::Type(char key) {
    if (IsNone() && (key == ' ' || key == kBackspace)) return false;  // nothing to move over or to take away
    tagEditText number = NumberPart();
    if (!TypeIntoNumber(number, key, style)) return false;
    if (IsDigit(key) && !IsWithinBounds(Atof(number.text))) return false;
    SetNumberPart(number);
    return true;
}

bool CEditDouble::RemoveSelection() {
    if (!edit.HasSelection() || IsNone()) return false;
    tagEditText number = NumberPart();
    if (edit.from == 0 && edit.to >= static_cast<std::size_t>(std::max(style.maxLength, 0))) {
        number = {ZeroNumberText(style), 0, 0};
    } else {
        RemoveFromNumber(number, style);
    }
    SetNumberPart(number);
    return true;
}

/// What is no number, or none that could have been typed here, is refused whole: it would come out as a 0 that nobody
/// meant.
bool CEditDouble::PasteText(std::string_view pasted) {
    pasted = Trim(pasted);
    if (!BeginsWithNumber(pasted)) return false;
    const double number = Atof(PasteIntoNumber(NumberPart(), pasted, style));
    if (!IsWithinBounds(number) || (number < 0.0 && !style.allowSign)) return false;
    tagEditText result{NumberText(number)};
    result.SetCaret(result.text.size());
    SetNumberPart(result);
    return true;
}

double CEditDouble::TextValue() const {
    return IsNone() ? MISSING_VALUE : Atof(edit.text);
}

void CEditDouble::MendText() {
    const std::size_t longest = static_cast<std::size_t>(std::max(style.maxLength, 0)) + suffix.size();
    if (edit.text.size() > longest && !IsNone()) edit.text = Trim(NumberText(0.0) + suffix);
}

}  // namespace quillon
