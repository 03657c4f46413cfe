#include "window/file_taker.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDragEnterEvent>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "foundation/paths.h"
#include "platform/user_actions.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr std::size_t kMostNamed = 8;

/// Names one below the other; of many the first ones.
QString NamesBelow(const std::vector<std::string>& lines) {
    QStringList names;
    for (std::size_t i = 0; i < std::min(lines.size(), kMostNamed); ++i) names += ToQString(lines[i]);
    if (lines.size() > kMostNamed) names += QString("and %1 more").arg(lines.size() - kMostNamed);
    return names.join('\n');
}

std::string ShortName(const std::string& path) {
    const tagPathParts parts = SplitPath(path);
    return parts.extension.empty() ? parts.name : parts.name + '.' + parts.extension;
}

}  // namespace

FileTaker::FileTaker(Job& takingJob, QtPlatform& qtPlatform, PaneDocks& paneDocks, QWidget& dropTarget)
    : job(takingJob), platform(qtPlatform), docks(paneDocks), target(dropTarget) {
    ask = [this](const auto& paths, const auto& kinds) { return AskByDialog(paths, kinds); };
    target.setAcceptDrops(true);
    target.installEventFilter(this);
}

bool FileTaker::eventFilter(QObject* watched, QEvent* event) {
    const bool enters = event->type() == QEvent::DragEnter;
    if (!enters && event->type() != QEvent::Drop) return QObject::eventFilter(watched, event);
    auto* const drop = static_cast<QDropEvent*>(event);
    std::vector<std::string> paths;
    for (const QUrl& url : drop->mimeData()->urls()) {
        if (url.isLocalFile()) paths.push_back(platform.Files().LibraryPath(url.toLocalFile().toStdString()));
    }
    if (paths.empty()) return QObject::eventFilter(watched, event);
    drop->acceptProposedAction();
    // Behind the drop: who dropped the files waits for its end, and a question may come.
    if (!enters) QTimer::singleShot(0, this, [this, paths] { Take(paths); });
    return true;
}

void FileTaker::Take(const std::vector<std::string>& paths) {
    refused.clear();
    std::vector<Group> groups;
    for (const std::string& path : paths) {
        const FileKinds found = KindsOfFile(job.Record(), platform.Files(), path);
        if (found.kinds.empty()) {
            refused.push_back(ShortName(path) + ": " + found.reason);
            continue;
        }
        auto group = std::find_if(groups.begin(), groups.end(), [&](const Group& g) { return g.kinds == found.kinds; });
        if (group == groups.end()) group = groups.insert(groups.end(), Group{found.kinds, {}});
        group->paths.push_back(path);
    }
    for (const Group& group : groups) {
        const std::optional<KIND> kind =
            group.kinds.size() == 1 ? std::optional(group.kinds.front()) : ask(group.paths, group.kinds);
        if (kind) Add(*kind, group.paths);
    }
    Tell();
}

void FileTaker::Add(KIND kind, const std::vector<std::string>& paths) {
    CMyDockablePane* const pane = job.PaneOf(kind);
    CButton* const button = pane ? pane->GetFileButton() : nullptr;
    if (!button) return;
    platform.PrepareFiles(paths);
    user::Press(*button);
    platform.PrepareFiles({});
    platform.Messages().Pump();
    docks.Raise(kind);
    for (const std::string& path : paths) {
        const std::string refusal = RefusalOf(job.Record(), platform.Files(), kind, path);
        if (!refusal.empty()) refused.push_back(ShortName(path) + ": " + refusal);
    }
}

void FileTaker::Tell() {
    if (refused.empty()) return;
    platform.WarningMessage("Not taken:\n" + FromQString(NamesBelow(refused)));
}

std::optional<KIND> FileTaker::AskByDialog(const std::vector<std::string>& paths,
                                           const std::vector<KIND>& kinds) const {
    QDialog dialog(target.window());
    dialog.setWindowTitle("Add Files");
    std::vector<std::string> names;
    for (const std::string& path : paths) names.push_back(ShortName(path));
    auto* const asked = new QLabel(NamesBelow(names));
    asked->setTextFormat(Qt::PlainText);
    auto* const list = new QListWidget;
    for (const KIND kind : kinds) list->addItem(ToQString(KindOf(kind).name));
    list->setCurrentRow(0);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    auto* const layout = new QVBoxLayout(&dialog);
    layout->addWidget(asked);
    layout->addWidget(new QLabel(paths.size() == 1 ? "This file could be of several kinds. Add it as:"
                                                   : "These files could be of several kinds. Add them as:"));
    layout->addWidget(list);
    layout->addWidget(buttons);
    list->setFocus();
    if (dialog.exec() != QDialog::Accepted || list->currentRow() < 0) return std::nullopt;
    return kinds[static_cast<std::size_t>(list->currentRow())];
}

}  // namespace quillon
