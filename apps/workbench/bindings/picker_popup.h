#pragma once

#include <QFrame>
#include <functional>
#include <vector>

#include "bindings/row_pictures.h"

class QListWidget;

namespace quillon {

struct PickerItem {
    RowPicture picture;
    QString text;
};

/// How a drop-down looks: the colours and the row height of the list it belongs to.
struct PickerLook {
    QColor ground;
    QColor text;
    int rowHeight;
};

/// The opened list of a picker or option row. Up, Down, Home, End and typing move in it, Return and a click choose,
/// Escape closes. It deletes itself.
class PickerPopup : public QFrame {
public:
    PickerPopup(QWidget* parent, std::vector<PickerItem> items, int current, const PickerLook& look,
                const SymbolPainter& symbols, std::function<void(int index)> chosen);

    /// Opens below the cell, or above it where there is no room. `cell` in screen coordinates.
    void OpenAt(const QRect& cell);
    QListWidget& List() const { return *list; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Choose(int index);
    int WidestItem() const;

    std::vector<PickerItem> items;
    PickerLook look;
    std::function<void(int)> chosen;
    QListWidget* list;
};

}  // namespace quillon
