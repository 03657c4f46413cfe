#include "bindings/table_binding.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <algorithm>

#include "bindings/cell_painter.h"
#include "platform/platform.h"
#include "platform/user_actions.h"
#include "toolkit/colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

/// The column captions, drawn flat in the colours of the table's header.
class CaptionBar : public QHeaderView {
public:
    explicit CaptionBar(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) { setSectionsClickable(false); }

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override {
        painter->fillRect(rect, palette().color(QPalette::Button));
        painter->setPen(Mix(palette().color(QPalette::Button), palette().color(QPalette::ButtonText), 0.35));
        painter->drawLine(rect.topRight(), rect.bottomRight());
        painter->setPen(palette().color(QPalette::ButtonText));
        const QVariant caption = model()->headerData(section, orientation(), Qt::DisplayRole);
        const QVariant alignment = model()->headerData(section, orientation(), Qt::TextAlignmentRole);
        painter->drawText(rect.adjusted(4, 0, -5, 0), alignment.toInt(), caption.toString());
    }
    void paintEvent(QPaintEvent* event) override {
        QPainter(viewport()).fillRect(viewport()->rect(), palette().color(QPalette::Button));
        QHeaderView::paintEvent(event);
    }
};

}  // namespace

TableBinding::TableBinding(CListCtrl& bound, QWidget* parent)
    : QTableView(parent), ControlBinding(bound), table(&bound), rows(bound) {
    auto* captions = new CaptionBar(this);
    setHorizontalHeader(captions);
    captions->setHighlightSections(false);
    captions->setMinimumSectionSize(16);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(bound.GetOwner().GetPlatform().GetMetric(SYSTEM_METRIC::ROW_HEIGHT));
    setModel(&rows);
    setFrameShape(QFrame::NoFrame);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(bound.IsMultipleSelection() ? QAbstractItemView::ExtendedSelection
                                                 : QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setItemDelegate(new CellPainter(this));
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(captions, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!syncing && table && column < table->GetColumnCount()) table->SetColumnWidth(column, width);
    });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { KeepSelection(); });
    ApplyColours();
    ApplyColumns();
    ApplySelection();
}

void TableBinding::KeepSelection() {
    if (syncing || !table || !table->IsMultipleSelection()) return;
    const QScopedValueRollback<bool> quiet(syncing, true);
    std::vector<int> chosen;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) chosen.push_back(row);
    }
    user::SelectRows(*table, std::move(chosen), currentIndex().row());
}

void TableBinding::ApplyColumns() {
    const QScopedValueRollback<bool> quiet(syncing, true);
    for (int i = 0; i < table->GetColumnCount(); ++i) {
        const int width = table->GetColumn(i).width;
        if (width > 0 && width != columnWidth(i)) setColumnWidth(i, width);
    }
}

void TableBinding::ApplySelection() {
    if (syncing) return;
    const QScopedValueRollback<bool> quiet(syncing, true);
    const int row = table->GetSelection();
    if (table->GetSelectedRows().size() > 1) {
        QItemSelection chosen;
        for (const int each : table->GetSelectedRows()) chosen.select(rows.index(each, 0), rows.index(each, 0));
        selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    } else if (row < 0) {
        clearSelection();
        setCurrentIndex({});
    } else if (row != currentIndex().row() || !selectionModel()->hasSelection()) {
        selectRow(row);
        scrollTo(rows.index(row, 0));
    }
}

void TableBinding::ApplyColours() {
    const QColor ground = QColorOf(table->GetBkColor());
    const QColor text = QColorOf(table->GetTextColor());
    // Only what is the table's own: all else must follow the program's colours when they turn.
    QPalette colours;
    colours.setColor(QPalette::Base, ground);
    colours.setColor(QPalette::Text, text);
    setPalette(colours);
    QPalette header;
    header.setColor(QPalette::Button, QColorOf(table->GetHeaderBkColor()));
    header.setColor(QPalette::ButtonText, QColorOf(table->GetHeaderTextColor()));
    header.setColor(QPalette::Base, QColorOf(table->GetHeaderBkColor()));
    horizontalHeader()->setPalette(header);
}

void TableBinding::Refresh(CONTROL_CHANGE change) {
    if (!table) return;
    switch (change) {
        case CONTROL_CHANGE::LAYOUT:
            ApplyColumns();
            break;
        case CONTROL_CHANGE::CONTENT: {
            {
                const QScopedValueRollback<bool> quiet(syncing, true);
                rows.Reset();
            }
            ApplyColumns();
            ApplySelection();
            break;
        }
        case CONTROL_CHANGE::VALUE:
            viewport()->update();
            break;
        case CONTROL_CHANGE::SELECTION:
            ApplySelection();
            break;
        case CONTROL_CHANGE::COLOURS:
            ApplyColours();
            break;
        case CONTROL_CHANGE::FOCUS:
            break;
    }
}

void TableBinding::Forget() {
    table = nullptr;
    rows.Forget();
}

void TableBinding::ClickCurrent() {
    if (table && currentIndex().isValid()) user::Click(*table, currentIndex().row());
}

void TableBinding::CopyCurrent() {
    const int row = currentIndex().row();
    if (!table || row < 0) return;
    std::string line;
    for (int i = 0; i < table->GetColumnCount(); ++i) line += (i ? "\t" : "") + table->GetItemText(row, i);
    table->GetOwner().GetPlatform().SetClipboardText(line);
}

void TableBinding::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QModelIndex hit = indexAt(event->position().toPoint());
    if (!hit.isValid()) {
        if (table) user::Click(*table, -1);
        return;
    }
    QTableView::mousePressEvent(event);
    // With Shift or Ctrl rows join the selection; the click is that of the row alone.
    const bool joins = table->IsMultipleSelection() && event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    if (!joins) ClickCurrent();
}

void TableBinding::contextMenuEvent(QContextMenuEvent* event) {
    if (!table) return;
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    user::RightClick(*table, byKey ? currentIndex().row() : indexAt(event->pos()).row());
}

void TableBinding::mouseMoveEvent(QMouseEvent* event) {
    // A drag with the button held would run through the rows without clicking them.
    if (event->buttons() == Qt::NoButton) QTableView::mouseMoveEvent(event);
}

void TableBinding::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        CopyCurrent();
        return;
    }
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        ClickCurrent();
        return;
    }
    const int before = currentIndex().row();
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) {
        // Whole rows are selected: the ends are those of the table, not of the row.
        setCurrentIndex(rows.index(event->key() == Qt::Key_Home ? 0 : rows.rowCount() - 1, 0));
    } else {
        QTableView::keyPressEvent(event);
    }
    const bool joins = table && table->IsMultipleSelection() && event->modifiers() & Qt::ShiftModifier;
    if (currentIndex().row() != before && !joins) ClickCurrent();
}

}  // namespace quillon
