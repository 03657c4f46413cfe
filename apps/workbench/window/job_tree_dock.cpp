#include "window/job_tree_dock.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "window/job_tree_delegate.h"

namespace quillon {
namespace {

constexpr int kIndent = 10;

constexpr JobTreeDock::Key kKeys[] = {
    {"Up  Down", "Move from file to file and show the pane of each"},
    {"Left  Right", "Fold and unfold a kind"},
    {"Return", "Show the pane with the keyboard in it"},
    {"Space", "Display or hide the chosen files"},
    {"Ctrl+Return", "Zoom to the file"},
    {"Ins", "Add files of this kind"},
    {"Del", "Remove the chosen files from the job"},
    {"Ctrl+C", "Copy the path"},
    {"Ctrl+Shift+O", "Reveal the file in the file manager"},
    {"/", "Go to the filter line; Down goes back to the tree, Esc clears it"},
    {"Ctrl  Shift", "With Up, Down or a click: choose several files"},
};

/// The line above the tree: Down leads into the tree, Esc clears.
class FilterLine : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    QWidget* below = nullptr;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            return below->setFocus(Qt::TabFocusReason);
        }
        if (event->key() == Qt::Key_Escape) {
            if (text().isEmpty()) return below->setFocus(Qt::TabFocusReason);
            return clear();
        }
        QLineEdit::keyPressEvent(event);
    }
};

}  // namespace

std::span<const JobTreeDock::Key> JobTreeDock::Keys() {
    return kKeys;
}

JobTreeDock::JobTreeDock(JobTree& shownTree, Job& shownJob, JobTreeRequests tellHost, QWidget* parent)
    : QDockWidget("Job", parent),
      tree(shownTree),
      job(shownJob),
      tell(std::move(tellHost)),
      model(shownTree, shownJob) {
    setObjectName("job-tree");
    auto* const content = new QWidget;
    MakeView(*content);
    setWidget(content);
    setFocusProxy(view);
    content->setFocusProxy(view);
    MakeActions();
    model.onDisplayed = [this](const JobFile& file, bool displayed) {
        // The box of one of several chosen files stands for all of them.
        std::vector<JobFile> files = Selected();
        if (std::find(files.begin(), files.end(), file) == files.end()) files = {file};
        Later([this, files = std::move(files), displayed] { tell.display(files, displayed); });
    };
}

void JobTreeDock::MakeView(QWidget& content) {
    proxy.setSourceModel(&model);
    proxy.setRecursiveFilteringEnabled(true);
    proxy.setAutoAcceptChildRows(true);
    proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    auto* const line = new FilterLine;
    line->setPlaceholderText("Filter files and kinds");
    line->setClearButtonEnabled(true);
    line->setAccessibleName("Filter of the job tree");
    filter = line;
    view = new QTreeView;
    line->below = view;
    view->setModel(&proxy);
    view->setItemDelegate(new JobTreeDelegate(model, proxy, view));
    view->setHeaderHidden(true);
    view->setUniformRowHeights(true);
    view->setIndentation(kIndent);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    view->setTextElideMode(Qt::ElideMiddle);
    view->setAllColumnsShowFocus(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setAccessibleName("Files of the job");
    view->header()->setStretchLastSection(false);
    view->header()->setMinimumSectionSize(JobTreeDelegate::kMarkWidth);
    view->header()->setSectionResizeMode(JobTreeModel::NAME_COLUMN, QHeaderView::Stretch);
    view->header()->setSectionResizeMode(JobTreeModel::POINTS_COLUMN, QHeaderView::ResizeToContents);
    view->header()->setSectionResizeMode(JobTreeModel::MARK_COLUMN, QHeaderView::Fixed);
    view->header()->resizeSection(JobTreeModel::MARK_COLUMN, JobTreeDelegate::kMarkWidth);
    view->expandAll();
    auto* const column = new QVBoxLayout(&content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(filter);
    column->addWidget(view);
    connect(filter, &QLineEdit::textChanged, this, [this](const QString& text) { Filter(text); });
    connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { OnCurrentChanged(); });
    connect(view, &QTreeView::clicked, this, [this] { OnCurrentChanged(); });
    connect(view, &QTreeView::doubleClicked, this, [this] {
        if (const auto file = Current()) Later([this, file] { tell.zoom(*file); });
    });
    connect(view, &QTreeView::customContextMenuRequested, this, [this](const QPoint& at) { ShowMenu(at); });
    // What comes while the kind is new to the view is seen at once.
    connect(&proxy, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex& parent, int first, int last) {
        if (parent.isValid() && proxy.rowCount(parent) == last - first + 1) view->expand(parent);
    });
}

// ---- What there is to do ----

QAction* JobTreeDock::MakeAction(const QString& text, const QKeySequence& key, std::function<void()> act) {
    auto* const action = new QAction(text, this);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, act = std::move(act)] { Later(act); });
    view->addAction(action);
    return action;
}

void JobTreeDock::MakeActions() {
    const auto withCurrent = [this](std::function<void(const JobFile&)> act) {
        return [this, act = std::move(act)] {
            if (const auto file = Current()) act(*file);
        };
    };
    showAction = MakeAction("&Show Pane", QKeySequence(Qt::Key_Return),
                            withCurrent([this](const JobFile& file) { tell.show(file, true); }));
    showAction->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    zoomAction = MakeAction("&Zoom To", QKeySequence("Ctrl+Return"),
                            withCurrent([this](const JobFile& file) { tell.zoom(file); }));
    displayAction = MakeAction("&Display", QKeySequence(Qt::Key_Space), [this] { ToggleDisplay(); });
    displayAction->setCheckable(true);
    addAction = MakeAction("&Add Files...", QKeySequence(Qt::Key_Insert), [this] { tell.add(CurrentKind()); });
    readAction = MakeAction("Read A&gain", {}, [this] { tell.readAgain(Selected()); });
    reportAction = MakeAction("Read &Report", {}, withCurrent([this](const JobFile& file) { tell.report(file); }));
    copyAction = MakeAction("&Copy Path", QKeySequence("Ctrl+C"), [this] { tell.copy(Selected()); });
    revealAction = MakeAction("Reveal in &File Manager", QKeySequence("Ctrl+Shift+O"),
                              withCurrent([this](const JobFile& file) { tell.reveal(file); }));
    removeAction = MakeAction("Re&move from Job", QKeySequence(Qt::Key_Delete), [this] { tell.remove(Selected()); });
    auto* const find = new QAction(this);
    find->setShortcut(QKeySequence("/"));
    find->setShortcutContext(Qt::WidgetShortcut);
    connect(find, &QAction::triggered, this, [this] { filter->setFocus(Qt::ShortcutFocusReason); });
    view->addAction(find);
}

void JobTreeDock::ShowMenu(const QPoint& at) {
    const KIND kind = CurrentKind();
    if (kind == KIND::NONE) return;
    const bool isFile = Current().has_value();
    QMenu menu(this);
    const TreeFile* const row = model.RowAt(proxy.mapToSource(view->currentIndex()));
    displayAction->setChecked(row && row->displayed);
    displayAction->setEnabled(!isFile || CanSetDisplayed(job, kind));
    removeAction->setEnabled(CanRemove(job, kind));
    CMyDockablePane* const pane = job.PaneOf(kind);
    addAction->setEnabled(pane && pane->GetFileControls().add);
    if (isFile) {
        for (QAction* const action : {showAction, zoomAction, displayAction}) menu.addAction(action);
        menu.addSeparator();
        for (QAction* const action : {readAction, reportAction, copyAction, revealAction}) menu.addAction(action);
        menu.addSeparator();
        menu.addAction(addAction);
        menu.addAction(removeAction);
        menu.setDefaultAction(showAction);
    } else {
        menu.addAction(addAction);
        std::vector<JobFile> all;
        for (const TreeFile& file : tree.FilesOf(kind)) all.push_back({kind, file.path});
        const auto setAll = [&](const QString& text, bool displayed) {
            QAction* const action = menu.addAction(text);
            action->setEnabled(!all.empty() && CanSetDisplayed(job, kind));
            connect(action, &QAction::triggered, this,
                    [this, all, displayed] { Later([this, all, displayed] { tell.display(all, displayed); }); });
        };
        menu.addSeparator();
        setAll("&Display All", true);
        setAll("&Hide All", false);
    }
    menu.exec(view->viewport()->mapToGlobal(at));
    // By their keys they are asked for on any row.
    for (QAction* const action : {displayAction, removeAction, addAction}) action->setEnabled(true);
}

void JobTreeDock::ToggleDisplay() {
    const TreeFile* const row = model.RowAt(proxy.mapToSource(view->currentIndex()));
    if (row) tell.display(Selected(), !row->displayed);
}

// ---- The cursor ----

void JobTreeDock::Later(std::function<void()> request) {
    QTimer::singleShot(0, this, std::move(request));
}

void JobTreeDock::OnCurrentChanged() {
    if (quiet) return;
    const auto file = Current();
    if (!file) return;
    Later([this, file] {
        // Only the last of a quick row of files.
        if (Current() == file) tell.show(*file, false);
    });
}

std::optional<JobFile> JobTreeDock::Current() const {
    return model.FileOf(proxy.mapToSource(view->currentIndex()));
}

KIND JobTreeDock::CurrentKind() const {
    return model.KindOf(proxy.mapToSource(view->currentIndex()));
}

bool JobTreeDock::HasKeyboard() const {
    return view->hasFocus() || filter->hasFocus();
}

std::vector<JobFile> JobTreeDock::Selected() const {
    std::vector<JobFile> files;
    for (const QModelIndex& index : view->selectionModel()->selectedRows()) {
        if (const auto file = model.FileOf(proxy.mapToSource(index))) files.push_back(*file);
    }
    return files;
}

void JobTreeDock::Refresh() {
    const bool wasQuiet = std::exchange(quiet, true);
    tree.Refresh();
    // Where nothing is to be said of any file the names have the room.
    view->setColumnHidden(JobTreeModel::MARK_COLUMN, !tree.HasMarks());
    quiet = wasQuiet;
}

void JobTreeDock::Select(const JobFile& file) {
    const QModelIndex index = proxy.mapFromSource(model.IndexOf(file));
    if (!index.isValid() || index == view->currentIndex()) return;
    const bool wasQuiet = std::exchange(quiet, true);
    view->setCurrentIndex(index);
    view->scrollTo(index);
    quiet = wasQuiet;
}

void JobTreeDock::Filter(const QString& text) {
    const bool wasQuiet = std::exchange(quiet, true);
    proxy.setFilterFixedString(text);
    view->expandAll();
    quiet = wasQuiet;
}

void JobTreeDock::changeEvent(QEvent* event) {
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && view) view->viewport()->update();
}

}  // namespace quillon
