#include "foundation/angle_display.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/angle_units.h"
#include "foundation/config_file.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

/// The two settings files in the hands of the test.
class AngleDisplay : public testing::Test {
protected:
    void Put(const char* name, std::string_view text) {
        CConfigFile file(files);
        ASSERT_TRUE(file.OpenSettingsForWrite(name));
        file.WriteLine(text);
        ASSERT_TRUE(file.Commit());
    }
    std::string Show(double degrees, int type) {
        const std::string text =
            FormatAngle(degrees * kRadiansPerDegree, type, ANGLE_BY_SETTINGS, kDefaultDecimals, 0, &files);
        return Replace(text, "\xB0", "d");
    }

    ScratchDrives drives;
    FileSystem& files = drives.Files();
};

TEST_F(AngleDisplay, FollowsTheSettingsOfTheType) {
    EXPECT_EQ(Show(-2.5, ANGLE_LATITUDE), "02d 30'.0000000S");  // no files yet
    EXPECT_EQ(Show(2.5, ANGLE_BEARING), "002d 30'.0000000");
    EXPECT_EQ(FormatAngle(0.0, ANGLE_LONGITUDE, ANGLE_BY_SETTINGS), "000\xB0 00'.0000000E");

    Put("Angle Settings", "Format = 2\nDecimals = 3\n");
    Put("Geographicals Settings", "Format = 0\nDecimals = 1\nA = s\nB = W\n");
    EXPECT_EQ(Show(2.5, ANGLE_BEARING), "002d.500");
    EXPECT_EQ(Show(2.5, ANGLE_LATITUDE), "02d 30' 00\".0N");
    EXPECT_EQ(Show(0.0, ANGLE_LATITUDE), "00d 00' 00\".0S");
    EXPECT_EQ(Show(0.0, ANGLE_LONGITUDE), "000d 00' 00\".0W");

    // Read again at every call.
    Put("Geographicals Settings", "Format = 4\nDecimals = -1\n");
    EXPECT_EQ(Show(9.0, ANGLE_LATITUDE), "010g.000000000N");
    EXPECT_EQ(Show(0.0, ANGLE_LATITUDE), "000g.000000000N");  // no letter chosen
}

// The letters are left alone for what has none, and blank where the file stops before them.
TEST_F(AngleDisplay, Letters) {
    int format = 0, decimals = 0;
    char hemisphere = 'x';
    ReadAngleDisplay(ANGLE_BEARING, format, decimals, hemisphere, &files);
    EXPECT_EQ(hemisphere, 'x');
    ReadAngleDisplay(ANGLE_LONGITUDE, format, decimals, hemisphere, &files);
    EXPECT_EQ(hemisphere, 'E');
    Put("Geographicals Settings", "Format = 0\nDecimals = 1\nA = S\n");
    ReadAngleDisplay(ANGLE_LATITUDE, format, decimals, hemisphere, &files);
    EXPECT_EQ(hemisphere, 'S');
    ReadAngleDisplay(ANGLE_LONGITUDE, format, decimals, hemisphere, &files);
    EXPECT_EQ(hemisphere, ' ');
}

// The files as other programs of the system read them: the order of the lines counts.
TEST_F(AngleDisplay, WritesWhatItReads) {
    const tagAngleDisplay positions{ANGLE_DEGREES, 4, 'S', 'W'};
    ASSERT_TRUE(WriteGeographicalsSettings(files, positions));
    EXPECT_EQ(ReadGeographicalsSettings(&files), positions);
    const tagAngleDisplay angles{ANGLE_GRADS, 2};
    ASSERT_TRUE(WriteAngleSettings(files, angles));
    EXPECT_EQ(ReadAngleSettings(&files), angles);

    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\Geographicals_Settings.INI"),
              "Format = 2\r\nDecimals = 4\r\nNorth South = S\r\nEast West = W\r\n");
}

}  // namespace
}  // namespace quillon
