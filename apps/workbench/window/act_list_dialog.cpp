#include "window/act_list_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

#include "foundation/paths.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr QSize kFirstSize(620, 460);

QString FilesOf(const Act& act) {
    QStringList names;
    for (const FileChange& change : act.files) {
        if (change.guarded) names += ToQString(change.path.substr(FolderOfPath(change.path).size()));
    }
    return names.join(", ");
}

}  // namespace

ActListDialog::ActListDialog(Job& shownJob, QWidget* parent)
    : QDialog(parent), job(shownJob), list(new QTreeWidget), go(new QPushButton("&Go There")) {
    setWindowTitle("History");
    auto* const words = new QLabel("Choose up to where all is to be done. What is greyed was taken back.");
    words->setBuddy(list);
    list->setHeaderLabels({"Act", "Files changed"});
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->addButton(go, QDialogButtonBox::ActionRole);
    go->setDefault(true);
    connect(go, &QPushButton::clicked, this, [this] { GoThere(); });
    connect(list, &QTreeWidget::itemDoubleClicked, this, [this] { GoThere(); });
    connect(list, &QTreeWidget::currentItemChanged, this, [this] {
        const ActHistory& acts = *job.Acts();
        go->setEnabled(list->currentIndex().row() != static_cast<int>(acts.Done().size()));
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(words);
    layout->addWidget(list);
    layout->addWidget(buttons);
    resize(kFirstSize);
    Fill();
    list->setFocus();
}

void ActListDialog::GoThere() {
    const int chosen = list->currentIndex().row();
    if (chosen < 0) return;
    job.GoToAct(static_cast<std::size_t>(chosen));
    Fill();
}

/// The line of the start comes first, so that the number of a line is the count of acts done there.
void ActListDialog::Fill() {
    const ActHistory& acts = *job.Acts();
    list->clear();
    Add("The start", {}, true);
    for (const Act& act : acts.Done()) Add(ToQString(act.name), FilesOf(act), true);
    for (auto act = acts.Undone().rbegin(); act != acts.Undone().rend(); ++act) {
        Add(ToQString(act->name), FilesOf(*act), false);
    }
    QTreeWidgetItem* const now = list->topLevelItem(static_cast<int>(acts.Done().size()));
    QFont bold = list->font();
    bold.setBold(true);
    for (const int column : {0, 1}) now->setFont(column, bold);
    list->setCurrentItem(now);
    list->scrollToItem(now);
    list->resizeColumnToContents(0);
}

void ActListDialog::Add(const QString& name, const QString& files, bool done) {
    auto* const line = new QTreeWidgetItem(list, {name, files});
    line->setToolTip(1, files);
    if (done) return;
    for (const int column : {0, 1}) {
        line->setForeground(column, palette().brush(QPalette::Disabled, QPalette::Text));
    }
}

}  // namespace quillon
