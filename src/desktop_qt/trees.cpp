// The view of a tree of folders. Folders are read as the user opens them.
#include "desktop_qt/views.h"
#include "toolkit/file_list_box.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTreeWidget>

namespace {

constexpr int folder_role = Qt::UserRole;

class Tree_view : public View_of<TShellTreeView, QTreeWidget> {
public:
    Tree_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QTreeWidget(parent)) {
        widget().header()->hide();
        connect(&widget(), &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { open(*item); });
        connect(&widget(), &QTreeWidget::itemSelectionChanged, this, [this] {
            const QList<QTreeWidgetItem*> selected = widget().selectedItems();
            if (!selected.isEmpty()) {
                const std::string path = from_qt(selected.first()->data(0, folder_role).toString());
                act([&] { this->control().select(path); });
            }
        });
    }

protected:
    void show_state() override {
        widget().clear();
        add_folders(*widget().invisibleRootItem(), control().folder());
    }
    void show_change(const Change& change) override {
        if (change.aspect != Aspect::cursor)
            View::show_change(change);
    }
    void settle() override {}

private:
    void add_folders(QTreeWidgetItem& parent, const std::string& path) {
        const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_DirIcon);
        for (const Folder_entry& folder : control().folders_of(path)) {
            auto& item = *new QTreeWidgetItem(&parent, {to_qt(folder.name)});
            item.setIcon(0, icon);
            item.setData(0, folder_role, to_qt(folder.path));
            item.setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
        }
    }

    void open(QTreeWidgetItem& item) {
        if (!observed() || item.childIndicatorPolicy() != QTreeWidgetItem::ShowIndicator)
            return;
        item.setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
        add_folders(item, from_qt(item.data(0, folder_role).toString()));
    }
};

} // namespace

View& make_tree_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Tree_view(context, control, parent);
}
