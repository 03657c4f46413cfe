#include "window/keyboard_help.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace quillon {
namespace {

struct KeyLine {
    const char* keys;
    const char* does;
};

constexpr KeyLine kChartKeys[] = {
    {"Arrow keys", "Move the chart"},
    {"+  -", "Zoom in, zoom out"},
    {"Esc", "Take the mark off the point shown"},
    {"Wheel", "Zoom at the pointer"},
    {"Drag", "Move the chart"},
    {"Click", "Choose what lies there in its pane; again: the next that lies there"},
};
constexpr KeyLine kPropertyKeys[] = {
    {"Up  Down  Home  End", "Move from row to row"},
    {"Left  Right", "Fold and unfold a group"},
    {"Space", "Check a box, open a list, press a button"},
    {"Return  F2", "Edit the value"},
    {"Esc", "Give the edit up"},
    {"Ctrl+Z  Ctrl+Shift+Z", "Take typing back and type it again, while a value is edited"},
    {"F4  Alt+Down", "Open the list of choices"},
    {"Ctrl+C", "Copy the value"},
};
constexpr KeyLine kTableKeys[] = {
    {"Up  Down  Page Up  Page Down", "Move to a point and show it on the chart"},
    {"Space  Return", "Show the point again"},
    {"Ctrl+C", "Copy the row"},
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

template <std::size_t Count>
void AddLines(QTreeWidget& tree, const QString& title, const KeyLine (&lines)[Count]) {
    QTreeWidgetItem* const section = AddSection(tree, title);
    for (const KeyLine& line : lines) new QTreeWidgetItem(section, {line.keys, line.does});
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
                            {action->shortcut().toString(QKeySequence::NativeText),
                             action->whatsThis().isEmpty() ? action->text().remove('&') : action->whatsThis()});
    }
    AddLines(*tree, "Chart", kChartKeys);
    AddLines(*tree, "Properties", kPropertyKeys);
    AddLines(*tree, "Points table", kTableKeys);
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
