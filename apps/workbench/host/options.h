#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillon {

struct PixelSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// What the command line asks of the workbench.
struct WorkbenchOptions {
    std::filesystem::path drives;      ///< empty: the usual place
    bool sample = false;               ///< a copy of the sample job in place of the drives
    std::filesystem::path render;      ///< picture of the chart to write; empty: none
    std::filesystem::path screenshot;  ///< picture of the whole window to write; empty: none
    std::optional<PixelSize> size;
    bool night = false;
    std::vector<std::filesystem::path> files;  ///< to be added to the job

    bool MakesPicture() const { return !render.empty() || !screenshot.empty(); }
};

/// The options, or what the program ends with: a text for the reader and an exit code, 0 for help and version, 2 for a
/// wrong use.
struct ParsedOptions {
    std::optional<WorkbenchOptions> options;
    std::string text;
    int exitCode = 0;
};
inline constexpr int kWrongUse = 2;

ParsedOptions ParseOptions(int argc, const char* const* argv);

/// "1600x1000". Sides from 64 to 16384 pixels.
std::optional<PixelSize> ParseSize(const std::string& text);

}  // namespace quillon
