// The view of a map.
#include "desktop_qt/views.h"
#include "toolkit/map_view.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QToolTip>

#include <algorithm>
#include <cmath>

namespace {

constexpr double margin = 8;
constexpr double wheel_notch = 120;
constexpr double zoom_a_notch = 1.25;

// Draws the map of a control; what the pointer does is told as places of the map.
class Map_widget : public QWidget {
public:
    explicit Map_widget(QWidget* parent) : QWidget(parent) {
        setMouseTracking(true);
        setFocusPolicy(Qt::StrongFocus);
        setMinimumSize(200, 150);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    void show(const TMapView& map) {
        map_ = &map;
        is_drawn_ = false;
        update();
    }
    void let_go() { map_ = nullptr; }

    std::function<void(const Map_point*)> on_point;
    std::function<void(double right, double up)> on_drag;
    std::function<void(double factor, const Map_point&)> on_zoom;
    std::function<bool(const Key&)> on_key;

protected:
    void paintEvent(QPaintEvent*) override {
        if (map_ == nullptr)
            return;
        if (!is_drawn_ || drawing_.size() != size() * devicePixelRatio())
            draw();
        QPainter painter(this);
        painter.drawPixmap(0, 0, drawing_);
        if (map_->hovered() >= 0) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(palette().highlight().color(), 3));
            painter.drawPath(path_of(map_->map().polygons[static_cast<std::size_t>(map_->hovered())]));
        }
        if (hasFocus()) {
            painter.setPen(QPen(palette().highlight().color(), 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(rect().adjusted(1, 1, -1, -1));
        }
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        const QPointF to = event->position();
        if (map_ == nullptr)
            return;
        if (event->buttons() & Qt::LeftButton) {
            const double whole_width = std::max(scale() * width_of_map() / map_->window().enlargement, 1.0);
            const double whole_height = std::max(scale() * height_of_map() / map_->window().enlargement, 1.0);
            on_drag((from_.x() - to.x()) / whole_width, (to.y() - from_.y()) / whole_height);
        }
        from_ = to;
        const Map_point place = place_of(to);
        on_point(&place);
        if (map_ != nullptr)
            QToolTip::showText(event->globalPosition().toPoint(), to_qt(map_->description()), this);
    }
    void mousePressEvent(QMouseEvent* event) override { from_ = event->position(); }
    void keyPressEvent(QKeyEvent* event) override {
        if (!on_key(to_key(*event)))
            QWidget::keyPressEvent(event);
    }
    // Of a polygon its attributes are told, not how the map is used.
    bool event(QEvent* event) override {
        return (event->type() == QEvent::ToolTip && map_ != nullptr && map_->hovered() >= 0) ||
               QWidget::event(event);
    }
    void leaveEvent(QEvent*) override { on_point(nullptr); }
    void wheelEvent(QWheelEvent* event) override {
        if (map_ != nullptr)
            on_zoom(std::pow(zoom_a_notch, event->angleDelta().y() / wheel_notch),
                    place_of(event->position()));
    }

private:
    double width_of_map() const { return map_->map().highest.x - map_->map().lowest.x; }
    double height_of_map() const { return map_->map().highest.y - map_->map().lowest.y; }
    // Pixels to the map's unit.
    double scale() const {
        const double across = (width() - 2 * margin) / std::max(width_of_map(), 1e-12);
        const double down = (height() - 2 * margin) / std::max(height_of_map(), 1e-12);
        return std::max(std::min(across, down), 1e-12) * map_->window().enlargement;
    }
    QPointF pixel_of(const Map_point& point) const {
        const Map_point& centre = map_->window().centre;
        return {width() / 2.0 + (point.x - centre.x) * scale(),
                height() / 2.0 - (point.y - centre.y) * scale()};
    }
    Map_point place_of(const QPointF& pixel) const {
        const Map_point& centre = map_->window().centre;
        return {centre.x + (pixel.x() - width() / 2.0) / scale(),
                centre.y - (pixel.y() - height() / 2.0) / scale()};
    }
    QPainterPath path_of(const Map_polygon& polygon) const {
        QPainterPath path;
        for (const auto& ring : polygon.rings) {
            QPolygonF corners;
            for (const Map_point& point : ring)
                corners << pixel_of(point);
            path.addPolygon(corners);
            path.closeSubpath();
        }
        return path;
    }
    void draw() {
        drawing_ = QPixmap(size() * devicePixelRatio());
        drawing_.setDevicePixelRatio(devicePixelRatio());
        drawing_.fill(palette().base().color());
        QPainter painter(&drawing_);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().text().color(), 0.7));
        const auto& polygons = map_->map().polygons;
        for (std::size_t i = 0; i < polygons.size(); ++i) {
            const Colour colour = map_->colour_of(i);
            painter.setBrush(colour == desktop_colour ? QBrush(Qt::NoBrush) : QBrush(to_qt(colour)));
            painter.drawPath(path_of(polygons[i]));
        }
        is_drawn_ = true;
    }

    const TMapView* map_ = nullptr; // null once the control is gone
    QPixmap drawing_;
    bool is_drawn_ = false;
    QPointF from_;
};

class Map_view : public View_of<TMapView, Map_widget> {
public:
    Map_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Map_widget(parent)) {
        widget().on_point = [this](const Map_point* point) { act([&] { this->control().hover(point); }); };
        widget().on_drag = [this](double right, double up) { act([&] { this->control().move(right, up); }); };
        widget().on_zoom = [this](double factor, const Map_point& fixed) {
            act([&] { this->control().zoom(factor, fixed); });
        };
        widget().on_key = [this](const Key& key) {
            bool is_used = false;
            act([&] { is_used = this->control().key(key); });
            return is_used;
        };
    }

protected:
    void show_state() override { widget().show(control()); }
    void show_change(const Change& change) override {
        if (change.aspect == Aspect::cursor)
            widget().update();
        else
            View::show_change(change);
    }
    void settle() override {}
    void let_go() override { widget().let_go(); }
};

} // namespace

View& make_map_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Map_view(context, control, parent);
}
