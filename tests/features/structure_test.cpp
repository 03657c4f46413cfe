#include "features/structure.h"

#include <gtest/gtest.h>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr const char* kPath = "C:\\Jobs\\Field.dat";
constexpr const char* kTwo =
    "STRUCTURE 2\r\nNAME Manifold East\r\nSHAPE Template\r\nSHOW 1\r\n512345.678E 6123456.789\r\nHEIGHT 12.50\r\n"
    "HEADING 45.0\r\nLENGTH 30.00\r\n\r\n"
    "STRUCTURE 0\r\nNAME Wellhead\r\nSHAPE \r\nSHOW 0\r\n1.000E -2.000\r\nHEIGHT 0.00\r\nHEADING 360.0\r\n"
    "LENGTH 0.25\r\n";

/// A drawing of one line, whose header gives the extents.
std::string Drawing(double width, double height) {
    return Format(
        "0\nSECTION\n2\nHEADER\n9\n$EXTMIN\n10\n0.0\n20\n0.0\n30\n0.0\n9\n$EXTMAX\n10\n%.1f\n20\n%.1f\n30\n0.0\n"
        "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n%.1f\n21\n%.1f\n0\nENDSEC\n0\nEOF\n",
        width, height, width, height);
}

class StructureTest : public testing::Test {
protected:
    StructureTest() : list(drives.Files()) {
        list.SetSettingsName("Structure List");
        drives.MakeFolder("C:\\MyData\\Structures");
    }
    bool ReadBytes(CStructure& structures, const std::string& bytes) {
        drives.Write(kPath, bytes);
        return structures.Read(kPath);
    }

    ScratchDrives drives;
    CStructureList list;
};

TEST_F(StructureTest, BlocksReadBackAsTheyWereWritten) {
    CStructure structures(drives.Files());
    ASSERT_TRUE(ReadBytes(structures, kTwo));
    ASSERT_EQ(structures.GetSize(), 2);
    const StructureDef first{2, "Manifold East", "Template", true, {512345.678, 6123456.789}, 12.5, 45, 30};
    EXPECT_EQ(structures[0], first);
    EXPECT_EQ(structures[1], (StructureDef{0, "Wellhead", "", false, {1, -2}, 0, 360, 0.25}));
    drives.Write(kPath, "rubbish");
    ASSERT_TRUE(structures.Write());
    EXPECT_EQ(drives.Read(kPath), kTwo);
}

// Whatever is cut off, the blocks ahead of the cut stand.
TEST_F(StructureTest, ACutBlockIsDroppedAndTold) {
    const std::string whole = kTwo;
    const std::size_t second = whole.find("STRUCTURE 0");
    const std::size_t lastLine = whole.find("LENGTH 0.25");
    for (std::size_t length = second + 11; length < lastLine; ++length) {
        CStructure structures(drives.Files());
        ASSERT_TRUE(ReadBytes(structures, whole.substr(0, length)));
        EXPECT_EQ(structures.GetSize(), 1) << length;
        EXPECT_EQ(structures.GetReport().passedOver, 1u) << length;
    }
    CStructure structures(drives.Files());
    EXPECT_TRUE(ReadBytes(structures, whole.substr(0, whole.size() - 2))) << "without the last line feed";
    EXPECT_EQ(structures.GetSize(), 2);
}

TEST_F(StructureTest, NamesHeadingsAndMissingValues) {
    struct Row {
        const char* line;
        const char* replacement;
        StructureDef expected;
    };
    const StructureDef plain{2, "Manifold East", "Template", true, {512345.678, 6123456.789}, 12.5, 45, 30};
    const auto with = [&](auto set) {
        StructureDef record = plain;
        set(record);
        return record;
    };
    const Row rows[] = {
        {"NAME Manifold East", "NAME structure 7", with([](auto& r) { r.name = "Structure 1"; })},
        {"NAME Manifold East", "NAME", with([](auto& r) { r.name = "Structure 1"; })},
        {"HEADING 45.0", "HEADING 360.5", with([](auto& r) { r.heading = 0; })},
        {"HEADING 45.0", "HEADING -1", with([](auto& r) { r.heading = 0; })},
        {"HEADING 45.0", "HEADING", with([](auto& r) { r.heading = 0; })},
        {"SHOW 1", "SHOW 0", with([](auto& r) { r.show = false; })},
        {"HEIGHT 12.50", "HEIGHT 1e400", with([](auto& r) { r.height = 0; })},
    };
    for (const Row& row : rows) {
        CStructure structures(drives.Files());
        ASSERT_TRUE(ReadBytes(structures, Replace(kTwo, row.line, row.replacement))) << row.replacement;
        EXPECT_EQ(structures[0], row.expected) << row.replacement;
    }
}

TEST_F(StructureTest, ShapesAreFoundByNumberAndNameAndGiveTheScale) {
    drives.Write("C:\\Shapes\\b tower.dxf", Drawing(10, 40));
    drives.Write("C:\\Shapes\\A Frame.DXF", Drawing(20, 5));
    drives.Write("C:\\Shapes\\notes.txt", "no drawing");
    drives.Write("C:\\Shapes\\c broken.dxf", "no drawing");
    EXPECT_EQ(list.LoadShapes("C:\\Shapes\\"), std::vector<std::string>{"C:\\Shapes\\c broken.dxf"});
    ASSERT_EQ(list.Shapes().size(), 2u);
    const auto nameOf = [&](int number, const char* shape) {
        const CDxf* const found = list.ShapeOf(StructureDef{.shapeNumber = number, .shape = shape});
        return found ? found->fileName : "none";
    };
    EXPECT_EQ(nameOf(1, "A Frame"), "C:\\Shapes\\A Frame.DXF");
    EXPECT_EQ(nameOf(1, "b tower"), "C:\\Shapes\\b tower.dxf") << "out of step";
    EXPECT_EQ(nameOf(2, "gone"), "C:\\Shapes\\b tower.dxf") << "the name is no longer known";
    EXPECT_EQ(nameOf(7, "gone"), "none");
    EXPECT_EQ(nameOf(0, ""), "none");

    ASSERT_TRUE(list.Add(kPath)) << "no file yet";
    const StructureDef& added = list[0][0];
    EXPECT_EQ(added.name, "Structure 1");
    EXPECT_EQ(added.shape, "A Frame");
    EXPECT_EQ(added.length, 20);
    EXPECT_TRUE(list.IsStub(0));
    EXPECT_EQ(list.ScaleFactor(0, 0), 1.0);
    list[0][0].length = 50;
    EXPECT_EQ(list.ScaleFactor(0, 0), 2.5);
    EXPECT_EQ(list.ShapeSize(0, 0), (tagXY{20, 5}));
    EXPECT_EQ(list.ShapeSize(0, 1), tagXY());
    EXPECT_EQ(list.ScaleFactor(3, 0), 1.0);
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\Structure_List.FLS"), "[Structure]\r\nC:\\Jobs\\Field.dat\r\n");
    EXPECT_FALSE(list.Add(kPath) && list.GetCount() != 1) << "held already";
}

}  // namespace
}  // namespace quillon
