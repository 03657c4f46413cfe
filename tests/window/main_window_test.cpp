#include "window/main_window.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QTableView>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest/QTest>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "bindings/property_list_binding.h"
#include "bindings/window_binding.h"
#include "chart/chart_picture.h"
#include "host/startup.h"
#include "host/structure_drag.h"
#include "panes/boundary_pane.h"
#include "panes/route_pane.h"
#include "panes/structure_pane.h"
#include "support/comma_locale.h"
#include "toolkit/text_edge.h"
#include "window/act_list_dialog.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

constexpr auto BOUNDARY = KIND::BOUNDARY;

/// The toolkit's platform, with a file question that is answered beforehand.
class ScriptedPlatform : public QtPlatform {
public:
    using QtPlatform::QtPlatform;
    void WarningMessage(std::string_view text) override { warnings.emplace_back(text); }
    bool ChooseFiles(const FileQuestion& question, std::vector<std::string>& paths) override {
        asked = question;
        if (answer.empty()) return QtPlatform::ChooseFiles(question, paths);
        paths = answer;
        return true;
    }
    std::vector<std::string> answer;
    std::vector<std::string> warnings;
    FileQuestion asked;
};

/// One run of the program: from its start to its window's closing.
class Program {
public:
    Program(const fs::path& drives, const fs::path& profile)
        : platform(drives, profile), theme(*qApp), job(platform), window(Opened(), platform, theme) {
        window.SetNight(MainWindow::WasNight(platform.GetProfile()));
        window.show();
        window.Settle();
    }
    ~Program() {
        window.close();
        theme.SetNight(false);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    CFeaturePane& Pane() { return dynamic_cast<CFeaturePane&>(*job.PaneOf(BOUNDARY)); }
    QDockWidget& Dock() { return *window.Docks().DockOf(BOUNDARY); }
    template <class Widget>
    Widget& WidgetOf(const CControl& control) {
        return dynamic_cast<Widget&>(*static_cast<WindowBinding*>(Dock().widget())->WidgetOf(control));
    }
    PropertyListView& Rows() { return WidgetOf<PropertyListBinding>(Pane().GetPropertyList()).View(); }

    void Choose(const char* file) {
        WidgetOf<QComboBox>(Pane().GetCombo()).setFocus();
        QTest::keyClicks(&WidgetOf<QComboBox>(Pane().GetCombo()), file);
        window.Settle();
        ASSERT_EQ(WidgetOf<QComboBox>(Pane().GetCombo()).currentText(), file);
    }
    void PressValue(UINT row) {
        PropertyListView& rows = Rows();
        const QRect value = rows.ValueRect(*Pane().GetPropertyList().FindItemByData(row));
        QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, {value.left() + 12, value.center().y()});
        window.Settle();
    }
    void Press(const CButton& button) {
        QTest::mouseClick(&WidgetOf<QWidget>(button), Qt::LeftButton);
        window.Settle();
    }
    void Key(const QKeySequence& key) {
        QTest::keySequence(&window, key);
        window.Settle();
    }
    void PickColour(int place) {
        PropertyListView& rows = Rows();
        const QRect value = rows.ValueRect(*Pane().GetPropertyList().FindItemByData(BOUNDARY_COLOUR));
        QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, {value.right() - 6, value.center().y()});
        ASSERT_NE(rows.Popup(), nullptr);
        QListWidget& list = rows.Popup()->List();
        list.setCurrentRow(place);
        QTest::keyClick(&list, Qt::Key_Return);
        window.Settle();
    }

    ScriptedPlatform platform;
    Theme theme;
    Job job;
    MainWindow window;

private:
    Job& Opened() {
        job.Open();
        return job;
    }
};

class MainWindowTest : public ::testing::Test {
protected:
    fs::path Profile() const { return fs::path(folder.path().toStdString()) / "profile.ini"; }
    fs::path Drives() const { return sample.Drives(); }

    /// Every file below the drives with its bytes, but for the widths of columns, which are stored at the end.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(Drives())) {
            if (!entry.is_regular_file() || entry.path().string().ends_with("_Column_State.INI")) continue;
            std::ifstream in(entry.path(), std::ios::binary);
            files[entry.path().lexically_relative(Drives()).string()] = {std::istreambuf_iterator<char>(in), {}};
        }
        return files;
    }
    /// The names of the files that are others than they were, came or went, without the caches of loads. Told by names
    /// alone: of large files that differ the test framework's own account of the lines would take all memory.
    std::vector<std::string> ChangedSince(const std::map<std::string, std::string>& before) const {
        std::vector<std::string> names;
        const auto now = Files();
        for (const auto& [name, bytes] : before) {
            if (const auto found = now.find(name); found == now.end() || found->second != bytes) names.push_back(name);
        }
        for (const auto& [name, bytes] : now) {
            if (!before.contains(name)) names.push_back(name);
        }
        std::erase_if(names, [](const std::string& name) { return name.ends_with(".DTM"); });
        return names;
    }
    void Write(const char* file, const char* bytes) const {
        fs::create_directories((Drives() / file).parent_path());
        std::ofstream(Drives() / file, std::ios::binary) << bytes;
    }

    /// A morning's work: a file added, another one recoloured and hidden, a point looked at, the lights turned down.
    void Work(Program& run) {
        run.platform.answer = {"C:\\Jobs\\Northfield\\Boundaries\\New Area.csv"};
        run.Press(run.Pane().GetAddButton());
        run.Choose("East Anchorage");
        run.PickColour(1);
        run.PressValue(BOUNDARY_DISPLAY);
        QTableView& table = run.WidgetOf<QTableView>(run.Pane().GetTable());
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.model()->index(2, 1)).center());
        run.window.Settle();
        run.Key(QKeySequence("Ctrl+N"));
    }

    const QTemporaryDir folder;
    const ScratchJob sample{QUILLON_SAMPLE_JOB};
};

constexpr const char* kNewArea = "c/Jobs/Northfield/Boundaries/New Area.csv";
constexpr const char* kNewAreaPoints = "498000.5, 5840000.25\r\n499000, 5840000\r\n499000, 5841000\r\n";

// A laptop's screen: points are in sight below the properties, and the columns of a route need no scrolling.
TEST_F(MainWindowTest, TheTableIsInSightOnASmallScreen) {
    Program run(Drives(), Profile());
    run.window.resize(1024, 600);
    run.window.Settle();
    const auto& table = run.WidgetOf<QTableView>(run.Pane().GetTable());
    EXPECT_TRUE(table.isVisible());
    EXPECT_GE(table.viewport()->height(), 4 * table.rowHeight(0));
    EXPECT_EQ(run.Dock().widget()->rect().bottom(), table.geometry().bottom());
    int columns = 0;
    auto& routes = dynamic_cast<CFeaturePane&>(*run.job.PaneOf(KIND::ROUTE));
    for (int i = 0; i < routes.GetTable().GetColumnCount(); ++i) columns += routes.GetTable().GetColumn(i).width;
    EXPECT_EQ(routes.GetTable().GetColumnCount(), 5);
    EXPECT_LE(columns, table.viewport()->width());
}

TEST_F(MainWindowTest, ADaysWorkIsThereTheNextMorning) {
    Write(kNewArea, kNewAreaPoints);
    std::map<std::string, std::string> left;
    {
        Program run(Drives(), Profile());
        EXPECT_EQ(run.Pane().GetCombo().GetLBText(run.Pane().GetCombo().GetCurSel()), "Northfield Work Area");
        Work(run);
        EXPECT_EQ(run.platform.asked.title, "Boundary Files ....");
        const CBoundary& anchorage = run.job.Record().boundaries[6];
        EXPECT_EQ(anchorage.GetName(), "East Anchorage");
        EXPECT_EQ(anchorage.pen.colour, RGB(255, 0, 0));
        EXPECT_FALSE(anchorage.Status);
        ASSERT_TRUE(run.job.ShownPoint());
        EXPECT_EQ(*run.job.ShownPoint(), anchorage[2]);
        EXPECT_EQ(run.window.Chart().Scene().shown, run.job.ShownPoint());
        EXPECT_TRUE(run.window.IsNight());
        EXPECT_TRUE(run.Pane().GetNightMode());
        run.Key(QKeySequence("Escape"));
        EXPECT_FALSE(run.window.Chart().Scene().shown);
        run.Dock().setFloating(true);
        left = Files();
    }
    EXPECT_THAT(ChangedSince(left), ::testing::IsEmpty())
        << "nothing is saved at the end: all was saved when it was done";
    EXPECT_NE(left.at("c/MyData/Boundaries/East Anchorage.DRW").find("Colour = 255\r\n"), std::string::npos);
    {
        Program run(Drives(), Profile());
        EXPECT_TRUE(run.window.IsNight());
        EXPECT_TRUE(run.Dock().isFloating());
        EXPECT_EQ(run.Pane().GetCombo().GetCount(), 12);
        EXPECT_EQ(run.Pane().GetCombo().GetLBText(run.Pane().GetCombo().GetCurSel()), "New Area");
        EXPECT_FALSE(run.job.Record().boundaries[6].Status);
        EXPECT_EQ(run.job.Record().boundaries[6].pen.colour, RGB(255, 0, 0));
        run.Key(QKeySequence("Ctrl+Shift+R"));
        EXPECT_FALSE(run.Dock().isFloating());
    }
    EXPECT_THAT(ChangedSince(left), ::testing::IsEmpty()) << "a start and an end change nothing";
}

TEST_F(MainWindowTest, ADaysWorkIsUndoneByKeyAndDoneAgainByTheList) {
    Write(kNewArea, kNewAreaPoints);
    const auto start = Files();
    Program run(Drives(), Profile());
    const auto action = [&](const char* key) -> QAction& {
        for (QAction* const each : run.window.actions()) {
            if (each->shortcut() == QKeySequence(key)) return *each;
        }
        throw std::logic_error(key);
    };
    EXPECT_FALSE(action("Ctrl+Z").isEnabled());
    Work(run);
    const auto worked = Files();
    EXPECT_EQ(action("Ctrl+Z").text(), "&Undo Boundary: Display");
    // What is typed into an editor is the editor's to take back.
    QLineEdit editor(&run.window);
    editor.show();
    editor.setFocus();
    QTest::keyClicks(&editor, "12");
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor.text(), "");
    EXPECT_THAT(ChangedSince(worked), ::testing::IsEmpty());
    run.window.Chart().setFocus();
    for (int acts = 3; acts > 0; --acts) run.Key(QKeySequence("Ctrl+Z"));
    EXPECT_THAT(ChangedSince(start), ::testing::IsEmpty());
    EXPECT_FALSE(action("Ctrl+Z").isEnabled());
    EXPECT_EQ(action("Ctrl+Shift+Z").text(), "&Redo Boundary: Add File");
    run.Key(QKeySequence("Ctrl+Shift+Z"));
    ActListDialog list(run.job, &run.window);
    ASSERT_EQ(list.List().topLevelItemCount(), 4);
    EXPECT_EQ(list.List().currentIndex().row(), 1);
    list.List().setCurrentItem(list.List().topLevelItem(3));
    list.GoThere();
    run.window.Settle();
    EXPECT_THAT(ChangedSince(worked), ::testing::IsEmpty());
}

TEST_F(MainWindowTest, ADecimalCommaInTheUsersLocaleChangesNoByte) {
    Write(kNewArea, kNewAreaPoints);
    const auto start = Files();
    {
        Program run(Drives(), Profile());
        Work(run);
    }
    const auto plain = Files();
    const ScratchJob other{QUILLON_SAMPLE_JOB};
    fs::copy_file(Drives() / kNewArea, other.Drives() / kNewArea);
    {
        const CommaLocale comma;
        if (!CommaLocale::IsSet()) GTEST_SKIP() << "no locale with a decimal comma";
        const QTemporaryDir otherFolder;
        Program run(other.Drives(), otherFolder.filePath("profile.ini").toStdString());
        Work(run);
        EXPECT_EQ(run.Pane().GetTable().GetItemText(0, 1).find(','), std::string::npos);
        EXPECT_EQ(PositionText({1234.5, 2.25}).toStdString().find(','), std::string::npos);
    }
    for (const auto& [file, bytes] : plain) {
        if (file.ends_with(".DTM")) continue;  // a cache holds the time of its source
        std::ifstream in(other.Drives() / file, std::ios::binary);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), bytes) << file;
    }
    EXPECT_NE(plain, start);
}

TEST_F(MainWindowTest, AClickOnTheChartFindsFileAndRow) {
    Program run(Drives(), Profile());
    const CBoundary& zone = run.job.Record().boundaries[8];
    ASSERT_EQ(zone.GetName(), "NF-B Safety Zone");
    ChartWidget& chart = run.window.Chart();
    chart.SetView(zone[9], 2.0);
    QTest::mouseClick(&chart, Qt::LeftButton, {}, chart.rect().center());
    run.window.Settle();
    EXPECT_EQ(run.Pane().GetCombo().GetCurSel(), 8);
    EXPECT_EQ(run.Pane().GetTable().GetSelection(), 9);
    EXPECT_EQ(run.job.Record().boundaries.editState.editPointIndex, 9);
    const QTableView& table = run.WidgetOf<QTableView>(run.Pane().GetTable());
    EXPECT_EQ(table.selectionModel()->selectedRows().value(0).row(), 9);
}

/// An area is chosen by a click into it, its pane comes up though it was put away; what is found is marked in the
/// middle of the chart; the keys R and Esc take up and put away the measure.
TEST_F(MainWindowTest, TheChartNamesFindsAndMeasures) {
    Program run(Drives(), Profile());
    ChartWidget& chart = run.window.Chart();
    run.job.Record().boundaries[8].pen.fill = kFillSolid;
    run.Dock().hide();
    chart.SetView(run.job.Record().boundaries[8][0], 2.0);
    run.window.Settle();
    QTest::mouseClick(&chart, Qt::LeftButton, {}, chart.rect().center());
    run.window.Settle();
    EXPECT_TRUE(run.Dock().isVisible());
    EXPECT_EQ(run.Pane().GetCombo().GetCurSel(), 8);

    run.Key(QKeySequence("Ctrl+F"));
    QLineEdit& find = run.window.Acts().Find().Edit();
    EXPECT_TRUE(find.isVisible());
    const JobRecord& record = run.job.Record();
    QTest::keyClicks(&find, ToQString(record.routes[0][1].name));
    QTest::keyClick(&find, Qt::Key_Return);
    run.window.Settle();
    ASSERT_TRUE(run.job.ShownPoint());
    EXPECT_EQ(chart.View().Centre(), *run.job.ShownPoint());
    find.setText("KP 2");
    QTest::keyClick(&find, Qt::Key_Return);
    const tagXY first = *run.job.ShownPoint();
    QTest::keyClick(&find, Qt::Key_Return);
    run.window.Settle();
    EXPECT_NE(run.job.ShownPoint(), first) << run.window.Acts().Find().State().toStdString();
    EXPECT_TRUE(run.window.Acts().Find().State().startsWith("2 of "));
    QTest::keyClick(&find, Qt::Key_Escape);
    EXPECT_FALSE(find.isVisible());

    chart.setFocus();
    QTest::keyClick(&chart, Qt::Key_R);
    ASSERT_NE(chart.Tool(), nullptr);
    QTest::mouseClick(&chart, Qt::LeftButton, {}, {100, 200});
    QTest::mouseMove(&chart, {300, 120});
    run.window.Settle();
    const auto& measure = dynamic_cast<const MeasureTool&>(*chart.Tool());
    EXPECT_NE(measure.Text().find(" grid"), std::string::npos) << measure.Text();
    QTest::keyClick(&chart, Qt::Key_Escape);
    EXPECT_EQ(chart.Tool(), nullptr);
    EXPECT_TRUE(run.job.ShownPoint()) << "Esc ends one thing at a time";
}

/// The sea bed is there without anybody having loaded it; its depth stands under the cursor, and its picture stays away
/// once it was put away.
TEST_F(MainWindowTest, TheDepthUnderTheCursor) {
    for (const bool shown : {true, false}) {
        Program run(Drives(), Profile());
        ChartWidget& chart = run.window.Chart();
        EXPECT_EQ(chart.Scene().legend.has_value(), shown);
        const tagXY place{505025, 5843025};
        chart.SetView(place, 5.0);
        QTest::mouseMove(&chart, chart.rect().center() + QPoint(20, 0));
        QTest::mouseMove(&chart, chart.rect().center());
        run.window.Settle();
        const auto labels = run.window.findChildren<QLabel*>();
        const auto depth = std::find_if(labels.begin(), labels.end(),
                                        [](const QLabel* label) { return label->text().startsWith("Depth "); });
        ASSERT_NE(depth, labels.end());
        EXPECT_NEAR((*depth)->text().mid(6, 5).toDouble(), run.job.Record().dtm.DepthAt(place), 0.5);
        for (QAction* const action : run.window.actions()) {
            if (shown && action->text() == "&Depths") action->trigger();
        }
        run.window.Settle();
        EXPECT_FALSE(chart.Scene().legend);
    }
}

/// A structure is moved and turned where it is drawn: one write when the mouse is let go, none after Esc.
TEST_F(MainWindowTest, StructuresAreMovedAndTurnedWithTheMouse) {
    Program run(Drives(), Profile());
    ChartWidget& chart = run.window.Chart();
    const StructureDef before = std::as_const(run.job.Record().structures)[0][0];
    const auto now = [&] { return std::as_const(run.job.Record().structures)[0][0]; };
    const std::string file = "c/Jobs/Northfield/Structures/" + run.job.Record().structures[0].GetName() + ".dat";
    const std::string bytes = Files().at(file);
    run.job.SelectPoint({KIND::STRUCTURE, 0, 0});
    chart.SetView(before.position, 0.5);
    chart.setFocus();
    QTest::keyClick(&chart, Qt::Key_M);
    ASSERT_NE(chart.Tool(), nullptr);
    auto& pane = dynamic_cast<CStructurePane&>(*run.job.PaneOf(KIND::STRUCTURE));
    EXPECT_EQ(pane.GetPropertyList().colourScheme, 7) << "the pane says that structures are edited";

    const QPoint at = chart.rect().center();
    const auto dragBy = [&](QPoint from, QPoint by) {
        QTest::mousePress(&chart, Qt::LeftButton, {}, from);
        QTest::mouseMove(&chart, from + by / 2);
        QTest::mouseMove(&chart, from + by);
    };
    dragBy(at, {40, 20});
    QTest::keyClick(&chart, Qt::Key_Escape);
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, at + QPoint(40, 20));
    run.window.Settle();
    EXPECT_EQ(now(), before);
    EXPECT_EQ(Files().at(file), bytes) << "Esc leaves it where it was";

    dragBy(at, {40, 20});
    EXPECT_EQ(now(), before) << "nothing is stored while the mouse is down";
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, at + QPoint(40, 20));
    run.window.Settle();
    EXPECT_NEAR(now().position.x, before.position.x + 20.0, 1e-6);
    EXPECT_NEAR(now().position.y, before.position.y - 10.0, 1e-6);
    EXPECT_EQ(now().heading, before.heading);
    EXPECT_NE(Files().at(file), bytes);
    EXPECT_EQ(pane.GetPropertyList().colourScheme, 7);

    // Turned by its handle, a quarter to starboard of where it looks.
    chart.SetView(now().position, 0.5);
    const StructureDrag drag(run.job.Record().structures);
    const tagXY handle = drag.FrameOf({KIND::STRUCTURE, 0, 0})->Handle(28.0 * 0.5);
    const PixelPoint pixel = chart.View().ToPixel(handle), middle = chart.View().ToPixel(now().position);
    const QPoint from(static_cast<int>(std::lround(pixel.x)), static_cast<int>(std::lround(pixel.y)));
    const QPoint to(static_cast<int>(std::lround(middle.x - (pixel.y - middle.y))),
                    static_cast<int>(std::lround(middle.y + (pixel.x - middle.x))));
    dragBy(from, to - from);
    QTest::mouseRelease(&chart, Qt::LeftButton, {}, to);
    run.window.Settle();
    EXPECT_NEAR(now().heading, before.heading + 90.0, 1.0);
    QTest::keyClick(&chart, Qt::Key_Escape);
    EXPECT_EQ(chart.Tool(), nullptr);
    EXPECT_EQ(pane.GetPropertyList().colourScheme, 1);
}

/// Files that come without a word go the way of their panes; the operator is asked where only he can tell, once for
/// files alike; what is of no use is told with its reason.
TEST_F(MainWindowTest, FilesAreTakenAsTheyCome) {
    Write("c/New/a.csv", "500000,6000000\r\n500100,6000000\r\n500100,6000100\r\n");
    Write("c/New/b.csv", "500000,6000000\r\n500100,6000000\r\n");
    Write("c/New/s.dat", "STRUCTURE 1\nNAME X\nSHAPE Template\nSHOW 1\n1E 2\nHEIGHT 0\nHEADING 0\nLENGTH 5\n");
    Write("c/New/letter.txt", "Dear all");
    Program run(Drives(), Profile());
    const int boundaries = run.job.Record().boundaries.GetCount(), routes = run.job.Record().routes.GetCount();
    std::vector<std::string> asked;
    run.window.Files().ask = [&](const auto& paths, const auto& kinds) {
        asked = paths;
        EXPECT_EQ(kinds.front(), KIND::BOUNDARY);
        return std::optional(KIND::ROUTE);
    };
    const std::string folder = "C:\\New\\";
    run.window.TakeFiles({folder + "a.csv", folder + "s.dat", folder + "letter.txt", folder + "b.csv"});
    EXPECT_EQ(asked, (std::vector<std::string>{folder + "a.csv", folder + "b.csv"}));
    EXPECT_EQ(run.job.Record().routes.GetCount(), routes + 2);
    EXPECT_EQ(run.job.Record().boundaries.GetCount(), boundaries);
    EXPECT_GE(run.job.Record().structures.Find(folder + "s.dat"), 0);
    EXPECT_EQ(run.platform.warnings,
              (std::vector<std::string>{"Not taken:\nletter.txt: no kind of file that a job holds"}));
    asked.clear();
    run.window.TakeFiles({folder + "a.csv"});
    EXPECT_THAT(asked, ::testing::IsEmpty()) << "the job knows what it is";
    EXPECT_EQ(run.job.Record().routes.GetCount(), routes + 2);
}

/// The whole job is in view at the start and stays so while the window changes its size, until the operator looks
/// elsewhere.
TEST_F(MainWindowTest, TheWholeJobStaysInView) {
    Program run(Drives(), Profile());
    const ChartView& view = run.window.Chart().View();
    EXPECT_LE(run.window.width(), run.window.screen()->availableSize().width()) << "the first window fits the screen";
    run.window.resize(1480, 940);
    run.window.Settle();
    const double scale = view.MetresPerPixel();
    run.window.resize(800, 600);
    run.window.Settle();
    EXPECT_GT(view.MetresPerPixel(), 1.2 * scale);
    run.Key(QKeySequence("Ctrl++"));
    const double chosen = view.MetresPerPixel();
    run.window.resize(1400, 900);
    run.window.Settle();
    EXPECT_EQ(view.MetresPerPixel(), chosen);
}

TEST_F(MainWindowTest, EveryActionHasATipAndMostHaveAKey) {
    Program run(Drives(), Profile());
    std::map<QString, QString> keys;
    for (const QAction* action : run.window.actions()) {
        EXPECT_FALSE(action->toolTip().isEmpty()) << action->text().toStdString();
        const QString key = action->shortcut().toString();
        if (key.isEmpty()) continue;
        EXPECT_EQ(keys.count(key), 0u) << key.toStdString() << " is " << keys[key].toStdString() << " and "
                                       << action->text().toStdString();
        keys[key] = action->text();
    }
    EXPECT_GT(keys.size(), 12u);
}

TEST_F(MainWindowTest, AFirstStartShowsOnePaneAndAPaneShownComesBack) {
    {
        Program run(Drives(), Profile());
        int shown = 0;
        for (const QDockWidget* dock : run.window.Docks().Docks()) shown += PaneDocks::IsShown(*dock) ? 1 : 0;
        EXPECT_EQ(shown, 1);
        EXPECT_TRUE(run.Dock().isVisible());
        run.Key(QKeySequence("Ctrl+2"));
        EXPECT_TRUE(run.window.Docks().Docks()[1]->isVisible());
        EXPECT_EQ(run.platform.GetProfile().GetInt(CMyDockablePane::ProfileSection(run.job.Panes()[1]->GetDlgCtrlID()),
                                                   "IsVisible", -1),
                  1);
    }
    Program run(Drives(), Profile());
    EXPECT_TRUE(PaneDocks::IsShown(*run.window.Docks().Docks()[1]));
    EXPECT_TRUE(run.job.Panes()[1]->IsVisible());
    EXPECT_FALSE(run.job.Panes()[2]->IsVisible());
}

TEST_F(MainWindowTest, PicturesShowTheJobByDayAndByNight) {
    Program run(Drives(), Profile());
    for (const bool night : {false, true}) {
        const QImage picture = RenderChart(run.window.Chart().Scene(), QSize(640, 400), night);
        ASSERT_EQ(picture.size(), QSize(640, 400));
        EXPECT_EQ(qGray(picture.pixel(3, 200)) < 40, night) << "the ground";
        std::set<QRgb> colours;
        for (int y = 0; y < 400; y += 3) {
            for (int x = 0; x < 640; ++x) colours.insert(picture.pixel(x, y));
        }
        EXPECT_GT(colours.size(), 20u) << "there is something to see";
    }
}

/// A visible row of the job tree, by its text.
QModelIndex RowOf(QTreeView& tree, const char* text) {
    return tree.model()
        ->match(tree.model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly | Qt::MatchRecursive)
        .value(0);
}

TEST_F(MainWindowTest, TheTreeShowsThePaneOfWhatIsChosenAndAPinKeepsOne) {
    Program run(Drives(), Profile());
    auto& tree = *run.window.Desk().Tree().findChild<QTreeView*>();
    const auto click = [&](const char* file, int x) {
        const QModelIndex row = RowOf(tree, file);
        ASSERT_TRUE(row.isValid()) << file;
        tree.scrollTo(row);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(row).topLeft() + QPoint(x, 8));
        QTest::qWait(1);
        run.window.Settle();
    };
    PaneDocks& docks = run.window.Docks();
    QDockWidget& routes = *docks.DockOf(KIND::ROUTE);
    const int width = run.Dock().width();
    click("Supply Route", 80);
    EXPECT_TRUE(PaneDocks::IsInFront(routes));
    EXPECT_FALSE(PaneDocks::IsShown(run.Dock())) << "one pane at the right";
    EXPECT_NEAR(routes.width(), width, 2) << "the next pane takes the room of the one before";
    EXPECT_EQ(run.job.PaneOf(KIND::ROUTE)->GetFileControls().choice->GetCurSel(),
              run.job.Record().routes.Find("C:\\Jobs\\Northfield\\Routes\\Supply Route.csv"));
    docks.SetPinned(routes, true);
    click("East Anchorage", 80);
    EXPECT_TRUE(PaneDocks::IsShown(routes));
    EXPECT_TRUE(PaneDocks::IsInFront(run.Dock()));
    EXPECT_EQ(run.Pane().GetCombo().GetLBText(run.Pane().GetCombo().GetCurSel()), "East Anchorage");

    const auto anchorage = run.job.Record().boundaries.Find("C:\\Jobs\\Northfield\\Boundaries\\East Anchorage.csv");
    EXPECT_TRUE(run.job.Record().boundaries[anchorage].Status);
    QTest::keyClick(&tree, Qt::Key_Space);
    QTest::qWait(1);
    run.window.Settle();
    EXPECT_FALSE(run.job.Record().boundaries[anchorage].Status);
    EXPECT_EQ(RowOf(tree, "East Anchorage").data(Qt::CheckStateRole), Qt::Unchecked);
    const int before = run.job.Record().boundaries.GetCount();
    QTest::keyClick(&tree, Qt::Key_Delete);
    QTest::qWait(1);
    run.window.Settle();
    EXPECT_EQ(run.job.Record().boundaries.GetCount(), before - 1);
    EXPECT_FALSE(RowOf(tree, "East Anchorage").isValid());
}

TEST_F(MainWindowTest, AnotherProgramsFileIsOfferedForReadingAgain) {
    Program run(Drives(), Profile());
    using enum NoticeStrip::TOPIC;
    run.window.Desk().LookAtDisk();
    EXPECT_FALSE(run.window.Desk().Notices().isVisible());
    const CBoundary& anchorage = run.job.Record().boundaries[6];
    Write("c/Jobs/Northfield/Boundaries/East Anchorage.csv", "1,2\r\n3,4\r\n");
    run.window.Desk().LookAtDisk();
    EXPECT_TRUE(run.window.Desk().Notices().TextOf(CHANGED_ON_DISK).startsWith("East Anchorage.csv"));
    EXPECT_TRUE(run.window.Desk().Notices().Press(CHANGED_ON_DISK, "Read Again"));
    QTest::qWait(1);
    run.window.Settle();
    EXPECT_EQ(anchorage.GetSize(), 2);
    EXPECT_FALSE(run.window.Desk().Notices().isVisible());
}

TEST_F(MainWindowTest, AValueInAnOpenEditAndTheViewOutliveTheEnd) {
    const auto widthRow = [](Program& run) {
        auto& pane = dynamic_cast<CFeaturePane&>(*run.job.PaneOf(KIND::ROUTE));
        return pane.GetPropertyList().FindItemByData(ROUTE_PORT_WIDTH);
    };
    {
        Program run(Drives(), Profile());
        run.window.Docks().Raise(KIND::ROUTE);
        run.window.Settle();
        auto& pane = dynamic_cast<CFeaturePane&>(*run.job.PaneOf(KIND::ROUTE));
        auto& binding = *static_cast<WindowBinding*>(run.window.Docks().DockOf(KIND::ROUTE)->widget());
        PropertyListView& rows = dynamic_cast<PropertyListBinding&>(*binding.WidgetOf(pane.GetPropertyList())).View();
        pane.GetPropertyList().SetCurSel(widthRow(run));
        QTest::keyClick(&rows, Qt::Key_F2);
        ASSERT_NE(rows.Editor(), nullptr);
        rows.Editor()->setText("321.5");
        run.window.Chart().SetView({500000, 5840000}, 12.5);
    }
    Program run(Drives(), Profile());
    EXPECT_EQ(widthRow(run)->Get<double>(), 321.5);
    EXPECT_EQ(run.window.Chart().View().Centre(), (tagXY{500000, 5840000}));
    EXPECT_EQ(run.window.Chart().View().MetresPerPixel(), 12.5);
}

}  // namespace
}  // namespace quillon
