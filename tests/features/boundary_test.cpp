#include "features/boundary.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr std::string_view kPath = "C:\\Job\\Zone.txt";

class BoundaryTest : public testing::Test {
protected:
    std::vector<tagXY> Read(std::string_view bytes) {
        drives.Write(kPath, bytes);
        const bool taken = boundary.Read(kPath);
        EXPECT_EQ(taken, !boundary.IsEmpty());
        EXPECT_EQ(report.taken, static_cast<std::size_t>(boundary.GetSize()));
        EXPECT_EQ(report.lines, report.taken + report.passedOver);
        EXPECT_EQ(boundary.GetPolygon().GetSize(), boundary.GetSize() >= 3 ? boundary.GetSize() : 0);
        return {boundary.begin(), boundary.end()};
    }

    ScratchDrives drives;
    CBoundary boundary{drives};
    const ReadReport& report = boundary.GetReport();
};

TEST_F(BoundaryTest, TakesEveryFormOfALine) {
    const std::vector<tagXY> expected = {{123.4, 567.8}};
    for (const char* line :
         {"123.4,567.8", "123.4, 567.8\r\n", "123.4 567.8\n", "123.4\t567.8", "E 123.4 N 567.8",
          "  123.4 ,567.8,9.9 rest", "E123.4 N567.8\r\n\r\n", "\n\n123.4,567.8", "abc,1\n123.4,567.8"}) {
        std::vector<tagXY> points = Read(line);
        EXPECT_EQ(points.empty() ? tagXY() : points.back(), expected.back()) << line;
    }
}

TEST_F(BoundaryTest, PassesOverLinesWithoutAPosition) {
    struct Case {
        const char* line;
        PASSED_OVER reason;
    };
    for (const Case& c :
         {Case{"", PASSED_OVER::NO_EASTING}, Case{"North", PASSED_OVER::NO_EASTING},
          Case{"?,5", PASSED_OVER::NO_EASTING}, Case{",5", PASSED_OVER::NO_EASTING},
          Case{"abc 12.5", PASSED_OVER::NO_NORTHING}, Case{"5", PASSED_OVER::NO_NORTHING},
          Case{"5,", PASSED_OVER::NO_NORTHING}, Case{"5,?", PASSED_OVER::NO_NORTHING},
          Case{"0,0", PASSED_OVER::ZERO_POSITION}, Case{"0.000 0.000", PASSED_OVER::ZERO_POSITION},
          Case{"-0,0", PASSED_OVER::ZERO_POSITION}, Case{"0,5", PASSED_OVER::NO}, Case{"5,0", PASSED_OVER::NO}}) {
        Read(std::string(c.line) + "\n1,2\n");
        ASSERT_EQ(report.lines, 2u) << c.line;
        ASSERT_EQ(report.named.empty(), c.reason == PASSED_OVER::NO) << c.line;
        if (report.named.empty()) continue;
        EXPECT_EQ(report.named[0].reason, c.reason) << c.line;
        EXPECT_EQ(report.named[0].number, 1u);
        EXPECT_FALSE(ReasonText(c.reason).empty());
    }
}

// No bytes may crash it or run away with memory or time; what it makes of them is what the lines say.
TEST_F(BoundaryTest, StandsUpToAnyBytes) {
    EXPECT_EQ(Read("1,2\r3,4\r5,6").size(), 1u);  // one line: carriage returns alone end none
    EXPECT_EQ(Read(std::string("1\0,2\n3,4\n", 9)).size(), 2u);
    EXPECT_EQ(Read("1e999,1e999\n-1e999,1e-999\n1e308,-1e308\n1e5,2e5\n"),
              (std::vector<tagXY>{{1e308, -1e308}, {1e5, 2e5}}));
    EXPECT_EQ(Read(std::string(3 << 20, '7') + ",1\n5,6\n").back(), (tagXY{5, 6}));
    std::mt19937 random(3);
    for (int i = 0; i < 200; ++i) {
        std::string bytes(random() % 3000, '\0');
        for (char& c : bytes) c = "0123456789.,-+e? \n\r\tEN"[random() % 22];
        if (i % 2 == 0) {
            for (char& c : bytes) c = static_cast<char>(random());
        }
        for (const tagXY& point : Read(bytes)) {
            EXPECT_FALSE(IsMissing(point.x) || IsMissing(point.y) || (point.x == 0.0 && point.y == 0.0));
            EXPECT_FALSE(std::isnan(point.x) || std::isnan(point.y));
        }
    }
}

TEST_F(BoundaryTest, NeedsLittleMemoryForAGigabyteInOneLine) {
    drives.Write(kPath, "1,2\n");
    std::error_code failed;
    std::filesystem::resize_file(drives.Files().Native(kPath), std::uintmax_t{1} << 30, failed);
    if (failed) GTEST_SKIP() << "no room for a sparse file";
    rusage before{};
    ::getrusage(RUSAGE_SELF, &before);
    EXPECT_TRUE(boundary.Read(kPath));
    EXPECT_EQ(boundary.GetSize(), 1);
    rusage after{};
    ::getrusage(RUSAGE_SELF, &after);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 64 * 1024) << "KiB";
}

// ---- The list ----

class BoundaryListTest : public testing::Test {
protected:
    BoundaryListTest() {
        list.SetSettingsName("Boundary List");
        drives.MakeFolder("C:\\MyData");
        drives.Write("C:\\Job\\A.txt", "1,1\n2,1\n2,2\n");
        drives.Write("C:\\Job\\B.txt", "5,5\n");
        drives.Write("C:\\Job\\Empty.txt", "");
    }

    ScratchDrives drives;
    CBoundaryList list{drives};
};

TEST_F(BoundaryListTest, ShowsAFileOfNoUse) {
    EXPECT_TRUE(list.Add("C:\\Job\\Empty.txt"));
    EXPECT_TRUE(list.Add("C:\\Job\\None.txt"));
    ASSERT_EQ(list.GetCount(), 2);
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(list[i].GetSize(), 1);
        EXPECT_EQ(list[i][0], tagXY());
        EXPECT_TRUE(list[i].GetPolygon().IsEmpty());
    }
    EXPECT_EQ(list.GetPath(1), "C:\\Job\\None.txt");
    EXPECT_THROW(list[2], InvalidArgument);
    EXPECT_THROW(list[-1], InvalidArgument);
}

TEST_F(BoundaryListTest, PointsItsCursorAtWhatIsThere) {
    list.Add("C:\\Job\\A.txt");
    list.Add("C:\\Job\\B.txt");
    struct Case {
        int file, point, expectedFile, expectedPoint;
    };
    for (const Case& c : {Case{5, 5, -1, -1}, Case{1, 99, 1, -1}, Case{0, 2, 0, 2}, Case{-1, 1, 0, 1},
                          Case{1, -1, 1, -1}, Case{-1, 0, 1, 0}, Case{70000, 0, -1, -1}, Case{-1, -1, -1, -1}}) {
        list.editState.editActive = 1;
        list.editState.thirdIndex = 3;
        list.editState.work[1] = "x";
        list.SetEditCursor(c.file, c.point);
        FeatureEditState expected;
        expected.editFileIndex = static_cast<std::int16_t>(c.expectedFile);
        expected.editPointIndex = c.expectedPoint;
        EXPECT_EQ(list.editState, expected) << c.file << ", " << c.point;
    }
}

}  // namespace
}  // namespace quillon
