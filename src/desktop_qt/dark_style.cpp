#include "desktop_qt/dark_style.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleOptionButton>

void Dark_style::use_where_needed() {
    const QColor window = QApplication::palette().color(QPalette::Window);
    const bool is_own_style = QApplication::style()->name().compare("fusion", Qt::CaseInsensitive) == 0;
    if (is_own_style && window.lightness() < 128)
        QApplication::setStyle(new Dark_style("fusion"));
}

void Dark_style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (!button || (element != PE_IndicatorCheckBox && element != PE_IndicatorRadioButton)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOptionButton lighter(*button);
    lighter.palette.setColor(QPalette::Window, QColor(200, 200, 200));
    QProxyStyle::drawPrimitive(element, &lighter, painter, widget);
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
