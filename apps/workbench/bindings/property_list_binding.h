#pragma once

#include <QWidget>

#include "bindings/control_binding.h"
#include "bindings/property_list_view.h"

namespace quillon {

/// A property list: column captions where the list wants them, its rows, and under them the name and the text of the
/// current row.
class PropertyListBinding : public QWidget, public ControlBinding {
public:
    PropertyListBinding(CMFCPropertyGridCtrl& list, SymbolPainter symbols, QWidget* parent);

    QWidget& Widget() override { return *this; }
    PropertyListView& View() const { return *view; }

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    int HeaderHeight() const;
    int DescriptionHeight() const;
    QRect DescriptionRect() const;
    void PlaceParts();

    CMFCPropertyGridCtrl* list;
    PropertyListView* view;
};

}  // namespace quillon
