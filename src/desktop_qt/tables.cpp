// The view of a table.
#include "desktop_qt/table_widget.h"
#include "desktop_qt/views.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHeaderView>

namespace {

class Table_view : public View_of<TTable, Table_widget> {
public:
    Table_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Table_widget(parent)) {
        model_ = new Table_model(this->control(), &widget());
        widget().setModel(model_);
        const bool rows = this->control().selects() == TTable::Selects::rows;
        widget().setSelectionBehavior(rows ? QAbstractItemView::SelectRows : QAbstractItemView::SelectItems);
        widget().setSelectionMode(rows ? QAbstractItemView::ExtendedSelection
                                       : QAbstractItemView::ContiguousSelection);
        if (this->control().has_row_headers())
            widget().show_row_headers();
        connect_actions();
    }

protected:
    void show_state() override {
        show_columns();
        show_selection();
        widget().set_empty_text(to_qt(control().text()));
    }
    void settle() override {
        show_selection();
        show_order();
    }

    void show_change(const Change& change) override {
        switch (change.aspect) {
        case Aspect::children: // other columns
        case Aspect::all_lines:
            model_->show({Aspect::all_lines});
            show_state();
            break;
        case Aspect::lines_inserted:
        case Aspect::lines_removed:
            model_->show(change);
            show_selection();
            break;
        case Aspect::lines_changed: model_->show(change); break;
        case Aspect::cursor: show_selection(); break;
        case Aspect::line_on_view: widget().scrollTo(model_->index(change.first, shown_column())); break;
        case Aspect::editing: widget().edit(model_->index(change.first, change.count)); break;
        case Aspect::state: show_columns(); break;
        default: View::show_change(change); break;
        }
    }

    void let_go() override { model_->let_go(); }

private:
    void connect_actions() {
        auto* const delegate = new Cell_delegate(control(), &widget());
        widget().set_delegate(delegate);
        delegate->on_edited = [this](int row, int column, const std::string& text) {
            act([&] { control().edit_cell(row, column, text); });
        };
        widget().on_toggle = [this](int row) { act([&] { control().toggle_tick(row); }); };
        widget().on_header_menu = [this] { act([&] { control().open_header_menu(); }); };
        widget().on_menu = [this](const QModelIndex& index) {
            act([&] { control().open_menu(index.row(), index.column()); });
        };
        widget().on_command = [this](const Key& key) {
            bool used = false;
            act([&] { used = control().command_key(key); });
            return used;
        };
        connect(&widget(), &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
            act([&] { control().double_click(index.row(), index.column()); });
        });
        connect(widget().selectionModel(), &QItemSelectionModel::selectionChanged, this,
                [this] { report_selection(); });
        connect(widget().selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this] { report_selection(); });
        QHeaderView* const header = widget().horizontalHeader();
        connect(header, &QHeaderView::sectionClicked, this,
                [this](int column) { act([&] { control().click_header(column); }); });
        connect(header, &QHeaderView::sectionResized, this, [this](int column, int before, int now) {
            if (before != 0 && now != 0 && !is_sharing_room_ && !is_filling(column))
                act([&] { control().resize_column(column, to_characters(column, now)); });
        });
        header_viewport_ = header->viewport();
        header_viewport_->installEventFilter(this);
        widget().on_resize = [this] { share_room(); };
        header->setSectionsMovable(control().selects() == TTable::Selects::rows);
        connect(header, &QHeaderView::sectionMoved, this,
                [this](int column, int, int place) { act([&] { control().move_column(column, place); }); });
    }

    // A column that was dragged leaves other room to the rest as soon as it is let go.
    bool eventFilter(QObject* watched, QEvent* event) override {
        // Events come also while the table is being destroyed.
        if (watched != header_viewport_)
            return View::eventFilter(watched, event);
        if (event->type() == QEvent::MouseButtonRelease)
            QMetaObject::invokeMethod(
                this, [this] { share_room(); }, Qt::QueuedConnection);
        return false;
    }

    const Table_column& column_of(int column) const {
        return control().columns()[static_cast<std::size_t>(column)];
    }
    // Whether the column is as wide as it is because it fills the rest of the table.
    bool is_filling(int column) const {
        const QHeaderView& header = *widget().horizontalHeader();
        if (!header.stretchLastSection())
            return false;
        return header.visualIndex(column) == header.count() - 1 ||
               (header.sectionsHidden() && next_shown(column) < 0);
    }
    // The next one to the right, or -1; from the left edge without a column.
    int next_shown(int column) const {
        const QHeaderView& header = *widget().horizontalHeader();
        for (int place = column < 0 ? 0 : header.visualIndex(column) + 1; place < header.count(); ++place)
            if (!header.isSectionHidden(header.logicalIndex(place)))
                return header.logicalIndex(place);
        return -1;
    }
    int shown_column() const { return std::max(control().cursor_column(), std::max(next_shown(-1), 0)); }

    // A column also has room for its margins, the sign by which it is sorted, and the ticks.
    int extra(int column) const {
        const QFontMetrics metrics = widget().fontMetrics();
        const int ticks = control().has_ticks() && column == 0 ? 2 * metrics.height() : 0;
        return 2 * metrics.averageCharWidth() + ticks;
    }
    int to_pixels(int column, int characters) const {
        return characters * widget().fontMetrics().averageCharWidth() + extra(column);
    }
    int to_characters(int column, int pixels) const {
        const int width = widget().fontMetrics().averageCharWidth();
        return std::max((pixels - extra(column) + width / 2) / width, 1);
    }

    void show_columns() {
        QHeaderView& header = *widget().horizontalHeader();
        int place = 0;
        const auto& columns = control().columns();
        header.setStretchLastSection(std::none_of(
            columns.begin(), columns.end(), [](const Table_column& column) { return column.shares_room; }));
        for (const int column : control().column_order())
            header.moveSection(header.visualIndex(column), place++);
        for (int column = 0; column < control().column_count(); ++column) {
            header.setSectionHidden(column, !column_of(column).visible);
            if (column_of(column).visible && !acting() && !is_filling(column) && !shares_room(column))
                header.resizeSection(column, own_width(column));
        }
        if (!acting())
            share_room();
        show_order();
        emit model_->headerDataChanged(Qt::Horizontal, 0, std::max(control().column_count() - 1, 0));
    }

    // What a caption takes depends on the language.
    int own_width(int column) const {
        const int width = to_pixels(column, column_of(column).width);
        return column_of(column).sized_by_user
                   ? width
                   : std::max(width, widget().horizontalHeader()->sectionSizeHint(column));
    }
    bool shares_room(int column) const {
        return column_of(column).shares_room && column_of(column).visible && !column_of(column).sized_by_user;
    }
    void share_room() {
        if (!observed() || widget().horizontalHeader()->stretchLastSection())
            return;
        QHeaderView& header = *widget().horizontalHeader();
        int room = widget().viewport()->width();
        std::vector<std::pair<int, int>> sharing; // columns, and what each is wide without its part
        for (int column = 0; column < control().column_count(); ++column) {
            if (shares_room(column))
                sharing.emplace_back(column, own_width(column));
            room -= shares_room(column) ? sharing.back().second : header.sectionSize(column);
        }
        is_sharing_room_ = true;
        auto left = static_cast<int>(sharing.size());
        for (const auto& [column, width] : sharing) {
            const int part = std::max(room, 0) / left--;
            header.resizeSection(column, width + part);
            room -= part;
        }
        is_sharing_room_ = false;
    }

    static std::vector<Row_range> rows_of(const QItemSelection& selection) {
        std::vector<Row_range> ranges;
        for (const QItemSelectionRange& range : selection)
            ranges.push_back({range.top(), range.bottom()});
        return in_order(std::move(ranges));
    }

    // A click turns the header's sign whether the column can be sorted or not.
    void show_order() {
        QHeaderView& header = *widget().horizontalHeader();
        header.setSortIndicatorShown(control().sort_column() >= 0);
        header.setSortIndicator(control().sort_column(),
                                control().sorted_down() ? Qt::DescendingOrder : Qt::AscendingOrder);
    }

    // Qt tells of the cursor and of the selection apart, in either order.
    void report_selection() {
        const QItemSelection selection = widget().selectionModel()->selection();
        const QModelIndex current = widget().currentIndex();
        if (control().selects() == TTable::Selects::rows) {
            act([&] { control().select_rows(rows_of(selection), current.row(), current.column()); });
        } else if (!selection.isEmpty()) {
            const QItemSelectionRange& range = selection.first();
            act([&] {
                control().select_block({range.top(), range.left(), range.bottom(), range.right()},
                                       current.row(), current.column());
            });
        }
    }

    void show_selection() {
        QItemSelectionModel& shown = *widget().selectionModel();
        const QModelIndex current = model_->index(control().cursor_row(), control().cursor_column());
        if (widget().currentIndex() != current)
            shown.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
        const bool cells = control().selects() == TTable::Selects::cells;
        const Cell_block& block = control().selected_block();
        const int last_column = control().column_count() - 1;
        QItemSelection wanted;
        for (const Row_range& range : control().selected_rows())
            wanted.append(
                QItemSelectionRange(model_->index(range.first, cells ? block.first_column : 0),
                                    model_->index(range.last, cells ? block.last_column : last_column)));
        // Rows compare as rows: Qt puts them together in other ways.
        const bool same =
            cells ? shown.selection() == wanted : rows_of(shown.selection()) == control().selected_rows();
        if (!same)
            shown.select(wanted, QItemSelectionModel::ClearAndSelect);
    }

    Table_model* model_;
    bool is_sharing_room_ = false;
    QWidget* header_viewport_ = nullptr;
};

} // namespace

View& make_table_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Table_view(context, control, parent);
}
