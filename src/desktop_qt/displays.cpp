// The views of what is only looked at.
#include "desktop_qt/picture_painter.h"
#include "desktop_qt/views.h"
#include "toolkit/label.h"
#include "toolkit/ruler.h"
#include "toolkit/screen_language.h"

#include <QtGui/QAccessible>
#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolTip>

namespace {

// A label that leaves out a part of what is wider than its room, where it is told which.
class Cut_label : public QLabel {
public:
    explicit Cut_label(QWidget* parent) : QLabel(parent) {}

    void set_cut(Cut cut) {
        cut_ = cut;
        if (cut != Cut::none)
            setSizePolicy(QSizePolicy::Expanding, sizePolicy().verticalPolicy());
    }

    QSize minimumSizeHint() const override {
        const QSize whole = QLabel::minimumSizeHint();
        return cut_ == Cut::none ? whole : QSize(fontMetrics().averageCharWidth() * 8, whole.height());
    }

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && shown_text() != text()) {
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
            return true;
        }
        return QLabel::event(event);
    }

    void paintEvent(QPaintEvent* event) override {
        if (cut_ == Cut::none || shown_text() == text()) {
            QLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        drawFrame(&painter);
        style()->drawItemText(&painter, contentsRect().adjusted(margin(), margin(), -margin(), -margin()),
                              static_cast<int>(alignment()) | Qt::TextSingleLine, palette(), isEnabled(),
                              shown_text(), foregroundRole());
    }

private:
    QString shown_text() const {
        const Qt::TextElideMode mode = cut_ == Cut::none     ? Qt::ElideNone
                                       : cut_ == Cut::middle ? Qt::ElideMiddle
                                                             : Qt::ElideRight;
        return fontMetrics().elidedText(text(), mode, contentsRect().width() - 2 * margin());
    }

    Cut cut_ = Cut::none;
};

class Label_view : public View_of<TLabel, Cut_label> {
public:
    Label_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Cut_label(parent)) {
        widget().setTextFormat(Qt::PlainText);
        widget().setWordWrap(this->control().wraps());
    }

protected:
    void show_state() override {
        const QString mark = to_qt(mark_text(control().mark()));
        const QString text = to_qt(control().text());
        widget().set_cut(control().cut());
        widget().setText(mark.isEmpty() ? text : mark + " " + text);
        widget().setMargin(control().colour() == desktop_colour ? 0 : 3);
        if (QWidget* const named = widget().buddy())
            named->setAccessibleName(QString(text).remove('&'));
    }
    void show_change(const Change& change) override {
        View::show_change(change);
        if (change.aspect == Aspect::colour)
            show_state();
    }
};

// A notice is also spoken.
class Status_line_view : public Label_view {
public:
    Status_line_view(View_context& context, TControl& control, QWidget* parent)
        : Label_view(context, control, parent) {
        widget().setFrameShape(QFrame::StyledPanel);
    }

protected:
    void show_change(const Change& change) override {
        Label_view::show_change(change);
        if (change.aspect == Aspect::text && !control().text().empty()) {
            widget().setAccessibleName(widget().text());
            QAccessibleEvent spoken(&widget(), QAccessible::Alert);
            QAccessible::updateAccessibility(&spoken);
        }
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

// Paints a picture by lines and areas, so that it is sharp at every size.
class Picture_widget : public QWidget {
public:
    explicit Picture_widget(QWidget* parent) : QWidget(parent) {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    void show_picture(const Picture& picture) {
        picture_ = picture;
        setAccessibleName(to_qt(worded(picture.meaning)));
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
        QPainter painter(this);
        painter.setOpacity(isEnabled() ? 1.0 : 0.4);
        paint_picture(painter, picture_, rect(), font(), palette().color(QPalette::Window));
    }

private:
    Picture picture_;
};

class Image_view : public View_of<TImage, Picture_widget> {
public:
    Image_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Picture_widget(parent)) {}

protected:
    void show_state() override { widget().show_picture(control().picture()); }
    void show_change(const Change& change) override {
        View::show_change(change);
        if (change.aspect == Aspect::hint) // in another language, perhaps
            show_state();
    }
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

View& make_status_line_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Status_line_view(context, control, parent);
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
