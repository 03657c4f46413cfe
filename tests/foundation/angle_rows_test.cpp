#include "foundation/angle_rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "foundation/angle_display.h"
#include "foundation/angle_entry.h"
#include "foundation/angle_units.h"
#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr double kRefused = 999;

double Read(std::string_view text, int type, int format = ANGLE_DEGREES_MINUTES) {
    double degrees = kRefused;
    ReadAngle(text, type, format, degrees);
    return degrees;
}

TEST(AngleEntry, TakesWhatSurveyorsWrite) {
    const struct {
        const char* text;
        int type;
        double degrees;
    } rows[] = {
        {"52 07 24.4N", ANGLE_LATITUDE, 52 + 7 / 60.0 + 24.4 / 3600},
        {"N52\xB0 07' 24.4\"", ANGLE_LATITUDE, 52 + 7 / 60.0 + 24.4 / 3600},
        {"52\xB0 07' 24\".4N", ANGLE_LATITUDE, 52 + 7 / 60.0 + 24.4 / 3600},
        {"52:07:24.4", ANGLE_LATITUDE, 52 + 7 / 60.0 + 24.4 / 3600},
        {"  52 07.5 s ", ANGLE_LATITUDE, -52.125},
        {"002\xB0 30'.00W", ANGLE_LONGITUDE, -2.5},
        {"-2.5", ANGLE_LONGITUDE, -2.5},
        {"-2\xB0.5000", ANGLE_LONGITUDE, -2.5},
        {"+ 0 30", ANGLE_LONGITUDE, 0.5},
        {"360", ANGLE_BEARING, 360},
        {".5", ANGLE_BEARING, 0.5},
        {"100g", ANGLE_BEARING, 90},
        {"-0", ANGLE_BEARING, 0},
        {"-0 30", ANGLE_SIGNED_90, -0.5},
        // No angle, or none of the type.
        {"", ANGLE_BEARING, kRefused},
        {".", ANGLE_BEARING, kRefused},
        {"52,5", ANGLE_LATITUDE, kRefused},
        {"1e1", ANGLE_LATITUDE, kRefused},
        {"nan", ANGLE_LATITUDE, kRefused},
        {"52 60", ANGLE_LATITUDE, kRefused},
        {"52 7 60", ANGLE_LATITUDE, kRefused},
        {"52.5 7", ANGLE_LATITUDE, kRefused},
        {"52 7 24 1", ANGLE_LATITUDE, kRefused},
        {"52' 7", ANGLE_LATITUDE, kRefused},
        {"52: 7:", ANGLE_LATITUDE, kRefused},
        {"90 00 00.01", ANGLE_LATITUDE, kRefused},
        {"52E", ANGLE_LATITUDE, kRefused},
        {"N52N", ANGLE_LATITUDE, kRefused},
        {"-52S", ANGLE_LATITUDE, kRefused},
        {"180.1", ANGLE_LONGITUDE, kRefused},
        {"-1", ANGLE_BEARING, kRefused},
        {"5N", ANGLE_BEARING, kRefused},
        {"5", 0, kRefused},
    };
    for (const auto& row : rows) EXPECT_NEAR(Read(row.text, row.type), row.degrees, 1e-12) << row.text;
    EXPECT_NEAR(Read("100", ANGLE_BEARING, ANGLE_GRADS), 90, 1e-12);
    EXPECT_NEAR(Read("100\xB0", ANGLE_BEARING, ANGLE_GRADS), 100, 1e-12);
}

// Whatever the notation shows is read back as the same angle, to the decimals shown.
TEST(AngleEntry, ReadsEveryNotationBack) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> share(0, 1);
    const struct {
        int type;
        double lowest, highest;
    } types[] = {{ANGLE_SIGNED_180, -180, 180}, {ANGLE_BEARING, 0, 360},      {ANGLE_SIGNED_90, -90, 90},
                 {ANGLE_LATITUDE, -90, 90},     {ANGLE_LONGITUDE, -180, 180}, {ANGLE_BEARING_SHORT, 0, 360}};
    for (const auto& type : types) {
        for (int format = 0; format < kAngleFormatCount; format++) {
            for (int i = 0; i < 200; i++) {
                const double degrees = type.lowest + (type.highest - type.lowest) * share(random);
                const std::string text = FormatAngle(degrees * kRadiansPerDegree, type.type, format, 7);
                EXPECT_NEAR(Read(text, type.type, format), degrees, 1e-7) << text;
            }
        }
    }
}

class AngleRows : public testing::Test {
protected:
    void Choose(int format, int decimals) {
        ASSERT_TRUE(WriteGeographicalsSettings(platform.Files(), {format, decimals, 'N', 'E'}));
        ASSERT_TRUE(WriteAngleSettings(platform.Files(), {format, decimals}));
    }

    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    CWnd pane{platform};
    CMyMFCPropertyGridCtrl list{pane, 1};
};

TEST_F(AngleRows, FollowTheNotationOfTheSettings) {
    auto& lat = list.Add<CMFCPropertyGridAngleProperty>("Latitude", 52.5 * kRadiansPerDegree, ANGLE_LATITUDE, "", 1u);
    auto& heading = list.Add<CMFCPropertyGridAngleDouble>("Heading", 123.456, AS_FULL, "", 2u);
    auto& brief = list.Add<CMFCPropertyGridAngleDouble>("Heading", 123.456, AS_SHORT, "", 3u);
    EXPECT_EQ(lat.GetKind(), ROW_KIND::ANGLE);
    EXPECT_EQ(lat.FormatProperty(), "52\xB0 30'.0000000N");
    Choose(ANGLE_DEGREES, 4);
    EXPECT_EQ(lat.FormatProperty(), "52\xB0.5000N");
    EXPECT_EQ(heading.FormatProperty(), "123\xB0.4560");
    EXPECT_EQ(brief.FormatProperty(), "123\xB0.46");
    Choose(99, 3);
    EXPECT_EQ(lat.FormatProperty(), "52\xB0 30'.000N");

    EXPECT_TRUE(user::Type(list, lat, "12 30 36S"));
    EXPECT_NEAR(lat.Get<double>(), -12.51 * kRadiansPerDegree, 1e-14);
    EXPECT_FALSE(user::Type(list, lat, "91"));
    EXPECT_TRUE(user::Type(list, heading, "45 30"));
    EXPECT_EQ(heading.Get<double>(), 45.5) << "degrees stay degrees";
    EXPECT_FALSE(user::Type(list, heading, "361"));
    EXPECT_FALSE(user::Edit(list, heading, std::nan("")));
}

// A row that is opened and left with what it shows has moved nothing, even at no decimals at all.
TEST_F(AngleRows, WhatIsShownMovesNothing) {
    const double held = 52.123456789 * kRadiansPerDegree;
    auto& lat = list.Add<CMFCPropertyGridAngleProperty>("Latitude", held, ANGLE_LATITUDE, "", 1u);
    const CMFCPropertyGridAngleProperty alone("Zenith", 0.5, ANGLE_ZENITH, "", 2u);
    for (int format = 0; format < kAngleFormatCount; format++) {
        for (const int decimals : {0, 3}) {
            Choose(format, decimals);
            user::Type(list, lat, lat.FormatProperty());
            EXPECT_EQ(lat.Get<double>(), held) << lat.FormatProperty();
        }
    }
    RowValue parsed;
    ASSERT_TRUE(alone.Parse("30", parsed)) << "without a list too";
    EXPECT_NEAR(std::get<double>(parsed), 60 * kRadiansPerDegree, 1e-12);
}

}  // namespace
}  // namespace quillon
