// Writes pictures of a pane with each control and each kind of row, by day and by night, to look at:
//     workbench_gallery FOLDER

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <clocale>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "background/dtm_dialogs.h"
#include "background/shape_file_selector_dlg.h"
#include "bindings/dialog_binding.h"
#include "bindings/property_list_binding.h"
#include "bindings/sample_pane.h"
#include "bindings/window_binding.h"
#include "chart/chart_symbols.h"
#include "frame/messages.h"
#include "panes/dtm_regular_dlg.h"
#include "toolkit/colours.h"
#include "toolkit/qt_platform.h"
#include "toolkit/theme.h"

#include "bindings/dialog_binding.h"
#include "display/print_list.h"
#include "panes/gpx_dlgs.h"
#include "panes/listing_pane.h"
#include "panes/wind_farm_dlgs.h"
#include "platform/text.h"
#include "platform/user_actions.h"
#include "window/print_preview.h"

namespace quillon::test {
namespace {

/// A load that stands still on its way, until it is quit.
void StandStill(LoadProgress& progress) {
    while (!progress.IsCancelled()) std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

class HeldLoad : public CLoadDlg {
public:
    HeldLoad(Platform& owner, LoadProgress& shared) : CLoadDlg(owner, shared, UM_DXF_THREAD, kLoadDlgSize, nullptr) {
        shared.Begin(386'000'000);
        shared.SetPosition(236'912'640);
    }

protected:
    std::string Caption() const override { return "Loading DXF Northfield A........."; }
    bool Work() override {
        StandStill(*held);
        return false;
    }
    void OnTick() override { ShowBytes(); }

public:
    LoadProgress* held = nullptr;
};

class HeldImport : public CImportDtm {
public:
    using CImportDtm::CImportDtm;

protected:
    bool Work() override {
        CImportDtm::Work();
        progress.SetPosition(progress.GetTotal() * 2 / 5);
        StandStill(progress);
        return false;
    }
};

class Gallery {
public:
    Gallery(QApplication& application, const QString& folder)
        : theme(application),
          target(folder),
          drives(std::filesystem::temp_directory_path() / "quillon-gallery"),
          platform(drives, drives / "profile.ini"),
          factory(DrawChartSymbol) {
        ShowDialogsBy(platform, factory);
    }
    ~Gallery() { std::filesystem::remove_all(drives); }

    void Shoot(bool night) {
        theme.SetNight(night);
        suffix = night ? "-night.png" : "-day.png";
        ShootPane(night);
        ShootChrome();
        ShootDialogs();
        ShootLoads();
        ShootTables(night);
    }

private:
    void Save(QWidget& widget, const QString& name) {
        QCoreApplication::processEvents();
        widget.grab().save(target + "/" + name + suffix);
    }

    /// The drop-downs side by side.
    void SavePickers(const std::vector<QPixmap>& pickers) {
        QPixmap sheet(200 * static_cast<int>(pickers.size()), 330);
        sheet.fill(QColor(90, 60, 90));
        QPainter painter(&sheet);
        int x = 5;
        for (const QPixmap& picker : pickers) {
            painter.drawPixmap(x, 5, picker);
            x += 200;
        }
        sheet.save(target + "/pickers" + suffix);
    }

    void ShootPane(bool night) {
        SamplePane pane(platform, night);
        WindowBinding view(pane, factory);
        view.resize(300, 760);
        view.show();
        view.activateWindow();
        QCoreApplication::processEvents();
        auto& list = static_cast<PropertyListBinding&>(*view.WidgetOf(pane.list));
        pane.Row(DEPTH_ROW).SetValue(99.0);
        list.View().setFocus();
        pane.list.SetCurSel(&pane.Row(DEPTH_ROW));
        pane.table.SetSelection(2);
        Save(view, "pane");
        QTest::keyClick(&list.View(), Qt::Key_F2);
        Save(view, "pane-editing");
        QTest::keyClick(list.View().Editor(), Qt::Key_Escape);
        std::vector<QPixmap> pickers;
        for (const SAMPLE_ROW row :
             {COLOUR_ROW, FILL_ROW, THICKNESS_ROW, SYMBOL_ROW, SIZE_ROW, LABEL_ROW, POSITION_ROW}) {
            pane.list.SetCurSel(&pane.Row(row));
            QTest::keyClick(&list.View(), Qt::Key_F4);
            pickers.push_back(list.View().Popup()->grab());
            QTest::keyClick(&list.View().Popup()->List(), Qt::Key_Escape);
        }
        SavePickers(pickers);
        view.resize(220, 620);
        Save(view, "pane-narrow");
    }

    // ---- Tables, what lies under a job, and paper ----

    void ShootModel(CControlWindow& model, QSize size, const char* name) {
        WindowBinding view(model, factory);
        view.resize(size);
        view.show();
        Save(view, name);
    }

    static TurbineDef Turbine(int number) {
        TurbineDef turbine;
        turbine.id = Format("A%02d", number);
        turbine.farm = "North Bank";
        turbine.title = "64 turbines";
        turbine.latitude = 1.0 + 0.0002 * number;
        turbine.longitude = 0.04;
        turbine.maxHeight = 187.5f;
        turbine.navigationLights = "Fl Y 5s";
        turbine.image = number % 8 == 0 ? 1 : 0;
        return turbine;
    }

    void ShootTables(bool night) {
        platform.SetNight(night);
        CGPX gpx(platform.Files());
        for (int t = 0; t < 3; ++t) {
            GpxTrack& track = gpx.tracks.emplace_back();
            track.name = Format("Day %d", t + 1);
            track.show = t != 1;
            for (int i = 0; i < 40; ++i) track.points.push_back({0.04 + 1e-4 * i, 1.0 + 1e-5 * i * i, 7e8 + 600.0 * i});
            ComputeLegs(track);
        }
        CGpxTracksDlg tracks(platform);
        tracks.SetData(&gpx);
        CGpxTracksDisplayDlg points(platform);
        points.SetData(&gpx);
        CWindFarmList farms(platform.Files());
        for (int i = 0; i < 20; ++i) farms.turbines.push_back(Turbine(i));
        CompleteFarms(farms.turbines, farms.farms);
        CWindFarmDlg options(platform);
        options.SetData(&farms);
        CFindWindFarm find(platform);
        find.SetData(&farms);
        CWindFarmTurbinesDlg turbines(platform);
        turbines.SetData("North Bank", "A07", &farms);
        const std::pair<CDialog*, const char*> dialogs[] = {{&tracks, "gpx-tracks"},
                                                            {&points, "gpx-points"},
                                                            {&options, "wind-farm"},
                                                            {&find, "wind-farm-find"},
                                                            {&turbines, "wind-farm-turbines"}};
        for (const auto& [dialog, name] : dialogs) {
            dialog->Create();
            QCoreApplication::processEvents();
            for (QWidget* const window : QApplication::topLevelWidgets()) {
                if (window->isVisible() && qobject_cast<QDialog*>(window)) Save(*window, name);
            }
            dialog->DestroyWindow();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        JobRecord job(platform.Files());
        auto route = std::make_unique<CRoute>(platform.Files());
        for (int i = 0; i < 60; ++i) {
            RouteDef record;
            record.position = {500000 + 120.5 * i, 6000000 + 33.25 * i};
            record.range = 125.0;
            record.bearing = 1.3;
            route->Add(record);
        }
        job.routes.Append(std::move(route));
        job.routes.SetEditCursor(0, 0);
        CListingPane listing(platform);
        listing.Create(nullptr, CListingPane::kTitleId, job);
        listing.SetNightMode(night);
        user::Select(listing.GetTypeCombo(), 2);
        ShootModel(listing, {460, 400}, "listing");
        const ListTable table = TableOf(listing.GetView());
        const PrintPages pages = [&](CPrinter& printer, const PrintJob& asked) {
            return PrintTable(printer, asked, "Transit", table, true, {"North Field, Grid Zone 31", "01 May 2026"});
        };
        PrintPreview preview(platform, "Transit", pages, nullptr);
        preview.show();
        for (int i = 0; i < 50; ++i) QTest::qWait(10);
        Save(preview, "print-preview");
        QFile pdf(target + "/listing.pdf");
        if (pdf.open(QIODevice::WriteOnly)) pdf.write(preview.MakePdf());
    }

    void ShootChrome() {
        QMainWindow window;
        QMenu* file = window.menuBar()->addMenu("&File");
        file->addAction("&Open...")->setShortcut(QKeySequence::Open);
        file->addSeparator();
        file->addAction("Disabled")->setEnabled(false);
        file->addAction("Night colours")->setCheckable(true);
        file->actions().last()->setChecked(true);
        window.menuBar()->addMenu("&View");
        window.addToolBar("Tools")->addAction("Zoom in");
        window.statusBar()->showMessage("E 512300.25  N 6213456.75");
        auto* dock = new QDockWidget("Boundary Properties", &window);
        dock->setWidget(new QListWidget(dock));
        window.addDockWidget(Qt::LeftDockWidgetArea, dock);
        auto* centre = new QWidget(&window);
        auto* column = new QVBoxLayout(centre);
        column->addWidget(new QLineEdit("Line edit"));
        auto* combo = new QComboBox;
        combo->addItem("Combo box");
        column->addWidget(combo);
        column->addWidget(new QSpinBox);
        column->addWidget(new QPushButton("Push button"));
        auto* off = new QPushButton("Disabled button");
        off->setEnabled(false);
        column->addWidget(off);
        auto* check = new QCheckBox("Check box");
        check->setChecked(true);
        column->addWidget(check);
        column->addWidget(new QRadioButton("Radio button"));
        auto* bar = new QProgressBar;
        bar->setValue(40);
        column->addWidget(bar);
        auto* tabs = new QTabWidget;
        tabs->addTab(new QGroupBox("Group"), "Target");
        tabs->addTab(new QWidget, "Shadow");
        column->addWidget(tabs);
        window.setCentralWidget(centre);
        window.resize(700, 460);
        window.show();
        Save(window, "chrome");
        file->popup(window.mapToGlobal(QPoint(0, 20)));
        Save(*file, "menu");
        file->close();
    }

    void ShootDialogs() {
        QMessageBox box(QMessageBox::Warning, "Quillon", "Requires a file name", QMessageBox::Ok);
        box.show();
        Save(box, "warning");
        QFileDialog dialog(nullptr, "Boundary Files ....", "/usr/share");
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setNameFilter(ToQtFilter("CSV Files (*.csv)|*.csv|All Files (*.*)|*.*||"));
        dialog.resize(700, 420);
        dialog.show();
        QTest::qWait(300);
        Save(dialog, "files");
    }

    /// Runs a dialog, takes its picture a moment later and leaves it.
    void ShootModal(const QString& name, const std::function<void()>& run) {
        QTimer::singleShot(400, qApp, [this, name] {
            if (auto* const open = dynamic_cast<DialogBinding*>(QApplication::activeModalWidget())) {
                Save(*open, name);
                open->reject();
            }
        });
        run();
    }

    void ShootLoads() {
        ShowDialogsBy(platform, factory);
        platform.SetNight(suffix.contains("night"));
        std::filesystem::create_directories(drives / "c" / "Job");
        std::ofstream(drives / "c" / "Job" / "Northfield.xyz") << "500000 5840000 -21.35\n500050 5840000 -22\n"
                                                                  "500100 5840000 -23.1\n500000 5840050 -28.04\n";
        for (const char* const chart : {"NF_blocks", "NF_cables", "UK_coast"}) {
            std::ofstream(drives / "c" / "Job" / (std::string(chart) + ".shp"));
        }
        LoadProgress progress;
        HeldLoad load(platform, progress);
        load.held = &progress;
        ShootModal("load", [&load] { load.DoModal(); });
        CDtm dtm(platform.Files());
        dtm.fileName[0] = "C:\\Job\\Northfield.xyz";
        HeldImport import(platform, dtm);
        ShootModal("load-dtm", [&import] { import.DoModal(); });
        CDtmRegularDlg regular(platform, dtm);
        ShootModal("regular", [&regular] { regular.DoModal(); });
        CShapeFileSelectorDlg charts(platform);
        charts.SetPath("C:\\Job\\", true);
        ShootModal("charts", [&charts] { charts.DoModal(); });
    }

    Theme theme;
    QString target;
    QString suffix;
    std::filesystem::path drives;
    QtPlatform platform;
    BindingFactory factory;
};

}  // namespace
}  // namespace quillon::test

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    std::setlocale(LC_ALL, "C");
    quillon::test::Gallery gallery(application, count > 1 ? arguments[1] : ".");
    gallery.Shoot(false);
    gallery.Shoot(true);
}
