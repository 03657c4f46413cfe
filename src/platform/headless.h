#pragma once

#include <deque>
#include <map>
#include <utility>

#include "platform/platform.h"
#include "platform/printer.h"

namespace quillon {

/// A profile in memory.
class MemoryProfile : public Profile {
public:
    int GetInt(std::string_view section, std::string_view key, int missing) const override;
    void SetInt(std::string_view section, std::string_view key, int value) override;
    std::string GetText(std::string_view section, std::string_view key, std::string_view missing) const override;
    void SetText(std::string_view section, std::string_view key, std::string_view value) override;

private:
    std::map<std::pair<std::string, std::string>, std::string> values;
};

/// The platform without a window system: answers are prepared beforehand, calls are written down, time stands until it
/// is moved, and messages wait to be pumped. A question that no answer was prepared for raises std::logic_error.
class HeadlessPlatform : public Platform {
public:
    explicit HeadlessPlatform(std::filesystem::path drives, std::string commandLine = "Quillon");

    /// The next file question is answered with these paths, or with a cancel.
    void AnswerFiles(std::vector<std::string> paths) { fileAnswers.push_back({true, std::move(paths)}); }
    void AnswerCancel() { fileAnswers.push_back({false, {}}); }

    void AnswerFolder(std::string folder) { folderAnswers.push_back(std::move(folder)); }
    /// What the operator does in the next modal dialog once it is shown. Without it the dialog must end by itself.
    void AnswerDialog(std::function<void(CDialog&)> act) { dialogAnswers.push_back(std::move(act)); }

    /// The next menu is answered with this id; 0 leaves it without a choice.
    void AnswerMenu(int id) { menuAnswers.push_back(id); }
    /// The next question where to save is answered with this path and form; an empty path is a cancel.
    void AnswerSave(std::string path, int form = 0) { saveAnswers.push_back({std::move(path), form}); }
    /// What is printed goes to this printer, as this job says. Without one the operator leaves the preview.
    void SetPrinter(CPrinter* newPrinter, const PrintJob& job = {});

    /// Every question and message shown, in order: "files: <title>", "folder: <title>", "dialog: <title>",
    /// "warning: <text>", "information: <text>" with "<title>: " ahead of the text if it has one, "beep",
    /// "save: <title> <path proposed>", "menu: <texts with / between>" with headings in brackets, "print: <document>".
    const std::vector<std::string>& Calls() const { return calls; }
    const std::vector<FileQuestion>& FileQuestions() const { return fileQuestions; }

    /// Moves the clock and delivers what falls due on the way, in its order.
    void Advance(std::chrono::milliseconds step);
    void SetLocalClock(const LocalClock& reading) { localClock = reading; }

    bool ChooseFiles(const FileQuestion& question, std::vector<std::string>& paths) override;
    /// An answer prepared as empty is a cancel.
    bool ChooseFolder(std::string_view title, std::string& folder) override;
    bool ChooseSaveFile(const SaveQuestion& question, SaveChoice& choice) override;
    int TrackPopupMenu(const PopupMenu& menu) override;
    bool Print(std::string_view document, const PrintPages& print) override;
    void WarningMessage(std::string_view text) override;
    void InformationBox(std::string_view text, std::string_view title = {}) override;
    void Beep() override;
    std::string ClipboardText() const override { return clipboard; }
    void SetClipboardText(std::string_view text) override { clipboard = text; }
    Profile& GetProfile() override { return profile; }
    LocalClock GetLocalClock() const override { return localClock; }
    int GetMetric(SYSTEM_METRIC metric) const override;
    COLORREF GetTabFaceColour() const override { return tabFace; }
    void SetTabFaceColour(COLORREF colour) { tabFace = colour; }
    /// Every character is 7 pixels wide.
    int TextWidth(std::string_view text) const override;
    /// Moves the clock to the next timer when nothing is posted. Raises std::logic_error where a loop could never end.
    void RunModal(const std::function<bool()>& ended) override;
    std::unique_ptr<DialogView> ShowDialog(CDialog& dialog) override;

private:
    struct FileAnswer {
        bool agreed;
        std::vector<std::string> paths;
    };

    /// Takes the clock over.
    HeadlessPlatform(std::filesystem::path drives, std::string commandLine, ManualClock* clock);

    ManualClock* manualClock;  // owned by the base
    MemoryProfile profile;
    LocalClock localClock;
    std::string clipboard;
    COLORREF tabFace = 0x808080;
    std::deque<FileAnswer> fileAnswers;
    std::deque<std::string> folderAnswers;
    std::deque<std::function<void(CDialog&)>> dialogAnswers;
    std::deque<int> menuAnswers;
    std::deque<SaveChoice> saveAnswers;
    CPrinter* printer = nullptr;
    PrintJob printJob;
    std::vector<FileQuestion> fileQuestions;
    std::vector<std::string> calls;
};

}  // namespace quillon
