// The view of a list: Qt's own list widget over a model that reads its lines from the control, so that a
// change of one line draws one line.
#include "desktop_qt/views.h"
#include "toolkit/list_box.h"

#include <QtCore/QAbstractListModel>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListView>
#include <QtWidgets/QStyledItemDelegate>

namespace {

// The lines of a list box. The number of rows is kept here, since Qt asks for it before and after each
// change.
class Line_model : public QAbstractListModel {
public:
    // Each line has the icon, which may be none.
    Line_model(const TListBox& list, const QIcon& icon, QWidget* view)
        : QAbstractListModel(view), list_(&list), view_(*view), icon_(icon), rows_(list.count()) {
        measure_all();
    }

    void let_go() {
        beginResetModel();
        list_ = nullptr;
        rows_ = 0;
        endResetModel();
    }

    void show(const Change& change) {
        const int last = change.first + change.count - 1;
        switch (change.aspect) {
        case Aspect::lines_inserted: insert(change.first, last); break;
        case Aspect::lines_removed: remove(change.first, last); break;
        case Aspect::lines_changed: {
            // Without roles the whole list is laid out anew.
            const bool wider = measure(change.first, last);
            emit dataChanged(index(change.first), index(last),
                             wider ? QList<int>() : QList<int>{Qt::DisplayRole, Qt::ForegroundRole});
            break;
        }
        default:
            beginResetModel();
            rows_ = list_->count();
            measure_all();
            endResetModel();
            break;
        }
    }

    // The line with the longest text: how wide all are.
    int widest_row() const { return widest_row_; }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }

    QVariant data(const QModelIndex& index, int role) const override {
        if (!list_ || !index.isValid())
            return {};
        if (role == Qt::DisplayRole)
            return to_qt(list_->line(index.row()).text);
        if (role == Qt::CheckStateRole && list_->has_check_marks())
            return list_->line(index.row()).checked ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::ForegroundRole && list_->line(index.row()).faint)
            return view_.palette().brush(QPalette::Disabled, QPalette::Text);
        return role == Qt::DecorationRole && !icon_.isNull() ? QVariant(icon_) : QVariant();
    }

    Qt::ItemFlags flags(const QModelIndex& index) const override {
        if (!list_ || !list_->line(index.row()).enabled)
            return Qt::NoItemFlags;
        const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        return list_->has_check_marks() ? flags | Qt::ItemIsUserCheckable : flags;
    }

private:
    void insert(int first, int last) {
        beginInsertRows({}, first, last);
        rows_ += last - first + 1;
        if (widest_row_ >= first)
            widest_row_ += last - first + 1;
        measure(first, last);
        endInsertRows();
    }

    void remove(int first, int last) {
        beginRemoveRows({}, first, last);
        rows_ -= last - first + 1;
        if (widest_row_ > last)
            widest_row_ -= last - first + 1;
        else if (widest_row_ >= first)
            measure_all();
        endRemoveRows();
    }

    void measure_all() {
        widest_row_ = 0;
        widest_ = 0;
        measure(0, rows_ - 1);
    }

    // Answers whether a line is the widest so far.
    bool measure(int first, int last) {
        const QFontMetrics metrics = view_.fontMetrics();
        bool wider = false;
        for (int row = first; row <= last; ++row) {
            const int width = metrics.horizontalAdvance(to_qt(list_->line(row).text));
            if (width > widest_) {
                widest_ = width;
                widest_row_ = row;
                wider = true;
            }
        }
        return wider;
    }

    const TListBox* list_;
    const QWidget& view_;
    QIcon icon_;
    int rows_;
    int widest_row_ = 0;
    int widest_ = 0;
};

// Gives the lines some air, and says where a line's check box is drawn.
class Line_delegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const auto& lines = static_cast<const Line_model&>(*index.model());
        return QStyledItemDelegate::sizeHint(option, lines.index(lines.widest_row())) +
               QSize(0, option.fontMetrics.height() / 4);
    }

    QRect check_box(const QListView& view, const QModelIndex& index, QStyleOptionViewItem option) const {
        option.rect = view.visualRect(index);
        initStyleOption(&option, index);
        return view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
    }
};

// A list view that tells a click on a check box, which leaves the cursor alone, from one on the line.
class Line_list : public QListView {
public:
    explicit Line_list(QWidget* parent) : QListView(parent), delegate_(new Line_delegate(this)) {
        setItemDelegate(delegate_);
        setUniformItemSizes(true);
        const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
        setIconSize({icon, icon});
    }

    std::function<void(int row)> on_toggle;
    std::function<void(int row)> on_click_again; // a click on the line that is selected already

protected:
    // Left alone, the list lays out and paints all its lines for a change of one.
    void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override {
        if (first == last && !roles.isEmpty())
            update(first);
        else
            QListView::dataChanged(first, last, roles);
    }

    void mousePressEvent(QMouseEvent* event) override {
        const QModelIndex hit = check_box_at(*event);
        if (hit.isValid()) {
            on_toggle(hit.row());
            return;
        }
        const QModelIndex index = indexAt(event->position().toPoint());
        const bool again = selectionMode() == SingleSelection && selectionModel()->isSelected(index);
        const int row = index.row();
        QListView::mousePressEvent(event);
        if (again)
            on_click_again(row);
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (check_box_at(*event).isValid())
            mousePressEvent(event);
        else
            QListView::mouseDoubleClickEvent(event);
    }

    void paintEvent(QPaintEvent* event) override {
        QListView::paintEvent(event);
        if (!currentIndex().isValid())
            paint_focus(*this);
    }

    void keyPressEvent(QKeyEvent* event) override {
        const bool has_box = currentIndex().flags().testFlag(Qt::ItemIsUserCheckable);
        if (event->key() == Qt::Key_Space && has_box)
            on_toggle(currentIndex().row());
        else
            QListView::keyPressEvent(event);
    }

private:
    QModelIndex check_box_at(const QMouseEvent& event) const {
        const QPoint point = event.position().toPoint();
        const QModelIndex index = indexAt(point);
        if (event.button() != Qt::LeftButton || !index.flags().testFlag(Qt::ItemIsUserCheckable))
            return {};
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        return delegate_->check_box(*this, index, option).contains(point) ? index : QModelIndex();
    }

    Line_delegate* delegate_;
};

class List_view : public View_of<TListBox, Line_list> {
public:
    List_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Line_list(parent)) {
        const bool is_shell = control.kind() == Control_kind::shell_list;
        const QIcon icon = is_shell ? widget().style()->standardIcon(QStyle::SP_FileIcon) : QIcon();
        model_ = new Line_model(this->control(), icon, &widget());
        widget().setModel(model_);
        widget().setSelectionMode(this->control().multi_select() ? QAbstractItemView::ExtendedSelection
                                                                 : QAbstractItemView::SingleSelection);
        widget().on_toggle = [this](int row) {
            act([&] { this->control().check(row, !this->control().checked(row)); });
        };
        widget().on_click_again = [this](int row) { act([&] { this->control().select(row); }); };
        connect(&widget(), &QListView::doubleClicked, this, [this](const QModelIndex& index) {
            act([&] { this->control().double_click(index.row()); });
        });
        connect(widget().selectionModel(), &QItemSelectionModel::selectionChanged, this,
                [this] { report_selection(); });
    }

protected:
    void show_state() override { show_selection(); }
    void settle() override { show_selection(); }

    void show_change(const Change& change) override {
        switch (change.aspect) {
        case Aspect::all_lines:
        case Aspect::lines_inserted:
        case Aspect::lines_removed:
            model_->show(change);
            show_selection();
            break;
        case Aspect::lines_changed:
            model_->show(change);
            show_selected(change.first);
            break;
        case Aspect::cursor: show_selection(); break;
        case Aspect::line_on_view: widget().scrollTo(model_->index(change.first)); break;
        default: View::show_change(change); break;
        }
    }

    void let_go() override { model_->let_go(); }

private:
    void report_selection() {
        const QModelIndexList indexes = widget().selectionModel()->selectedIndexes();
        if (!control().multi_select()) {
            if (!indexes.isEmpty())
                act([&] { control().select(indexes.first().row()); });
            return;
        }
        std::vector<int> rows;
        for (const QModelIndex& index : indexes)
            rows.push_back(index.row());
        const int cursor = widget().currentIndex().row();
        std::stable_partition(rows.begin(), rows.end(), [cursor](int row) { return row != cursor; });
        act([&] { control().select_lines(rows); });
    }

    void show_selected(int row) {
        const QModelIndex index = model_->index(row);
        if (widget().selectionModel()->isSelected(index) != control().selected(row)) {
            widget().selectionModel()->select(index, control().selected(row) ? QItemSelectionModel::Select
                                                                             : QItemSelectionModel::Deselect);
        }
    }

    void show_selection() {
        const QModelIndex current = model_->index(control().item_index());
        if (widget().currentIndex() != current)
            widget().selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
        if (!control().multi_select()) {
            show_selected_alone(current);
            return;
        }
        for (int row = 0; row < control().count(); ++row)
            show_selected(row);
    }

    void show_selected_alone(const QModelIndex& index) {
        const QModelIndexList shown = widget().selectionModel()->selectedIndexes();
        const bool same = index.isValid() ? shown == QModelIndexList{index} : shown.isEmpty();
        if (!same)
            widget().selectionModel()->select(index, QItemSelectionModel::ClearAndSelect);
    }

    Line_model* model_;
};

} // namespace

View& make_list_view(View_context& context, TControl& control, QWidget* parent) {
    return *new List_view(context, control, parent);
}
