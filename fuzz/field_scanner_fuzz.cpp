// The first byte chooses the separator; the rest is a line, taken apart as numbers, as texts and as both by turns.

#include "foundation/field_scanner.h"

#include <cstdint>
#include <cstdlib>

#include "foundation/delimited_line.h"

namespace {

using quillon::FieldScanner;

void Require(bool held) {
    if (!held) std::abort();
}

enum WAY { NUMBERS, TEXTS, BY_TURNS };

/// Every field takes something of the line, so that the end is reached.
void TakeAll(std::string_view line, char separator, WAY way) {
    FieldScanner fields(line, separator);
    quillon::CDelimitedLine copy;
    copy.SetSeparator(separator);
    copy.Fill(line);
    for (std::size_t i = 0; !fields.IsEmpty(); ++i) {
        const std::size_t before = fields.Rest().size();
        if (way == NUMBERS || (way == BY_TURNS && i % 2 == 0)) {
            const double number = fields.NextNumber();
            Require(number == copy.NextNumber());
        } else {
            Require(fields.NextString() == copy.NextString());
        }
        Require(fields.Rest().size() < before);
        Require(fields.Rest() == copy.GetText());
    }
    Require(quillon::IsMissing(fields.NextNumber()) && fields.IsEndReached());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const char separator = input.front();
    const std::string_view line = input.substr(1);
    for (const WAY way : {NUMBERS, TEXTS, BY_TURNS}) TakeAll(line, separator, way);

    quillon::CDelimitedLine detected;
    detected.SetLine(line);
    detected.DetectSeparators();
    while (!detected.IsEmpty()) detected.NextString();

    quillon::CDelimitedLine built;
    built.AddString(line);
    built.AddString(line, true);
    Require(built.Finish().size() >= 2);
    return 0;
}
