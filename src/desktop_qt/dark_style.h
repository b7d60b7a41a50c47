// Qt's own style draws edges darker than the window they lie on, which cannot be seen where that is dark.
// This draws those of buttons, edits, groups, lists, menus, bars of progress and tabs lighter.
#pragma once

#include <QtGui/QPalette>
#include <QtWidgets/QProxyStyle>

class QGroupBox;

class Dark_style : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    // Puts the style in place where it is needed: Qt's own style in a dark theme.
    static void use_where_needed();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    void draw_group_frame(const QStyleOption* option, QPainter* painter, const QGroupBox* group) const;
};

// The colours with text that is disabled to be read (a contrast of 3 at least), which desktops often paint
// fainter.
QPalette with_readable_disabled_text(QPalette palette);

// The colours of a dark theme, for pictures: a desktop brings its own.
QPalette dark_palette();
