#include "foundation/number_scan.h"

#include <string_view>

#include "platform/text.h"

namespace quillon {
namespace {

const char* SkipDigits(const char* p, const char* end) {
    while (p != end && *p >= '0' && *p <= '9') ++p;
    return p;
}

const char* SkipSign(const char* p, const char* end) {
    return p != end && (*p == '-' || *p == '+') ? p + 1 : p;
}

}  // namespace

const char* TakeAnyNumber(const char* const p, const char* const end, double& value) {
    const char* const whole = SkipSign(p, end);
    const char* q = SkipDigits(whole, end);
    std::ptrdiff_t digits = q - whole;
    if (q != end && *q == '.') {
        const char* const decimals = q + 1;
        q = SkipDigits(decimals, end);
        digits += q - decimals;
    }
    if (digits == 0) return nullptr;
    if (q != end && (*q == 'e' || *q == 'E')) {
        const char* const exponent = SkipSign(q + 1, end);
        if (const char* const behind = SkipDigits(exponent, end); behind != exponent) q = behind;
    }
    value = Atof(std::string_view(p, static_cast<std::size_t>(q - p)));
    return q;
}

}  // namespace quillon
