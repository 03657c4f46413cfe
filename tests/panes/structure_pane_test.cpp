#include "panes/structure_pane.h"

#include "platform/property_rows.h"
#include "support/job_fixture.h"
#include "support/structure_files.h"

namespace quillon {
namespace {

constexpr std::string_view kField = "C:\\Jobs\\Field.dat";
constexpr std::string_view kUpdate = "UM_FEATURE_UPDATE 7";

/// Two structures; "Frame" is 20 by 10 units, "Tower" 4 by 8.
class StructurePaneTest : public JobFixture {
protected:
    StructurePaneTest() {
        WriteShape(drives, "Frame", 20, 10);
        WriteShape(drives, "Tower", 4, 8);
        drives.Write(kField, East() + "\r\n" + West());
        Restart();
        pane = std::make_unique<CStructurePane>(*platform);
        EXPECT_TRUE(pane->Create(log.get(), CStructurePane::kTitleId, job->structures));
        platform->AnswerFiles({std::string(kField)});
        user::Press(pane->GetAddButton());
        Messages();
        pane->RefreshRows();  // the host's, after the first file
    }
    ~StructurePaneTest() override { pane.reset(); }

    static std::string East(double heading = 0.0, std::string_view position = "500000.000E 6000000.000") {
        return StructureBlock(1, "East", "Frame", position, 1.0, heading, 40.0);
    }
    static std::string West() { return StructureBlock(2, "West", "Tower", "500100.000E 6000100.000", 2.0, 90.0, 8.0); }
    std::string Bytes() { return drives.Read(kField); }
    static Texts With(Texts lines, const Texts& more) {
        lines.insert(lines.end(), more.begin(), more.end());
        return lines;
    }
    bool PressButton(int button) {
        auto& list = pane->GetPropertyList();
        return user::Edit(list, *list.FindItemByData(STRUCTURE_BUTTONS), std::int32_t{button});
    }
    std::string Name() { return RowText(*pane, STRUCTURE_NAME); }

    std::unique_ptr<CStructurePane> pane;
};

// Each act: the bytes of the file behind it, and what the host hears, in its order.
TEST_F(StructurePaneTest, ADaysWork) {
    ASSERT_EQ(Name(), "East");
    const std::string update(kUpdate);
    const struct {
        UINT row;
        const char* typed;
        std::string bytes;
        Texts messages;
    } kActs[] = {
        {STRUCTURE_EASTING, "500010.5", East(0, "500010.500E 6000000.000"),
         With(RedrawPair("500010.500, 6000000.000"), {update})},
        {STRUCTURE_NORTHING, "6000020", East(0, "500010.500E 6000020.000"),
         With(RedrawPair("500010.500, 6000020.000"), {update})},
        {STRUCTURE_HEIGHT,
         "-3.25",
         StructureBlock(1, "East", "Frame", "500010.500E 6000020.000", -3.25, 0, 40),
         {update}},
        {STRUCTURE_HEADING, "45", StructureBlock(1, "East", "Frame", "500010.500E 6000020.000", -3.25, 45, 40),
         With({update}, RedrawPair())},
        {STRUCTURE_SHAPE, "Tower", StructureBlock(1, "East", "Tower", "500010.500E 6000020.000", -3.25, 45, 40),
         With({update}, RedrawPair())},
        {STRUCTURE_LENGTH, "80", StructureBlock(1, "East", "Tower", "500010.500E 6000020.000", -3.25, 45, 80),
         RedrawPair()},
    };
    for (const auto& act : kActs) {
        EXPECT_TRUE(PickRow(*pane, act.row, act.typed));
        EXPECT_EQ(Bytes(), act.bytes + "\r\n" + West()) << act.typed;
        EXPECT_EQ(Messages(), act.messages) << act.typed;
    }
    EXPECT_EQ(pane->GetPropertyList().GetProperty(2).GetSubItem(4).FormatProperty(), "     10.00000000") << "80 m / 8";
    const std::string edited = StructureBlock(1, "East", "Tower", "500010.500E 6000020.000", -3.25, 45, 80);

    // A new name waits for the next write; the name of another structure chooses that one.
    EXPECT_TRUE(PickRow(*pane, STRUCTURE_NAME, "Manifold"));
    EXPECT_EQ(Bytes(), edited + "\r\n" + West());
    EXPECT_EQ(Messages(), Texts{update});
    EXPECT_TRUE(PickRow(*pane, STRUCTURE_NAME, "WEST"));
    EXPECT_EQ(job->structures.editState.editPointIndex, 1);
    EXPECT_EQ(Messages(), RedrawPair("500100.000, 6000100.000"));
    EXPECT_EQ(Name(), "West");

    // What was added is written by the next change; what was deleted at once.
    EXPECT_TRUE(PressButton(0));
    EXPECT_EQ(Name(), "Structure 3");
    EXPECT_EQ(Bytes(), edited + "\r\n" + West());
    for (int left = 2; left >= 0; --left) EXPECT_TRUE(PressButton(1));
    EXPECT_EQ(Bytes(), StructureBlock(1, "Structure 1", "Frame", "0.000E 0.000", 0, 0, 20)) << "one always stays";
}

// Dragged on the chart: both figures in one write, which the pane shows and tells like its own.
TEST_F(StructurePaneTest, WhatTheHostPlacesIsWrittenOnce) {
    struct Commits : CommitObserver {
        void OnCommitted(const FileCommit& commit) override { count += commit.path == kField; }
        int count = 0;
    } commits;
    platform->Files().SetCommitObserver(&commits);
    pane->PlaceStructure({500001.5, 6000002.25}, -90.0);
    platform->Files().SetCommitObserver(nullptr);
    EXPECT_EQ(commits.count, 1);
    EXPECT_EQ(Bytes(), East(270.0, "500001.500E 6000002.250") + "\r\n" + West());
    EXPECT_EQ(Messages(), With(RedrawPair("500001.500, 6000002.250"), {std::string(kUpdate)}));
    EXPECT_EQ(RowText(*pane, STRUCTURE_EASTING), " 500001.50E");
}

}  // namespace
}  // namespace quillon
