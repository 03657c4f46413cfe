#include "angle_command.h"

#include <cmath>
#include <cstdint>
#include <istream>
#include <memory>
#include <ostream>
#include <string>

#include "foundation/angle_text.h"
#include "number_lines.h"
#include "platform/text.h"
#include "printable.h"

namespace quillon {
namespace {

struct AngleOptions {
    int type = 0;
    int format = 0;
    int decimals = kDefaultDecimals;
    std::string hemisphere;
};

void PrintAngles(CliContext& context, const AngleOptions& options) {
    const char letter = options.hemisphere.empty() ? '\0' : HemisphereLetter(options.hemisphere.front());
    std::uint64_t number = 0;
    for (std::string line; std::getline(context.in, line);) {
        ++number;
        double radians = 0;
        if (!ScanNumber(Trim(line), radians) || !std::isfinite(radians)) {
            context.err << "line " << number << ": not a number: " << PrintableUtf8(line.substr(0, 60)) << '\n';
            context.out << "nan\n";
            context.result = CLI_USELESS;
            continue;
        }
        const std::string text =
            FormatAngle(radians, options.type, options.format, options.decimals, letter, &context.Files());
        context.out << Utf8FromText(text) << '\n';
    }
}

}  // namespace

void AddAngleCommand(CLI::App& app, CliContext& context) {
    const auto options = std::make_shared<AngleOptions>();
    CLI::App& angle = *app.add_subcommand("angle", "Print angles: radians, one a line, from standard input");
    angle.add_option("--type", options->type, "1 to 9; 5 is a latitude, 6 a longitude, 2 and 7 are bearings")
        ->required()
        ->check(CLI::Range(1, 9));
    angle.add_option("--format", options->format, "0 to 4 a notation, 5 the one of the settings")
        ->required()
        ->check(CLI::Range(0, 5));
    angle.add_option("--decimals", options->decimals, "0 to 32; the notation's own if not given")
        ->check(CLI::Range(0, 32));
    angle.add_option("--hemisphere", options->hemisphere, "Letter of an angle of exactly 0")
        ->check(CLI::IsMember({"N", "S", "E", "W", "n", "s", "e", "w"}));
    angle.footer(
        "A line that is no number gives \"nan\" and is named on stderr; the exit code is then 1.\n\n"
        "Example:\n  echo 0.916297857297023 | quillon angle --type 5 --format 1 --decimals 4");
    angle.callback([&context, options] { PrintAngles(context, *options); });
}

}  // namespace quillon
