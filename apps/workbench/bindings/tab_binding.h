#pragma once

#include <QTabBar>
#include <vector>

#include "bindings/binding_factory.h"
#include "platform/tab_ctrl.h"

namespace quillon {

/// A row of tabs over the page in front. The pages are children, where the model puts them.
class TabBinding : public QWidget, public ControlBinding {
public:
    TabBinding(CMFCTabCtrl& tabs, const BindingFactory& factory, QWidget* parent);

    QWidget& Widget() override { return *this; }
    QTabBar& Bar() const { return *bar; }
    /// The widget that shows a page, or null.
    QWidget* WidgetOf(const CControl& page) const;

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddPages();

    CMFCTabCtrl* tabs;
    const BindingFactory& factory;
    QTabBar* bar;
    std::vector<ControlBinding*> pages;  // children of this widget
};

}  // namespace quillon
