#include "desktop_qt/menus.h"

#include "desktop_qt/views.h"
#include "toolkit/screen_language.h"

#include <QtGui/QAction>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace {

// The shortcut is shown only: a key that the controls leave reaches the form, which knows its menu.
QString caption_of(const Menu_item& item) {
    const QString caption = to_qt(shown_text(item));
    return item.shortcut.empty() ? caption : caption + '\t' + to_qt(item.shortcut);
}

class Menu_bar_view : public View_of<TMainMenu, QMenuBar> {
public:
    Menu_bar_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QMenuBar(parent)) {
        widget().setNativeMenuBar(false);
    }

protected:
    void show_state() override {
        widget().clear();
        qDeleteAll(widget().findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
        const auto& items = control().items();
        for (int index = 0; index < static_cast<int>(items.size()); ++index) {
            const Menu_item& item = items[static_cast<std::size_t>(index)];
            QMenu& menu = *widget().addMenu(to_qt(shown_text(item)));
            menu.menuAction()->setEnabled(item.enabled);
            connect(&menu, &QMenu::aboutToShow, this, [this, &menu, index] { open(menu, index); });
            connect(&menu, &QMenu::triggered, this, [this](const QAction* action) {
                const Item_path path = path_of(action);
                act([&] { this->control().choose(path); });
            });
        }
    }
    void settle() override {}

private:
    void open(QMenu& menu, int index) {
        if (!observed() || index >= static_cast<int>(control().items().size()))
            return;
        std::vector<Menu_item>& items = control().items()[static_cast<std::size_t>(index)].items;
        act([&] { update_items(items); });
        menu.clear();
        qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
        fill_menu(menu, items, {index});
    }
};

} // namespace

void fill_menu(QMenu& menu, const std::vector<Menu_item>& items, const Item_path& above) {
    menu.setToolTipsVisible(true);
    for (int index = 0; index < static_cast<int>(items.size()); ++index) {
        const Menu_item& item = items[static_cast<std::size_t>(index)];
        Item_path path = above;
        path.push_back(index);
        if (item.text == "-") {
            menu.addSeparator();
            continue;
        }
        QAction* action = nullptr;
        if (item.items.empty()) {
            action = menu.addAction(caption_of(item));
        } else {
            QMenu& below = *menu.addMenu(caption_of(item));
            fill_menu(below, item.items, path);
            action = below.menuAction();
        }
        action->setEnabled(item.enabled);
        action->setToolTip(to_qt(worded(item.hint)));
        action->setCheckable(item.checkable);
        action->setChecked(item.checked);
        action->setData(QVariant::fromValue(QList<int>(path.begin(), path.end())));
    }
}

Item_path path_of(const QAction* action) {
    const QList<int> path = action ? action->data().value<QList<int>>() : QList<int>();
    return {path.begin(), path.end()};
}

View& make_main_menu_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Menu_bar_view(context, control, parent);
}
