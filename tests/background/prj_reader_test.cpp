#include "background/prj_reader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "foundation/angle_units.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// What a text makes of WGS 84 and an unnamed grid of type 0.
struct Outcome {
    CEllipsoid ellipsoid;
    CGrid grid;
    std::string transformation;
    bool geographic = false;
    std::string notes;

    explicit Outcome(std::string_view text) {
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        grid.ellipsoid = &ellipsoid;
        grid.Init();
        ShapeReport report;
        ReadProjectionText(text, {ellipsoid, grid, transformation, geographic}, &report);
        for (const auto& line : report.lines) notes += line.reason + "\n";
    }
};

const std::string kGeographic =
    "GEOGCS[\"GCS_European_1950\",DATUM[\"D_European_1950\",SPHEROID[\"International_1924\",6378388.0,297.0]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

std::string Projected(const std::string& projection, const std::string& parameters) {
    return "PROJCS[\"ED50_Zone_31\"," + kGeographic + ",PROJECTION[\"" + projection + "\"]," + parameters +
           ",UNIT[\"Meter\",1.0]]";
}
const std::string kParameters =
    "PARAMETER[\"false_easting\",500000.5],PARAMETER[\"False_Northing\",-20],PARAMETER[\"Central_Meridian\",3],"
    "PARAMETER[\"Scale_Factor\",0.9996],PARAMETER[\"Latitude_Of_Origin\",1.5]";

TEST(PrjReader, FillsEllipsoidAndGrid) {
    const Outcome tm(Projected("Transverse_Mercator", kParameters));
    EXPECT_EQ(tm.grid.name, "ED50 Zone 31");
    EXPECT_EQ(tm.transformation, "European 1950");
    EXPECT_EQ(tm.ellipsoid.name, "International 1924");
    EXPECT_EQ(tm.ellipsoid.rf, 297.0);
    EXPECT_EQ(tm.ellipsoid.b, (1 - 1 / 297.0) * 6378388.0);
    EXPECT_EQ(tm.grid.type, TRANSVERSE_MERCATOR);
    EXPECT_EQ(tm.grid.FE, 500000.5);
    EXPECT_EQ(tm.grid.FN, -20);
    EXPECT_EQ(tm.grid.k0, 0.9996);
    EXPECT_EQ(tm.grid.lat0, 1.5 * kRadiansPerDegree);
    EXPECT_EQ(tm.grid.lon0, 3 * kRadiansPerDegree);
    EXPECT_NE(tm.grid.M0, 0) << "the constants follow the parameters";
    EXPECT_FALSE(tm.geographic);
    EXPECT_EQ(tm.notes, "");

    const Outcome mercator(Projected("Mercator", "PARAMETER[\"Standard_Parallel_1\",42]"));
    EXPECT_EQ(mercator.grid.type, MERCATOR);
    EXPECT_EQ(mercator.grid.lat0, 42 * kRadiansPerDegree) << "of subtype 0 the parallel is the latitude of origin";
    EXPECT_EQ(mercator.grid.lat1, 0);

    const Outcome geographic(kGeographic);
    EXPECT_TRUE(geographic.geographic);
    EXPECT_EQ(geographic.grid.type, UTM_GRID);
    EXPECT_EQ(geographic.grid.lon0, CGrid().lon0);
}

TEST(PrjReader, TakesOddTextsAsTheyCome) {
    // The list of parameters must follow its projection: those before it are wiped.
    const Outcome before("PARAMETER[\"Central_Meridian\",3],PROJECTION[\"Transverse_Mercator\"],UNIT[\"Meter\",1.0]]");
    EXPECT_EQ(before.grid.lon0, 0);
    const Outcome unknown(Projected("Hotine_Oblique_Mercator_Azimuth_Center", kParameters));
    EXPECT_EQ(unknown.grid.type, MERCATOR) << "its name holds that word";
    const Outcome lambert(Projected("Lambert_Conformal_Conic",
                                    "PARAMETER[\"Standard_Parallel_2\",7],"
                                    "PARAMETER[\"Central_Meridian\",10]"));
    EXPECT_EQ(lambert.grid.type, UTM_GRID);
    EXPECT_EQ(lambert.grid.lon0, 10 * kRadiansPerDegree);
    EXPECT_EQ(lambert.grid.k0, 1);
    EXPECT_EQ(lambert.notes, "the .prj names a projection that isn't known: Lambert_Conformal_Conic\n");
    // A sphere as ESRI writes it, and an authority in every place where one may stand.
    EXPECT_EQ(Outcome("SPHEROID[\"Sphere\",6371000.0,0.0],").ellipsoid.rf, 297.0);
    const Outcome authorities(
        "PROJCS[\"OSGB\",GEOGCS[\"OSGB36\",DATUM[\"OSGB_1936\",SPHEROID[\"Airy\",6377563.4,299.32,AUTHORITY[\"EPSG\","
        "\"7001\"]"
        "],AUTHORITY[\"EPSG\",\"6277\"]],PRIMEM[\"Greenwich\",0,AUTHORITY[\"EPSG\",\"8901\"]],UNIT[\"degree\",0.01745],"
        "AUTHORITY[\"EPSG\",\"4277\"]],PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"scale_factor\",0.9996],"
        "UNIT[\"metre\",1],AUTHORITY[\"EPSG\",\"27700\"]]");
    EXPECT_EQ(authorities.ellipsoid.rf, 299.32);
    EXPECT_EQ(authorities.transformation, "OSGB 1936");
    EXPECT_EQ(authorities.grid.k0, 0.9996);
    EXPECT_EQ(authorities.grid.type, TRANSVERSE_MERCATOR);
}

TEST(PrjReader, ReportsTheFormOfTheText) {
    struct Row {
        std::string text;
        const char* datum;
        const char* notes;
    };
    const std::string utf16("\xFF\xFEG\0E\0O\0[\0", 10);
    const Row rows[] = {
        {"\xEF\xBB\xBF" + kGeographic + "\r\n", "European 1950", "the .prj begins with a byte order mark\n"},
        {utf16, "", "the .prj is no plain text\n"},
        {"", "", "the .prj holds no projection\n"},
        {Replace(Replace(kGeographic, "[", "("), "]", ")"), "", "the .prj holds no projection\n"},
        {kGeographic.substr(0, 60), "European 1950", "the brackets of the .prj don't pair\n"},
        {kGeographic + "]", "European 1950", "the brackets of the .prj don't pair\n"},
        {kGeographic.substr(0, 27) + "\n" + kGeographic.substr(27), "GCS European 1950",
         "the brackets of the .prj don't pair\nthe .prj goes on behind its first line, which alone counts\n"},
    };
    for (const Row& row : rows) {
        const Outcome outcome(row.text);
        EXPECT_EQ(outcome.transformation, row.datum) << row.text;
        EXPECT_EQ(outcome.notes, row.notes) << row.text;
        EXPECT_TRUE(outcome.geographic);
    }
}

// Keywords without an end used to be searched for it again and again.
TEST(PrjReader, TakesLongTextsInTimeInLineWithTheirLength) {
    std::string text;
    while (text.size() < 1'000'000) text += "PARAMETER[\"False_Easting\",";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Outcome(text).grid.FE, 500000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace quillon
