#include "toolkit/theme_style.h"

#include <QIcon>
#include <QPainter>
#include <QStyleOption>

#include "toolkit/colours.h"

namespace quillon {
namespace {

constexpr QColor kHeading(0x55, 0x55, 0x55);
constexpr QColor kHeadingText(0xEB, 0xEB, 0xEB);
constexpr QColor kHeadingTextNight(0xC0, 0xC0, 0xC0);

/// While it lives, the option's window colour is one whose outline can be seen: the style draws its frames in a darker
/// shade of that colour, and there is none darker than black.
class VisibleFrames {
public:
    explicit VisibleFrames(const QStyleOption* drawn) : option(const_cast<QStyleOption*>(drawn)), kept(drawn->palette) {
        if (IsDark(kept.color(QPalette::Window))) option->palette.setColor(QPalette::Window, QColor(110, 110, 110));
    }
    ~VisibleFrames() { option->palette = kept; }
    VisibleFrames(const VisibleFrames&) = delete;
    VisibleFrames& operator=(const VisibleFrames&) = delete;

private:
    QStyleOption* option;
    QPalette kept;
};

bool IsFrame(QStyle::PrimitiveElement element) {
    switch (element) {
        case QStyle::PE_Frame:
        case QStyle::PE_FrameLineEdit:
        case QStyle::PE_PanelLineEdit:
        case QStyle::PE_FrameGroupBox:
        case QStyle::PE_PanelButtonCommand:
        case QStyle::PE_PanelButtonTool:
        case QStyle::PE_IndicatorCheckBox:
        case QStyle::PE_IndicatorRadioButton:
            return true;
        default:
            return false;
    }
}

/// A cross to close, or a square that comes loose, 16 pixels wide.
QIcon TitleIcon(bool close, const QColor& colour) {
    QIcon icon;
    for (const int scale : {1, 2}) {
        QPixmap picture(16 * scale, 16 * scale);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(colour, 1.4));
        if (close) {
            painter.drawLine(QPointF(4.5, 4.5), QPointF(11.5, 11.5));
            painter.drawLine(QPointF(11.5, 4.5), QPointF(4.5, 11.5));
        } else {
            painter.drawRect(QRectF(3.5, 6.5, 6, 6));
            painter.drawPolyline(QPolygonF({{6.5, 6}, {6.5, 3.5}, {12.5, 3.5}, {12.5, 9.5}, {10, 9.5}}));
        }
        icon.addPixmap(picture);
    }
    return icon;
}

enum class SIGN { INFORMATION, QUESTION, WARNING, CRITICAL };

/// The picture of a message box: as clear as the toolkit's, without its white.
void DrawSign(QPainter& painter, SIGN sign) {
    const QColor ink = sign == SIGN::WARNING ? QColor(20, 20, 20) : QColor(0xC0, 0xC0, 0xC0);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(sign == SIGN::WARNING    ? QColor(190, 140, 0)
                     : sign == SIGN::CRITICAL ? QColor(150, 30, 20)
                                              : QColor(0, 85, 140));
    if (sign == SIGN::WARNING) {
        painter.drawPolygon(QPolygonF({{16, 3}, {30, 28}, {2, 28}}));
    } else {
        painter.drawEllipse(QRectF(3, 3, 26, 26));
    }
    QFont font("DejaVu Sans");
    font.setPixelSize(sign == SIGN::WARNING ? 18 : 20);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(ink);
    const char* const letter = sign == SIGN::INFORMATION ? "i" : sign == SIGN::QUESTION ? "?" : "!";
    painter.drawText(sign == SIGN::WARNING ? QRectF(0, 9, 32, 20) : QRectF(3, 3, 26, 26), Qt::AlignCenter, letter);
}

QIcon SignIcon(SIGN sign) {
    constexpr int kSize = 32;
    QIcon icon;
    for (const int scale : {1, 2}) {
        QPixmap picture(kSize * scale, kSize * scale);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        DrawSign(painter, sign);
        icon.addPixmap(picture);
    }
    return icon;
}

void DrawDockTitle(const QStyleOptionDockWidget& dock, QPainter& painter, const QRect& text) {
    painter.fillRect(dock.rect, kHeading);
    painter.setPen(IsDark(dock.palette.color(QPalette::Window)) ? kHeadingTextNight : kHeadingText);
    painter.drawText(text.adjusted(4, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(dock.title, Qt::ElideRight, text.width() - 4));
}

}  // namespace

ThemeStyle::ThemeStyle() : QProxyStyle("Fusion") {}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (option && (element == PE_FrameTabWidget || element == PE_FrameMenu)) {
        painter->save();
        painter->setPen(option->palette.color(QPalette::Mid));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        painter->restore();
        return;
    }
    if (!option || !IsFrame(element)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const VisibleFrames frames(option);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* dock = qstyleoption_cast<const QStyleOptionDockWidget*>(option);
    if (element == CE_DockWidgetTitle && dock && !dock->verticalTitleBar) {
        DrawDockTitle(*dock, *painter, subElementRect(SE_DockWidgetTitleBarText, option, widget));
        return;
    }
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item && item->menuItemType == QStyleOptionMenuItem::Separator &&
        item->text.isEmpty()) {
        const int middle = item->rect.center().y();
        painter->fillRect(QRect(item->rect.left() + 5, middle, item->rect.width() - 10, 1),
                          item->palette.color(QPalette::Mid));
        return;
    }
    if (option && (element == CE_ProgressBarGroove || element == CE_TabBarTabShape)) {
        const VisibleFrames frames(option);
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
    if (control == CC_ComboBox || control == CC_SpinBox || control == CC_GroupBox) {
        const VisibleFrames frames(option);
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QIcon ThemeStyle::standardIcon(StandardPixmap pixmap, const QStyleOption* option, const QWidget* widget) const {
    switch (pixmap) {
        case SP_TitleBarCloseButton:
        case SP_TitleBarNormalButton:
            return TitleIcon(pixmap == SP_TitleBarCloseButton, kHeadingTextNight);
        case SP_MessageBoxInformation:
            return SignIcon(SIGN::INFORMATION);
        case SP_MessageBoxQuestion:
            return SignIcon(SIGN::QUESTION);
        case SP_MessageBoxWarning:
            return SignIcon(SIGN::WARNING);
        case SP_MessageBoxCritical:
            return SignIcon(SIGN::CRITICAL);
        default:
            return QProxyStyle::standardIcon(pixmap, option, widget);
    }
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* answer) const {
    switch (hint) {
        case SH_Widget_Animation_Duration:
        case SH_EtchDisabledText:
            return 0;
        case SH_ComboBox_Popup:
            // A list below the box, as everywhere else in the program, in place of a menu over it.
            return 0;
        case SH_Table_GridLineColor:
            if (option) {
                return static_cast<int>(
                    Mix(option->palette.color(QPalette::Base), option->palette.color(QPalette::Text), 0.22).rgb());
            }
            break;
        default:
            break;
    }
    return QProxyStyle::styleHint(hint, option, widget, answer);
}

}  // namespace quillon
