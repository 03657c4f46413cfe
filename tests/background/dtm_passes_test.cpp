#include "background/dtm_passes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "platform/text.h"

namespace quillon {
namespace {

std::string Line(const tagXYZ& sample) {
    return Format("%.3lf,%.3lf,%.2lf\n", sample.x, sample.y, sample.z);
}

/// What the passes are to give, the slow way: one line after another, each scanned by the standard library.
struct Slowly {
    DtmExtents extents;
    DtmGrid grid;
    std::vector<std::int32_t> cells;
    std::uint64_t merged = 0, dropped = 0, filled = 0;

    explicit Slowly(const std::vector<std::string>& files) {
        EachSample(files, [&](const tagXYZ& s) { extents.AddSample(s.x, s.y, s.z == 0.0 ? MISSING_VALUE : s.z); });
        grid = {extents.easting.minimum, extents.northing.minimum, extents.step, extents.easting.count,
                extents.northing.count};
        cells.assign(grid.CellCount(), kNoDepth);
        std::vector<bool> held(cells.size());
        if (cells.empty()) return;
        EachSample(files, [&](const tagXYZ& s) {
            const double column = std::floor((s.x - grid.minEasting) / grid.step);
            const double row = std::floor((s.y - grid.minNorthing) / grid.step);
            if (column >= static_cast<double>(grid.columns) || row >= static_cast<double>(grid.rows)) {
                ++dropped;
                return;
            }
            const auto cell = static_cast<std::size_t>(row * static_cast<double>(grid.columns) + column);
            merged += held[cell];
            held[cell] = true;
            cells[cell] = s.z == 0.0 ? kNoDepth : static_cast<std::int32_t>(std::fabs(s.z) * 100.0);
        });
        for (const std::int32_t cell : cells) filled += cell != kNoDepth;
    }

    template <class Take>
    static void EachSample(const std::vector<std::string>& files, Take take) {
        for (const std::string& bytes : files) {
            for (std::size_t at = 0; at < bytes.size(); at = bytes.find('\n', at) + 1) {
                tagXYZ s;
                if (std::sscanf(bytes.c_str() + at, "%lf,%lf,%lf", &s.x, &s.y, &s.z) == 3) take(s);
            }
        }
    }
};

/// Both passes over the files, each cut into `parts`.
struct Passes {
    DtmSurvey survey;
    BigArray<std::int32_t> cells;
    std::uint64_t merged = 0, dropped = 0, filled = 0;

    Passes(const std::vector<std::string>& files, std::size_t parts) {
        DtmProgress progress;
        CRandomFile text;
        int slot = 0;
        for (const std::string& bytes : files) {
            text.OpenBytes(bytes);
            survey.AddFile(text, slot++, progress, parts);
        }
        const DtmExtents& extents = survey.run.Get();
        const DtmGrid grid{extents.easting.minimum, extents.northing.minimum, extents.step, extents.easting.count,
                           extents.northing.count};
        if (grid.CellCount() == 0) return;
        DtmDepthsMaker maker(grid, UINT64_MAX, parts);
        for (const std::string& bytes : files) {
            text.OpenBytes(bytes);
            maker.AddFile(text, progress);
            EXPECT_EQ(progress.GetPosition(), bytes.size());
        }
        cells = maker.Finish(progress);
        merged = maker.GetMerged();
        dropped = maker.GetDropped();
        filled = maker.GetFilled();
    }
};

/// Text that a survey could have left: runs along lines, jumps, repeated positions, points without a depth, new
/// extremes at any time.
std::string RandomText(std::mt19937& random, int lines) {
    std::string bytes;
    tagXYZ at{500.0, 700.0, 0.0};
    for (int i = 0; i < lines; ++i) {
        const auto pick = random() % 10;
        if (pick < 4) at.x += static_cast<double>(random() % 7) - 3.0;
        if (pick > 2 && pick < 8) at.y += (static_cast<double>(random() % 9) - 4.0) * 0.75;
        if (pick == 9) at = {450.0 + static_cast<double>(random() % 100), 650.0 + static_cast<double>(random() % 100)};
        at.z = random() % 6 == 0 ? 0.0 : -static_cast<double>(random() % 5000) / 100.0;
        bytes += Line(at);
        if (random() % 20 == 0) bytes += "no sample\n";
    }
    return bytes;
}

std::string Told(const ReadReport& report) {
    std::string text = Format("%zu lines, %zu taken, passed over", report.lines, report.taken);
    for (const auto& line : report.named) text += Format(" %zu", line.number);
    return text;
}

// Parts read at the same time must give what lines read one by one give: step, counts, order of depths, and every count
// of the report.
TEST(DtmPasses, InPartsGiveWhatLineByLineGives) {
    std::mt19937 random(4711);
    for (int round = 0; round < 60; ++round) {
        std::vector<std::string> files;
        for (unsigned file = 0; file <= random() % 3; ++file) {
            files.push_back(RandomText(random, static_cast<int>(random() % 60)));
        }
        const Slowly slow(files);
        const Passes one(files, 1);
        for (std::size_t parts = 1; parts <= 5; ++parts) {
            const Passes passes(files, parts);
            ASSERT_EQ(passes.survey.run.Get(), slow.extents) << "round " << round << ", parts " << parts;
            ASSERT_EQ(passes.survey.run.GetStepSource(), one.survey.run.GetStepSource()) << round;
            ASSERT_EQ(passes.survey.areas, one.survey.areas);
            ASSERT_EQ(std::vector(passes.cells.Span().begin(), passes.cells.Span().end()), slow.cells);
            ASSERT_EQ(passes.merged, slow.merged);
            ASSERT_EQ(passes.dropped, slow.dropped);
            ASSERT_EQ(passes.filled, slow.filled);
            for (std::size_t i = 0; i < files.size(); ++i) {
                ASSERT_EQ(Told(passes.survey.lines[i]), Told(one.survey.lines[i]));
            }
        }
    }
}

// A file larger than a block, so that lines break off at block ends.
TEST(DtmPasses, KeepLinesThatABlockBreaksOff) {
    std::string bytes;
    for (int row = 0; row < 200; ++row) {
        for (int column = 0; column < 150; ++column) {
            bytes += Line({1000.0 + column * 2.5, 2000.0 + row * 2.5, -10.0 - column * 0.25});
        }
    }
    ASSERT_GT(bytes.size(), std::size_t{600} << 10);
    for (std::size_t parts : {1, 2, 3}) {
        const Passes passes({bytes}, parts);
        EXPECT_EQ(passes.survey.run.Get().step, 2.5);
        EXPECT_EQ(passes.survey.lines[0].taken, 30000U);
        EXPECT_EQ(passes.filled, 30000U);
        EXPECT_EQ(passes.cells[149], 4725);
    }
}

TEST(DtmPasses, TakeTheLinesAsTheyCome) {
    struct Row {
        const char* why;
        std::string bytes;
        std::size_t taken, passedOver;
        DtmExtents extents;
    };
    const std::string blanks(2000, ' ');
    const std::vector<Row> rows = {
        {"separators may be mixed, line feeds may lack, what follows is nobody's",
         "10 20 -5\r\n12.5,20\t-6,survey 7\n\t15 , 20 -7 8",
         3,
         0,
         {{10, 15, 15, 3}, {20, 20, 20, 0}, 2.5, -7, -5}},
        {"a head and remarks are passed over; signs and exponents count",
         "Easting,Northing,Depth\n+1e1 .2E+2 -5.\n\n# 1 2 3\n11 20 5 5\n12-20-5\n",
         3,
         3,
         {{10, 12, 12, 3}, {-20, 20, -20, 41}, 1, -5, 5}},
        {"numbers that are none",
         "nan 2 3\ninf 2 3\n0x10 2 3\n1e999 2 3\n1 2 1e9\n4 5 6\n",
         1,
         5,
         {{4, 4, 4, 0}, {5, 5, 5, 0}, 0, 6, 6}},
        {"a depth of 0 counts for the grid alone",
         "1 1 0\n2 1 -3\n4 1 0.00\n",
         3,
         0,
         {{1, 4, 4, 4}, {1, 1, 1, 0}, 1, -3, -3}},
        {"the rest of a line beyond 1023 bytes is the next line",
         "1 2 3" + blanks.substr(0, 1018) + "4 5 6\n",
         2,
         0,
         {{1, 4, 4, 0}, {2, 5, 5, 2}, 3, 3, 6}},
        {"a line of 1023 bytes with its feed is one",
         "1 2 3" + blanks.substr(0, 1017) + "\n4 5 6\n",
         2,
         0,
         {{1, 4, 4, 0}, {2, 5, 5, 2}, 3, 3, 6}},
        {"two values on an axis come too early for a count",
         "1 1 -1\n2 1 -1\n1 1 -1\n",
         3,
         0,
         {{1, 2, 1, 0}, {1, 1, 1, 0}, 1, -1, -1}},
        {"nothing at all", "", 0, 0, {}},
    };
    for (const Row& row : rows) {
        const Passes passes({row.bytes}, 1);
        EXPECT_EQ(passes.survey.lines[0].taken, row.taken) << row.why;
        EXPECT_EQ(passes.survey.lines[0].passedOver, row.passedOver) << row.why;
        EXPECT_EQ(passes.survey.run.Get(), row.extents) << row.why;
    }
}

TEST(DtmPasses, NameTheSamplesThatSetTheStep) {
    const Passes passes({"head\n0 0 -1\n10 0 -1\n20 0.5 -1\n", "20 3 -1\n20.25 3 -1\n40 40 -1\n"}, 2);
    const DtmStepSource expected{{1, 1, {20, 3}}, {1, 2, {20.25, 3}}};
    EXPECT_EQ(passes.survey.run.GetStepSource(), expected);
}

TEST(DtmPasses, StopWithinABlock) {
    std::string bytes;
    for (int i = 0; i < 100'000; ++i) bytes += Line({static_cast<double>(i), 1.0, -1.0});
    CRandomFile text;
    text.OpenBytes(bytes);
    DtmProgress progress;
    progress.Cancel();
    DtmSurvey survey;
    survey.AddFile(text, 0, progress, 2);
    EXPECT_EQ(survey.run.GetSampleCount(), 0U);
    EXPECT_EQ(progress.GetPosition(), 0U);
}

}  // namespace
}  // namespace quillon
