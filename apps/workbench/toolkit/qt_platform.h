#pragma once

#include <QObject>
#include <QTimer>
#include <atomic>

#include "platform/platform.h"
#include "toolkit/qt_profile.h"

class QFileDialog;
class QWidget;

namespace quillon {

/// The platform over the toolkit. Its event loop pumps the message queue: a post, from whatever thread, makes the loop
/// come to it, and one timer of the toolkit stands for the next timer of the queue.
///
/// Made after the application object and gone before it. Where a question is asked while no window is active, the
/// window set by SetWindow is its parent.
class QtPlatform : public Platform {
public:
    QtPlatform(std::filesystem::path drives, const std::filesystem::path& profileFile,
               std::string commandLine = "Quillon");
    ~QtPlatform() override;

    /// Where the profile is unless the caller knows better: the user's configuration folder.
    static std::filesystem::path DefaultProfileFile();

    void SetWindow(QWidget* window) { parentWindow = window; }

    /// Makes what shows a dialog; `parent` is the window it belongs to. Until it is set no dialog can be shown.
    using DialogMaker = std::function<std::unique_ptr<DialogView>(CDialog& dialog, QWidget* parent)>;
    void SetDialogMaker(DialogMaker maker) { makeDialog = std::move(maker); }

    /// Shows a document's pages and prints them, over a window. Until it is set nothing can be printed.
    using PrintView = std::function<bool(std::string_view document, const PrintPages& print, QWidget* parent)>;
    void SetPrintView(PrintView view) { showPrint = std::move(view); }

    /// Answers the next question for files without asking the operator, who has named them already; empty to ask again.
    void PrepareFiles(std::vector<std::string> paths) { prepared = std::move(paths); }
    bool ChooseFiles(const FileQuestion& question, std::vector<std::string>& paths) override;
    bool ChooseFolder(std::string_view title, std::string& folder) override;
    bool ChooseSaveFile(const SaveQuestion& question, SaveChoice& choice) override;
    int TrackPopupMenu(const PopupMenu& menu) override;
    bool Print(std::string_view document, const PrintPages& print) override;
    void WarningMessage(std::string_view text) override;
    void InformationBox(std::string_view text, std::string_view title) override;
    void Beep() override;
    std::string ClipboardText() const override;
    void SetClipboardText(std::string_view text) override;
    QtProfile& GetProfile() override { return profile; }
    LocalClock GetLocalClock() const override;
    int GetMetric(SYSTEM_METRIC metric) const override;
    /// A middle grey: the grounds made from it carry black text by day and by night.
    /// By night lighter, as lists go a quarter darker then: their black letters stand off by 4.6 to 1.
    COLORREF GetTabFaceColour() const override { return IsNight() ? RGB(0x9C, 0x9C, 0x9C) : RGB(0x80, 0x80, 0x80); }
    int TextWidth(std::string_view text) const override;
    void RunModal(const std::function<bool()>& ended) override;
    std::unique_ptr<DialogView> ShowDialog(CDialog& dialog) override;

private:
    /// Receives the wake-ups of the queue on the user-interface thread.
    class Waker : public QObject {
    public:
        explicit Waker(QtPlatform& owner) : platform(owner) {}
        bool event(QEvent* event) override;

    private:
        QtPlatform& platform;
    };

    void Wake();
    void Deliver();
    void ArmTimer();
    QWidget* DialogParent() const;
    std::string LastFolder() const;
    void KeepFolder(const QFileDialog& dialog);
    void ShowBox(bool warning, std::string_view text, std::string_view title = {});

    QtProfile profile;
    Waker waker;
    QTimer timer;
    std::atomic<bool> awake{false};  // a wake-up is on its way
    QWidget* parentWindow = nullptr;
    DialogMaker makeDialog;
    std::vector<std::string> prepared;
    PrintView showPrint;
};

/// "Label|pattern;pattern|Label|pattern||" in the form the toolkit's file choice takes: "Label (pattern pattern);;..."
QString ToQtFilter(std::string_view filter);

}  // namespace quillon
