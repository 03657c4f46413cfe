#include "window/empty_hint.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace quillon {
namespace {

constexpr int kMargin = 18;
constexpr int kMostWidth = 440;

}  // namespace

EmptyHint::EmptyHint(QWidget& under, Offers offers)
    : QFrame(&under),
      chart(under),
      title(new QLabel),
      text(new QLabel),
      sample(new QPushButton("Open the &Sample Job")) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    title->setFont(large);
    text->setWordWrap(true);
    auto* const add = new QPushButton("&Add Files...");
    auto* const keyboard = new QPushButton("&Keyboard");
    connect(add, &QPushButton::clicked, this, [act = offers.add] { act(); });
    connect(sample, &QPushButton::clicked, this, [act = offers.sample] { act(); });
    connect(keyboard, &QPushButton::clicked, this, [act = offers.keyboard] { act(); });
    auto* const buttons = new QHBoxLayout;
    for (QPushButton* const button : {add, sample, keyboard}) buttons->addWidget(button);
    buttons->addStretch();
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(10);
    column->addWidget(title);
    column->addWidget(text);
    column->addLayout(buttons);
    chart.installEventFilter(this);
    hide();
}

void EmptyHint::SetState(STATE state) {
    setVisible(state != STATE::NONE);
    if (state == STATE::NONE) return;
    const bool isFirst = state == STATE::NO_FILES;
    title->setText(isFirst ? "This job has no files yet" : "Nothing is displayed");
    text->setText(isFirst
                      ? "Add boundaries, waypoints, routes and whatever else belongs to the job: Ctrl+O, or the job "
                        "tree at the left. The sample job opens in a window of its own and leaves nothing behind."
                      : "Every file of the job is hidden or gives nothing to draw. The boxes in the job tree "
                        "display them; a mark there tells what is wrong with a file.");
    sample->setVisible(isFirst);
    Place();
}

void EmptyHint::Place() {
    const int width = std::min(kMostWidth, chart.width() - 2 * kMargin);
    if (width <= 0) return;
    const int height = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width) : sizeHint().height();
    setGeometry((chart.width() - width) / 2, std::max(0, (chart.height() - height) / 2), width, height);
}

bool EmptyHint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) Place();
    return QFrame::eventFilter(watched, event);
}

}  // namespace quillon
