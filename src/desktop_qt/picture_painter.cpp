#include "desktop_qt/picture_painter.h"

#include "desktop_qt/view.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <cmath>
#include <numbers>

namespace {

QPolygonF regular_polygon(const QRectF& box, int corners, double first_angle) {
    QPolygonF polygon;
    for (int i = 0; i < corners; ++i) {
        const double angle = first_angle + 2 * std::numbers::pi * i / corners;
        polygon << box.center() + QPointF(std::cos(angle) * box.width(), std::sin(angle) * box.height()) / 2;
    }
    return polygon;
}

QPainterPath outline(Shape shape, const QRectF& box) {
    constexpr double up = -std::numbers::pi / 2;
    QPainterPath path;
    switch (shape) {
    case Shape::square: path.addRoundedRect(box, box.width() / 8, box.height() / 8); break;
    case Shape::diamond: path.addPolygon(regular_polygon(box, 4, up)); break;
    case Shape::triangle:
        path.addPolygon(
            QPolygonF({QPointF(box.center().x(), box.top()), box.bottomRight(), box.bottomLeft()}));
        break;
    case Shape::hexagon: path.addPolygon(regular_polygon(box, 6, up)); break;
    case Shape::octagon: path.addPolygon(regular_polygon(box, 8, up + std::numbers::pi / 8)); break;
    case Shape::cut_corners: {
        const double cut = box.width() / 4;
        const QRectF narrow = box.adjusted(box.width() / 10, 0, -box.width() / 10, 0);
        path.addPolygon(
            QPolygonF({narrow.topLeft() + QPointF(cut, 0), narrow.topRight() - QPointF(cut, 0),
                       narrow.topRight() + QPointF(0, cut), narrow.bottomRight() - QPointF(0, cut),
                       narrow.bottomRight() - QPointF(cut, 0), narrow.bottomLeft() + QPointF(cut, 0),
                       narrow.bottomLeft() - QPointF(0, cut), narrow.topLeft() + QPointF(0, cut)}));
        break;
    }
    case Shape::none: break;
    default: path.addEllipse(box); break;
    }
    path.closeSubpath();
    return path;
}

void paint_facets(QPainter& painter, const QPainterPath& path, const QRectF& box, const QColor& fill) {
    QTransform inward;
    inward.translate(box.center().x(), box.center().y());
    inward.scale(0.5, 0.5);
    inward.translate(-box.center().x(), -box.center().y());
    const QPainterPath table = inward.map(path);
    painter.setBrush(fill.lighter(125));
    painter.drawPath(table);
    for (int i = 0; i < path.elementCount() && i < table.elementCount() && path.elementCount() < 12; ++i)
        painter.drawLine(QPointF(path.elementAt(i)), QPointF(table.elementAt(i)));
}

void paint_mark(QPainter& painter, const Picture& picture, const QRectF& box, QFont font) {
    const bool low_centre = picture.shape == Shape::triangle;
    const QRectF field = low_centre ? box.translated(0, box.height() / 8) : box;
    font.setBold(true);
    font.setPixelSize(std::max(static_cast<int>(box.height() * (low_centre ? 0.55 : 0.7)), 6));
    painter.setFont(font);
    painter.drawText(field, Qt::AlignCenter, to_qt(mark_text(picture.mark)));
}

} // namespace

Picture_colours::Picture_colours(const Picture& picture, const QColor&)
    : fill(picture.shape == Shape::ring ? QColor(Qt::transparent) : to_qt(picture.colour)),
      edge(picture.shape == Shape::ring ? to_qt(picture.colour) : to_qt(picture.colour).darker(180)),
      sign(picture.shape == Shape::ring ? to_qt(picture.colour) : QColor(Qt::black)) {}

void paint_picture(QPainter& painter, const Picture& picture, const QRectF& box, const QFont& font,
                   const QColor& background) {
    if (picture.shape == Shape::none)
        return;
    const Picture_colours colours(picture, background);
    const double side = std::min(box.width(), box.height()) - 2.0;
    const QRectF square(box.center() - QPointF(side, side) / 2, QSizeF(side, side));
    const QPainterPath path = outline(picture.shape, square);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colours.edge, picture.shape == Shape::ring ? side / 8 : side / 16));
    painter.setBrush(colours.fill);
    painter.drawPath(path);
    if (picture.faceted)
        paint_facets(painter, path, square, colours.fill);
    painter.setPen(colours.sign);
    paint_mark(painter, picture, square, font);
}
