#include "window/read_report_dock.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>
#include <set>

#include "toolkit/text_edge.h"

namespace quillon {
namespace {

/// Some lines below the chart, which keeps its room.
class LowTree : public QTreeWidget {
public:
    QSize sizeHint() const override { return {500, 130}; }
};

}  // namespace

ReadReportDock::ReadReportDock(QWidget* parent) : QDockWidget("Read Report", parent), list(new LowTree) {
    setObjectName("read-report");
    list->setHeaderLabels({"File", "Line", "Reason"});
    list->setUniformRowHeights(true);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setAccessibleName("What the readers found");
    list->header()->setStretchLastSection(true);
    list->setContextMenuPolicy(Qt::ActionsContextMenu);
    list->setExpandsOnDoubleClick(false);
    setWidget(list);
    setFocusProxy(list);
    auto* const copy = new QAction("&Copy", list);
    copy->setShortcuts({QKeySequence("Ctrl+C"), QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    copy->setShortcutContext(Qt::WidgetShortcut);
    list->addAction(copy);
    connect(copy, &QAction::triggered, this, [this] { Copy(); });
    connect(list, &QTreeWidget::itemDoubleClicked, this, [this] { Copy(); });
}

void ReadReportDock::SetFindings(std::vector<FileFindings> newFindings) {
    if (newFindings == findings && list->topLevelItemCount() > 0) return;
    std::set<JobFile> folded;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const QTreeWidgetItem* const item = list->topLevelItem(static_cast<int>(i));
        if (item && !item->isExpanded()) folded.insert(findings[i].file);
    }
    findings = std::move(newFindings);
    list->clear();
    for (const FileFindings& file : findings) {
        const QString path = ToQString(file.file.path);
        auto* const top = new QTreeWidgetItem(list, {path, {}, ToQString(file.summary)});
        top->setToolTip(0, path);
        for (const ReadFinding& finding : file.findings) {
            const QString line = finding.line > 0 ? QString::number(finding.line) : QString();
            auto* const item = new QTreeWidgetItem(top, {{}, line, ToQString(finding.reason)});
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        }
        top->setExpanded(!folded.contains(file.file));
    }
    if (findings.empty()) {
        auto* const none = new QTreeWidgetItem(list, {"Every line of every file was taken"});
        none->setFlags(Qt::ItemIsEnabled);
        none->setFirstColumnSpanned(true);
    }
    for (const int column : {0, 1}) list->resizeColumnToContents(column);
}

bool ReadReportDock::ShowFile(const JobFile& file) {
    const auto found =
        std::find_if(findings.begin(), findings.end(), [&](const FileFindings& f) { return f.file == file; });
    if (found == findings.end()) return false;
    QTreeWidgetItem* const item = list->topLevelItem(static_cast<int>(found - findings.begin()));
    item->setExpanded(true);
    list->setCurrentItem(item);
    list->scrollToItem(item, QAbstractItemView::PositionAtTop);
    return true;
}

QString ReadReportDock::TextOf(QTreeWidgetItem& item) const {
    QTreeWidgetItem* const top = item.parent() ? item.parent() : &item;
    const auto file = static_cast<std::size_t>(list->indexOfTopLevelItem(top));
    if (file >= findings.size()) return {};
    const FileFindings& of = findings[file];
    if (!item.parent()) return ToQString(of.file.path + ": " + of.summary);
    return ToQString(FindingText(of.file, of.findings.at(static_cast<std::size_t>(top->indexOfChild(&item)))));
}

void ReadReportDock::Copy() {
    QStringList lines;
    for (QTreeWidgetItem* const item : list->selectedItems()) {
        const QString line = TextOf(*item);
        if (!line.isEmpty()) lines += line;
    }
    if (lines.isEmpty()) return;
    QApplication::clipboard()->setText(lines.join('\n'));
    if (onCopied) onCopied(lines.size() == 1 ? lines.front() : QString("%1 lines").arg(lines.size()));
}

}  // namespace quillon
