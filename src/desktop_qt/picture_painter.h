// Paints lights, gems and other pictures by lines and areas, so that they are sharp at every size.
#pragma once

#include "toolkit/picture.h"

#include <QtGui/QColor>

class QFont;
class QPainter;
class QRectF;

// The colours in which a picture is drawn on a background: lines stand out from what they stand on.
struct Picture_colours {
    Picture_colours(const Picture& picture, const QColor& background);

    QColor fill; // none for a ring
    QColor edge;
    QColor sign;
};

// Paints the picture as large as fits into the middle of the box.
void paint_picture(QPainter& painter, const Picture& picture, const QRectF& box, const QFont& font,
                   const QColor& background);
