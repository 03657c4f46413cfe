#pragma once

#include <QFont>
#include <QPainter>

#include "bindings/row_pictures.h"
#include "bindings/shown_rows.h"

namespace quillon {

/// Where the parts of a row's line lie.
struct RowParts {
    QRect line;
    QRect gutter;  ///< room of the fold arrow
    QRect name;
    QRect value;

    QRect Check() const { return {value.left() + 3, value.top(), 20, value.height()}; }
    /// The drop-down arrow, or the spin arrows.
    QRect Arrows() const { return {value.right() - 17, value.top(), 18, value.height()}; }
    QRect SpinUp() const { return Arrows().adjusted(0, 0, 0, -value.height() / 2); }
    QRect SpinDown() const { return Arrows().adjusted(0, value.height() / 2, 0, 0); }
    /// One of the two buttons of a row.
    QRect Button(int button) const;
};

/// How a row stands in the list at the moment.
struct RowState {
    bool current = false;
    bool active = false;      ///< the list has the keyboard
    int markedButton = -1;    ///< of a row of two buttons: the one the keyboard is on
    bool buttonDown = false;  ///< that button is held
    bool edited = false;      ///< an editor covers the value
};

/// Draws the lines of a property list in the list's colours.
class PropertyRowPainter {
public:
    PropertyRowPainter(const CMFCPropertyGridCtrl& bound, const SymbolPainter& symbolPainter)
        : list(&bound), symbols(symbolPainter) {}

    void Paint(QPainter& painter, const ShownRow& shown, const RowParts& parts, const RowState& state) const;
    /// Whether texts of the row don't fit their room; then a tip shows them in whole.
    bool IsClipped(const ShownRow& shown, const RowParts& parts, const QFont& font) const;
    /// The text of the value column. A password is never shown.
    static QString ValueText(const CMFCPropertyGridProperty& row);

private:
    void PaintHeading(QPainter& painter, const ShownRow& shown, const RowParts& parts, const RowState& state) const;
    void PaintName(QPainter& painter, const ShownRow& shown, const RowParts& parts, const RowState& state) const;
    void PaintValue(QPainter& painter, const CMFCPropertyGridProperty& row, const RowParts& parts,
                    const RowState& state) const;
    void PaintArrows(QPainter& painter, const CMFCPropertyGridProperty& row, const RowParts& parts,
                     const QColor& colour) const;
    void PaintButtons(QPainter& painter, const CMFCPropertyGridProperty& row, const RowParts& parts,
                      const RowState& state) const;
    void PaintFold(QPainter& painter, const ShownRow& shown, const RowParts& parts, const QColor& colour) const;
    QColor ValueColour(const CMFCPropertyGridProperty& row) const;
    QColor LineColour() const;

    const CMFCPropertyGridCtrl* list;
    SymbolPainter symbols;
};

/// Whether the row is drawn over both columns: a group, or a heading without a value.
bool IsHeading(const CMFCPropertyGridProperty& row);
/// Whether the row opens a list to choose from.
bool HasDropDown(const CMFCPropertyGridProperty& row);
/// Whether the operator may change it at all.
bool IsOpen(const CMFCPropertyGridProperty& row);

}  // namespace quillon
