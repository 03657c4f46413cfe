#pragma once

#include <QAbstractScrollArea>
#include <QPointer>

#include "bindings/picker_popup.h"
#include "bindings/property_row_painter.h"
#include "bindings/row_edit.h"
#include "bindings/shown_rows.h"

namespace quillon {

/// The rows of a property list.
///
/// Keys: Up, Down, Page Up, Page Down, Home, End move; Left and Right fold and unfold a group; the space bar checks a
/// box, opens a list, presses a button; Return, F2 and typing start an edit; F4 and Alt+Down open a list; Ctrl+C copies
/// the value.
///
/// It holds no row over an act of the operator: what the pane does in answer may make all rows anew.
class PropertyListView : public QAbstractScrollArea {
public:
    PropertyListView(CMFCPropertyGridCtrl& list, SymbolPainter symbols, QWidget* parent);

    /// Rows have come or gone. None is touched until they are asked for again.
    void ContentChanged();
    void SelectionChanged();
    void ColoursChanged();
    void Forget();

    int RowHeight() const { return rowHeight; }
    /// Width from the left edge to the value column.
    int NameWidth() const;
    RowEdit* Editor() const { return editor; }
    /// The list that is open, or null.
    PickerPopup* Popup() const { return popup && popup->isVisible() ? popup.data() : nullptr; }
    /// Where a row's value stands, in the viewport. Empty if the row isn't shown.
    QRect ValueRect(const CMFCPropertyGridProperty& row);

    /// Told when the width of the name column has changed.
    std::function<void()> onColumnsMoved;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void EnsureRows();
    void Settle();
    void UpdateScrollBar();
    RowParts PartsOf(int index) const;
    int IndexAt(const QPoint& point) const;
    int CurrentIndex();
    CMFCPropertyGridProperty* CurrentRow();

    void Select(int index);
    void MoveTo(int index);
    void ShowRow(int index);
    void Fold(int index, bool fold);
    bool FoldKey(int key);
    bool MoveKey(int key);
    bool ActKey(const QKeyEvent& key);

    void PressValue(int index, const QPoint& point);
    void PressButton(int button);
    void Toggle(CMFCPropertyGridProperty& row);
    void Step(CMFCPropertyGridProperty& row, int step);
    void Activate();
    void OpenPicker();
    void ChooseFromPicker(const std::string& path, const RowValue& value);

    void StartEdit(const QString* typed = nullptr);
    void PlaceEditor();
    void StepEditor(int step);
    void EndEdit(RowEdit::END end);
    /// True if the edit is over: the text was a value, or nothing was changed.
    bool CommitEdit();
    void CloseEditor();

    CMFCPropertyGridCtrl* list;
    SymbolPainter symbols;
    PropertyRowPainter painter;
    ShownRows rows;
    bool stale = true;      // `rows` must be built before use
    bool settling = false;  // Settle is on its way
    std::string currentPath;
    int rowHeight = 20;
    double nameShare = 0.46;
    bool draggingColumn = false;
    int markedButton = 0;
    bool buttonDown = false;

    QPointer<RowEdit> editor;
    std::string editPath;
    bool committing = false;
    QPointer<PickerPopup> popup;
};

}  // namespace quillon
