#include "foundation/number_typing.h"

#include <algorithm>

#include "foundation/number_text.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr auto kNone = std::string::npos;

bool IsSign(char c) {
    return c == '+' || c == '-';
}

/// 1 with a sign at the front, else 0: where the digits begin.
std::size_t SignLength(const std::string& text) {
    return !text.empty() && IsSign(text.front()) ? 1 : 0;
}

std::size_t CountOf(int n) {
    return static_cast<std::size_t>(std::max(n, 0));
}

std::size_t DecimalsOf(const tagNumberStyle& style) {
    return style.decimals < 0 ? 2 : CountOf(style.decimals);
}

tagNumberBounds BoundsOf(const tagNumberStyle& style) {
    return NumberBounds(style.maxLength, style.decimals, style.forceSign);
}

bool MayTypeSign(char sign, const tagEditText& edit, const tagNumberStyle& style) {
    if (edit.from != 0 || !style.allowSign) return false;
    return sign == '-' ? BoundsOf(style).lower < 0.0 : style.forceSign;
}

/// Right by one, and over the point.
bool StepRight(tagEditText& edit) {
    std::size_t p = std::min(edit.from + 1, edit.text.size());
    if (p < edit.text.size() && edit.text[p] == '.') ++p;
    edit.SetCaret(p);
    return true;
}

// ---- Fixed format: the text has the width of the zero text, with the point in the same place ----

bool FitsFixed(const std::string& text, const std::string& zero) {
    if (text.size() != zero.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool fits = zero[i] == '.' ? text[i] == '.' : IsDigit(text[i]) || (i == 0 && IsSign(text[i]));
        if (!fits) return false;
    }
    return true;
}

bool TypeFixedDigit(tagEditText& edit, char digit, const tagNumberStyle& style) {
    std::string& text = edit.text;
    std::size_t p = edit.from;
    if (p == 0 && style.forceSign) text[p++] = '+';
    if (p < text.size() && text[p] == '.') ++p;
    if (p >= std::min(text.size(), CountOf(style.maxLength))) return false;
    text[p++] = digit;
    if (p < text.size() && text[p] == '.') ++p;
    edit.SetCaret(p);
    return true;
}

/// What was typed so far is the whole part: it moves up to the point, zeros follow behind it on the left.
bool TypeFixedPoint(tagEditText& edit) {
    std::string& text = edit.text;
    const std::size_t point = text.find('.');
    if (point == kNone) return false;
    const std::size_t first = SignLength(text);
    if (edit.from < point) {
        const std::string typed = edit.from > first ? text.substr(first, edit.from - first) : "";
        text.replace(first, point - first, std::string(point - first - typed.size(), '0') + typed);
    }
    edit.SetCaret(point + 1);
    return true;
}

bool BackspaceFixed(tagEditText& edit, const tagNumberStyle& style) {
    if (edit.from == 0) return false;
    std::size_t p = edit.from - 1;
    if (edit.text[p] == '.' && p > 0) --p;
    edit.text[p] = p == 0 && style.forceSign ? '+' : '0';
    edit.SetCaret(p);
    return true;
}

bool TypeFixed(tagEditText& edit, char key, const tagNumberStyle& style) {
    if (IsDigit(key)) return TypeFixedDigit(edit, key, style);
    if (key == '.') return TypeFixedPoint(edit);
    if (!MayTypeSign(key, edit, style)) return false;
    edit.text.front() = key;
    edit.SetCaret(1);
    return true;
}

// ---- Free format ----

std::size_t WholeDigits(const std::string& text) {
    return std::min(text.find('.'), text.size()) - SignLength(text);
}

bool WholeDigitsFit(const std::string& text, const tagNumberStyle& style) {
    return WholeDigits(text) <= CountOf(style.intDigits);
}

void Tidy(tagEditText& edit, const tagNumberStyle& style) {
    std::string& text = edit.text;
    const std::size_t first = SignLength(text);
    if (first < text.size() && text[first] == '.') text.insert(first, 1, '0');
    if (text.find('.') == kNone) {
        text.resize(std::min(text.size(), first + CountOf(style.intDigits)));
        while (text.size() > first && !BoundsOf(style).Hold(Atof(text))) text.pop_back();
    }
    edit.SetCaret(edit.from);
}

bool TypeFreeSign(tagEditText& edit, char sign, const tagNumberStyle& style) {
    if (!MayTypeSign(sign, edit, style)) return false;
    std::string& text = edit.text;
    if (SignLength(text)) {
        text.front() = sign;
    } else {
        text.insert(text.begin(), sign);
    }
    edit.SetCaret(1);
    return text.size() <= CountOf(style.maxLength) && WholeDigitsFit(text, style);
}

bool TypeFreeDigit(tagEditText& edit, char digit, const tagNumberStyle& style) {
    std::string& text = edit.text;
    std::size_t p = edit.from;
    if (p == 0 && style.forceSign) {
        if (SignLength(text)) {
            text.front() = '+';
        } else {
            text.insert(text.begin(), '+');
        }
        p = 1;
    }
    if (p >= CountOf(style.maxLength)) return false;
    if (p < text.size() && text[p] != '.') {
        text[p] = digit;
    } else {
        text.insert(p, 1, digit);  // at the end, or where the whole part ends
    }
    edit.SetCaret(p + 1);
    const std::size_t point = text.find('.');
    if (point != kNone && p > point && p - point > DecimalsOf(style)) return false;
    return text.size() <= CountOf(style.maxLength) && WholeDigitsFit(text, style);
}

bool TypeFreePoint(tagEditText& edit, const tagNumberStyle& style) {
    if (style.decimals == 0) return false;
    std::string& text = edit.text;
    std::size_t p = edit.from;
    if (style.forceSign && !SignLength(text)) {
        text.insert(text.begin(), '+');
        ++p;
    }
    p = std::max(p, SignLength(text));
    const std::size_t old = text.find('.');
    if (old == kNone) {
        text.insert(p, 1, '.');
    } else if (p < old) {
        text[p] = '.';
        text.erase(old, 1);
    } else if (p > old) {
        return false;
    }
    if (p == SignLength(text)) text.insert(p++, 1, '0');
    text.resize(std::min({text.size(), p + 1 + DecimalsOf(style), CountOf(style.maxLength)}));
    edit.SetCaret(p + 1);
    return p < text.size();
}

bool BackspaceFree(tagEditText& edit, const tagNumberStyle& style) {
    if (edit.from <= SignLength(edit.text)) return false;  // the sign stays
    edit.text.erase(edit.from - 1, 1);
    edit.SetCaret(edit.from - 1);
    Tidy(edit, style);
    return true;
}

bool TypeFree(tagEditText& edit, char key, const tagNumberStyle& style) {
    if (IsDigit(key)) return TypeFreeDigit(edit, key, style);
    return key == '.' ? TypeFreePoint(edit, style) : TypeFreeSign(edit, key, style);
}

// ---- Both ----

tagEditText Prepared(const tagEditText& edit, const tagNumberStyle& style) {
    tagEditText work = edit;
    work.Clamp();
    if (!style.fixedFormat) return work;
    const std::string zero = ZeroNumberText(style);
    if (FitsFixed(work.text, zero)) return work;
    return {zero, 0, 0};
}

void Remove(tagEditText& work, const tagNumberStyle& style) {
    const std::size_t length = work.to - work.from;
    if (length == 0) return;
    if (style.fixedFormat) {
        work.text.replace(work.from, length, ZeroNumberText(style), work.from, length);
        work.SetCaret(work.from);
        return;
    }
    work.text.erase(work.from, length);
    work.SetCaret(work.from);
    Tidy(work, style);
}

bool IsTypingKey(char key) {
    return IsDigit(key) || IsSign(key) || key == '.' || key == ' ' || key == kBackspace;
}

}  // namespace

std::string ZeroNumberText(const tagNumberStyle& style) {
    if (!style.fixedFormat) return style.forceSign ? "+0" : "0";
    return FormatDouble(0.0, style.maxLength, style.decimals, style.forceSign, true);
}

bool TypeIntoNumber(tagEditText& edit, char key, const tagNumberStyle& style) {
    if (!IsTypingKey(key) || style.maxLength <= 0) return false;
    tagEditText work = Prepared(edit, style);
    const bool hadSelection = work.HasSelection();
    Remove(work, style);
    bool typed = false;
    if (key == kBackspace) {
        // As everywhere, with a selection it takes that and no more.
        typed = hadSelection || (style.fixedFormat ? BackspaceFixed(work, style) : BackspaceFree(work, style));
    } else if (key == ' ') {
        typed = StepRight(work);
    } else {
        typed = style.fixedFormat ? TypeFixed(work, key, style) : TypeFree(work, key, style);
    }
    if (!typed) return false;
    // A number that the width can't show would be another one as soon as the focus goes.
    const tagNumberBounds bounds = BoundsOf(style);
    if (!bounds.Hold(Atof(work.text)) && bounds.Hold(Atof(edit.text))) return false;
    edit = work;
    return true;
}

void RemoveFromNumber(tagEditText& edit, const tagNumberStyle& style) {
    edit = Prepared(edit, style);
    Remove(edit, style);
}

std::string PasteIntoNumber(const tagEditText& edit, std::string_view pasted, const tagNumberStyle& style) {
    tagEditText work = Prepared(edit, style);
    const std::size_t longest = CountOf(style.maxLength);
    const bool isWhole = edit.text != work.text || work.to - work.from == work.text.size();
    if (isWhole && style.fixedFormat) return std::string(pasted);
    if (!style.fixedFormat) {
        work.text.replace(work.from, work.to - work.from, pasted);
        work.text.resize(std::min(work.text.size(), longest));
        return work.text;
    }
    const std::size_t end = std::min(work.text.size(), longest);
    for (std::size_t i = 0; i < pasted.size() && work.from + i < end; ++i) work.text[work.from + i] = pasted[i];
    return work.text;
}

}  // namespace quillon
