#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file.h"
#include "platform/geometry.h"
#include "platform/message_queue.h"
#include "platform/palette.h"
#include "platform/password.h"
#include "platform/popup_menu.h"

namespace quillon {

class CDialog;
class CListCtrl;
class CPrinter;
class DialogView;
struct PrintJob;

/// What an open-file dialogue asks.
struct FileQuestion {
    std::string title;
    /// "Label|pattern|Label|pattern||"
    std::string filter;
    bool multiple = false;
    /// The file or folder that the choice opens at; empty for the place of the last one.
    std::string start = {};
    friend bool operator==(const FileQuestion&, const FileQuestion&) = default;
};

/// What a save-file dialogue asks.
struct SaveQuestion {
    std::string title;
    /// "Label|pattern|Label|pattern||": the forms that the file can be saved in.
    std::string filter;
    /// The path proposed; a folder alone, with its separator, proposes no name.
    std::string start = {};
    /// What a name without an extension gets, without its point.
    std::string extension = {};
    friend bool operator==(const SaveQuestion&, const SaveQuestion&) = default;
};

/// The operator's answer to it.
struct SaveChoice {
    std::string path;
    int form = 0;  ///< which of the forms, from 0
};

/// Draws all pages that are asked for; false if a step of the printer failed.
using PrintPages = std::function<bool(CPrinter& printer, const PrintJob& job)>;

/// Parts of a local clock reading, as the system's time zone gives them.
struct LocalClock {
    int year = 2000, month = 1, day = 1, hour = 0, minute = 0, second = 0, millisecond = 0;
    int biasMinutes = 0;  ///< of the standard zone, west positive
    bool daylightSaving = false;
    std::string zoneName;
};

enum class SYSTEM_METRIC {
    ROW_HEIGHT,    ///< of one line in a property list, pixels
    COMBO_HEIGHT,  ///< of a closed combo box, pixels
    TAB_HEIGHT     ///< of the row of tabs over the pages of a tab control, pixels
};

/// Small values that outlive the run and belong to the program, not to a job: whether a pane is shown, where the
/// window stood.
class Profile {
public:
    virtual ~Profile() = default;
    virtual int GetInt(std::string_view section, std::string_view key, int missing) const = 0;
    virtual void SetInt(std::string_view section, std::string_view key, int value) = 0;
    virtual std::string GetText(std::string_view section, std::string_view key, std::string_view missing) const = 0;
    virtual void SetText(std::string_view section, std::string_view key, std::string_view value) = 0;
};

/// Told of what the operator does, act by act. What an act does may run a loop of messages of its own (a dialog); the
/// acts in it are part of the outer one and not told.
class ActObserver {
public:
    virtual ~ActObserver() = default;
    /// `name` is for people: "Boundary: Colour".
    virtual void OnActBegun(const std::string& name) = 0;
    /// The act itself is over; what it has posted may not have been delivered yet.
    virtual void OnActEnded() = 0;
    /// No act is under way, and all that was posted has been delivered.
    virtual void OnActsSettled() = 0;
};

/// The services that the library asks of the program it runs in. One object, handed in at start, which outlives every
/// window. All on the user-interface thread but `Messages().Post`.
class Platform {
public:
    virtual ~Platform();

    FileSystem& Files() { return files; }
    MessageQueue& Messages() { return messages; }
    const Clock& GetClock() const { return *clock; }

    /// The window that messages go to when a pane has no parent. May be null.
    CWnd* GetMainWindow() const { return mainWindow; }
    void SetMainWindow(CWnd* window) { mainWindow = window; }

    /// The paths chosen; true if the operator agreed, which may be to nothing at all.
    virtual bool ChooseFiles(const FileQuestion& question, std::vector<std::string>& paths) = 0;
    /// The folder chosen, without a separator at its end. `folder` is where the choice opens.
    virtual bool ChooseFolder(std::string_view title, std::string& folder) = 0;
    /// True if the operator chose where to save. Whether a file that is there may be replaced was asked then.
    virtual bool ChooseSaveFile(const SaveQuestion& question, SaveChoice& choice) = 0;
    /// Opens a menu at the cursor; the id of what was chosen, 0 for nothing.
    virtual int TrackPopupMenu(const PopupMenu& menu) = 0;
    /// Shows the operator the pages of a document and prints them where he says: `print` runs for each look at them and
    /// for each printing. True unless a step of the printer failed; leaving without printing is no failure.
    virtual bool Print(std::string_view document, const PrintPages& print) = 0;
    virtual void WarningMessage(std::string_view text) = 0;
    virtual void InformationBox(std::string_view text, std::string_view title = {}) = 0;
    virtual void Beep() = 0;

    virtual std::string ClipboardText() const = 0;
    virtual void SetClipboardText(std::string_view text) = 0;

    virtual Profile& GetProfile() = 0;
    /// The password that locks rows, kept in the profile.
    PasswordLock& Passwords();
    virtual LocalClock GetLocalClock() const = 0;
    virtual int GetMetric(SYSTEM_METRIC metric) const = 0;
    /// The face colour of the frame round a tab control.
    virtual COLORREF GetTabFaceColour() const = 0;
    /// Width of one line in the font of tables, pixels.
    virtual int TextWidth(std::string_view text) const = 0;

    /// Null to tell nobody; the observer is lent.
    void SetActObserver(ActObserver* observer) { actObserver = observer; }
    /// An act of the operator begins and ends; see UserAct.
    void BeginAct(const std::string& name);
    void EndAct();

    /// Runs until `ended` says so, delivering messages meanwhile.
    virtual void RunModal(const std::function<bool()>& ended) = 0;
    /// Shows a dialog over the other windows until the result is dropped; a modal one keeps input from them. The dialog
    /// calls this by itself.
    virtual std::unique_ptr<DialogView> ShowDialog(CDialog& dialog) = 0;

    /// What a right click opens on a table that has no menu of its own. The host's.
    using TableMenu = std::function<void(CListCtrl& table)>;
    void SetTableMenu(TableMenu menu) { tableMenu = std::move(menu); }
    const TableMenu& GetTableMenu() const { return tableMenu; }

    /// What stands at the top of every printed page: the job and its grid. Asked at each printing.
    void SetPrintHeading(std::function<std::string()> heading) { printHeading = std::move(heading); }
    std::string PrintHeading() const { return printHeading ? printHeading() : std::string(); }

    /// Whether new dialogs are made in the colours of the night.
    bool IsNight() const { return night; }
    void SetNight(bool on) { night = on; }

protected:
    /// The clock is lent to the queue, so it is made first.
    Platform(std::filesystem::path drives, std::string commandLine, std::unique_ptr<Clock> clock);

private:
    void TellSettled();

    FileSystem files;
    std::unique_ptr<Clock> clock;
    MessageQueue messages;
    CWnd* mainWindow = nullptr;
    ActObserver* actObserver = nullptr;
    int openActs = 0;
    bool night = false;
    TableMenu tableMenu;
    std::function<std::string()> printHeading;
    std::unique_ptr<PasswordLock> passwords;  // made when first asked for: the profile belongs to the derived class
};

/// An act of the operator, from here to the end of the scope. `quillon::user` makes one for all that comes through the
/// controls; a host makes one for what it offers beside them.
class UserAct {
public:
    UserAct(Platform& owner, const std::string& name) : platform(owner) { platform.BeginAct(name); }
    ~UserAct() { platform.EndAct(); }
    UserAct(const UserAct&) = delete;
    UserAct& operator=(const UserAct&) = delete;

private:
    Platform& platform;
};

}  // namespace quillon
