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

double contrast(const QColor& one, const QColor& other) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [&](const QColor& colour) {
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor standing_out(const QColor& colour, const QColor& background, double wanted) {
    const bool is_dark = contrast(background, Qt::white) > contrast(background, Qt::black);
    const double far = is_dark ? 1 : 0;
    QColor mixed = colour;
    for (double share = 0.1; contrast(mixed, background) < wanted && share < 1; share += 0.1)
        mixed = QColor::fromRgbF(colour.redF() * (1 - share) + far * share,
                                 colour.greenF() * (1 - share) + far * share,
                                 colour.blueF() * (1 - share) + far * share);
    return mixed;
}

Picture_colours::Picture_colours(const Picture& picture, const QColor& background)
    : fill(to_qt(picture.colour)), edge(standing_out(fill.darker(180), background, 3)), sign(Qt::black) {
    if (picture.shape == Shape::ring) {
        edge = standing_out(fill, background, 3);
        sign = standing_out(fill, background, 4.5);
        fill = Qt::transparent;
    }
}

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
