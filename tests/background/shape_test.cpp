#include "background/shape.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <limits>
#include <ostream>
#include <random>
#include <set>
#include <thread>

#include "background/load_shape.h"
#include "background/load_thread.h"
#include "background/path_lengths.h"
#include "background/shape_file_list.h"
#include "foundation/angle_units.h"
#include "frame/messages.h"
#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"
#include "support/shape_bytes.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kWgs84 =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],"
    "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
constexpr const char* kUtm =
    "PROJCS[\"WGS_1984_UTM_Zone_32N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
    "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"]"
    ","
    "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],PARAMETER[\"Central_Meridian\",9.0],"
    "PARAMETER[\"Scale_Factor\",0.9996],PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]";

std::string Text(const ShapeReport& report) {
    std::string text;
    for (const ShapeReport::Line& line : report.lines) text += std::to_string(line.record) + " " + line.reason + "\n";
    return text;
}

/// A coast of two lines, a null record and a point of a table with names.
class Shape : public testing::Test {
protected:
    Shape() {
        coast.AddPaths(SHAPE_POLYLINE, {{{5, 60}, {5.5, 60}, {5.5, 61}}, {{6, 61}, {6, 61.5}}});
        coast.AddNull();
        coast.AddPaths(SHAPE_POLYLINE, {{{7, 58}, {7.25, 58.125}}});
        coast.SetBounds({5, 58}, {7.25, 61.5});
    }
    void WriteCoast() {
        drives.Write("C:\\Charts\\coast.shp", coast.Shp());
        drives.Write("C:\\Charts\\coast.shx", coast.Shx());
        drives.Write("C:\\Charts\\coast.prj", kWgs84);
        drives.Write("C:\\Charts\\coast.dbf", DbaseBytes({"ID", "Textstring", "ELEVENCHARS"},
                                                         {{"1", "West \xF8", ""}, {"2", " ", ""}, {"3", "East", "z"}}));
    }
    std::set<std::string> Files() {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(drives.Files().Native("C:\\Charts"))) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
    bool Load(CShape& shape, std::string_view path = "C:\\Charts\\coast.shp") {
        shape.SetPath(path);
        report = {};
        return LoadShape(shape, progress, &report);
    }

    ScratchDrives drives;
    ShapeBytes coast{SHAPE_POLYLINE};
    LoadProgress progress;
    ShapeReport report;
};

TEST_F(Shape, HoldsRecordsColumnsAndProjection) {
    WriteCoast();
    CShape shape(drives);
    ASSERT_TRUE(Load(shape));
    ASSERT_EQ(shape.records.size(), 3U);
    const ShapeRecord& line = shape.records[0];
    EXPECT_EQ(shape.shapeType, SHAPE_POLYLINE);
    EXPECT_EQ(line.type, SHAPE_POLYLINE);
    EXPECT_THAT(line.X(), ElementsAre(5, 5.5, 5.5, 6, 6));
    EXPECT_THAT(line.Y(), ElementsAre(60, 60, 61, 61, 61.5));
    EXPECT_THAT(line.PartStarts(), ElementsAre(0, 3));
    EXPECT_THAT(line.PartTypes(), ElementsAre(5, 5));
    EXPECT_THAT(line.Z(), IsEmpty());
    EXPECT_EQ(shape.records[1].type, SHAPE_NULL);
    EXPECT_EQ(shape.records[1].length, 0);
    EXPECT_EQ(shape.records[2].GetVertexCount(), 2U);
    EXPECT_EQ(shape.boundsMax[1], 61.5);
    // GeodSolve -i of GeographicLib 2.1.2, leg by leg; the step from one part to the next counts.
    EXPECT_NEAR(line.length, 27899.9344 + 111420.7279 + 27053.6734 + 55716.6284, 3e-4);
    EXPECT_NEAR(shape.GetTotalLength(), line.length + 20288.2462, 1e-4);
    EXPECT_THAT(shape.dbase.columns, ElementsAre("ID", "Textstring", "ELEVENCHARS"));
    EXPECT_TRUE(shape.geographic);
    EXPECT_EQ(shape.conversion.transformationName, "WGS 1984");
    EXPECT_EQ(Text(report), "2 a null record\n");
    EXPECT_EQ(report.taken, 2U);
    EXPECT_EQ(progress.GetPosition(), 3U);
}

TEST_F(Shape, ReadsAttributeValuesWhenTheyAreAskedFor) {
    WriteCoast();
    CAttributeReader values(OpenerOf(drives.Files()), "C:\\Charts\\coast");
    EXPECT_EQ(values.GetText(0, 1), "West \xF8");
    EXPECT_EQ(values.GetText(2, 2), "z");
    EXPECT_EQ(values.GetText(1, 1) + values.GetText(3, 0) + values.GetText(-1, 0) + values.GetText(0, 3), "");
    drives.Write("C:\\Charts\\utf.dbf", DbaseBytes({"N"}, {{"Sm\xC3\xB8rbukk"}}));
    drives.Write("C:\\Charts\\utf.cpg", "UTF-8\n");
    EXPECT_EQ(CAttributeReader(OpenerOf(drives.Files()), "C:\\Charts\\utf").GetText(0, 0), "Sm\xF8rbukk");
    EXPECT_EQ(CAttributeReader(OpenerOf(drives.Files()), "C:\\Charts\\none").GetText(0, 0), "");
}

TEST_F(Shape, LabelsByTheTextColumnFromItsFirstLoad) {
    WriteCoast();
    const std::set<std::string> before = Files();
    CShapeFileList list(drives);
    ASSERT_TRUE(LoadShapeFile("C:\\Charts\\coast.shp", list));
    CShape shape(drives);
    ASSERT_TRUE(Load(shape));
    const std::string settings =
        "Status = 1\r\nStyle = 0\r\nSize = 1\r\nColour = 8421504\r\nFill = 0\r\nLabel Mode = 0\r\nLabel Position = "
        "0\r\n"
        "Label Column = 1\r\nIcon Mode = 0\r\n";
    EXPECT_EQ(drives.Read("C:\\Charts\\coast.INI"), settings);
    std::set<std::string> after = Files();
    EXPECT_EQ(after.erase("coast.INI"), 1U);
    EXPECT_EQ(after, before);

    // A file that says so already is left alone; a cut one gives the defaults for what it lacks.
    const std::string own =
        "x = 0\r\nx = 2\r\nx = 3\r\nx = 4278190335\r\nx = 4\r\nx = 5\r\nx = 6\r\nx = 1\r\nx = 7\r\n";
    drives.Write("C:\\Charts\\coast.INI", own);
    ASSERT_TRUE(Load(shape));
    const ShapeOptions expected{false, {2, 3, 0xFF0000FF, 4}, 5, 6, 1, true};
    EXPECT_EQ(static_cast<const ShapeOptions&>(shape), expected);
    EXPECT_EQ(drives.Read("C:\\Charts\\coast.INI"), own);
    drives.Write("C:\\Charts\\coast.INI", "x = 0\r\nx = 2\r\nno sign\r\n");
    shape.ReadSettings();
    const ShapeOptions cut{.status = false, .pen = {.style = 2, .thickness = 1, .colour = 0x808080, .fill = 0}};
    EXPECT_EQ(static_cast<const ShapeOptions&>(shape), cut);
}

// Each row damages the coast in one way. What is left is loaded, and the report says what isn't.
TEST_F(Shape, AnswersForDamagedFilesWithALine) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    const auto write = [this](const char* file, const std::string& bytes) {
        drives.Write(std::string("C:\\Charts\\coast.") + file, bytes);
    };
    struct Row {
        std::string what;
        std::function<void()> damage;
        bool loaded;
        std::size_t taken;
        std::string lines;
    };
    const std::string whole = "2 a null record\n";
    const std::string shp = coast.Shp(), shx = coast.Shx(), dbf = DbaseBytes({"A"}, {{"1"}});
    std::string crowd = shx;  // six more records in the place of the first
    for (int i = 0; i < 6; ++i) crowd += shx.substr(100, 8);
    crowd.replace(24, 4, ShapeBytes::Big(static_cast<std::uint32_t>(crowd.size() / 2)));
    ShapeBytes odd(SHAPE_POLYLINE);
    odd.AddPaths(SHAPE_POLYLINE, {{{5, 60}, {kNaN, 60}, {5, 61}}});
    odd.Add(ShapeBytes::Little(77) + std::string(40, 'x'));
    const std::vector<Row> rows = {
        {"nothing", [] {}, true, 2, whole},
        {"no .shp", [&] { std::filesystem::remove(drives.Files().Native("C:\\Charts\\coast.shp")); }, false, 0,
         "0 there is no .shp file\n"},
        {"no .shx", [&] { std::filesystem::remove(drives.Files().Native("C:\\Charts\\coast.shx")); }, false, 0,
         "0 there is no .shx file beside it\n"},
        {"an empty .shp", [&] { write("shp", ""); }, false, 0, "0 the head of the .shp or the .shx is damaged\n"},
        {"a .shx that isn't one", [&] { write("shx", std::string(200, 'q')); }, false, 0,
         "0 the head of the .shp or the .shx is damaged\n"},
        {"a .shp cut short", [&] { write("shp", shp.substr(0, shp.size() - 8)); }, true, 1,
         whole + "3 a record that can't be read\n0 the .shp is shorter than its head says\n"},
        {"a .shp with a tail", [&] { write("shp", shp + "and more"); }, true, 2,
         whole + "0 the .shp is longer than its head says\n"},
        {"more records than the file holds", [&] { write("shx", crowd); }, true, 4,
         "0 the .dbf has 3 rows for 9 records\n" + whole +
             "6 a record that can't be read\n7 a record that can't be read\n8 a record that can't be read\n"
             "9 a record that can't be read\n"},
        {"coordinates and types", [&] { write("shp", odd.Shp()), write("shx", odd.Shx()); }, true, 1,
         "0 the .dbf has 3 rows for 2 records\n1 a record with coordinates that are no numbers\n"
         "2 a record of a type that isn't known\n"},
        {"a .dbf that isn't one", [&] { write("dbf", "dBase"); }, true, 2, "0 the .dbf can't be read\n" + whole},
        {"a .dbf of another file", [&] { write("dbf", dbf); }, true, 2,
         "0 the .dbf has 1 rows for 3 records\n" + whole},
        {"metres", [&] { write("prj", kUtm); }, true, 2,
         whole + "0 the lengths mean nothing: the coordinates aren't degrees\n"},
        {"no .prj", [&] { std::filesystem::remove(drives.Files().Native("C:\\Charts\\coast.prj")); }, true, 2, whole},
    };
    for (const Row& row : rows) {
        WriteCoast();
        row.damage();
        CShape shape(drives);
        EXPECT_EQ(Load(shape), row.loaded) << row.what;
        EXPECT_EQ(report.taken, row.taken) << row.what;
        EXPECT_EQ(Text(report), row.lines) << row.what;
        EXPECT_EQ(shape.geographic, row.what != "metres");
    }
}

// The worker stops at whatever record it is, and nothing of it outlives the shape.
TEST_F(Shape, QuitsAtAnyMoment) {
    ShapeBytes many(SHAPE_POLYLINE);
    for (int i = 0; i < 3000; ++i) many.AddPaths(SHAPE_POLYLINE, {ShapeBytes::Path(20, {5.0 + i * 1e-3, 60})});
    drives.Write("C:\\Charts\\many.shp", many.Shp());
    drives.Write("C:\\Charts\\many.shx", many.Shx());
    HeadlessPlatform platform(drives.Root());
    CWnd window(platform);
    std::mt19937 random(4);
    for (int i = 0; i < 20; ++i) {
        CShape shape(drives);
        shape.SetPath("C:\\Charts\\many.shp");
        LoadProgress shared;
        CLoadThread thread(window, UM_SHAPE_THREAD, shared, [&](LoadProgress& work) { return LoadShape(shape, work); });
        ASSERT_TRUE(thread.Resume());
        const std::uint64_t stop = random() % 4000;
        while (i % 4 != 0 && shared.GetPosition() < std::min<std::uint64_t>(stop, 3000)) std::this_thread::yield();
    }
}

TEST_F(Shape, LengthsAreThoseOfTheLegsOneByOne) {
    std::mt19937_64 random(9);
    std::uniform_real_distribution<double> step(-0.1, 0.1);
    std::vector<std::vector<double>> xs, ys;
    for (const std::size_t count : {0, 1, 2, 5, 4095, 1, 4096, 4097, 3, 20000, 2}) {
        std::vector<double> x(count, 9.5), y(count, 54.25);
        for (std::size_t i = 1; i < count; ++i) x[i] = x[i - 1] + step(random), y[i] = 54 + step(random);
        xs.push_back(x), ys.push_back(y);
    }
    std::vector<double> lengths(xs.size(), -1);
    PathLengths paths(progress);
    for (std::size_t i = 0; i < xs.size(); ++i) paths.Add(xs[i], ys[i], lengths[i]);
    paths.Finish();
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    for (std::size_t i = 0; i < xs.size(); ++i) {
        double sum = 0;
        for (std::size_t k = 0; k + 1 < xs[i].size(); ++k) {
            double leg = 0;
            ellipsoid.Distance(ys[i][k] * kRadiansPerDegree, xs[i][k] * kRadiansPerDegree,
                               ys[i][k + 1] * kRadiansPerDegree, xs[i][k + 1] * kRadiansPerDegree, &leg);
            sum += leg;
        }
        EXPECT_NEAR(lengths[i], sum, 1e-6 * static_cast<double>(xs[i].size())) << xs[i].size();
    }
}

TEST_F(Shape, ListsKeepWhatLoadedAndRecordWhatWasAdded) {
    WriteCoast();
    CShapeFileList list(drives);
    list.name = "Shape Files";
    EXPECT_FALSE(LoadShapeFile("C:\\Charts\\none.shp", list));
    EXPECT_FALSE(list.changed);
    EXPECT_TRUE(AddShapeFile("C:\\Charts\\coast", list)) << "the library needs no extension";
    EXPECT_FALSE(AddShapeFile("C:\\CHARTS\\COAST.SHP", list)) << "loaded already";
    EXPECT_FALSE(AddShapeFile("C:\\Charts\\none.shp", list));
    EXPECT_TRUE(list.changed);
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\Shape_Files.FLS"), "[Shape Files]\r\nC:\\Charts\\coast\r\n");
    EXPECT_EQ(list.files.folder, "C:\\Charts");
    EXPECT_EQ(list.files.Add("C:\\Charts\\gone.shp"), 1);
    EXPECT_EQ(list.files.Add("C:\\Charts\\coast"), 0);
    list.Save();

    CShapeFileList again(drives);
    again.name = "Shape Files";
    again.ReadFiles();
    LoadShapeFiles(again);
    EXPECT_EQ(again.files.paths, list.files.paths);
    ASSERT_EQ(again.shapes.size(), 1U);
    EXPECT_EQ(again.shapes[0]->GetName(), "coast");
    // A load that was stopped leaves nothing.
    EXPECT_FALSE(LoadShapeFile("C:\\Charts\\coast", again, [](CShape&) { return false; }));
    EXPECT_EQ(again.shapes.size(), 1U);
}

TEST_F(Shape, LoadsBehindAWindow) {
    WriteCoast();
    HeadlessPlatform platform(drives.Root());
    CShapeFileList list(platform.Files());
    platform.AnswerDialog([](CDialog&) {});
    EXPECT_TRUE(LoadShapeFile("C:\\Charts\\coast.shp", list, LoadShapeInWindow(platform)));
    EXPECT_EQ(list.shapes[0]->records.size(), 3U);
    platform.AnswerDialog([](CDialog&) {});
    EXPECT_FALSE(LoadShapeFile("C:\\Charts\\none.shp", list, LoadShapeInWindow(platform))) << "it ends by itself";
    platform.AnswerDialog([](CDialog& dialog) { user::Dismiss(dialog); });
    EXPECT_FALSE(LoadShapeFile("C:\\Charts\\coast.shp", list, LoadShapeInWindow(platform)));
    EXPECT_EQ(platform.Calls().back(), "dialog: Loading Shape File coast.........");
    EXPECT_EQ(list.shapes.size(), 1U);
}

/// What GDAL 3.6.2 makes of real files: ogrinfo, and ST_Length(geometry, 1) of its SQLite dialect.
struct Sample {
    const char* path;
    std::size_t records, nulls, vertices;
    int type;
    const char* lastColumn;
    bool geographic;
    double west, south, east, north;
    double length;  ///< 0 where it isn't compared

    friend std::ostream& operator<<(std::ostream& out, const Sample& row) { return out << row.path; }
};
const Sample kSamples[] = {
    {"gdal/poly.shp", 10, 0, 245, 5, "PRFEDEA", false, 478315.53125, 4762880.5, 481645.3125, 4765610.5, 0},
    {"gdal/empty.shp", 0, 0, 0, 5, "PRFEDEA", true, 0, 0, 0, 0, 0},
    {"gdal/arcm_with_m.shp", 2, 0, 6, 23, "", true, 0, 0, 3, 3, 0},
    {"gdal/pointzm_with_one_valid_m.shp", 2, 0, 2, 11, "", true, 1, 2, 4, 5, 0},
    {"gdal/cb_2022_us_county_20m_extract.shp", 1, 0, 37, 5, "AWATER", true, -105.165167, 39.891486, -104.961099,
     40.043888, 0},
    {"mbostock/null.shp", 9, 4, 5, 1, "FID", true, 1, 2, 17, 18, 0},
    {"mbostock/multipoints.shp", 2, 0, 10, 8, "FID", true, 1, 2, 19, 20, 0},
    {"natural_earth/ne_10m_ports.shp", 1081, 0, 1081, 1, "natlscale", true, -171.7579505, -54.80944444, 179.309364,
     78.22611111, 0},
    {"natural_earth/ne_110m_coastline.shp", 134, 0, 5128, 3, "featurecla", true, -180, -85.60903777459774,
     180.00000044181039, 83.64513, 357509336.713635},
    {"natural_earth/ne_10m_bathymetry_A_10000.shp", 3, 0, 88, 5, "depth", true, -174.96190535695243,
     -23.648492120318437, 144.76783287852123, 12.113165594525341, 407547.532318829},
    {"shapelib_eg/CoHI_GCS12.shp", 4, 0, 773, 5, "", true, -160.555770874023, 18.917466137221744, -154.809379,
     22.233170000000055, 0},
    {"shapelib_eg/brklinz.shp", 122, 0, 1736, 13, "ID", true, 6294338.26, 1978444.01, 6296321.86, 1979694.45, 0},
    {"shapelib_eg/csah.shp", 124, 24, 4790, 3, "", true, 257104.88, 5176098.605985907, 335497.5, 5226768.1, 0},
    {"shapefile-rs/points.shp", 7, 0, 7, 1, "value", false, -0.7036247334754797, -0.9861407249466949,
     0.46481876332622596, 0.8347547974413646, 0},
};

TEST_F(Shape, AgreesWithGdalOnRealFiles) {
    const std::filesystem::path folder = QUILLON_SHARED_DATA "/samples/shp";
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "no samples here";
    FileSystem files(drives.Root(), "Host", FILE_ACCESS::READ_ONLY);
    for (const Sample& row : kSamples) {
        CShape shape(files);
        ASSERT_TRUE(Load(shape, (folder / row.path).string())) << row;
        std::size_t vertices = 0;
        for (const ShapeRecord& record : shape.records) vertices += record.GetVertexCount();
        EXPECT_EQ(shape.records.size(), row.records) << row;
        EXPECT_EQ(report.nullRecords, row.nulls) << row;
        EXPECT_EQ(vertices, row.vertices) << row;
        EXPECT_EQ(shape.shapeType, row.type) << row;
        EXPECT_EQ(shape.geographic, row.geographic) << row;
        EXPECT_THAT(shape.boundsMin, ElementsAre(row.west, row.south, testing::_, testing::_)) << row;
        EXPECT_THAT(shape.boundsMax, ElementsAre(row.east, row.north, testing::_, testing::_)) << row;
        if (*row.lastColumn) {
            EXPECT_EQ(shape.dbase.columns.back(), row.lastColumn) << row;
        }
        if (row.length > 0) {
            EXPECT_NEAR(shape.GetTotalLength(), row.length, row.length * 2e-8) << row;
        }
    }
}

}  // namespace
}  // namespace quillon
