#include "bindings/property_row_painter.h"

#include "platform/property_rows.h"
#include "toolkit/colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr int kInset = 5;
constexpr int kPadlock = 16;
constexpr QChar kDot(0x2022);
constexpr int kPasswordDots = 8;

QFont Bold(QFont font, bool bold) {
    font.setBold(bold);
    return font;
}

void DrawElided(QPainter& painter, const QRect& room, const QString& text) {
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
}

}  // namespace

bool IsHeading(const CMFCPropertyGridProperty& row) {
    return row.IsGroup() || row.GetKind() == ROW_KIND::HEADING;
}

bool HasDropDown(const CMFCPropertyGridProperty& row) {
    switch (row.GetKind()) {
        case ROW_KIND::OPTIONS:
        case ROW_KIND::COLOUR:
        case ROW_KIND::FILL:
        case ROW_KIND::THICKNESS:
        case ROW_KIND::SYMBOL:
        case ROW_KIND::SIZE:
        case ROW_KIND::LABEL:
        case ROW_KIND::POSITION:
            return true;
        default:
            return false;
    }
}

bool IsOpen(const CMFCPropertyGridProperty& row) {
    return !IsHeading(row) && row.IsEnabled() && !row.IsLocked();
}

QRect RowParts::Button(int button) const {
    const QRect room(gutter.right() + 1, line.top(), line.right() - gutter.right(), line.height() - 1);
    const int half = room.width() / 2;
    const QRect place(room.left() + button * half, room.top(), button ? room.width() - half : half, room.height());
    return place.adjusted(button ? 2 : 4, 2, button ? -4 : -2, -2);
}

QString PropertyRowPainter::ValueText(const CMFCPropertyGridProperty& row) {
    const std::string text = row.FormatProperty();
    if (row.GetKind() == ROW_KIND::PASSWORD) return text.empty() ? QString() : QString(kPasswordDots, kDot);
    return ToQString(Trim(text));
}

QColor PropertyRowPainter::LineColour() const {
    // The list's lines, softened: at full strength they would outshout the values.
    return Mix(QColorOf(list->GetCustomColors().background), QColorOf(list->GetCustomColors().line), 0.45);
}

QColor PropertyRowPainter::ValueColour(const CMFCPropertyGridProperty& row) const {
    const QColor ground = QColorOf(list->GetCustomColors().background);
    const QColor text = QColorOf(list->GetCustomColors().text);
    if (!row.IsEnabled()) return Mix(text, ground, 0.55);
    return row.IsLocked() ? Mix(text, ground, 0.3) : text;
}

void PropertyRowPainter::Paint(QPainter& painter, const ShownRow& shown, const RowParts& parts,
                               const RowState& state) const {
    painter.save();
    if (IsHeading(*shown.row)) {
        PaintHeading(painter, shown, parts, state);
        painter.restore();
        return;
    }
    const PropertyColours& colours = list->GetCustomColors();
    painter.fillRect(parts.line, QColorOf(colours.background));
    if (list->IsVSDotNetLook()) painter.fillRect(parts.gutter, QColorOf(colours.groupBackground));
    painter.setPen(LineColour());
    painter.drawLine(parts.gutter.right() + 1, parts.line.bottom(), parts.line.right(), parts.line.bottom());
    if (shown.row->GetKind() == ROW_KIND::DUAL_BUTTON) {
        PaintButtons(painter, *shown.row, parts, state);
    } else {
        painter.drawLine(parts.value.left() - 1, parts.line.top(), parts.value.left() - 1, parts.line.bottom());
        PaintName(painter, shown, parts, state);
        if (!state.edited) PaintValue(painter, *shown.row, parts, state);
    }
    painter.restore();
}

void PropertyRowPainter::PaintFold(QPainter& painter, const ShownRow& shown, const RowParts& parts,
                                   const QColor& colour) const {
    if (!shown.foldable) return;
    DrawArrow(painter, QRectF(parts.gutter).center() + QPointF(0.5, 0), 3.5,
              shown.folded ? Qt::RightArrow : Qt::DownArrow, colour);
}

void PropertyRowPainter::PaintHeading(QPainter& painter, const ShownRow& shown, const RowParts& parts,
                                      const RowState& state) const {
    const PropertyColours& colours = list->GetCustomColors();
    const QColor ground = QColorOf(colours.groupBackground);
    const QColor text = QColorOf(colours.groupText);
    painter.fillRect(parts.line, ground);
    painter.setPen(Mix(ground, text, 0.25));
    painter.drawLine(parts.line.bottomLeft(), parts.line.bottomRight());
    PaintFold(painter, shown, parts, text);
    painter.setFont(Bold(painter.font(), true));
    painter.setPen(text);
    DrawElided(painter,
               QRect(parts.name.left() + kInset, parts.line.top(), parts.line.right() - parts.name.left() - kInset,
                     parts.line.height() - 1),
               ToQString(shown.row->GetName()));
    if (state.current && state.active) {
        painter.setPen(QPen(text, 1, Qt::DotLine));
        painter.drawRect(
            QRect(QPoint(parts.name.left() + 1, parts.line.top() + 1), parts.line.bottomRight() - QPoint(2, 2)));
    }
}

void PropertyRowPainter::PaintName(QPainter& painter, const ShownRow& shown, const RowParts& parts,
                                   const RowState& state) const {
    QColor text = ValueColour(*shown.row);
    if (state.current) {
        const SelectionColours selection = SelectionOn(QColorOf(list->GetCustomColors().background), state.active);
        painter.fillRect(parts.name.adjusted(0, 0, 0, -1), selection.ground);
        text = selection.text;
    }
    PaintFold(painter, shown, parts,
              QColorOf(list->IsVSDotNetLook() ? list->GetCustomColors().groupText : list->GetCustomColors().text));
    painter.setPen(text);
    DrawElided(painter, parts.name.adjusted(kInset, 0, -kInset, -1), ToQString(shown.row->GetName()));
}

void PropertyRowPainter::PaintArrows(QPainter& painter, const CMFCPropertyGridProperty& row, const RowParts& parts,
                                     const QColor& colour) const {
    if (HasDropDown(row)) DrawArrow(painter, QRectF(parts.Arrows()).center(), 3.5, Qt::DownArrow, colour);
    if (row.HasSpinControl()) {
        DrawArrow(painter, QRectF(parts.SpinUp()).center(), 3, Qt::UpArrow, colour);
        DrawArrow(painter, QRectF(parts.SpinDown()).center(), 3, Qt::DownArrow, colour);
    }
}

void PropertyRowPainter::PaintValue(QPainter& painter, const CMFCPropertyGridProperty& row, const RowParts& parts,
                                    const RowState& state) const {
    const QColor ground = QColorOf(list->GetCustomColors().background);
    const QColor text = ValueColour(row);
    QRect room = parts.value.adjusted(kInset, 0, -kInset, -1);
    if (row.IsLocked()) {
        DrawPadlock(painter, QRect(room.right() - kPadlock + 4, room.top(), kPadlock, room.height()), text);
        room.setRight(room.right() - kPadlock);
    } else if (state.current && row.IsEnabled() && (HasDropDown(row) || row.HasSpinControl())) {
        PaintArrows(painter, row, parts, text);
        room.setRight(parts.Arrows().left());
    }
    if (const bool* checked = std::get_if<bool>(&row.GetValue()); checked && row.GetKind() == ROW_KIND::CHECK) {
        DrawCheck(painter, parts.Check().adjusted(0, 0, 0, -1), *checked, ground, text);
        return;
    }
    if (const QSize size = PictureSize(row.GetKind()); !size.isEmpty()) {
        painter.save();
        painter.setClipRect(parts.value);
        DrawRowPicture(painter, QRect(room.topLeft(), QSize(size.width(), room.height())),
                       {row.GetKind(), row.GetValue(), DrawingColour(row)}, ground, text, symbols);
        painter.restore();
        room.setLeft(room.left() + size.width() + kInset + 2);
    }
    painter.setFont(Bold(painter.font(), list->IsMarkModified() && row.IsModified()));
    painter.setPen(text);
    DrawElided(painter, room, ValueText(row));
}

void PropertyRowPainter::PaintButtons(QPainter& painter, const CMFCPropertyGridProperty& row, const RowParts& parts,
                                      const RowState& state) const {
    const auto* dual = dynamic_cast<const CMFCPropertyGridDualButton*>(&row);
    if (!dual) return;
    const QColor ground = QColorOf(list->GetCustomColors().background);
    const bool night = IsDark(ground);
    for (int button = 0; button < 2; ++button) {
        const QRect place = parts.Button(button);
        const bool marked = state.current && state.markedButton == button;
        QColor face = IsOpen(row) ? QColorOf(night ? 0x663D00 : 0xCC7B00) : Mix(ground, QColor(128, 128, 128), 0.4);
        if (marked && state.buttonDown) face = face.darker(130);
        const QColor text = IsOpen(row) ? QColorOf(night ? 0xC0C0C0 : 0xFFFFFF) : ValueColour(row);
        painter.fillRect(place, face);
        painter.setPen(text);
        painter.drawText(
            place, Qt::AlignCenter,
            painter.fontMetrics().elidedText(ToQString(dual->GetCaption(button)), Qt::ElideRight, place.width() - 4));
        if (marked && state.active) {
            painter.setPen(QPen(text, 1, Qt::DotLine));
            painter.drawRect(place.adjusted(2, 2, -3, -3));
        }
    }
}

bool PropertyRowPainter::IsClipped(const ShownRow& shown, const RowParts& parts, const QFont& font) const {
    const QFontMetrics plain(font);
    const QFontMetrics value(Bold(font, list->IsMarkModified() && shown.row->IsModified()));
    if (IsHeading(*shown.row)) return false;
    const QSize picture = PictureSize(shown.row->GetKind());
    const int taken = 2 * kInset + (picture.isEmpty() ? 0 : picture.width() + kInset);
    return plain.horizontalAdvance(ToQString(shown.row->GetName())) > parts.name.width() - 2 * kInset ||
           (shown.row->GetKind() != ROW_KIND::CHECK &&
            value.horizontalAdvance(ValueText(*shown.row)) > parts.value.width() - taken);
}

}  // namespace quillon
