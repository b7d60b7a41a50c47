#include "desktop_qt/window_icon.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace {

constexpr int drawn_size = 64; // the units of the coordinates below

QPainterPath leaf(QPointF stem, QPointF bend_1, QPointF bend_2, QPointF tip, QPointF bend_3, QPointF bend_4) {
    QPainterPath path(stem);
    path.cubicTo(bend_1, bend_2, tip);
    path.cubicTo(bend_3, bend_4, stem);
    return path;
}

QPixmap picture(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(double(size) / drawn_size, double(size) / drawn_size);
    QPainterPath card;
    card.addRoundedRect(4, 4, 56, 56, 8, 8);
    QPainterPath soil;
    soil.addPolygon(QPolygonF{{4, 44}, {60, 36}, {60, 60}, {4, 60}, {4, 44}});
    painter.fillPath(card, QColor(0xF4, 0xEF, 0xE1));
    painter.fillPath(card.intersected(soil), QColor(0x7A, 0x52, 0x30));
    QPainterPath stem({32, 48});
    stem.cubicTo({31, 36}, {31, 26}, {33, 14});
    painter.strokePath(stem, QPen(QColor(0x2F, 0x7D, 0x32), 4, Qt::SolidLine, Qt::RoundCap));
    painter.fillPath(leaf({32, 34}, {22, 33}, {17, 27}, {16, 19}, {26, 20}, {31, 26}),
                     QColor(0x43, 0xA0, 0x47));
    painter.fillPath(leaf({33, 28}, {43, 27}, {48, 21}, {49, 13}, {39, 14}, {34, 20}),
                     QColor(0x66, 0xBB, 0x6A));
    return pixmap;
}

} // namespace

QIcon window_icon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 128})
        icon.addPixmap(picture(size));
    return icon;
}
