#include "foundation/angle_edit.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "foundation/angle_text.h"

namespace quillon {
namespace {

/// The shapes that a text is typed against. `largest`, `zero` and every text in work are of one length.
struct Shape {
    std::string largest;  // how far each digit may go; "+" where a sign stands, N or E where a letter does
    std::string zero;     // what an emptied text reads
    std::string limit;    // the leading digits of the first value beyond the range
    char plus = 0;        // what a positive angle has in the place of a sign; 0 without such a place
    char positive = 0;    // N or E, whether it is shown or not; 0 for a type without a letter

    std::size_t Length() const { return largest.size(); }
    std::size_t FirstDigit() const { return plus ? 1 : 0; }
    bool HasLetter() const { return positive && largest.back() == positive; }
};

/// The signed notation counts the sign into its width, so that "+5" may stand where others show "+05". An editor needs
/// each digit in its place. The count of zeros put in.
std::size_t PadBehindSign(std::string& text, std::size_t length) {
    if (text.empty() || (text.front() != '+' && text.front() != '-') || text.size() >= length) return 0;
    const std::size_t missing = length - text.size();
    text.insert(1, missing, '0');
    return missing;
}

std::optional<Shape> ShapeOf(int type, int format, int decimals) {
    Shape shape;
    if (AngleTemplate(type, format, shape.largest, decimals, shape.limit) == 0) return std::nullopt;
    if (type == ANGLE_LATITUDE) shape.positive = 'N';
    if (type == ANGLE_LONGITUDE) shape.positive = 'E';
    if (shape.largest.front() == '+') shape.plus = '+';
    shape.zero = FormatAngle(0.0, type, format, decimals);
    // An elevation of zero is shown as 90 degrees.
    std::replace_if(shape.zero.begin(), shape.zero.end(), IsDigit, '0');
    // Latitude and longitude have no letter in the signed notation but a place for "-", where north and east have "0".
    if (format == ANGLE_SIGNED_DEGREES && shape.positive) {
        shape.largest = '+' + shape.largest.substr(0, shape.Length() - 1);
        shape.plus = '0';
    }
    PadBehindSign(shape.zero, shape.Length());
    return shape;
}

std::size_t CountDecimals(const std::string& text) {
    const std::size_t point = text.find('.');
    if (point == std::string::npos) return 0;
    std::size_t n = 0;
    while (point + 1 + n < text.size() && IsDigit(text[point + 1 + n])) ++n;
    return n;
}

bool FitsAt(char c, const Shape& shape, std::size_t i) {
    if (i == 0 && shape.plus) return c == shape.plus || c == '-';
    if (IsDigit(shape.largest[i])) return IsDigit(c);
    if (i + 1 == shape.Length() && shape.HasLetter()) {
        return shape.positive == 'N' ? c == 'N' || c == 'S' : c == 'E' || c == 'W';
    }
    return c == shape.zero[i];
}

/// Whole digits that lead beyond the range, or to its end with more behind.
bool IsBeyond(const std::string& text, const Shape& shape) {
    const std::size_t first = shape.FirstDigit();
    const int order = text.compare(first, shape.limit.size(), shape.limit);
    return order > 0 || (order == 0 && text.find_first_of("123456789", first + shape.limit.size()) != text.npos);
}

bool Fits(const std::string& text, const Shape& shape) {
    if (text.size() != shape.Length()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!FitsAt(text[i], shape, i)) return false;
    }
    return true;
}

/// One key at work: the text, the place where the key acts, and the shape.
class Overtype {
public:
    Overtype(const Shape& against, std::string start, std::size_t position)
        : shape(against), text(std::move(start)), p(position) {}

    bool Type(char key);
    void Store(tagEditText& edit) const {
        edit.text = text;
        edit.SetCaret(p);
    }

private:
    bool Backspace();
    bool Mark(char mark);
    bool Sign(char sign);
    bool Digit(char digit);
    bool Letter(char letter);
    bool ReachesLimit(char digit);
    bool MayExceed() const;
    void Advance();

    const Shape& shape;
    std::string text;
    std::size_t p;
};

bool IsStop(char c) {
    return IsDigit(c) || c == 'N' || c == 'E';
}

/// On to the next digit or letter, or to the end.
void Overtype::Advance() {
    while (p < shape.Length() && !IsStop(shape.largest[p])) ++p;
}

bool Overtype::Backspace() {
    if (p == 0) return true;  // a selection from the front has become zeros, and that was what was asked for
    --p;
    if (p + 1 == shape.Length() && shape.HasLetter()) {
        text[p] = shape.largest[p];
        return true;
    }
    while (p > 0 && !IsDigit(shape.largest[p])) --p;
    // A sign is taken back to plus: a "0" in its place would be no angle any more.
    text[p] = p == 0 && shape.plus ? shape.plus : '0';
    return true;
}

bool Overtype::Mark(char mark) {
    const std::size_t found = shape.largest.find(mark, p);
    if (found == std::string::npos) return false;
    p = found + 1;
    Advance();
    return true;
}

bool Overtype::Sign(char sign) {
    if (p != 0 || !shape.plus) return false;
    text[0] = sign == '-' ? '-' : shape.plus;
    p = 1;
    return true;
}

bool Overtype::Letter(char letter) {
    const bool isPositive = letter == shape.positive;
    if (!isPositive && letter != (shape.positive == 'N' ? 'S' : shape.positive == 'E' ? 'W' : 0)) return false;
    if (shape.HasLetter()) {
        text.back() = letter;
        p = shape.Length();
    } else {
        // In the signed notation no letter is shown. The sign says the same; to ignore the key would leave a position
        // typed as south in the north.
        text.front() = isPositive ? shape.plus : '-';
    }
    return true;
}

bool Overtype::ReachesLimit(char digit) {
    const std::size_t first = shape.FirstDigit();
    if (p < first || p - first + 1 != shape.limit.size()) return false;
    std::string whole = text.substr(first, shape.limit.size());
    whole.back() = digit;
    if (whole != shape.limit) return false;
    text[p] = digit;
    for (std::size_t i = ++p; i < shape.Length(); ++i) {
        if (!IsDigit(shape.largest[i])) continue;
        text[i] = '0';
        p = i + 1;
    }
    Advance();
    return true;
}

/// The second digit goes as far as it likes below the largest first one: 295 under 359.
bool Overtype::MayExceed() const {
    const std::size_t first = shape.FirstDigit();
    const char top = shape.largest[first];
    return p == first + 1 && (top == '3' || top == '1') && text[first] < top;
}

bool Overtype::Digit(char digit) {
    if (ReachesLimit(digit)) return true;
    if (p >= shape.Length() || !IsDigit(shape.largest[p])) return false;
    if (digit > shape.largest[p] && !MayExceed()) return false;
    const bool wasBeyond = IsBeyond(text, shape);
    text[p] = digit;
    // 1 typed over the 0 of 095 leads to 195: the second digit has to give way.
    if (IsBeyond(text, shape) && p == shape.FirstDigit()) text[p + 1] = '0';
    if (IsBeyond(text, shape) && !wasBeyond) return false;
    ++p;
    Advance();
    return true;
}

bool Overtype::Type(char key) {
    if (IsDigit(key)) return Digit(key);
    switch (key) {
        case kBackspace:
            return Backspace();
        case ' ':
            if (p < shape.Length()) ++p;
            Advance();
            return true;
        case '\'':
        case '"':
        case '.':
            return Mark(key);
        case '+':
        case '-':
            return Sign(key);
        default:
            const char letter = HemisphereLetter(key);
            return letter != 0 && Letter(letter);
    }
}

}  // namespace

bool CAngleTyping::Type(tagEditText& edit, char key) const {
    tagEditText work = edit;
    work.Clamp();
    std::optional<Shape> shape = ShapeOf(type, format, static_cast<int>(CountDecimals(work.text)));
    if (!shape) return false;
    if (shape->plus == '+' && format == ANGLE_SIGNED_DEGREES) {
        const std::size_t padded = PadBehindSign(work.text, shape->Length());
        if (work.from > 0) work.from += padded;
        if (work.to > 0) work.to += padded;
    }
    const bool fits = Fits(work.text, *shape);
    if (!fits) shape = ShapeOf(type, format, kDefaultDecimals);
    if (!fits || (work.from == 0 && work.to == shape->Length())) {
        work.text = shape->zero;
        work.SetCaret(0);
    } else if (work.to - work.from > 1) {
        work.text.replace(work.from, work.to - work.from, shape->zero, work.from, work.to - work.from);
    }
    Overtype overtype(*shape, std::move(work.text), work.from);
    if (!overtype.Type(key)) return false;
    overtype.Store(edit);
    return true;
}

}  // namespace quillon
