#include "desktop_qt/views.h"

namespace {

struct Maker {
    Control_kind kind;
    View& (*make)(View_context& context, TControl& control, QWidget* parent);
};

constexpr Maker makers[] = {
    {Control_kind::form, make_form_view},
    {Control_kind::panel, make_panel_view},
    {Control_kind::edit, make_edit_view},
    {Control_kind::list_box, make_list_view},
};

} // namespace

View& make_view(View_context& context, TControl& control, QWidget* parent) {
    for (const Maker& maker : makers) {
        if (maker.kind == control.kind()) {
            View& view = maker.make(context, control, parent);
            view.show_all();
            return view;
        }
    }
    return make_panel_view(context, control, parent);
}
