#include "window/keyboard_help.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "window/job_tree_dock.h"

namespace quillon {
namespace {

struct KeyLine {
    const char* keys;
    const char* does;
};

constexpr KeyLine kChartKeys[] = {
    {"Arrow keys", "Move the chart; with Shift by less"},
    {"+  -", "Zoom in, zoom out"},
    {"Home", "Show the whole job"},
    {"Esc", "Give a drag up; take the mark off the point shown"},
    {"Wheel", "Zoom at the pointer"},
    {"Drag", "Move the chart; with Shift or Ctrl zoom to a box"},
    {"Click", "Choose what lies there in its pane; again: the next that lies there"},
};
constexpr KeyLine kPropertyKeys[] = {
    {"Up  Down  Page Up  Page Down", "Move from row to row"},
    {"Home  End", "Go to the first row, to the last"},
    {"Left  Right", "Fold and unfold a group; mark one of two buttons"},
    {"Space", "Check a box, open a list, press a button"},
    {"Return  F2", "Edit the value"},
    {"Any letter or figure", "Type a new value"},
    {"Return  Tab", "In an edit: take the value; Tab goes on to the next row"},
    {"Up  Down", "In an edit of a whole number: one more, one less"},
    {"Esc", "Give the edit up"},
    {"Ctrl+Z  Ctrl+Shift+Z", "Take typing back and type it again, while a value is edited"},
    {"F4  Alt+Down", "Open the list of choices"},
    {"Ctrl+C", "Copy the value"},
};
constexpr KeyLine kTableKeys[] = {
    {"Up  Down  Page Up  Page Down", "Move to a point and show it on the chart"},
    {"Home  End", "Go to the first point, to the last"},
    {"Space  Return", "Show the point again"},
    {"Ctrl+C", "Copy the row"},
};
constexpr KeyLine kPaneKeys[] = {
    {"Tab  Shift+Tab", "Go to the next control, to the one before"},
    {"Alt+Down", "Open the list of files"},
    {"Up  Down", "On the handle between properties and table: move it"},
};
constexpr KeyLine kReportKeys[] = {
    {"Up  Down  Left  Right", "Move from line to line, fold and unfold a file"},
    {"Return  Ctrl+C", "Copy the chosen lines"},
};
constexpr KeyLine kDialogKeys[] = {
    {"Return", "Agree"},
    {"Esc", "Leave without a change"},
    {"Alt and the letter underlined", "Press a button, go to a control"},
};

QTreeWidgetItem* AddSection(QTreeWidget& tree, const QString& title) {
    auto* const section = new QTreeWidgetItem(&tree, {title});
    section->setFirstColumnSpanned(true);
    section->setExpanded(true);
    QFont bold = tree.font();
    bold.setBold(true);
    section->setFont(0, bold);
    return section;
}

template <class Lines>
void AddLines(QTreeWidget& tree, const QString& title, const Lines& lines) {
    QTreeWidgetItem* const section = AddSection(tree, title);
    for (const auto& line : lines) new QTreeWidgetItem(section, {line.keys, line.does});
}

QString KeysOf(const QAction& action) {
    QStringList keys;
    for (const QKeySequence& key : action.shortcuts()) keys += key.toString(QKeySequence::NativeText);
    return keys.join("  ");
}

}  // namespace

void ShowKeyboardHelp(QWidget* parent, const QList<QAction*>& actions) {
    QDialog dialog(parent);
    dialog.setWindowTitle("Keyboard");
    auto* const tree = new QTreeWidget;
    tree->setHeaderLabels({"Keys", "What they do"});
    tree->setColumnCount(2);
    tree->setSelectionMode(QAbstractItemView::SingleSelection);
    tree->setUniformRowHeights(true);
    QTreeWidgetItem* const everywhere = AddSection(*tree, "Everywhere");
    for (const QAction* const action : actions) {
        if (action->shortcut().isEmpty()) continue;
        new QTreeWidgetItem(everywhere,
                            {KeysOf(*action), action->whatsThis().isEmpty() ? action->text().remove('&').remove("...")
                                                                            : action->whatsThis()});
    }
    AddLines(*tree, "Chart", kChartKeys);
    AddLines(*tree, "Job tree", JobTreeDock::Keys());
    AddLines(*tree, "Panes", kPaneKeys);
    AddLines(*tree, "Properties", kPropertyKeys);
    AddLines(*tree, "Points table", kTableKeys);
    AddLines(*tree, "Read report", kReportKeys);
    AddLines(*tree, "Dialogs", kDialogKeys);
    tree->resizeColumnToContents(0);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* const layout = new QVBoxLayout(&dialog);
    layout->addWidget(tree);
    layout->addWidget(buttons);
    dialog.resize(620, 640);
    dialog.exec();
}

}  // namespace quillon
