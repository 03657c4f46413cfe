#include "bindings/property_list_view.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cstring>

#include "platform/platform.h"
#include "platform/text.h"
#include "platform/user_actions.h"
#include "toolkit/colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr int kGutter = 16;
constexpr int kIndent = 12;
constexpr int kGrip = 3;
constexpr double kLeastShare = 0.2;
constexpr double kMostShare = 0.8;

bool HasEditor(const CMFCPropertyGridProperty& row) {
    switch (row.GetKind()) {
        case ROW_KIND::TEXT:
        case ROW_KIND::NUMBER:
        case ROW_KIND::INTEGER:
        case ROW_KIND::ANGLE:
        case ROW_KIND::PASSWORD:
            return row.IsAllowEdit();
        case ROW_KIND::OPTIONS:
            return row.IsAllowEdit();
        default:
            return false;
    }
}

bool IsTyping(const QKeyEvent& key) {
    return !key.text().isEmpty() && key.text().at(0).isPrint() &&
           !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

}  // namespace

PropertyListView::PropertyListView(CMFCPropertyGridCtrl& bound, SymbolPainter symbolPainter, QWidget* parent)
    : QAbstractScrollArea(parent),
      list(&bound),
      symbols(std::move(symbolPainter)),
      painter(bound, symbols),
      rowHeight(bound.GetOwner().GetPlatform().GetMetric(SYSTEM_METRIC::ROW_HEIGHT)) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    verticalScrollBar()->setSingleStep(rowHeight);
    ColoursChanged();
    ContentChanged();
}

// ---- Changes of the model ----

void PropertyListView::ContentChanged() {
    rows.Clear();
    stale = true;
    if (popup) popup->close();
    viewport()->update();
    if (settling) return;
    // A pane fills its list row by row; the view follows once it is done.
    settling = true;
    QMetaObject::invokeMethod(
        this, [this] { Settle(); }, Qt::QueuedConnection);
}

void PropertyListView::Settle() {
    settling = false;
    EnsureRows();
    if (!list) return;
    UpdateScrollBar();
    // A list made anew has no current row; the operator's place in it is kept.
    const int index = rows.Find(currentPath);
    if (!list->GetCurSel() && index >= 0) list->SetCurSel(rows.At(index).row);
    PlaceEditor();
}

void PropertyListView::EnsureRows() {
    if (!stale || !list) return;
    rows.Build(*list);
    stale = false;
}

void PropertyListView::SelectionChanged() {
    EnsureRows();
    const int index = list ? rows.Find(list->GetCurSel()) : -1;
    if (index >= 0 && rows.At(index).path != currentPath) {
        currentPath = rows.At(index).path;
        ShowRow(index);
    }
    if (index >= 0) {
        const CMFCPropertyGridProperty& row = *rows.At(index).row;
        setAccessibleName(ToQString(row.GetName()) + ": " + PropertyRowPainter::ValueText(row));
    }
    viewport()->update();
}

void PropertyListView::ColoursChanged() {
    if (!list) return;
    QPalette colours;
    colours.setColor(QPalette::Base, QColorOf(list->GetCustomColors().background));
    colours.setColor(QPalette::Text, QColorOf(list->GetCustomColors().text));
    viewport()->setPalette(colours);
    viewport()->update();
}

void PropertyListView::Forget() {
    list = nullptr;
    rows.Clear();
    CloseEditor();
    if (popup) popup->close();
    viewport()->update();
}

// ---- Geometry ----

int PropertyListView::NameWidth() const {
    const int width = viewport()->width() - kGutter;
    return kGutter + static_cast<int>(width * nameShare);
}

RowParts PropertyListView::PartsOf(int index) const {
    const QRect line(0, index * rowHeight - verticalScrollBar()->value(), viewport()->width(), rowHeight);
    // Rows of a group stand under its name; only groups within groups are moved in.
    const int gutter = kGutter + std::max(0, rows.At(index).depth - 1) * kIndent;
    RowParts parts;
    parts.line = line;
    parts.gutter = QRect(0, line.top(), gutter, line.height());
    parts.name = QRect(gutter, line.top(), NameWidth() - gutter, line.height());
    parts.value = QRect(NameWidth() + 1, line.top(), line.width() - NameWidth() - 1, line.height());
    return parts;
}

int PropertyListView::IndexAt(const QPoint& point) const {
    const int index = (point.y() + verticalScrollBar()->value()) / rowHeight;
    return point.y() >= 0 && index < rows.Count() ? index : -1;
}

QRect PropertyListView::ValueRect(const CMFCPropertyGridProperty& row) {
    EnsureRows();
    const int index = rows.Find(&row);
    return index < 0 ? QRect() : PartsOf(index).value;
}

void PropertyListView::UpdateScrollBar() {
    QScrollBar& bar = *verticalScrollBar();
    bar.setPageStep(viewport()->height());
    bar.setRange(0, std::max(0, rows.Count() * rowHeight - viewport()->height()));
    viewport()->update();
}

void PropertyListView::ShowRow(int index) {
    QScrollBar& bar = *verticalScrollBar();
    const int top = index * rowHeight;
    if (top + rowHeight > bar.maximum() + viewport()->height()) UpdateScrollBar();
    if (top < bar.value()) bar.setValue(top);
    if (top + rowHeight > bar.value() + viewport()->height()) bar.setValue(top + rowHeight - viewport()->height());
}

// ---- Painting ----

void PropertyListView::paintEvent(QPaintEvent* event) {
    QPainter canvas(viewport());
    const QColor ground = viewport()->palette().color(QPalette::Base);
    canvas.fillRect(event->rect(), ground);
    if (!list) return;
    EnsureRows();
    const int first = std::max(0, (event->rect().top() + verticalScrollBar()->value()) / rowHeight);
    for (int i = first; i < rows.Count(); ++i) {
        const RowParts parts = PartsOf(i);
        if (parts.line.top() > event->rect().bottom()) break;
        RowState state;
        state.current = rows.At(i).row == list->GetCurSel();
        state.active = hasFocus() || editor || Popup();
        state.markedButton = markedButton;
        state.buttonDown = buttonDown;
        state.edited = editor && rows.At(i).path == editPath;
        painter.Paint(canvas, rows.At(i), parts, state);
    }
}

void PropertyListView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    EnsureRows();
    UpdateScrollBar();
    PlaceEditor();
    if (onColumnsMoved) onColumnsMoved();
}

void PropertyListView::scrollContentsBy(int, int) {
    viewport()->update();
    PlaceEditor();
}

void PropertyListView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    // The keyboard needs a row to start from.
    EnsureRows();
    if (list && !list->GetCurSel() && rows.Count() > 0 && event->reason() != Qt::MouseFocusReason) Select(0);
    viewport()->update();
}

void PropertyListView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    buttonDown = false;
    viewport()->update();
}

void PropertyListView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange && list) {
        rowHeight = list->GetOwner().GetPlatform().GetMetric(SYSTEM_METRIC::ROW_HEIGHT);
        verticalScrollBar()->setSingleStep(rowHeight);
        UpdateScrollBar();
    }
}

bool PropertyListView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !list) return QAbstractScrollArea::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    EnsureRows();
    const int index = IndexAt(help.pos());
    if (index >= 0 && painter.IsClipped(rows.At(index), PartsOf(index), font())) {
        const CMFCPropertyGridProperty& row = *rows.At(index).row;
        QToolTip::showText(help.globalPos(), ToQString(row.GetName()) + ": " + PropertyRowPainter::ValueText(row),
                           this);
    } else {
        QToolTip::hideText();
    }
    return true;
}

// ---- Moving about ----

int PropertyListView::CurrentIndex() {
    EnsureRows();
    return list ? rows.Find(list->GetCurSel()) : -1;
}

CMFCPropertyGridProperty* PropertyListView::CurrentRow() {
    const int index = CurrentIndex();
    return index < 0 ? nullptr : rows.At(index).row;
}

void PropertyListView::Select(int index) {
    markedButton = 0;
    list->SetCurSel(rows.At(index).row);
}

void PropertyListView::MoveTo(int index) {
    EnsureRows();
    if (!list || rows.Count() == 0) return;
    index = std::clamp(index, 0, rows.Count() - 1);
    Select(index);
    ShowRow(index);
}

void PropertyListView::Fold(int index, bool fold) {
    if (!rows.At(index).foldable || rows.At(index).folded == fold) return;
    CloseEditor();
    rows.SetFolded(rows.At(index).path, fold);
    stale = true;
    EnsureRows();
    UpdateScrollBar();
    if (fold && CurrentIndex() < 0) Select(index);
}

// ---- Mouse ----

void PropertyListView::mousePressEvent(QMouseEvent* event) {
    if (!list || event->button() != Qt::LeftButton) return;
    if (editor && !CommitEdit()) CloseEditor();
    if (!list) return;
    const QPoint point = event->position().toPoint();
    EnsureRows();
    draggingColumn = std::abs(point.x() - NameWidth()) <= kGrip;
    const int index = IndexAt(point);
    if (draggingColumn || index < 0) return;
    const RowParts parts = PartsOf(index);
    Select(index);
    if (rows.Count() <= index) return;
    if (parts.gutter.contains(point)) {
        Fold(index, !rows.At(index).folded);
    } else if (rows.At(index).row->GetKind() == ROW_KIND::DUAL_BUTTON) {
        for (int button = 0; button < 2; ++button) {
            if (!parts.Button(button).contains(point)) continue;
            markedButton = button;
            buttonDown = true;
        }
        viewport()->update();
    } else if (parts.value.contains(point)) {
        PressValue(index, point);
    }
}

void PropertyListView::PressValue(int index, const QPoint& point) {
    CMFCPropertyGridProperty& row = *rows.At(index).row;
    if (!IsOpen(row)) return;
    const RowParts parts = PartsOf(index);
    if (row.GetKind() == ROW_KIND::CHECK) {
        if (parts.Check().contains(point)) Toggle(row);
    } else if (HasDropDown(row)) {
        OpenPicker();
    } else if (row.HasSpinControl() && parts.Arrows().contains(point)) {
        Step(row, parts.SpinUp().contains(point) ? 1 : -1);
    } else {
        StartEdit();
    }
}

void PropertyListView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (draggingColumn) {
        nameShare = std::clamp(double(point.x() - kGutter) / std::max(1, viewport()->width() - kGutter), kLeastShare,
                               kMostShare);
        viewport()->update();
        PlaceEditor();
        if (onColumnsMoved) onColumnsMoved();
        return;
    }
    EnsureRows();
    const int index = IndexAt(point);
    const bool grip = index >= 0 && !IsHeading(*rows.At(index).row) && std::abs(point.x() - NameWidth()) <= kGrip;
    viewport()->setCursor(grip ? Qt::SplitHCursor : Qt::ArrowCursor);
}

void PropertyListView::mouseReleaseEvent(QMouseEvent* event) {
    draggingColumn = false;
    if (!buttonDown || !list) return;
    buttonDown = false;
    viewport()->update();
    const int index = CurrentIndex();
    if (index >= 0 && PartsOf(index).Button(markedButton).contains(event->position().toPoint())) {
        PressButton(markedButton);
    }
}

void PropertyListView::mouseDoubleClickEvent(QMouseEvent* event) {
    EnsureRows();
    const int index = IndexAt(event->position().toPoint());
    const bool onName = index >= 0 && event->position().x() > PartsOf(index).gutter.right();
    if (list && onName && rows.At(index).foldable) {
        Fold(index, !rows.At(index).folded);
    } else {
        mousePressEvent(event);
    }
}

// ---- Keyboard ----

void PropertyListView::keyPressEvent(QKeyEvent* event) {
    if (!list) return;
    if (event->matches(QKeySequence::Copy)) {
        const CMFCPropertyGridProperty* row = CurrentRow();
        if (row && row->GetKind() != ROW_KIND::PASSWORD) {
            list->GetOwner().GetPlatform().SetClipboardText(Trim(row->FormatProperty()));
        }
        return;
    }
    if (!ActKey(*event) && !FoldKey(event->key()) && !MoveKey(event->key())) event->ignore();
}

bool PropertyListView::MoveKey(int key) {
    const int page = std::max(1, viewport()->height() / rowHeight - 1);
    const int current = CurrentIndex();
    switch (key) {
        case Qt::Key_Up:
            MoveTo(current - 1);
            return true;
        case Qt::Key_Down:
            MoveTo(current + 1);
            return true;
        case Qt::Key_PageUp:
            MoveTo(current - page);
            return true;
        case Qt::Key_PageDown:
            MoveTo(current + page);
            return true;
        case Qt::Key_Home:
            MoveTo(0);
            return true;
        case Qt::Key_End:
            MoveTo(rows.Count() - 1);
            return true;
        default:
            return false;
    }
}

bool PropertyListView::FoldKey(int key) {
    const int index = CurrentIndex();
    if (index < 0 || (key != Qt::Key_Left && key != Qt::Key_Right)) return false;
    const bool right = key == Qt::Key_Right;
    if (rows.At(index).row->GetKind() == ROW_KIND::DUAL_BUTTON) {
        markedButton = right ? 1 : 0;
        viewport()->update();
    } else if (rows.At(index).foldable) {
        Fold(index, !right);
    }
    return true;
}

bool PropertyListView::ActKey(const QKeyEvent& key) {
    CMFCPropertyGridProperty* const row = CurrentRow();
    if (!row || !IsOpen(*row)) return false;
    const bool dropKey = key.key() == Qt::Key_F4 || (key.key() == Qt::Key_Down && key.modifiers() & Qt::AltModifier);
    if (dropKey && HasDropDown(*row)) {
        OpenPicker();
        return true;
    }
    if (key.key() == Qt::Key_F2 && HasEditor(*row)) {
        StartEdit();
        return true;
    }
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Space) {
        const bool space = key.key() == Qt::Key_Space;
        if (!space || !HasEditor(*row) || HasDropDown(*row)) Activate();
        return true;
    }
    if (IsTyping(key) && HasEditor(*row) && !HasDropDown(*row)) {
        const QString typed = key.text();
        StartEdit(&typed);
        return true;
    }
    return false;
}

void PropertyListView::Activate() {
    CMFCPropertyGridProperty* const row = CurrentRow();
    if (row->GetKind() == ROW_KIND::CHECK) {
        Toggle(*row);
    } else if (row->GetKind() == ROW_KIND::DUAL_BUTTON) {
        PressButton(markedButton);
    } else if (HasDropDown(*row)) {
        OpenPicker();
    } else {
        StartEdit();
    }
}

// ---- What the operator does to a row. No row is touched after the act: its pane may have made all anew. ----

void PropertyListView::Toggle(CMFCPropertyGridProperty& row) {
    user::Edit(*list, row, !row.Get<bool>());
}

void PropertyListView::Step(CMFCPropertyGridProperty& row, int step) {
    if (row.GetKind() != ROW_KIND::INTEGER) return;
    user::Edit(*list, row, row.Get<std::int32_t>() + step);
}

void PropertyListView::PressButton(int button) {
    CMFCPropertyGridProperty* const row = CurrentRow();
    if (row && IsOpen(*row)) user::Edit(*list, *row, std::int32_t{button});
}

void PropertyListView::OpenPicker() {
    const int index = CurrentIndex();
    if (index < 0) return;
    if (popup) popup->close();
    const CMFCPropertyGridProperty& row = *rows.At(index).row;
    const std::vector<RowChoice> choices = row.GetChoices();
    std::vector<PickerItem> items;
    std::vector<RowValue> values;
    int current = -1;
    for (const RowChoice& choice : choices) {
        if (choice.value == row.GetValue()) current = static_cast<int>(items.size());
        items.push_back({{row.GetKind(), choice.value, DrawingColour(row)}, ToQString(choice.text)});
        values.push_back(choice.value);
    }
    if (items.empty()) return;
    const PickerLook look{QColorOf(list->GetCustomColors().background), QColorOf(list->GetCustomColors().text),
                          rowHeight};
    popup = new PickerPopup(this, std::move(items), current, look, symbols,
                            [this, path = rows.At(index).path, values = std::move(values)](int chosen) {
                                ChooseFromPicker(path, values.at(static_cast<std::size_t>(chosen)));
                            });
    const QRect value = PartsOf(index).value;
    popup->OpenAt(QRect(viewport()->mapToGlobal(value.topLeft()), value.size()));
    viewport()->update();
}

void PropertyListView::ChooseFromPicker(const std::string& path, const RowValue& value) {
    setFocus();
    EnsureRows();
    const int index = rows.Find(path);
    if (list && index >= 0) user::Edit(*list, *rows.At(index).row, value);
}

// ---- Typing ----

void PropertyListView::StartEdit(const QString* typed) {
    const int index = CurrentIndex();
    if (index < 0 || !HasEditor(*rows.At(index).row)) return;
    CloseEditor();
    const CMFCPropertyGridProperty& row = *rows.At(index).row;
    const bool hidden = row.GetKind() == ROW_KIND::PASSWORD;
    editPath = rows.At(index).path;
    editor = new RowEdit(viewport(), hidden ? QString() : ToQString(Trim(row.FormatProperty())), hidden);
    QPalette colours;
    const QColor ground = QColorOf(list->GetCustomColors().background);
    const QColor text = QColorOf(list->GetCustomColors().text);
    colours.setColor(QPalette::Base, Mix(ground, IsDark(ground) ? QColor(128, 128, 128) : QColor(255, 255, 255),
                                         IsDark(ground) ? 0.2 : 0.7));
    colours.setColor(QPalette::Text, text);
    colours.setColor(QPalette::Highlight, SelectionOn(ground, true).ground);
    colours.setColor(QPalette::HighlightedText, SelectionOn(ground, true).text);
    editor->setPalette(colours);
    editor->setAccessibleName(ToQString(row.GetName()));
    editor->onEnd = [this](RowEdit::END end) { EndEdit(end); };
    if (row.HasSpinControl()) editor->onStep = [this](int step) { StepEditor(step); };
    PlaceEditor();
    editor->show();
    editor->setFocus();
    if (typed) {
        editor->setText(*typed);
    } else {
        editor->selectAll();
    }
}

void PropertyListView::PlaceEditor() {
    if (!editor) return;
    EnsureRows();
    const int index = rows.Find(editPath);
    if (index < 0 || !IsOpen(*rows.At(index).row)) {
        CloseEditor();
        return;
    }
    const RowParts parts = PartsOf(index);
    const bool spin = rows.At(index).row->HasSpinControl();
    editor->setGeometry(parts.value.adjusted(0, 0, spin ? -parts.Arrows().width() : 0, -1));
}

void PropertyListView::StepEditor(int step) {
    EnsureRows();
    const int index = rows.Find(editPath);
    if (index < 0) return;
    const auto [minimum, maximum] = rows.At(index).row->GetSpinBounds();
    const int stepped = std::clamp(Atoi(FromQString(editor->text())) + step, minimum, maximum);
    editor->setText(ToQString(Format("%d", stepped)));
    editor->selectAll();
}

bool PropertyListView::CommitEdit() {
    if (!editor || committing) return true;
    EnsureRows();
    const int index = rows.Find(editPath);
    std::string text = FromQString(editor->text());
    const bool password = editor->echoMode() == QLineEdit::Password;
    const bool unchanged = editor->text() == editor->StartText();
    if (index < 0 || !list || unchanged) {
        CloseEditor();
        return true;
    }
    // What the pane does in answer may take the keyboard away, which would end the edit a second time.
    committing = true;
    const QPointer<PropertyListView> self(this);
    const bool taken = user::Type(*list, *rows.At(index).row, text);
    if (password) ::explicit_bzero(text.data(), text.size());
    if (!self) return true;
    committing = false;
    if (taken || password) CloseEditor();
    return taken || password;
}

void PropertyListView::EndEdit(RowEdit::END end) {
    if (end == RowEdit::END::ESCAPE) {
        CloseEditor();
        return;
    }
    const QPointer<PropertyListView> self(this);
    const bool over = CommitEdit();
    if (!self || !list) return;
    if (!over) {
        list->GetOwner().GetPlatform().Beep();
        if (end == RowEdit::END::FOCUS_LOST) {
            CloseEditor();
        } else if (editor) {
            editor->Refuse();
        }
        return;
    }
    if (end == RowEdit::END::TAB) MoveTo(CurrentIndex() + 1);
    if (end == RowEdit::END::BACKTAB) MoveTo(CurrentIndex() - 1);
}

void PropertyListView::CloseEditor() {
    if (!editor) return;
    RowEdit* const closing = editor;
    editor = nullptr;
    editPath.clear();
    closing->onEnd = nullptr;
    closing->onStep = nullptr;
    // Before it hides, or the keyboard would wander to a neighbour on its way here.
    if (closing->hasFocus()) setFocus();
    closing->hide();
    // The edit may be in the middle of an event of its own.
    closing->deleteLater();
    viewport()->update();
}

}  // namespace quillon
