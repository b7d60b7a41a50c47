#include "desktop_qt/dark_style.h"

#include "desktop_qt/picture_painter.h"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QStyleOption>

#include <algorithm>

namespace {

const QColor line_colour(125, 125, 125); // of what Qt's own style draws in one fixed dark colour

// Draws with the option, or with one whose colours of a window and of the focus, which edges are made of, are
// light.
template <class Option, class Draw>
void with_light_edges(const QStyleOption* option, const Draw& draw) {
    const auto* const given = qstyleoption_cast<const Option*>(option);
    if (given == nullptr)
        return draw(option);
    Option lighter(*given);
    lighter.palette.setColor(QPalette::Window, QColor(200, 200, 200));
    lighter.palette.setColor(QPalette::Highlight, given->palette.color(QPalette::Highlight).lighter(170));
    draw(&lighter);
}

} // namespace

void Dark_style::use_where_needed() {
    const QColor window = QApplication::palette().color(QPalette::Window);
    const bool is_own_style = QApplication::style()->name().compare("fusion", Qt::CaseInsensitive) == 0;
    if (is_own_style && window.lightness() < 128)
        QApplication::setStyle(new Dark_style("fusion"));
}

void Dark_style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto draw = [&](const QStyleOption* shown) {
        QProxyStyle::drawPrimitive(element, shown, painter, widget);
    };
    switch (element) {
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton:
    case PE_PanelButtonCommand:
        if (qstyleoption_cast<const QStyleOptionButton*>(option) != nullptr)
            return with_light_edges<QStyleOptionButton>(option, draw);
        return with_light_edges<QStyleOption>(option, draw); // of a tool button
    case PE_PanelMenu: return with_light_edges<QStyleOption>(option, draw);
    case PE_Frame:
    case PE_FrameLineEdit: return with_light_edges<QStyleOptionFrame>(option, draw);
    case PE_FrameTabWidget: return with_light_edges<QStyleOptionTabWidgetFrame>(option, draw);
    case PE_FrameGroupBox: return draw_group_frame(option, painter, qobject_cast<const QGroupBox*>(widget));
    default: draw(option);
    }
}

// Below the title, where the style draws it.
void Dark_style::draw_group_frame(const QStyleOption* option, QPainter* painter,
                                  const QGroupBox* group) const {
    constexpr int space_below_title = 3;
    constexpr int corner = 2;
    int top = space_below_title;
    if (group == nullptr || !group->title().isEmpty())
        top +=
            std::max(pixelMetric(PM_ExclusiveIndicatorHeight, option, group), option->fontMetrics.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(line_colour);
    painter->drawRoundedRect(QRectF(option->rect.adjusted(0, top, -1, -1)).translated(0.5, 0.5), corner,
                             corner);
    painter->restore();
}

void Dark_style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto draw = [&](const QStyleOption* shown) {
        QProxyStyle::drawControl(element, shown, painter, widget);
    };
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item != nullptr && item->menuItemType == QStyleOptionMenuItem::Separator &&
        item->text.isEmpty()) {
        constexpr int margin = 4;
        const int middle = option->rect.center().y();
        painter->setPen(line_colour);
        painter->drawLine(option->rect.left() + margin, middle, option->rect.right() - margin, middle);
    } else if (element == CE_TabBarTabShape) {
        with_light_edges<QStyleOptionTab>(option, draw);
    } else if (element == CE_ProgressBarGroove) {
        with_light_edges<QStyleOptionProgressBar>(option, draw);
    } else {
        draw(option);
    }
}

// The handle of a scroll bar stands out from its groove.
void Dark_style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    constexpr int edge = 2;
    if (const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        control == CC_ScrollBar && bar != nullptr)
        painter->fillRect(
            subControlRect(control, bar, SC_ScrollBarSlider, widget).adjusted(edge, edge, -edge, -edge),
            line_colour);
}

QPalette with_readable_disabled_text(QPalette palette) {
    constexpr double wanted = 3.2; // gradients of buttons take some
    for (const auto text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        for (const auto ground : {QPalette::Window, QPalette::Button, QPalette::Base})
            palette.setColor(QPalette::Disabled, text,
                             standing_out(palette.color(QPalette::Disabled, text),
                                          palette.color(QPalette::Disabled, ground), wanted));
    return palette;
}

QPalette dark_palette() {
    QPalette palette(QColor(45, 45, 48), QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Highlight, QColor(60, 110, 190));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::HighlightedText, QPalette::BrightText}) {
        palette.setColor(role, Qt::white);
        palette.setColor(QPalette::Disabled, role, Qt::gray);
    }
    palette.setColor(QPalette::Link, QColor(110, 170, 255));
    palette.setColor(QPalette::PlaceholderText, Qt::gray);
    return palette;
}
