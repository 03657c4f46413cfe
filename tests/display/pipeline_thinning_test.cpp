#include "display/pipeline_thinning.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>
#include <vector>

#include "foundation/range_bearing.h"
#include "platform/text.h"
#include "support/comma_locale.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

/// The rule as it is told, every distance worked out: what is written, and what is shown at the end.
struct PlainRule {
    std::string output;
    ThinProgress::Shown shown;

    PlainRule(const std::vector<std::string>& rows, double tolerance) {
        const auto position = [](const std::string& row) {
            const std::size_t comma = row.find(',');
            return tagXY{Atof(row), Atof(std::string_view(row).substr(comma + 1))};
        };
        if (rows.empty()) return;
        output = rows[0] + "\n";
        int total = 1, used = 1;
        shown = {1, 1, 1};
        tagXY anchor = position(rows[0]), last = anchor;
        std::vector<tagXY> buffer;
        bool justWritten = false;
        for (std::size_t i = 1; i < rows.size(); ++i) {
            const tagXY p = position(rows[i]);
            ++total;
            justWritten = false;
            double bearing;
            RangeBearing(anchor, p, &bearing, nullptr);
            for (const tagXY b : buffer) {
                if (i == 1 || (b.x == 0 && b.y == 0)) continue;
                const double distance = (b.x - anchor.x) * std::cos(bearing) - (b.y - anchor.y) * std::sin(bearing);
                if (std::fabs(distance) > tolerance) {
                    output += rows[i - 1] + "\n";
                    anchor = last;
                    buffer.clear();
                    shown.used = ++used;
                    shown.usedOf = total;
                    justWritten = true;
                    break;
                }
            }
            buffer.push_back(p);
            last = p;
        }
        if (!justWritten) shown = {total + 1, used + 1, total + 1};
        output += Format("%.3lf,%.3lf, END", last.x, last.y);
    }
};

class Thinning : public testing::Test {
protected:
    Thinning() {
        import[CListCtrlImport::KP].column = import[CListCtrlImport::DEPTH].column = -1;
        import[CListCtrlImport::EASTING].column = 0;
        import[CListCtrlImport::NORTHING].column = 1;
    }
    /// Thins the text as a file "C:\Job\survey.csv"; the bytes written.
    std::string Thin(std::string_view text, double tolerance = 1) {
        drives.Write("C:\\Job\\survey.csv", text);
        import.fullPath = "C:\\Job\\survey.csv";
        result = ThinFile(import, tolerance, ThinnedPath(import.fullPath), progress);
        return drives.Read("C:\\Job\\survey_thinned.csv");
    }

    /// The same without files.
    std::string ThinBytes(std::string_view text, double tolerance) {
        CStdioFile file(drives);
        file.OpenBytes(text);
        std::string output;
        result = {};
        EXPECT_TRUE(ThinRows(file, import, tolerance, progress, output, result));
        return output;
    }

    ScratchDrives drives;
    CListCtrlImport import{drives};
    ThinProgress progress;
    ThinResult result;
};

using Walk = std::function<tagXY(int step, std::mt19937_64& random)>;

double Between(std::mt19937_64& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

/// Surveys of all kinds: what a cone of bearings could get wrong.
const std::vector<std::pair<const char*, Walk>>& Walks() {
    static const std::vector<std::pair<const char*, Walk>> walks = {
        {"straight, with noise",
         [](int i, auto& r) {
             return tagXY{i * 2.0 + Between(r, -.5, .5), Between(r, -.6, .6)};
         }},
        {"due north",
         [](int i, auto& r) {
             return tagXY{450000 + Between(r, -1, 1), 6e6 + i};
         }},
        {"a circle",
         [](int i, auto&) {
             return tagXY{4e5 + 500 * std::cos(i * .01), 6e6 + 500 * std::sin(i * .01)};
         }},
        {"waves",
         [](int i, auto& r) {
             return tagXY{i + Between(r, 0, .1), 30 * std::sin(i * .02)};
         }},
        {"about one place",
         [](int, auto& r) {
             return tagXY{100 + Between(r, -1.5, 1.5), 100 + Between(r, -1.5, 1.5)};
         }},
        {"there and back",
         [](int i, auto& r) {
             return tagXY{200.0 * std::abs(i % 40 - 20) + Between(r, 0, 2), 0.1 * i};
         }},
        {"anywhere",
         [](int, auto& r) {
             return tagXY{Between(r, -9, 9), Between(r, -9, 9)};
         }},
        {"whole metres, up and down",
         [](int i, auto&) {
             return tagXY{double(i), double(i % 2)};
         }},
        {"whole metres, slowly round",
         [](int i, auto&) {
             return tagXY{std::round(i * .98), std::round(i * .17)};
         }},
        {"tenths on the edge",
         [](int i, auto& r) {
             return tagXY{i * .1, double(r() % 3 - 1) * .5};
         }},
        {"a grid",
         [](int, auto& r) {
             return tagXY{double(r() % 5), double(r() % 5)};
         }},
        {"on the edge from the anchor",
         [](int i, auto& r) {
             return tagXY{i % 3 == 0 ? 0.0 : double(r() % 2 * 2) - 1, i * .25};
         }},
        {"standing still",
         [](int i, auto&) {
             return tagXY{7.0 + i / 50, 9};
         }},
        {"through no position",
         [](int i, auto& r) {
             return i % 5 == 4 ? tagXY{} : tagXY{i - 50.0, Between(r, -2, 2)};
         }},
        {"far off",
         [](int i, auto& r) {
             return tagXY{1e15 * i, 1e13 * Between(r, -1, 1)};
         }},
        {"beyond all bounds",
         [](int i, auto& r) {
             return tagXY{r() % 9 ? i : 1e308 * 10, r() % 7 ? i * .5 : -1e200};
         }},
    };
    return walks;
}

TEST_F(Thinning, WritesWhatThePlainRuleWrites) {
    int kept = 0;
    for (const auto& [name, walk] : Walks()) {
        for (const double tolerance : {1.0, 0.5, 0.01, 3.0, 1e-12, 250.0}) {
            for (const char* form : {"%.3f,%.3f", "%.0f,%.1f", "%.17g,%.17g"}) {
                std::mt19937_64 random(77);
                std::vector<std::string> rows;
                std::string text;
                for (int i = 0; i < 400; ++i) {
                    const tagXY at = walk(i, random);
                    rows.push_back(Format(form, at.x, at.y));
                    text += rows.back() + "\n";
                }
                const PlainRule plain(rows, tolerance);
                ASSERT_EQ(ThinBytes(text, tolerance), plain.output) << name << ' ' << tolerance << ' ' << form;
                ASSERT_EQ(progress.Get(), plain.shown) << name << ' ' << tolerance << ' ' << form;
                ASSERT_EQ(result.rows, 400);
                kept += result.written;
            }
        }
    }
    EXPECT_GT(kept, 20000) << "the surveys bend";
    EXPECT_LT(kept, 100000);
}

// A plain test of every row against all before it would take minutes here.
TEST_F(Thinning, TakesLongStraightRunsInTimeInLineWithTheirLength) {
    std::string straight, rounded;
    for (int i = 0; i < 300000; ++i) {
        straight += Format("%.3f,%.3f\n", 450000 + i * .731, 6e6 + i * .213 + (i % 7) * .05);
        rounded += Format("%d,%d\n", i, i % 2);
    }
    EXPECT_EQ(ThinBytes(straight, 1), "450000.000,6000000.000\n669299.269,6063899.787, END");
    EXPECT_EQ(ThinBytes(rounded, 1), "0,0\n299999.000,1.000, END");
}

// Each row: the columns in use, the text, what is written.
TEST_F(Thinning, WritesTheColumnsInUse) {
    struct Row {
        std::vector<int> columns;
        int skip;
        std::string text;
        std::string output;
    };
    const Row rows[] = {
        {{0, 1, 2, 3}, 0, "0.1,10,20,5.5\r\n0.2,11,25,5.5\r\n0.3,10,30,\r\n", "0.1,10,20,5.5\n10.000,30.000, END"},
        {{0, 1, 2, 3}, 0, "0.1,10,20,5\n0.2,15,25,6\n0.3,10,30,7", "0.1,10,20,5\n0.2,15,25,6\n10.000,30.000, END"},
        {{-2, 1, 2, -1}, 2, "title\nKP,E,N\n1,10.50,20,x\n2,11,30", "10.50,20\n11.000,30.000, END"},
        {{3, 1, 0, 2},
         0,
         "20,10,<null>,\n",
         ",10,20,\n10.000,20.000, END"},  // in the order KP, easting, northing, depth
        {{0, -1, -1, -1}, 0, "n/a\nx\n", "0.000,0.000, END"},
        {{0, 1, 2, 3}, 0, "1,\"10,5\",20\n", "1,\"10,5\",20\n0.000,5.000, END"},
        {{0, 1, 2, 3}, 0, "\n\n", ",,,\n0.000,0.000, END"},
        {{0, 1, 2, 3}, 0, "1,2\r,3,4", "1,2,3,4\n2.000,3.000, END"},
        {{0, 1, 2, 3}, 1, "1,2,3,4\n", ""},
        {{-1, -1, -1, -1}, 0, "1,2,3,4\n", ""},
    };
    for (const Row& row : rows) {
        for (CListCtrlImport::Index i = 0; i < 4; ++i) import[i].column = row.columns[static_cast<std::size_t>(i)];
        import.skipLines = row.skip;
        EXPECT_EQ(Thin(row.text), row.output) << row.text;
        EXPECT_EQ(result.end, THIN_END::DONE);
        EXPECT_EQ(result.hasEndLine, !row.output.empty()) << row.text;
    }
    const CommaLocale locale;
    import.skipLines = 0;
    for (CListCtrlImport::Index i = 0; i < 4; ++i) import[i].column = static_cast<int>(i);
    EXPECT_EQ(Thin(rows[0].text), rows[0].output);
}

TEST_F(Thinning, CountsAToleranceOfNoneAsOneMetre) {
    const std::string bent = "0,0\n5,0.9\n10,0\n";
    EXPECT_EQ(Thin(bent, 0), "0,0\n10.000,0.000, END");
    EXPECT_EQ(Thin(bent, -0.5), "0,0\n5,0.9\n10.000,0.000, END");
    EXPECT_EQ(Thin("0,0\n5,1\n10,0\n", 1), "0,0\n10.000,0.000, END") << "on the edge is within";
}

TEST_F(Thinning, LeavesTheFilesAsTheyMustBe) {
    drives.Write("C:\\Job\\survey_thinned.csv", "from before");
    progress.Cancel();
    EXPECT_EQ(Thin("0,0\n1,1\n2,2\n"), "from before");
    EXPECT_EQ(result.end, THIN_END::STOPPED);
    ThinProgress fresh;
    EXPECT_EQ(ThinFile(import, 1, "C:\\None\\x.csv", fresh).end, THIN_END::NO_OUTPUT);
    import.skipLines = 4;
    EXPECT_EQ(ThinFile(import, 1, "C:\\Job\\survey_thinned.csv", fresh).end, THIN_END::NO_INPUT);
    EXPECT_EQ(drives.Read("C:\\Job\\survey_thinned.csv"), "") << "an empty file stays";
    EXPECT_EQ(ThinnedPath("C:\\Job\\Leg 7.a.txt"), "C:\\Job\\Leg 7.a_thinned.txt");
}

TEST_F(Thinning, KeepsItsSettings) {
    const std::string file = "C:\\MySettings\\Host\\Pipeline_CSV.INI";
    import.ReadSettings();
    EXPECT_EQ(import.fullPath, DocumentsFolder(drives.Files()));
    EXPECT_EQ(import.ColumnOf(CListCtrlImport::DEPTH), 3);
    const std::string golden =
        "Full Path = C:\\Job\\a.csv\r\nSpreadsheet Name = Two\r\nMode = 4\r\nSkip No Lines = 5\r\nKP = -3\r\nEasting = "
        "7\r\n"
        "Northing = 8\r\nDepth = 9\r\n";
    drives.Write(file, golden);
    import.ReadSettings();
    EXPECT_EQ(import.ColumnOf(CListCtrlImport::KP), -3);
    EXPECT_EQ(import.ColumnOf(CListCtrlImport::NORTHING), 8);
    EXPECT_EQ(import.skipLines, 5);
    import.WriteSettings();
    EXPECT_EQ(drives.Read(file), golden);
    drives.Write(file, golden.substr(0, golden.find("Easting")));
    import.ReadSettings();
    EXPECT_EQ(import.ColumnOf(CListCtrlImport::KP), -3);
    EXPECT_EQ(import.ColumnOf(CListCtrlImport::EASTING), 1) << "the default of a line that is missing";
}

}  // namespace
}  // namespace quillon
