#include "toolkit/qt_platform.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QEvent>
#include <QFileDialog>
#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTimeZone>
#include <QTreeView>
#include <QUrl>
#include <QWidgetAction>
#include <algorithm>
#include <stdexcept>

#include "platform/dialog.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr const char* kFolderSection = "Files";
constexpr const char* kFolderKey = "LastFolder";
/// How long messages are delivered at a stretch before the toolkit gets its turn to paint.
constexpr int kStretchMs = 12;
constexpr int kRowPadding = 6;
constexpr int kComboPadding = 8;
constexpr int kTabPadding = 11;
constexpr QSize kFileDialogSize(860, 520);

std::vector<std::string_view> SplitAtBars(std::string_view filter) {
    std::vector<std::string_view> parts;
    while (!filter.empty()) {
        const std::size_t bar = std::min(filter.find('|'), filter.size());
        parts.push_back(filter.substr(0, bar));
        filter.remove_prefix(std::min(bar + 1, filter.size()));
    }
    return parts;
}

QList<QUrl> SidebarPlaces(const FileSystem& files) {
    QList<QUrl> places;
    for (const char drive : {'c', 'd', 'e'}) {
        const QString folder = QString::fromStdString((files.Drives() / std::string(1, drive)).string());
        if (QDir(folder).exists()) places.push_back(QUrl::fromLocalFile(folder));
    }
    places.push_back(QUrl::fromLocalFile(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)));
    places.push_back(QUrl::fromLocalFile(QDir::homePath()));
    return places;
}

struct tagPlace {
    std::string folder;
    std::string name;
};

tagPlace PlaceOf(std::string_view path) {
    const std::size_t cut = path.find_last_of("\\/");
    if (cut == std::string_view::npos) return {{}, std::string(path)};
    return {std::string(path.substr(0, cut + 1)), std::string(path.substr(cut + 1))};
}

/// A heading in a menu: white on dark grey by day and by night. It can't be chosen.
QAction* MakeHeading(std::string_view text, QMenu& menu) {
    auto* const label = new QLabel(ToQString(text), &menu);
    label->setAutoFillBackground(true);
    label->setMargin(4);
    QPalette colours;
    colours.setColor(QPalette::Window, QColor(0x40, 0x40, 0x40));
    colours.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(colours);
    auto* const action = new QWidgetAction(&menu);
    action->setDefaultWidget(label);
    action->setEnabled(false);
    return action;
}

/// The names get the room that size and date leave; what the kind of a file is called tells nothing here. The toolkit's
/// own dialog, since it follows the night colours.
void PrepareFileDialog(QFileDialog& dialog, const FileSystem& files) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.resize(kFileDialogSize);
    dialog.setSidebarUrls(SidebarPlaces(files));
    auto* const list = dialog.findChild<QTreeView*>("treeView");
    if (!list) return;
    constexpr int kName = 0, kSize = 1, kType = 2, kDate = 3;
    QHeaderView& header = *list->header();
    header.setStretchLastSection(false);
    header.hideSection(kType);
    header.setSectionResizeMode(kName, QHeaderView::Stretch);
    for (const int column : {kSize, kDate}) header.setSectionResizeMode(column, QHeaderView::ResizeToContents);
}

}  // namespace

QString ToQtFilter(std::string_view filter) {
    QStringList entries;
    const std::vector<std::string_view> parts = SplitAtBars(filter);
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        if (parts[i].empty()) continue;
        // The label repeats the patterns in brackets; the toolkit adds its own.
        const std::string_view label = Trim(parts[i].substr(0, parts[i].find('(')));
        QStringList patterns = ToQString(parts[i + 1]).split(';', Qt::SkipEmptyParts);
        for (QString& pattern : patterns) pattern = pattern.trimmed() == "*.*" ? QString("*") : pattern.trimmed();
        entries += ToQString(label) + " (" + patterns.join(' ') + ")";
    }
    return entries.join(";;");
}

QtPlatform::QtPlatform(std::filesystem::path drivesFolder, const std::filesystem::path& profileFile,
                       std::string programName)
    : Platform(std::move(drivesFolder), std::move(programName), std::make_unique<SteadyClock>()),
      profile(profileFile),
      waker(*this) {
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &waker, [this] { Deliver(); });
    Messages().SetWake([this] { Wake(); });
}

QtPlatform::~QtPlatform() {
    Messages().SetWake({});
}

std::filesystem::path QtPlatform::DefaultProfileFile() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::filesystem::path(folder.toStdString()) / "quillon" / "workbench.ini";
}

// ---- Messages ----

bool QtPlatform::Waker::event(QEvent* event) {
    if (event->type() != QEvent::User) return QObject::event(event);
    platform.Deliver();
    return true;
}

void QtPlatform::Wake() {
    if (!awake.exchange(true)) QCoreApplication::postEvent(&waker, new QEvent(QEvent::User), Qt::LowEventPriority);
}

void QtPlatform::Deliver() {
    // Lowered first: a message may run a loop of its own, which needs its wake-ups.
    awake = false;
    QElapsedTimer stretch;
    stretch.start();
    while (Messages().PumpOne()) {
        if (stretch.elapsed() < kStretchMs) continue;
        Wake();
        break;
    }
    ArmTimer();
}

void QtPlatform::ArmTimer() {
    const auto due = Messages().NextDue();
    if (!due) {
        timer.stop();
        return;
    }
    const auto wait = std::max(*due - GetClock().Now(), Clock::Time(0));
    timer.start(wait);
}

void QtPlatform::RunModal(const std::function<bool()>& ended) {
    while (!ended()) QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

std::unique_ptr<DialogView> QtPlatform::ShowDialog(CDialog& dialog) {
    if (!makeDialog) throw std::logic_error("no bindings to show a dialog by");
    return makeDialog(dialog, DialogParent());
}

// ---- Questions ----

QWidget* QtPlatform::DialogParent() const {
    QWidget* const active = QApplication::activeWindow();
    return active ? active : parentWindow;
}

std::string QtPlatform::LastFolder() const {
    return profile.GetText(kFolderSection, kFolderKey, "C:\\");
}

bool QtPlatform::ChooseFolder(std::string_view title, std::string& folder) {
    const QString start = QString::fromStdString(Files().Native(folder.empty() ? LastFolder() : folder).string());
    QFileDialog dialog(DialogParent(), ToQString(title), start);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setFileMode(QFileDialog::Directory);
    PrepareFileDialog(dialog, Files());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
    folder = Files().LibraryPath(dialog.selectedFiles().front().toStdString());
    return true;
}

bool QtPlatform::ChooseFiles(const FileQuestion& question, std::vector<std::string>& paths) {
    paths = std::exchange(prepared, {});
    if (!paths.empty()) return true;
    const std::string folder = question.start.empty() ? LastFolder() : question.start;
    QFileDialog dialog(DialogParent(), ToQString(question.title),
                       QString::fromStdString(Files().Native(folder).string()));
    dialog.setNameFilter(ToQtFilter(question.filter));
    dialog.setFileMode(question.multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    PrepareFileDialog(dialog, Files());
    if (dialog.exec() != QDialog::Accepted) return false;
    for (const QString& file : dialog.selectedFiles()) paths.push_back(Files().LibraryPath(file.toStdString()));
    KeepFolder(dialog);
    return true;
}

void QtPlatform::KeepFolder(const QFileDialog& dialog) {
    profile.SetText(kFolderSection, kFolderKey, Files().LibraryPath(dialog.directory().absolutePath().toStdString()));
}

bool QtPlatform::ChooseSaveFile(const SaveQuestion& question, SaveChoice& choice) {
    QFileDialog dialog(DialogParent(), ToQString(question.title));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(ToQString(question.extension));
    const QStringList forms = ToQtFilter(question.filter).split(";;");
    dialog.setNameFilters(forms);
    PrepareFileDialog(dialog, Files());
    const tagPlace start = PlaceOf(question.start);
    const std::string folder = start.folder.empty() ? LastFolder() : start.folder;
    dialog.setDirectory(QString::fromStdString(Files().Native(folder).string()));
    if (!start.name.empty()) dialog.selectFile(ToQString(start.name));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
    choice.path = Files().LibraryPath(dialog.selectedFiles().front().toStdString());
    choice.form = std::max(0, static_cast<int>(forms.indexOf(dialog.selectedNameFilter())));
    KeepFolder(dialog);
    return true;
}

int QtPlatform::TrackPopupMenu(const PopupMenu& menu) {
    QMenu popup(DialogParent());
    popup.setSeparatorsCollapsible(false);
    for (const PopupMenu::Entry& entry : menu.entries) {
        if (entry.kind == MENU_ENTRY::SEPARATOR) {
            popup.addSeparator();
        } else if (entry.kind == MENU_ENTRY::HEADING) {
            popup.addAction(MakeHeading(entry.text, popup));
        } else {
            popup.addAction(ToQString(entry.text))->setData(entry.id);
        }
    }
    const QAction* const chosen = popup.exec(QCursor::pos());
    return chosen ? chosen->data().toInt() : 0;
}

bool QtPlatform::Print(std::string_view document, const PrintPages& print) {
    return !showPrint || showPrint(document, print, DialogParent());
}

void QtPlatform::ShowBox(bool warning, std::string_view text, std::string_view title) {
    QMessageBox box(warning ? QMessageBox::Warning : QMessageBox::Information,
                    title.empty() ? ToQString(Files().CommandLine()) : ToQString(title), ToQString(text),
                    QMessageBox::Ok, DialogParent());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void QtPlatform::WarningMessage(std::string_view text) {
    ShowBox(true, text);
}

void QtPlatform::InformationBox(std::string_view text, std::string_view title) {
    ShowBox(false, text, title);
}

void QtPlatform::Beep() {
    QApplication::beep();
}

std::string QtPlatform::ClipboardText() const {
    return FromQString(QApplication::clipboard()->text());
}

void QtPlatform::SetClipboardText(std::string_view text) {
    QApplication::clipboard()->setText(ToQString(text));
}

// ---- Readings of the system ----

LocalClock QtPlatform::GetLocalClock() const {
    const QDateTime now = QDateTime::currentDateTime();
    const QTimeZone zone = now.timeZone();
    LocalClock reading;
    reading.year = now.date().year();
    reading.month = now.date().month();
    reading.day = now.date().day();
    reading.hour = now.time().hour();
    reading.minute = now.time().minute();
    reading.second = now.time().second();
    reading.millisecond = now.time().msec();
    if (zone.isValid()) {
        reading.biasMinutes = -zone.standardTimeOffset(now) / 60;
        reading.daylightSaving = zone.isDaylightTime(now);
        reading.zoneName = FromQString(zone.displayName(now, QTimeZone::LongName, QLocale::c()));
    }
    return reading;
}

int QtPlatform::GetMetric(SYSTEM_METRIC metric) const {
    const int line = QFontMetrics(QApplication::font()).height();
    switch (metric) {
        case SYSTEM_METRIC::ROW_HEIGHT:
            return line + kRowPadding;
        case SYSTEM_METRIC::COMBO_HEIGHT:
            return line + kComboPadding;
        case SYSTEM_METRIC::TAB_HEIGHT:
            return line + kTabPadding;
    }
    return line;
}

int QtPlatform::TextWidth(std::string_view text) const {
    return QFontMetrics(QApplication::font("QTableView")).horizontalAdvance(ToQString(text));
}

}  // namespace quillon
