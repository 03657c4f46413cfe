#pragma once

#include <QWidget>

#include "bindings/binding_factory.h"
#include "chart/chart_symbols.h"
#include "platform/view.h"

namespace quillon {

/// A view on the screen: it paints itself on the widget, and gets the operator's clicks.
class ViewBinding : public QWidget, public ControlBinding {
public:
    ViewBinding(CView& bound, QWidget* parent);

    QWidget& Widget() override { return *this; }

protected:
    void Refresh(CONTROL_CHANGE) override { update(); }
    void Forget() override { view = nullptr; }
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    CView* view;
};

/// The widgets of the program: those of every host, with the chart's symbols in rows, and those of views.
class WindowBindings : public BindingFactory {
public:
    WindowBindings() : BindingFactory(DrawChartSymbol) { Add<CView, ViewBinding>(); }
};

}  // namespace quillon
