#include "panes/shape_pane.h"

#include <filesystem>

#include "background/shape_file_selector_dlg.h"
#include "support/job_fixture.h"
#include "support/shape_bytes.h"

namespace quillon {
namespace {

constexpr std::string_view kCoast = "C:\\Charts\\DK_coast.shp", kBuoys = "C:\\Charts\\DK_buoys.shp";
constexpr std::string_view kList = "C:\\MySettings\\Host\\Shape_File_List.FLS";

class ShapePaneTest : public JobFixture {
protected:
    ShapePaneTest() {
        ShapeBytes coast(SHAPE_POLYLINE), buoys(SHAPE_POINT);
        coast.AddPaths(SHAPE_POLYLINE, {{{5, 60}, {5.5, 60}, {5.5, 61}}});
        coast.SetBounds({5, 60}, {5.5, 61});
        buoys.AddPoint({5.25, 60.5});
        for (const auto& [path, bytes] : {std::pair{kCoast, &coast}, {kBuoys, &buoys}}) {
            drives.Write(path, bytes->Shp());
            drives.Write(ReplaceExtension(path, "shx"), bytes->Shx());
        }
        drives.Write("C:\\Charts\\DK_buoys.dbf", DbaseBytes({"LIGHT", "NAME"}, {{"Fl.G", "Nordre"}}));
        Open();
    }
    ~ShapePaneTest() override { pane.reset(); }

    void Open() {
        pane = std::make_unique<CShapePane>(*platform);
        ASSERT_TRUE(pane->Create(log.get(), CShapePane::kTitleId, job->shapes));
    }
    void Add(std::vector<std::string> paths) {
        platform->AnswerFiles(std::move(paths));
        user::Press(*pane->GetFileButton());
    }

    std::unique_ptr<CShapePane> pane;
};

TEST_F(ShapePaneTest, ADaysWork) {
    Add({std::string(kCoast), std::string(kBuoys), "C:\\charts\\dk_COAST.shp"});
    EXPECT_EQ(Messages(), RedrawPair());
    EXPECT_EQ(Lines(kList), (Texts{"[Shape File List]", std::string(kCoast), std::string(kBuoys)}));
    ASSERT_EQ(pane->GetCombo().GetCount(), 2);
    EXPECT_EQ(pane->GetCombo().GetLBText(1), "DK_buoys");
    for (const auto& [id, text] : {std::pair{SHAPE_ROW_COLOUR, "Red"},
                                   {SHAPE_ROW_STYLE, "Dash"},
                                   {SHAPE_ROW_THICKNESS, "3"},
                                   {SHAPE_ROW_FILL, "Solid"},
                                   {SHAPE_ROW_LABEL_MODE, "Name"},
                                   {SHAPE_ROW_LABEL_COLUMN, "NAME"},
                                   {SHAPE_ROW_LABEL_POSITION, "Right"},
                                   {SHAPE_ROW_ICON, "True"},
                                   {SHAPE_ROW_DISPLAY, "False"}}) {
        EXPECT_TRUE(PickRow(*pane, id, text)) << text;
        EXPECT_EQ(Messages(), RedrawPair()) << text;
    }
    EXPECT_EQ(Lines("C:\\Charts\\DK_buoys.INI"),
              (Texts{"Status = 0", "Style = 1", "Size = 3", "Colour = 255", "Fill = 65535", "Label Mode = 1",
                     "Label Position = 4", "Label Column = 1", "Icon Mode = 1"}));
    EXPECT_EQ(Lines("C:\\Charts\\DK_coast.INI"), Texts{"(none)"}) << "the other file's settings";

    // Another run, with a file that has gone meanwhile: it keeps its place and says why it isn't shown.
    pane.reset();
    std::filesystem::remove(drives.Files().Native(kCoast));
    Restart();
    Open();
    EXPECT_EQ(pane->GetCombo().GetCount(), 2);
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetSubItem(1).FormatProperty(), "there is no .shp file");
    user::Select(pane->GetCombo(), 1);
    EXPECT_EQ(RowText(*pane, SHAPE_ROW_LABEL_COLUMN), "NAME");
    user::Select(pane->GetCombo(), 0);
    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(Messages(), RedrawPair());
    EXPECT_EQ(Lines(kList), (Texts{"[Shape File List]", std::string(kBuoys)}));
    user::Press(pane->GetRemoveButton());
    EXPECT_TRUE(job->shapes.shapes.empty());
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetName(), "No Files Selected");
}

TEST_F(ShapePaneTest, ChartsComeOutOfAFolderTree) {
    platform->AnswerFolder("C:\\Charts");
    platform->AnswerDialog([](CDialog& dialog) {
        user::Press(static_cast<CButton&>(*dialog.GetDlgItem(CShapeFileSelectorDlg::kChooseFolder)));
        user::Click(static_cast<CListCtrl&>(*dialog.GetDlgItem(CShapeFileSelectorDlg::kList)), 0);
        user::Accept(dialog);
    });
    user::Press(pane->GetChartsButton());
    EXPECT_EQ(pane->GetCombo().GetCount(), 2);
    EXPECT_EQ(job->shapes.shapes.size(), 2U);
}

TEST_F(ShapePaneTest, AFileThatCantBeReadIsToldAndNotListed) {
    drives.Write("C:\\Charts\\torn.shp", "torn");
    Add({"C:\\Charts\\torn.shp"});
    EXPECT_EQ(platform->Calls().back(), "warning: C:\\Charts\\torn.shp\nthere is no .shx file beside it");
    EXPECT_EQ(pane->GetCombo().GetCount(), 0);
    EXPECT_EQ(Lines(kList), Texts{"(none)"});
}

}  // namespace
}  // namespace quillon
