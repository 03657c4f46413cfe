#include "window/find_line.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <utility>

#include "toolkit/text_edge.h"

namespace quillon {
namespace {

/// Points looked at before the window gets its turn: a few milliseconds.
constexpr std::size_t kPointsAtOnce = 100'000;
constexpr int kFromEdge = 12;
constexpr int kEditWidth = 260;
constexpr int kStateWidth = 110;

}  // namespace

FindLine::FindLine(const JobRecord& job, QWidget& chart) : QFrame(&chart), over(chart), finder(job) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    edit = new QLineEdit;
    edit->setPlaceholderText("Name, KP 12.345, or easting northing");
    edit->setFixedWidth(kEditWidth);
    edit->setClearButtonEnabled(true);
    state = new QLabel;
    state->setMinimumWidth(kStateWidth);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->addWidget(edit);
    layout->addWidget(state);
    edit->installEventFilter(this);
    chart.installEventFilter(this);
    goOn.setInterval(0);
    connect(&goOn, &QTimer::timeout, this, [this] { LookOn(); });
    connect(edit, &QLineEdit::textChanged, this, [this] { Ask(); });
    hide();
}

void FindLine::Open() {
    Place();
    show();
    raise();
    edit->setFocus(Qt::ShortcutFocusReason);
    edit->selectAll();
    Ask();
}

void FindLine::Close() {
    goOn.stop();
    hide();
    over.setFocus(Qt::OtherFocusReason);
}

void FindLine::Place() {
    adjustSize();
    move(std::max(kFromEdge, over.width() - width() - kFromEdge), kFromEdge + over.fontMetrics().height());
}

void FindLine::OnJobChanged() {
    if (isVisible() && finder.IsOutOfDate()) Ask();
}

void FindLine::Ask() {
    shown = -1;
    waiting = 0;
    finder.Ask(FromQString(edit->text()));
    LookOn();
}

void FindLine::LookOn() {
    const bool hasMore = finder.Look(kPointsAtOnce);
    hasMore ? goOn.start() : goOn.stop();
    if (waiting != 0 && (!finder.Found().empty() || !hasMore)) Go(std::exchange(waiting, 0));
    ShowState();
}

void FindLine::Go(int step) {
    const int count = static_cast<int>(finder.Found().size());
    if (count == 0) {
        waiting = goOn.isActive() ? step : 0;
        return;
    }
    shown = shown < 0 ? (step > 0 ? 0 : count - 1) : (shown + step + count) % count;
    ShowState();
    if (onShow) onShow(finder.Found()[static_cast<std::size_t>(shown)]);
}

void FindLine::ShowState() {
    const std::size_t count = finder.Found().size();
    const QString total = QString::number(count) + (finder.IsCut() || goOn.isActive() ? "+" : "");
    if (edit->text().trimmed().isEmpty()) {
        state->clear();
    } else if (count == 0) {
        state->setText(goOn.isActive() ? "Looking..." : "Nothing found");
    } else {
        state->setText(shown < 0 ? total + " found" : QString("%1 of %2").arg(shown + 1).arg(total));
    }
    const bool hasPlace = shown >= 0 && static_cast<std::size_t>(shown) < count;
    setToolTip(hasPlace ? ToQString(finder.Found()[static_cast<std::size_t>(shown)].text).toHtmlEscaped() : QString());
}

bool FindLine::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &over && event->type() == QEvent::Resize) Place();
    if (watched != edit || event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    const auto* const key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Go(key->modifiers() & Qt::ShiftModifier ? -1 : 1);
            return true;
        case Qt::Key_Down:
            Go(1);
            return true;
        case Qt::Key_Up:
            Go(-1);
            return true;
        case Qt::Key_Escape:
            Close();
            return true;
        default:
            return QFrame::eventFilter(watched, event);
    }
}

}  // namespace quillon
