#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <clocale>
#include <cstdlib>
#include <exception>
#include <iostream>

#include "chart/chart_picture.h"
#include "host/options.h"
#include "host/startup.h"
#include "platform/drives_lock.h"
#include "toolkit/text_edge.h"
#include "window/icons.h"
#include "window/main_window.h"
#include "window/picture.h"
#include "window/quit_signals.h"

namespace quillon {
namespace {

constexpr int kFailure = 1;
constexpr PixelSize kRenderSize = {1600, 1000};
constexpr const char* kSamplePicture = "quillon-sample.png";
constexpr const char* kSampleNote = "Sample job: nothing is kept after the end";

/// The toolkit takes over the user's locale when it starts. Numbers are read and written the same everywhere, so all of
/// it is put back but the kind of characters, which typing accents depends on.
void KeepNumbersPlain() {
    std::setlocale(LC_ALL, "C");
    std::setlocale(LC_CTYPE, "");
    QLocale::setDefault(QLocale::c());
}

int Fail(const std::string& what) {
    std::cerr << "quillon-workbench: " << what << '\n';
    return kFailure;
}

/// Writes and says where, or says why not.
int Deliver(const QImage& picture, const std::filesystem::path& file) {
    QString fault;
    if (!SavePicture(picture, QString::fromStdString(file.string()), fault)) {
        return Fail(file.string() + ": " + fault.toStdString());
    }
    std::cout << file.string() << '\n';
    return 0;
}

int Render(QtPlatform& platform, const WorkbenchOptions& options) {
    Job job(platform);
    job.Open();
    job.Loads().Settle();
    const PixelSize size = options.size.value_or(kRenderSize);
    SceneBuilder scenes(job.Record());
    return Deliver(RenderChart(scenes.Build(), QSize(size.width, size.height), options.night), options.render);
}

int Screenshot(QtPlatform& platform, Theme& theme, const WorkbenchOptions& options) {
    Job job(platform);
    job.Open();
    MainWindow window(job, platform, theme);
    window.SetNight(options.night);
    if (options.sample) window.SetNote(kSampleNote);
    if (options.size) window.resize(options.size->width, options.size->height);
    window.show();
    window.Settle();
    return Deliver(window.grab().toImage(), options.screenshot);
}

/// The folder as a title shows it: the home folder by its usual sign.
QString FolderTitle(const std::filesystem::path& drives) {
    const QString folder = QString::fromStdString(drives.string());
    const QString home = QDir::homePath();
    return folder.startsWith(home + '/') ? '~' + folder.mid(home.size()) : folder;
}

enum class OPENING { WRITE, READ_ONLY, QUIT };

/// What to do with a folder that can't be had for writing: the operator says.
OPENING AskHowToOpen(const DrivesLock& lock, DRIVES_HOLD hold, const QString& folder, QString& why) {
    QMessageBox box(QMessageBox::Warning, "Quillon", {});
    const QString holder = lock.Holder() ? ToQString(HolderText(*lock.Holder())) : QString("another program");
    QPushButton* write = nullptr;
    if (!lock.GetFault().empty()) {
        why = folder + " can't be locked for writing: " + ToQString(lock.GetFault());
        box.setText("The folder of this job can't be locked for writing.");
        box.setInformativeText(folder + "\n" + ToQString(lock.GetFault()));
    } else if (hold == DRIVES_HOLD::MAYBE_HELD) {
        why = "Opened for reading only: " + holder + " may have this job open";
        box.setText("Another program may have this job open.");
        box.setInformativeText(folder + "\n" + holder +
                               "\n\nNobody can tell from here whether it still runs. If it does, two programs that "
                               "write to one job wipe out each other's lists.");
        write = box.addButton("Open for &Writing", QMessageBox::DestructiveRole);
    } else {
        why = "Opened for reading only: " + holder + " has this job open";
        box.setText("This job is open in another program.");
        box.setInformativeText(folder + "\n" + holder + "\n\nIt can be looked at; what is changed is not saved.");
    }
    QPushButton* const look = box.addButton("Open &Read Only", QMessageBox::AcceptRole);
    QPushButton* const quit = box.addButton("&Quit", QMessageBox::RejectRole);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(look);
    box.setEscapeButton(quit);
    box.exec();
    if (write && box.clickedButton() == write) return OPENING::WRITE;
    return box.clickedButton() == look ? OPENING::READ_ONLY : OPENING::QUIT;
}

/// Takes the folder for writing, or makes the platform read only; `why` says why, for people. False to quit.
bool TakeDrives(QtPlatform& platform, DrivesLock& lock, QString& why) {
    const DRIVES_HOLD hold = lock.Look();
    if (lock.Take()) return true;
    const OPENING opening = AskHowToOpen(lock, hold, FolderTitle(platform.Files().Drives()), why);
    if (opening == OPENING::QUIT) return false;
    if (opening == OPENING::WRITE && lock.Take(true)) {
        why.clear();
    } else {
        platform.Files().SetAccess(FILE_ACCESS::READ_ONLY);
    }
    return true;
}

int Run(QtPlatform& platform, Theme& theme, const WorkbenchOptions& options) {
    const bool night = options.night || MainWindow::WasNight(platform.GetProfile());
    theme.SetNight(night);
    DrivesLock lock(platform.Files().Drives(), "Quillon");
    QString whyReadOnly;
    if (!TakeDrives(platform, lock, whyReadOnly)) return 0;
    Job job(platform);
    job.Open();
    MainWindow window(job, platform, theme);
    window.SetNight(night);
    window.SetFolder(options.sample ? "Sample Job" : FolderTitle(platform.Files().Drives()), whyReadOnly);
    if (options.sample) window.SetNote(kSampleNote);
    if (options.size) window.resize(options.size->width, options.size->height);
    const QuitSignals quitSignals([&window] {
        // A question that is open would hold the program.
        for (QWidget* const open : QApplication::topLevelWidgets()) {
            if (qobject_cast<QDialog*>(open) && open->isVisible()) open->close();
        }
        window.close();
    });
    window.show();
    std::vector<std::string> files;
    for (const auto& file : options.files) {
        files.push_back(platform.Files().LibraryPath(std::filesystem::absolute(file).lexically_normal()));
    }
    // A question may come: the window stands behind it.
    QTimer::singleShot(0, &window, [&] { window.TakeFiles(files); });
    return QApplication::exec();
}

/// Where the picture goes that stands in for the sample's window.
std::filesystem::path SamplePicture() {
    std::error_code failed;
    const auto here = std::filesystem::current_path(failed);
    const bool writable = !failed && ::access(here.c_str(), W_OK) == 0;
    return (writable ? here : std::filesystem::temp_directory_path()) / kSamplePicture;
}

int Start(int argc, char** argv, WorkbenchOptions options) {
    const DISPLAY_KIND display = FindDisplay();
    const bool chosenByUser = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (display == DISPLAY_KIND::NONE && !chosenByUser && !options.MakesPicture()) {
        if (!options.sample || !options.files.empty()) {
            return Fail("no display to open a window on; --render FILE.png draws the chart without one");
        }
        options.render = SamplePicture();
        std::cerr << "quillon-workbench: no display to open a window on; drawing the chart to a picture\n";
    }
    const std::string toolkit = ChooseToolkitPlatform(options, display, chosenByUser);
    if (!toolkit.empty()) qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString(toolkit));

    QApplication application(argc, argv);
    QApplication::setApplicationName("Quillon");
    QApplication::setApplicationVersion(QUILLON_VERSION);
    QApplication::setDesktopFileName("quillon-workbench");
    QApplication::setWindowIcon(MakeIcon(ICON::APPLICATION));
    KeepNumbersPlain();

    std::optional<ScratchJob> scratch;
    if (options.sample) {
        const auto sample = FindSampleJob(QApplication::applicationFilePath().toStdString());
        if (sample.empty()) return Fail("the sample job is not installed");
        scratch.emplace(sample);
    }
    std::filesystem::path drives = scratch ? scratch->Drives() : options.drives;
    if (drives.empty()) drives = DefaultDrives();
    std::error_code failed;
    std::filesystem::create_directories(drives / "c", failed);
    if (failed) return Fail("the drives folder " + drives.string() + " can't be made: " + failed.message());

    // What is only looked at leaves the user's own profile alone.
    const bool passing = options.sample || options.MakesPicture();
    const QTemporaryDir passingFolder;
    QtPlatform platform(std::filesystem::absolute(drives),
                        passing ? std::filesystem::path(passingFolder.filePath("profile.ini").toStdString())
                                : QtPlatform::DefaultProfileFile());
    // A picture is made without a word on the disk, so that it can be made of a job that is open elsewhere.
    if (options.MakesPicture()) platform.Files().SetAccess(FILE_ACCESS::READ_ONLY);
    Theme theme(application);
    if (!options.render.empty()) return Render(platform, options);
    if (!options.screenshot.empty()) return Screenshot(platform, theme, options);
    return Run(platform, theme, options);
}

}  // namespace
}  // namespace quillon

int main(int argc, char** argv) {
    const quillon::ParsedOptions parsed = quillon::ParseOptions(argc, argv);
    if (!parsed.options) {
        (parsed.exitCode == 0 ? std::cout : std::cerr) << parsed.text;
        return parsed.exitCode;
    }
    try {
        return quillon::Start(argc, argv, *parsed.options);
    } catch (const std::exception& error) {
        return quillon::Fail(error.what());
    }
}
