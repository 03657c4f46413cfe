#include "host/options.h"

#include <CLI/CLI.hpp>
#include <charconv>

namespace quillon {
namespace {

constexpr int kLeastSide = 64;
constexpr int kGreatestSide = 16384;

constexpr const char* kAbout =
    "Quillon workbench: the reference data of an offshore job, on a chart and in panes.\n"
    "Without an option it opens the job in your drives folder. Files that are named are added to the job.";

bool ParseSide(const std::string& text, int& side) {
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, side);
    return error == std::errc() && stopped == end && side >= kLeastSide && side <= kGreatestSide;
}

std::string CheckSize(const std::string& text) {
    return ParseSize(text) ? std::string() : "a size is WIDTHxHEIGHT with sides from 64 to 16384, such as 1600x1000";
}

std::string CheckPicture(const std::string& text) {
    return std::filesystem::path(text).extension() == ".png" ? std::string() : "a picture's name ends in .png";
}

}  // namespace

std::optional<PixelSize> ParseSize(const std::string& text) {
    const std::size_t by = text.find('x');
    PixelSize size;
    if (by == std::string::npos || !ParseSide(text.substr(0, by), size.width) ||
        !ParseSide(text.substr(by + 1), size.height)) {
        return std::nullopt;
    }
    return size;
}

ParsedOptions ParseOptions(int argc, const char* const* argv) {
    WorkbenchOptions options;
    std::string drives, render, screenshot, size;
    CLI::App app(kAbout, "quillon-workbench");
    app.set_version_flag("--version", "quillon-workbench " QUILLON_VERSION);
    auto* const drivesOption =
        app.add_option("--drives", drives, "Folder whose subfolders c, d and e are the drives C:, D: and E:")
            ->type_name("DIR");
    app.add_flag("--sample", options.sample, "Open a throw-away copy of the sample job")->excludes(drivesOption);
    auto* const renderOption =
        app.add_option("--render", render, "Draw the chart to a picture and end; needs no display")
            ->type_name("FILE.png")
            ->check(CheckPicture);
    auto* const screenshotOption =
        app.add_option("--screenshot", screenshot, "Draw the whole window to a picture and end; needs no display")
            ->type_name("FILE.png")
            ->check(CheckPicture)
            ->excludes(renderOption);
    app.add_option("--size", size, "Size of the picture or of the window, in pixels")
        ->type_name("WxH")
        ->check(CheckSize);
    app.add_flag("--night", options.night, "Start in night colours");
    std::vector<std::string> files;
    app.add_option("FILE", files, "Data files to add to the job")
        ->type_name("")
        ->excludes(renderOption)
        ->excludes(screenshotOption);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& wanted) {
        const bool version = wanted.get_name() == "CallForVersion";
        return {std::nullopt, version ? std::string(wanted.what()) + '\n' : app.help(), 0};
    } catch (const CLI::ParseError& error) {
        return {std::nullopt, std::string(error.what()) + "\nRun with --help for the options.\n", kWrongUse};
    }
    options.drives = drives;
    options.render = render;
    options.files.assign(files.begin(), files.end());
    options.screenshot = screenshot;
    if (!size.empty()) options.size = ParseSize(size);
    return {options, {}, 0};
}

}  // namespace quillon
