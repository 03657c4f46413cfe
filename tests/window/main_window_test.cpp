#include "window/main_window.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QTableView>
#include <QTemporaryDir>
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
#include "panes/boundary_pane.h"
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
    bool ChooseFiles(const FileQuestion& question, std::vector<std::string>& paths) override {
        asked = question;
        paths = answer;
        return !answer.empty();
    }
    std::vector<std::string> answer;
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

    /// Every file below the drives with its bytes.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(Drives())) {
            if (!entry.is_regular_file()) continue;
            std::ifstream in(entry.path(), std::ios::binary);
            files[entry.path().lexically_relative(Drives()).string()] = {std::istreambuf_iterator<char>(in), {}};
        }
        return files;
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
    EXPECT_EQ(Files(), left) << "nothing is saved at the end: all was saved when it was done";
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
    EXPECT_EQ(Files(), left) << "a start and an end change nothing";
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
    EXPECT_EQ(Files(), worked);
    run.window.Chart().setFocus();
    for (int acts = 3; acts > 0; --acts) run.Key(QKeySequence("Ctrl+Z"));
    EXPECT_EQ(Files(), start);
    EXPECT_FALSE(action("Ctrl+Z").isEnabled());
    EXPECT_EQ(action("Ctrl+Shift+Z").text(), "&Redo Boundary: Add File");
    run.Key(QKeySequence("Ctrl+Shift+Z"));
    ActListDialog list(run.job, &run.window);
    ASSERT_EQ(list.List().topLevelItemCount(), 4);
    EXPECT_EQ(list.List().currentIndex().row(), 1);
    list.List().setCurrentItem(list.List().topLevelItem(3));
    list.GoThere();
    run.window.Settle();
    EXPECT_EQ(Files(), worked);
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

}  // namespace
}  // namespace quillon
