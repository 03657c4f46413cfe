#include "bindings/tab_binding.h"

#include <QSignalBlocker>
#include <QStyleOptionTab>
#include <QStylePainter>

#include "platform/user_actions.h"
#include "toolkit/colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

/// The shades that tabs take in turn, mixed into the ground.
constexpr QColor kShades[] = {{0x5A, 0x8A, 0xD0}, {0xC8, 0xA0, 0x40}, {0x6A, 0xA8, 0x60},
                              {0xC0, 0x60, 0x58}, {0x8A, 0x70, 0xB8}, {0x50, 0xA0, 0xA0}};
constexpr double kShare = 0.22;

/// Tabs in shades of their own and with the name in front in bold, where the model has them so.
class ShadedTabs : public QTabBar {
public:
    ShadedTabs(const CMFCTabCtrl& tabControl, QWidget* parent) : QTabBar(parent), model(&tabControl) {}
    void Forget() { model = nullptr; }

protected:
    QSize tabSizeHint(int index) const override {
        const QSize plain = QTabBar::tabSizeHint(index);
        if (!model || !model->IsActiveTabBoldFont()) return plain;
        const int wider =
            QFontMetrics(Bold()).horizontalAdvance(tabText(index)) - fontMetrics().horizontalAdvance(tabText(index));
        return {plain.width() + std::max(0, wider), plain.height()};
    }
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        for (int i = 0; i < count(); ++i) {
            if (i != currentIndex()) DrawTab(painter, i);
        }
        if (currentIndex() >= 0) DrawTab(painter, currentIndex());
    }

private:
    QFont Bold() const {
        QFont bold = font();
        bold.setBold(true);
        return bold;
    }
    void DrawTab(QStylePainter& painter, int index) {
        QStyleOptionTab option;
        initStyleOption(&option, index);
        if (model && model->IsAutoColor()) {
            const QColor shade = kShades[static_cast<std::size_t>(index) % std::size(kShades)];
            for (const auto role : {QPalette::Window, QPalette::Button}) {
                option.palette.setColor(role, Mix(option.palette.color(role), shade, kShare));
            }
        }
        painter.drawControl(QStyle::CE_TabBarTabShape, option);
        const bool bold = model && model->IsActiveTabBoldFont() && index == currentIndex();
        painter.setFont(bold ? Bold() : font());
        painter.drawControl(QStyle::CE_TabBarTabLabel, option);
    }

    const CMFCTabCtrl* model;
};

}  // namespace

TabBinding::TabBinding(CMFCTabCtrl& bound, const BindingFactory& bindingFactory, QWidget* parent)
    : QWidget(parent), ControlBinding(bound), tabs(&bound), factory(bindingFactory), bar(new ShadedTabs(bound, this)) {
    setFocusProxy(bar);
    bar->setDrawBase(false);
    bar->setUsesScrollButtons(true);
    connect(bar, &QTabBar::currentChanged, this, [this](int tab) {
        if (tabs) user::Select(*tabs, tab);
    });
    AddPages();
}

void TabBinding::AddPages() {
    const QSignalBlocker quiet(bar);
    for (int i = bar->count(); i < tabs->GetTabsNum(); ++i) {
        bar->addTab(ToQString(tabs->GetTabLabel(i)).replace('&', "&&"));
        ControlBinding* const page = factory.Make(tabs->GetTabWnd(i), this);
        if (!page) continue;
        pages.push_back(page);
        page->ApplyLayout();
    }
    bar->setCurrentIndex(tabs->GetActiveTab());
}

QWidget* TabBinding::WidgetOf(const CControl& page) const {
    for (ControlBinding* const binding : pages) {
        if (binding->Control() == &page) return &binding->Widget();
    }
    return nullptr;
}

void TabBinding::Refresh(CONTROL_CHANGE change) {
    if (!tabs) return;
    if (change == CONTROL_CHANGE::CONTENT) AddPages();
    if (change == CONTROL_CHANGE::SELECTION) {
        const QSignalBlocker quiet(bar);
        bar->setCurrentIndex(tabs->GetActiveTab());
    }
    if (change == CONTROL_CHANGE::COLOURS) bar->update();
}

void TabBinding::Forget() {
    tabs = nullptr;
    static_cast<ShadedTabs*>(bar)->Forget();
}

void TabBinding::resizeEvent(QResizeEvent*) {
    if (tabs) bar->setGeometry(0, 0, width(), tabs->GetTabsHeight());
}

}  // namespace quillon
