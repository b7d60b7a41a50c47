// The views of what is only looked at.
#include "desktop_qt/views.h"
#include "toolkit/label.h"
#include "toolkit/ruler.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>

#include <numbers>

namespace {

class Label_view : public View_of<TLabel, QLabel> {
public:
    Label_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QLabel(parent)) {
        widget().setTextFormat(Qt::PlainText);
        widget().setWordWrap(this->control().wraps());
    }

protected:
    void show_state() override {
        const QString mark = to_qt(mark_text(control().mark()));
        const QString text = to_qt(control().text());
        widget().setText(mark.isEmpty() ? text : mark + " " + text);
        widget().setMargin(control().colour() == desktop_colour ? 0 : 3);
    }
    void show_change(const Change& change) override {
        View::show_change(change);
        if (change.aspect == Aspect::colour)
            show_state();
    }
};

class Progress_view : public View_of<TProgressBar, QProgressBar> {
public:
    Progress_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QProgressBar(parent)) {}

protected:
    void show_state() override {
        widget().setRange(0, std::max(control().maximum(), 1));
        widget().setValue(control().position());
    }
};

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

// Paints a picture by lines and areas, so that it is sharp at every size.
class Picture_widget : public QWidget {
public:
    explicit Picture_widget(QWidget* parent) : QWidget(parent) {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    void show_picture(const Picture& picture) {
        picture_ = picture;
        setAccessibleName(picture.meaning);
        update();
    }

    QSize sizeHint() const override {
        const int side = fontMetrics().height() * 4 / 3;
        return {side, side};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        if (picture_.shape == Shape::none)
            return;
        const QColor fill = to_qt(picture_.colour);
        const double side = std::min(width(), height()) - 2.0;
        const QRectF box((width() - side) / 2, (height() - side) / 2, side, side);
        const QPainterPath path = outline(picture_.shape, box);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(isEnabled() ? 1.0 : 0.4);
        const bool hollow = picture_.shape == Shape::ring;
        painter.setPen(QPen(hollow ? fill : fill.darker(180), hollow ? side / 8 : side / 16));
        painter.setBrush(hollow ? QBrush() : QBrush(fill));
        painter.drawPath(path);
        if (picture_.faceted)
            paint_facets(painter, path, box, fill);
        paint_mark(painter, box, hollow ? fill : QColor(Qt::black));
    }

private:
    static void paint_facets(QPainter& painter, const QPainterPath& path, const QRectF& box,
                             const QColor& fill) {
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

    void paint_mark(QPainter& painter, const QRectF& box, const QColor& ink) const {
        const bool low_centre = picture_.shape == Shape::triangle;
        const QRectF field = low_centre ? box.translated(0, box.height() / 8) : box;
        QFont bold = font();
        bold.setBold(true);
        bold.setPixelSize(std::max(static_cast<int>(box.height() * (low_centre ? 0.55 : 0.7)), 6));
        painter.setFont(bold);
        painter.setPen(ink);
        painter.drawText(field, Qt::AlignCenter, to_qt(mark_text(picture_.mark)));
    }

    Picture picture_;
};

class Image_view : public View_of<TImage, Picture_widget> {
public:
    Image_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Picture_widget(parent)) {}

protected:
    void show_state() override { widget().show_picture(control().picture()); }
};

// A name that is wider than its stretch is drawn smaller, and all the others with it.
class Ruler_widget : public QWidget {
public:
    explicit Ruler_widget(QWidget* parent) : QWidget(parent) {}

    void show_ruler(const TRuler& ruler) {
        stretches_ = ruler.stretches();
        setFixedSize(ruler.width(), fontMetrics().height() + 4);
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setFont(fitting_font());
        int left = 0;
        for (const TRuler::Stretch& stretch : stretches_) {
            const QRect box(left, 0, stretch.width, height());
            const QColor fill = to_qt(stretch.colour);
            painter.fillRect(box, fill);
            painter.setPen(readable_on(fill));
            painter.drawText(box, Qt::AlignCenter, to_qt(stretch.name));
            left += stretch.width;
        }
    }

private:
    QFont fitting_font() const {
        constexpr int margin = 2;
        double share = 1;
        for (const TRuler::Stretch& stretch : stretches_) {
            const double needed = fontMetrics().horizontalAdvance(to_qt(stretch.name)) + margin;
            share = std::min(share, stretch.width / needed);
        }
        QFont fitting = font();
        fitting.setPixelSize(std::max(static_cast<int>(QFontInfo(font()).pixelSize() * share), 1));
        return fitting;
    }

    std::vector<TRuler::Stretch> stretches_;
};

class Ruler_view : public View_of<TRuler, Ruler_widget> {
public:
    Ruler_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Ruler_widget(parent)) {}

protected:
    void show_state() override { widget().show_ruler(control()); }
};

} // namespace

View& make_label_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Label_view(context, control, parent);
}

View& make_progress_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Progress_view(context, control, parent);
}

View& make_ruler_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Ruler_view(context, control, parent);
}

View& make_image_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Image_view(context, control, parent);
}
