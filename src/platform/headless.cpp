#include "platform/headless.h"

#include <algorithm>
#include <stdexcept>

#include "platform/dialog.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr int kCharacterWidth = 7;
constexpr int kRowHeight = 20;
constexpr int kComboHeight = 24;
constexpr int kTabHeight = 26;
/// How long a modal loop waits for a worker before it counts as stuck.
constexpr std::chrono::seconds kPatience{60};

/// Takes the next prepared answer; std::logic_error if there is none.
template <class Answer>
Answer Take(std::deque<Answer>& answers, const std::string& question) {
    if (answers.empty()) throw std::logic_error("no answer prepared for " + question);
    Answer answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

}  // namespace

int MemoryProfile::GetInt(std::string_view section, std::string_view key, int missing) const {
    const auto found = values.find({std::string(section), std::string(key)});
    return found == values.end() ? missing : Atoi(found->second);
}

void MemoryProfile::SetInt(std::string_view section, std::string_view key, int value) {
    SetText(section, key, Format("%d", value));
}

std::string MemoryProfile::GetText(std::string_view section, std::string_view key, std::string_view missing) const {
    const auto found = values.find({std::string(section), std::string(key)});
    return found == values.end() ? std::string(missing) : found->second;
}

void MemoryProfile::SetText(std::string_view section, std::string_view key, std::string_view value) {
    values[{std::string(section), std::string(key)}] = value;
}

HeadlessPlatform::HeadlessPlatform(std::filesystem::path drives, std::string commandLine)
    : HeadlessPlatform(std::move(drives), std::move(commandLine), new ManualClock) {}

HeadlessPlatform::HeadlessPlatform(std::filesystem::path drives, std::string commandLine, ManualClock* manual)
    : Platform(std::move(drives), std::move(commandLine), std::unique_ptr<Clock>(manual)), manualClock(manual) {}

void HeadlessPlatform::Advance(std::chrono::milliseconds step) {
    const Clock::Time end = GetClock().Now() + step;
    Messages().Pump();
    for (auto due = Messages().NextDue(); due && *due <= end; due = Messages().NextDue()) {
        if (*due > GetClock().Now()) manualClock->Advance(*due - GetClock().Now());
        Messages().Pump();
    }
    if (end > GetClock().Now()) manualClock->Advance(end - GetClock().Now());
}

bool HeadlessPlatform::ChooseFiles(const FileQuestion& question, std::vector<std::string>& paths) {
    calls.push_back("files: " + question.title);
    fileQuestions.push_back(question);
    FileAnswer answer = Take(fileAnswers, "the file question " + question.title);
    paths = std::move(answer.paths);
    return answer.agreed;
}

bool HeadlessPlatform::ChooseFolder(std::string_view title, std::string& folder) {
    calls.push_back("folder: " + std::string(title));
    std::string answer = Take(folderAnswers, calls.back());
    if (answer.empty()) return false;
    folder = std::move(answer);
    return true;
}

bool HeadlessPlatform::ChooseSaveFile(const SaveQuestion& question, SaveChoice& choice) {
    calls.push_back("save: " + question.title + " " + question.start);
    choice = Take(saveAnswers, calls.back());
    return !choice.path.empty();
}

int HeadlessPlatform::TrackPopupMenu(const PopupMenu& menu) {
    std::string texts;
    for (const PopupMenu::Entry& entry : menu.entries) {
        if (!texts.empty()) texts += '/';
        texts += entry.kind == MENU_ENTRY::HEADING ? "[" + entry.text + "]" : entry.text;
    }
    calls.push_back("menu: " + texts);
    const int id = Take(menuAnswers, calls.back());
    const auto offered = [id](const PopupMenu::Entry& entry) { return entry.id == id; };
    if (id != 0 && std::none_of(menu.entries.begin(), menu.entries.end(), offered)) {
        throw std::logic_error("the menu has no such entry: " + texts);
    }
    return id;
}

void HeadlessPlatform::SetPrinter(CPrinter* newPrinter, const PrintJob& job) {
    printer = newPrinter;
    printJob = job;
}

bool HeadlessPlatform::Print(std::string_view document, const PrintPages& print) {
    calls.push_back("print: " + std::string(document));
    return !printer || print(*printer, printJob);
}

std::unique_ptr<DialogView> HeadlessPlatform::ShowDialog(CDialog& dialog) {
    calls.push_back("dialog: " + dialog.GetWindowText());
    if (dialog.IsModal() && !dialogAnswers.empty()) Take(dialogAnswers, calls.back())(dialog);
    return std::make_unique<DialogView>();
}

void HeadlessPlatform::WarningMessage(std::string_view text) {
    calls.push_back("warning: " + std::string(text));
}
void HeadlessPlatform::InformationBox(std::string_view text, std::string_view title) {
    calls.push_back("information: " + std::string(title) + (title.empty() ? "" : ": ") + std::string(text));
}
void HeadlessPlatform::Beep() {
    calls.emplace_back("beep");
}

int HeadlessPlatform::GetMetric(SYSTEM_METRIC metric) const {
    switch (metric) {
        case SYSTEM_METRIC::ROW_HEIGHT:
            return kRowHeight;
        case SYSTEM_METRIC::COMBO_HEIGHT:
            return kComboHeight;
        case SYSTEM_METRIC::TAB_HEIGHT:
            return kTabHeight;
    }
    return 0;
}

int HeadlessPlatform::TextWidth(std::string_view text) const {
    return static_cast<int>(text.size()) * kCharacterWidth;
}

void HeadlessPlatform::RunModal(const std::function<bool()>& ended) {
    while (!ended()) {
        if (Messages().PumpOne()) continue;
        if (const auto due = Messages().NextDue()) {
            manualClock->Advance(*due - GetClock().Now());
            continue;
        }
        Messages().WaitForPost(kPatience);
        if (!Messages().PumpOne() && !ended()) throw std::logic_error("a modal loop that nothing can end");
    }
}

}  // namespace quillon
