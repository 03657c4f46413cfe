#include "window/notice_strip.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QTimer>
#include <QVBoxLayout>

#include "toolkit/colours.h"

namespace quillon {
namespace {

constexpr int kPadding = 3;

/// A label that is cut where there is no room, so that a long reason widens no window.
class CutLabel : public QLabel {
public:
    void SetText(const QString& whole) {
        text = whole;
        Cut();
    }
    const QString& Text() const { return text; }
    QSize minimumSizeHint() const override { return {80, QLabel::minimumSizeHint().height()}; }
    QSize sizeHint() const override { return {80, QLabel::sizeHint().height()}; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        Cut();
    }

private:
    void Cut() { setText(fontMetrics().elidedText(text, Qt::ElideRight, width())); }
    QString text;
};

}  // namespace

class NoticeStrip::Row : public QFrame {
public:
    Row(QWidget* parent, const Notice& notice) : QFrame(parent), isGrave(notice.isGrave) {
        setAutoFillBackground(true);
        // Below a tool bar these would be those of its buttons.
        setBackgroundRole(QPalette::Window);
        setForegroundRole(QPalette::WindowText);
        auto* const line = new QHBoxLayout(this);
        line->setContentsMargins(8, kPadding, 6, kPadding);
        label = new CutLabel;
        label->setTextFormat(Qt::PlainText);
        label->setForegroundRole(QPalette::WindowText);
        label->SetText(notice.text);
        label->setToolTip(notice.details.isEmpty() ? notice.text : notice.details);
        label->setAccessibleName(notice.text);
        line->addWidget(label, 1);
        for (const Offer& offer : notice.offers) {
            auto* const button = new QPushButton(offer.text);
            button->setAutoDefault(false);
            // Whoever answers may take the notice, and this button with it.
            QObject::connect(button, &QPushButton::clicked, parent,
                             [parent, act = offer.act] { QTimer::singleShot(0, parent, act); });
            line->addWidget(button);
            buttons.push_back(button);
        }
        Colour();
    }
    void Colour() {
        const bool night = IsDark(parentWidget()->palette().color(QPalette::Window));
        QPalette colours = parentWidget()->palette();
        const QColor grave = night ? QColor(92, 20, 16) : QColor(168, 28, 20);
        const QColor plain = night ? QColor(64, 50, 8) : QColor(240, 214, 140);
        colours.setColor(QPalette::Window, isGrave ? grave : plain);
        colours.setColor(QPalette::WindowText, night     ? QColor(0xC0, 0xC0, 0xC0)
                                               : isGrave ? QColor(255, 255, 255)
                                                         : QColor(0, 0, 0));
        setPalette(colours);
        for (QPushButton* const button : buttons) button->setPalette(parentWidget()->palette());
    }
    const QString& Text() const { return label->Text(); }
    bool Press(const QString& offer) {
        for (QPushButton* const button : buttons) {
            if (button->text().remove('&') != offer) continue;
            button->click();
            return true;
        }
        return false;
    }

private:
    CutLabel* label;
    std::vector<QPushButton*> buttons;
    bool isGrave;
};

NoticeStrip::NoticeStrip(QWidget* parent)
    : QToolBar("Notices", parent), content(new QWidget), column(new QVBoxLayout(content)) {
    setObjectName("notices");
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setContentsMargins(0, 0, 0, 0);
    layout()->setContentsMargins(0, 0, 0, 0);
    content->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(1);
    addWidget(content);
    hide();
}

void NoticeStrip::Show(TOPIC topic, const Notice& notice) {
    Take(topic);
    auto* const row = new Row(content, notice);
    const auto place = std::distance(rows.begin(), rows.insert({topic, row}).first);
    column->insertWidget(static_cast<int>(place), row);
    row->show();
    ShowOrHide();
}

void NoticeStrip::Take(TOPIC topic) {
    const auto found = rows.find(topic);
    if (found == rows.end()) return;
    delete found->second;
    rows.erase(found);
    ShowOrHide();
}

QString NoticeStrip::TextOf(TOPIC topic) const {
    const auto found = rows.find(topic);
    return found == rows.end() ? QString() : found->second->Text();
}

bool NoticeStrip::Press(TOPIC topic, const QString& offer) {
    const auto found = rows.find(topic);
    return found != rows.end() && found->second->Press(offer);
}

void NoticeStrip::changeEvent(QEvent* event) {
    QToolBar::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    for (const auto& [topic, row] : rows) row->Colour();
}

}  // namespace quillon
