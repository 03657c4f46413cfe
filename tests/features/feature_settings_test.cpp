// The settings files of the features: every value differs from its default and from its neighbours, so that none can
// stand in for another.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "features/boundary.h"
#include "features/corridor.h"
#include "features/drawing_options.h"
#include "features/grid_waypoint.h"
#include "features/pipeline.h"
#include "features/rpl.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

template <class Settings>
struct SettingsLine {
    std::string line;
    void (*set)(Settings&);
};

/// The file whole, cut after each of its lines, and absent; then written.
template <class Settings, class Load, class Save>
void CheckFile(ScratchDrives& drives, const std::string& path, const std::vector<SettingsLine<Settings>>& lines,
               const Settings& withoutFile, const Settings& missingLines, Load load, Save save) {
    EXPECT_TRUE(load() == withoutFile) << "without a file";
    std::string bytes;
    Settings expected = missingLines;
    for (const auto& [line, set] : lines) {
        drives.Write(path, bytes);
        EXPECT_TRUE(load() == expected) << "cut before " << line;
        bytes += line + "\r\n";
        const Settings before = expected;
        set(expected);
        EXPECT_FALSE(expected == before) << line << " tells nothing";
    }
    drives.Write(path, bytes);
    EXPECT_TRUE(load() == expected);
    drives.Write(path, "rubbish");
    save(expected);
    EXPECT_EQ(drives.Read(path), bytes);
}

class FeatureSettings : public testing::Test {
protected:
    FeatureSettings() { drives.MakeFolder("C:\\MyData"); }
    ScratchDrives drives;
};

TEST_F(FeatureSettings, DrawingOptions) {
    using S = CDrawingOptions;
    drives.MakeFolder("C:\\Data");
    const std::vector<SettingsLine<S>> lines = {
        {"Vector Symbol = 11", [](S& s) { s.symbol = 11; }},
        {"Symbol Size = 2", [](S& s) { s.symbolSize = 2; }},
        {"Colour = 8421631", [](S& s) { s.pen.colour = RGB(255, 128, 128); }},
        {"Line Thickness = 6", [](S& s) { s.pen.thickness = 6; }},
        {"Fill = 65534", [](S& s) { s.pen.fill = kFillNone; }},
        {"Pen Style = 3", [](S& s) { s.pen.style = 3; }},
        {"Label Mode = 4", [](S& s) { s.labelMode = 4; }},
        {"Label Position = 5", [](S& s) { s.labelPosition = 5; }},
        {"Show Leg Label = 1", [](S& s) { s.showLegLabel = true; }},
    };
    S options;
    const auto load = [&] {
        options.symbol = 99;
        options.pen.colour = 1;
        options.LoadDrawing(drives, "C:\\Data\\", "Zone 1");
        return options;
    };
    CheckFile(drives, "C:\\Data\\Zone 1.DRW", lines, S(), S(), load,
              [&](S s) { s.SaveDrawing(drives, "C:\\Data\\", "Zone 1"); });
    EXPECT_TRUE(options.LoadDrawing(drives, "C:\\Data\\", "Zone 1"));
    EXPECT_FALSE(options.LoadDrawing(drives, "C:\\Data\\", "Zone 2"));
}

TEST_F(FeatureSettings, Corridor) {
    using S = CCorridor;
    const std::vector<SettingsLine<S>> lines = {
        {"Display Corridor = 1", [](S& s) { s.displayCorridor = true; }},
        {"Port Corridor Width = 12.346", [](S& s) { s.portWidth = 12.346; }},
        {"Starboard Corridor Width = 250.500", [](S& s) { s.starboardWidth = 250.5; }},
        {"Corridor Colour = 4294967295", [](S& s) { s.corridorColour = 0xFFFFFFFF; }},
        {"Corridor Fill = 65535", [](S& s) { s.fill = kFillSolid; }},
    };
    S corridor;
    CheckFile(
        drives, "C:\\MyData\\Routes\\Leg 7.COR", lines, S(), S(),
        [&] {
            corridor.portWidth = -1;
            corridor.LoadCorridor(drives, "Leg 7");
            return corridor;
        },
        [&](S s) { s.SaveCorridor(drives, "Leg 7"); });
}

TEST_F(FeatureSettings, Waypoints) {
    using S = WaypointSettings;
    const std::vector<SettingsLine<S>> lines = {
        {"Data Order = 8", [](S& s) { s.dataOrder = 8; }},
        {"Use = 1", [](S& s) { s.display = true; }},
        {"Clearance = 11.250", [](S& s) { s.clearance = 11.25; }},
        {"Tolerance = 26.500", [](S& s) { s.tolerance = 26.5; }},
        {"Symbol = 12", [](S& s) { s.symbol = 12; }},
        {"Colour = 128", [](S& s) { s.colour = RGB(128, 0, 0); }},
        {"Size = 5", [](S& s) { s.symbolSize = 5; }},
        {"Label Mode = 3", [](S& s) { s.labelMode = 3; }},
        {"Label Position = 4", [](S& s) { s.labelPosition = 4; }},
        {"Draw Rings = 1", [](S& s) { s.drawRings = true; }},
        {"No Rings = 7", [](S& s) { s.ringCount = 7; }},
        {"Ring Size Metres = 75.125", [](S& s) { s.ringSizeMetres = 75.125; }},
        {"Ring Size NM = 2.500", [](S& s) { s.ringSizeNm = 2.5; }},
        {"Ring Colour = 65280", [](S& s) { s.ringColour = RGB(0, 255, 0); }},
        {"Catenary Mode = 1", [](S& s) { s.catenaryMode = true; }},
    };
    S missing;
    missing.display = false;
    missing.clearance = missing.tolerance = missing.ringSizeMetres = missing.ringSizeNm = 0.0;
    missing.symbol = missing.ringCount = 0;
    missing.symbolSize = 0;
    CGridWaypoint waypoints(drives);
    waypoints.SetPath("C:\\Job\\Wrecks 1.csv");
    CheckFile(
        drives, "C:\\MySettings\\Host\\Wrecks_1_GRID_WAYPOINT.INI", lines, S(), missing,
        [&] {
            waypoints.dataOrder = 5;
            waypoints.LoadSettings();
            return static_cast<const S&>(waypoints);
        },
        [&](const S& s) {
            static_cast<S&>(waypoints) = s;
            waypoints.SaveSettings();
        });
}

TEST_F(FeatureSettings, WaypointsAreCorrected) {
    CGridWaypoint waypoints(drives);
    waypoints.SetPath("C:\\Job\\A.csv");
    const auto load = [&](const std::string& values) {
        std::string bytes;
        for (const char c : values) {
            if (c == ' ') {
                bytes += "\r\nkey = ";
            } else {
                bytes += c;
            }
        }
        drives.Write("C:\\MySettings\\Host\\A_GRID_WAYPOINT.INI", "key = " + bytes);
        waypoints.LoadSettings();
    };
    load("0 1 1 1 1 1 1 5 6 1 32767 1.7976931348623157e308 1.7976931348623157e308 1 1");
    EXPECT_EQ(waypoints.labelMode, 0);
    EXPECT_EQ(waypoints.labelPosition, 0);
    EXPECT_EQ(waypoints.ringCount, 1);
    EXPECT_EQ(waypoints.ringSizeMetres, 50.0);
    EXPECT_EQ(waypoints.ringSizeNm, 1.0);
    load("0 1 1 1 1 1 1 -1 -1 1 0 0 0 1 1");
    EXPECT_EQ(waypoints.labelMode, 0);
    EXPECT_EQ(waypoints.labelPosition, 0);
    EXPECT_EQ(waypoints.ringCount, 0);
    EXPECT_EQ(waypoints.ringSizeMetres, 0.0);
}

TEST_F(FeatureSettings, Pipeline) {
    using S = PipelineSettings;
    const std::vector<SettingsLine<S>> lines = {
        {"Data Order = 2", [](S& s) { s.dataOrder = 2; }},
        {"Use = 1", [](S& s) { s.use = true; }},
        {"Diameter = 36", [](S& s) { s.diameter = 36; }},
        {"Display Corridor = 1", [](S& s) { s.displayCorridor = true; }},
        {"Port Corridor = 150.250", [](S& s) { s.portCorridor = 150.25; }},
        {"Stdb Corridor = 75.500", [](S& s) { s.starboardCorridor = 75.5; }},
        {"Corridor Pen = 255, 2, 3, 65535",
         [](S& s) {
             s.corridorPen = {2, 3, 255, kFillSolid};
         }},
        {"Clearance = 11.500", [](S& s) { s.clearance = 11.5; }},
        {"Tolerance = 22.750", [](S& s) { s.tolerance = 22.75; }},
        {"Pipeline Pen = 8388736, 1, 6, 4",
         [](S& s) {
             s.linePen = {1, 6, RGB(128, 0, 128), 4};
         }},
        {"Start KP = -3.125", [](S& s) { s.startKp = -3.125; }},
        {"Increasing KPs = 0", [](S& s) { s.increasingKps = false; }},
        {"Label KPs = 0", [](S& s) { s.labelKps = false; }},
        {"KP Interval = 0.250", [](S& s) { s.kpInterval = 0.25; }},
    };
    S without;
    without.corridorPen = {.style = 5, .thickness = 0, .colour = 0x80, .fill = 0};
    S missing;
    missing.use = false;
    missing.portCorridor = missing.starboardCorridor = missing.clearance = missing.tolerance = missing.kpInterval = 0.0;
    missing.corridorPen = missing.linePen = {.style = 0, .thickness = 1, .colour = 0, .fill = 0};
    missing.labelKps = true;
    CPipeline pipeline(drives);
    EXPECT_EQ(static_cast<const S&>(pipeline).corridorPen, tagPen());
    pipeline.SetPath("C:\\Job\\Line A.csv");
    CheckFile(
        drives, "C:\\MySettings\\Host\\Line_A_PIPELINE.INI", lines, without, missing,
        [&] {
            pipeline.startKp = 77;
            pipeline.ReadSettings();
            return static_cast<const S&>(pipeline);
        },
        [&](const S& s) {
            static_cast<S&>(pipeline) = s;
            pipeline.WriteSettings();
        });
}

TEST_F(FeatureSettings, FlagsBesideTheDataFile) {
    CBoundary feature(drives);
    const auto flags = [&](const std::string& bytes) {
        drives.Write("C:\\Job\\Zone.INI", bytes);
        feature.SetPathAndLoad("C:\\Job\\Zone.txt");
        return std::pair(feature.Status, feature.Highlight);
    };
    EXPECT_EQ(flags("Status = 0\r\nHighlight = 1\r\n"), std::pair(false, true));
    feature.SaveCommon();
    EXPECT_EQ(drives.Read("C:\\Job\\Zone.INI"), "Status = 0\r\nHighlight = 1\r\n");
    EXPECT_EQ(flags("Status = 0\r\n"), std::pair(false, false));
    EXPECT_EQ(flags(""), std::pair(true, false));
    EXPECT_EQ(feature.GetFolder(), "C:\\Job\\");
    EXPECT_EQ(feature.GetName(), "Zone");
    feature.SetPathAndLoad("");
    EXPECT_EQ(feature.GetFolder() + feature.GetName() + feature.GetPath(), "");
    EXPECT_EQ(std::pair(feature.Status, feature.Highlight), std::pair(true, false));
}

// The flags of a data file that is called "INI" would lie in the data file.
TEST_F(FeatureSettings, FlagsNeverReplaceTheData) {
    constexpr std::string_view kData = "500000,6000000\r\n500100,6000100\r\n";
    drives.Write("C:\\Job\\Zone.ini", kData);
    CBoundary boundary(drives);
    EXPECT_TRUE(boundary.Read("C:\\Job\\Zone.ini"));
    EXPECT_TRUE(boundary.Status);
    boundary.SaveCommon();
    EXPECT_EQ(drives.Read("C:\\Job\\Zone.ini"), kData);
    EXPECT_FALSE(drives.Exists("C:\\Job\\Zone.INI") && drives.Read("C:\\Job\\Zone.INI") != kData);
}

TEST_F(FeatureSettings, RoutePositionList) {
    using S = RPLSettings;
    const std::vector<SettingsLine<S>> lines = {
        {"Use = 1", [](S& s) { s.use = true; }},
        {"Display Corridor = 1", [](S& s) { s.displayCorridor = true; }},
        {"Port Corridor = 150.250", [](S& s) { s.portCorridor = 150.25; }},
        {"Stdb Corridor = 75.500", [](S& s) { s.starboardCorridor = 75.5; }},
        {"Corridor Pen = 255, 2, 3, 65535",
         [](S& s) {
             s.corridorPen = {2, 3, 255, kFillSolid};
         }},
        {"Pipeline Pen = 8388736, 1, 6, 4",
         [](S& s) {
             s.linePen = {1, 6, RGB(128, 0, 128), 4};
         }},
        {"Diameter = 36", [](S& s) { s.diameter = 36; }},
        {"Clearance = 11.500", [](S& s) { s.clearance = 11.5; }},
        {"Tolerance = 22.750", [](S& s) { s.tolerance = 22.75; }},
    };
    S missing;
    missing.use = false;
    missing.portCorridor = missing.starboardCorridor = missing.clearance = missing.tolerance = 0.0;
    missing.corridorPen = missing.linePen = {.style = 0, .thickness = 1, .colour = 0, .fill = 0};
    CRPL rpl(drives);
    rpl.SetPath("C:\\Job\\Line A.csv");
    CheckFile(
        drives, "C:\\MySettings\\Host\\Line_A_RPL.INI", lines, S(), missing,
        [&] {
            rpl.diameter = 77;
            rpl.ReadSettings();
            return static_cast<const S&>(rpl);
        },
        [&](const S& s) {
            static_cast<S&>(rpl) = s;
            rpl.WriteSettings();
        });
}

}  // namespace
}  // namespace quillon
