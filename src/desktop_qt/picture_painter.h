// Paints lights, gems and other pictures by lines and areas, so that they are sharp at every size.
#pragma once

#include "toolkit/picture.h"

#include <QtGui/QColor>

class QFont;
class QPainter;
class QRectF;

// How well two colours can be told apart: 1 for the same, 21 for black and white.
double contrast(const QColor& one, const QColor& other);
// The colour, or as much of black or white in it as it takes to be told from the background.
QColor standing_out(const QColor& colour, const QColor& background, double wanted);

// The colours in which a picture is drawn on a background: in a light and in a dark theme its edge can be
// told from the background (a contrast of 3 at least) and its sign be read (4.5).
struct Picture_colours {
    Picture_colours(const Picture& picture, const QColor& background);

    QColor fill; // none for a ring
    QColor edge;
    QColor sign;
};

// Paints the picture as large as fits into the middle of the box.
void paint_picture(QPainter& painter, const Picture& picture, const QRectF& box, const QFont& font,
                   const QColor& background);
