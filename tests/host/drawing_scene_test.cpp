// What the chart is given of digitised files and drawings.

#include <gmock/gmock.h>

#include <numbers>

#include "host/dig_lines.h"
#include "host/drawing_letters.h"
#include "host/scene_builder.h"
#include "platform/headless.h"
#include "support/dxf_groups.h"
#include "support/scene_items.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

/// Records as digits of their codes, "0" for one at 0, 0: their lines by colour, as places in the records.
std::string LinesOf(const std::vector<int>& codes) {
    std::vector<BinaryDigDef> records;
    for (const int code : codes) {
        const double at = code == 0 ? 0.0 : static_cast<double>(records.size() + 1);
        records.push_back({at, at, static_cast<std::int16_t>(code)});
    }
    std::string text;
    for (const auto& [colour, lines] : SplitDig(records)) {
        text += Format("%d:", colour + 1);
        for (std::size_t i = 0, start = 0; i < lines.records.size(); ++i) {
            const bool starts = start < lines.starts.size() && lines.starts[start] == i;
            start += starts;
            text += Format(starts ? " (%u" : " %u", lines.records[i]);
        }
        text += "; ";
    }
    return text;
}

TEST(DigLinesTest, APieceHasTheColourOfTheRecordThatItLeadsTo) {
    struct Row {
        std::vector<int> codes;
        const char* lines;
    };
    const Row rows[] = {
        {{-2, 2, 2, -2, 2}, "2: (0 1 2 (3 4; "},
        {{-2, 3, 2, 3}, "2: (1 2; 3: (0 1 (2 3; "},
        {{-2, 2, 3, 3, 2}, "2: (0 1 (3 4; 3: (1 2 3; "},
        {{2, 2}, "2: (0 1; "},
        {{-2, -2, -3, 3}, "3: (2 3; "},
        {{-2, 2, 0, 2, 2}, "2: (0 1 (3 4; "},
        {{-2, 300, -300}, "8: (0 1; "},
        {{}, ""},
    };
    for (const Row& row : rows) EXPECT_EQ(LinesOf(row.codes), row.lines) << testing::PrintToString(row.codes);
}

TEST(DrawingLettersTest, StandAsTheirDrawingJustifiesThem) {
    struct Row {
        const char* entity;
        tagXY at;
        double bearing;  ///< degrees
        double across;
        LETTER_EDGE edge;
        double fit;
    };
    using enum LETTER_EDGE;
    const Row rows[] = {
        {"0 TEXT|1 A|40 2|10 1|20 2|11 8|21 9", {1, 2}, 90, 0, BASELINE, 0},
        {"0 TEXT|1 A|40 2|10 1|20 2|11 8|21 9|50 90|72 1", {8, 9}, 0, 0.5, BASELINE, 0},
        {"0 TEXT|1 A|40 2|10 1|20 2|11 8|21 9|50 -45|72 2|73 3", {8, 9}, 135, 1, TOP, 0},
        {"0 TEXT|1 A|40 2|10 1|20 2|11 8|21 9|72 4", {8, 9}, 90, 0.5, MIDDLE, 0},
        {"0 TEXT|1 A|40 2|10 1|20 2|11 8|21 9|73 1", {8, 9}, 90, 0, BOTTOM, 0},
        {"0 TEXT|1 A|40 2|10 1|20 2|11 4|21 6|50 9|72 5", {1, 2}, 36.8699, 0, BASELINE, 5},
        {"0 MTEXT|1 A|40 2|10 1|20 2|71 8|50 -30", {1, 2}, 120, 0.5, BOTTOM, 0},
        {"0 MTEXT|1 A|40 2|10 1|20 2|71 6|11 0|21 1", {1, 2}, 0, 1, MIDDLE, 0},
    };
    ScratchDrives drives;
    for (const Row& row : rows) {
        CDxf dxf(drives);
        const std::string bytes = Section("TABLES", "0 TABLE|2 LAYER|0 LAYER|2 Off|62 -1|0 ENDTAB") +
                                  Section("ENTITIES", row.entity + std::string("|0 TEXT|8 Off|1 B|40 2|0 TEXT|1 C"));
        dxf.OpenBytes(bytes);
        while (dxf.ReadSection()) {
        }
        const DrawnLetters drawn = LettersOf(dxf, 1.0);
        ASSERT_EQ(drawn.letters.size(), 1u) << "neither what is off nor what has no height";
        const ChartLetter& letter = drawn.letters[0];
        EXPECT_EQ(drawn.places[0], row.at) << row.entity;
        EXPECT_NEAR(letter.bearing * 180 / std::numbers::pi, row.bearing, 1e-4) << row.entity;
        EXPECT_EQ(std::tuple(letter.across, letter.edge, letter.fit, letter.height),
                  std::tuple(row.across, row.edge, row.fit, 2.0))
            << row.entity;
    }
}

TEST(DrawingSceneTest, ShowsWhatThePanesSay) {
    ScratchDrives drives;
    HeadlessPlatform platform(drives.Root(), "C:\\Programs\\Host.exe");
    drives.Write("C:\\Job\\plan.dxf",
                 Section("ENTITIES", "0 LINE|62 1|10 1|11 5|0 CIRCLE|62 5|10 9|40 2|0 TEXT|1 A|40 2|10 3"));
    drives.Write("C:\\Job\\coast.csv", "1,2,0,1\r\n3,4,1,1\r\n5,6,1,3\r\n");
    drives.Write("C:\\MySettings\\Host\\DXF_List.INI", "[DXF File]\r\nC:\\Job\\plan.dxf\r\n");
    drives.Write("C:\\MySettings\\Host\\Dig_List.INI", "[Dig File]\r\nC:\\Job\\coast.csv\r\n");
    Job job(platform);
    job.Open();
    SceneBuilder scenes(job.Record());
    // Colours of the paths, and texts.
    const auto shown = [&](KIND kind) {
        std::string text;
        const ChartScene scene = scenes.Build();
        for (const ChartLayer& layer : scene.layers) {
            if (layer.id != static_cast<std::uint64_t>(kind)) continue;
            for (const ChartPath& path : SceneItems(layer).paths) text += Format("%06X ", path.line.colour);
            for (const ChartItem& item : layer.items) {
                if (const auto* all = std::get_if<ChartLetters>(&item)) text += all->letters->front().text;
            }
        }
        return text;
    };
    EXPECT_EQ(shown(KIND::DIG), "0000FF 00FF00 ");
    EXPECT_EQ(shown(KIND::DXF), "0000FF FF0000 A");
    job.Record().drawings[0].showText = false;
    job.Record().digs[0].header.display = 0;
    EXPECT_EQ(shown(KIND::DIG), "");
    EXPECT_EQ(shown(KIND::DXF), "0000FF FF0000 ");
    job.Record().drawings[0].use = false;
    EXPECT_EQ(shown(KIND::DXF), "");
}

}  // namespace
}  // namespace quillon
