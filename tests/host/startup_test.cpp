#include "host/startup.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace quillon {
namespace {

namespace fs = std::filesystem;

ParsedOptions Parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "quillon-workbench");
    return ParseOptions(static_cast<int>(arguments.size()), arguments.data());
}

TEST(OptionsTest, TakesWhatMakesSense) {
    const auto options = Parse({"--drives", "/srv/job", "--screenshot", "a.png", "--size", "1600x1000", "--night"});
    ASSERT_TRUE(options.options) << options.text;
    EXPECT_EQ(options.options->drives, "/srv/job");
    EXPECT_EQ(options.options->screenshot, "a.png");
    EXPECT_EQ(options.options->size, (PixelSize{1600, 1000}));
    EXPECT_TRUE(options.options->night);
    EXPECT_TRUE(options.options->MakesPicture());
    EXPECT_FALSE(Parse({}).options->MakesPicture());
    EXPECT_EQ(Parse({"--night", "a.csv", "b.dxf"}).options->files,
              (std::vector<std::filesystem::path>{"a.csv", "b.dxf"}));
}

TEST(OptionsTest, RefusesTheRestWithExitCodeTwo) {
    const std::vector<std::vector<const char*>> wrong = {
        {"--size", "1600"},
        {"--size", "1600x"},
        {"--size", "63x64"},
        {"--size", "99999x64"},
        {"--size", "1600x1000px"},
        {"--render", "a.jpg"},
        {"--render"},
        {"--sample", "--drives", "/srv"},
        {"--bogus"},
        {"a.csv", "--render", "b.png"},
        {"--render", "a.png", "--screenshot", "b.png"},
    };
    for (const auto& arguments : wrong) {
        const ParsedOptions parsed = Parse(arguments);
        EXPECT_FALSE(parsed.options) << arguments.back();
        EXPECT_EQ(parsed.exitCode, kWrongUse) << arguments.back();
        EXPECT_FALSE(parsed.text.empty()) << arguments.back();
    }
}

TEST(StartupTest, ChoosesWhereToDraw) {
    WorkbenchOptions window, render, screenshot;
    render.render = "a.png";
    screenshot.screenshot = "a.png";
    EXPECT_EQ(ChooseToolkitPlatform(window, DISPLAY_KIND::X11, false), "xcb;wayland");
    EXPECT_EQ(ChooseToolkitPlatform(window, DISPLAY_KIND::WAYLAND, false), "wayland");
    EXPECT_EQ(ChooseToolkitPlatform(window, DISPLAY_KIND::NONE, false), "offscreen");
    EXPECT_EQ(ChooseToolkitPlatform(window, DISPLAY_KIND::X11, true), "") << "the user's own choice stands";
    EXPECT_EQ(ChooseToolkitPlatform(render, DISPLAY_KIND::X11, true), "offscreen") << "a dead display must not matter";
    EXPECT_EQ(ChooseToolkitPlatform(screenshot, DISPLAY_KIND::X11, true), "");
    EXPECT_EQ(ChooseToolkitPlatform(screenshot, DISPLAY_KIND::X11, false), "offscreen");
}

TEST(StartupTest, ADisplayThatDoesNotAnswerIsNone) {
    ::setenv("DISPLAY", ":9876", 1);
    ::setenv("WAYLAND_DISPLAY", "/nowhere/wayland-0", 1);
    EXPECT_EQ(FindDisplay(), DISPLAY_KIND::NONE);
    ::unsetenv("DISPLAY");
    ::unsetenv("WAYLAND_DISPLAY");
    EXPECT_EQ(FindDisplay(), DISPLAY_KIND::NONE);
}

TEST(StartupTest, DrivesFollowTheDataFolder) {
    ::setenv("XDG_DATA_HOME", "/srv/data", 1);
    EXPECT_EQ(DefaultDrives(), "/srv/data/quillon/drives");
    ::setenv("XDG_DATA_HOME", "relative", 1);
    ::setenv("HOME", "/home/anna", 1);
    EXPECT_EQ(DefaultDrives(), "/home/anna/.local/share/quillon/drives") << "a relative folder is none";
}

TEST(StartupTest, TheSampleIsACopyThatCanBeWrittenAndGoes) {
    const fs::path sample = FindSampleJob("/nowhere/bin/quillon-workbench");
    ASSERT_FALSE(sample.empty());
    fs::path drives;
    {
        const ScratchJob scratch(sample);
        drives = scratch.Drives();
        std::ofstream list(drives / "c/MySettings/Quillon/Boundary_List.INI");
        EXPECT_TRUE(list << "changed");
    }
    EXPECT_FALSE(fs::exists(drives));
    EXPECT_GT(fs::file_size(sample / "c/MySettings/Quillon/Boundary_List.INI"), 10u);
    EXPECT_THROW(ScratchJob("/nowhere"), fs::filesystem_error);
}

}  // namespace
}  // namespace quillon
