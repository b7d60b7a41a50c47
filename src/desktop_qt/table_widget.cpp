#include "desktop_qt/table_widget.h"

#include "desktop_qt/picture_painter.h"
#include "desktop_qt/view.h"
#include "toolkit/screen_language.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolTip>

namespace {

constexpr QChar en_space(0x2002);
constexpr int path_role = Qt::UserRole; // whether the text is cut as paths are

Qt::Alignment alignment_of(Align align) {
    const auto across = align == Align::end      ? Qt::AlignRight
                        : align == Align::middle ? Qt::AlignHCenter
                                                 : Qt::AlignLeft;
    return across | Qt::AlignVCenter;
}

// What a reader of the screen is told of a cell.
QString spoken(const Table_cell& cell) {
    const QString meaning = to_qt(worded(cell.picture.meaning));
    const QString text = to_qt(cell.text);
    return meaning.isEmpty() || text.isEmpty() ? meaning + text : meaning + ", " + text;
}

} // namespace

Table_model::Table_model(const TTable& table, QWidget* view)
    : QAbstractTableModel(view), table_(&table), view_(*view), rows_(table.count()) {}

void Table_model::let_go() {
    beginResetModel();
    table_ = nullptr;
    rows_ = 0;
    endResetModel();
}

void Table_model::show(const Change& change) {
    const int last = change.first + change.count - 1;
    switch (change.aspect) {
    case Aspect::lines_inserted:
        beginInsertRows({}, change.first, last);
        rows_ += change.count;
        endInsertRows();
        break;
    case Aspect::lines_removed:
        beginRemoveRows({}, change.first, last);
        rows_ -= change.count;
        endRemoveRows();
        break;
    case Aspect::lines_changed:
        emit dataChanged(index(change.first, 0), index(last, table_->column_count() - 1));
        break;
    default:
        beginResetModel();
        rows_ = table_->count();
        endResetModel();
        break;
    }
}

int Table_model::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !table_ ? 0 : table_->column_count();
}

QVariant Table_model::tick(int row) const {
    if (!table_->has_ticks() || !table_->rows()->can_tick(row))
        return {};
    return table_->rows()->ticked(row) ? Qt::Checked : Qt::Unchecked;
}

// A row may be asked for that its owner has taken away and not yet told of.
QVariant Table_model::data(const QModelIndex& index, int role) const {
    if (!table_ || !table_->rows() || !index.isValid() || index.row() >= table_->rows()->count())
        return {};
    const int row = index.row();
    const int column = index.column();
    switch (role) {
    case Qt::CheckStateRole: return column == 0 ? tick(row) : QVariant();
    case Qt::TextAlignmentRole:
        return static_cast<int>(alignment_of(table_->columns()[static_cast<std::size_t>(column)].align));
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: return to_qt(table_->rows()->hint(row, column));
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::AccessibleTextRole:
    case Qt::DecorationRole:
    case Qt::BackgroundRole:
    case Qt::ForegroundRole:
    case Qt::FontRole:
    case path_role: break;
    default: return {};
    }
    const Table_cell cell = table_->rows()->cell(row, column);
    const bool has_colour = cell.colour != desktop_colour;
    switch (role) {
    case Qt::AccessibleTextRole: return spoken(cell);
    case Qt::DecorationRole: return cell.picture.shape == Shape::none ? QVariant() : icon_of(cell.picture);
    case Qt::BackgroundRole: return has_colour ? QVariant(to_qt(cell.colour)) : QVariant();
    case Qt::FontRole: return cell.strong ? QVariant(strong_font()) : QVariant();
    case path_role: return cell.is_path;
    case Qt::ForegroundRole: return has_colour ? QVariant(readable_on(to_qt(cell.colour))) : QVariant();
    default: return to_qt(cell.text);
    }
}

QFont Table_model::strong_font() const {
    QFont font = view_.font();
    font.setBold(true);
    return font;
}

QIcon Table_model::icon_of(const Picture& picture) const {
    const int shape_and_mark = static_cast<int>(picture.shape) * 100 + static_cast<int>(picture.mark);
    QIcon& icon = icons_[{picture.faceted ? -shape_and_mark : shape_and_mark, picture.colour}];
    if (icon.isNull()) {
        icon.addPixmap(pixmap_of(picture, false));
        icon.addPixmap(pixmap_of(picture, true), QIcon::Selected);
    }
    return icon;
}

// On a plate of its usual background it stands out from whatever a selected row is painted with.
QPixmap Table_model::pixmap_of(const Picture& picture, bool has_plate) const {
    const int side = view_.fontMetrics().height();
    const qreal scale = view_.devicePixelRatioF();
    QPixmap pixmap(QSize(side, side) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const QRectF box(0, 0, side, side);
    const QColor background = view_.palette().color(QPalette::Base);
    if (has_plate) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(background);
        painter.drawRoundedRect(box, box.width() / 5, box.height() / 5);
    }
    paint_picture(painter, picture, box, view_.font(), background);
    return pixmap;
}

QVariant Table_model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical)
        return row_header(section, role);
    if (!table_ || section >= table_->column_count())
        return {};
    const Table_column& column = table_->columns()[static_cast<std::size_t>(section)];
    switch (role) {
    case Qt::DisplayRole:
        return to_qt(table_->shown_caption(section)) +
               (column.align == Align::end ? QString(en_space) : QString());
    case Qt::ToolTipRole: return to_qt(column.hint);
    case Qt::TextAlignmentRole: return static_cast<int>(alignment_of(column.align));
    default: return {};
    }
}

QVariant Table_model::row_header(int row, int role) const {
    if (!table_ || !table_->has_row_headers() || !table_->rows() || row >= table_->rows()->count())
        return {};
    const Table_cell cell = table_->rows()->row_header(row);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: return to_qt(cell.text);
    case Qt::AccessibleTextRole: return spoken(cell);
    case Qt::DecorationRole: return cell.picture.shape == Shape::none ? QVariant() : icon_of(cell.picture);
    case Qt::FontRole: return cell.strong ? strong_font() : view_.font();
    default: return {};
    }
}

Qt::ItemFlags Table_model::flags(const QModelIndex& index) const {
    if (!table_ || !index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() == 0 && table_->has_ticks())
        flags |= Qt::ItemIsUserCheckable;
    const auto editor = table_->editor(index.row(), index.column());
    return editor && editor->kind != Cell_editor::Kind::other ? flags | Qt::ItemIsEditable : flags;
}

// What stands at the right keeps away from the text of the next column.
void Cell_delegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->displayAlignment.testFlag(Qt::AlignRight))
        option->text += en_space;
    if (index.data(path_role).toBool())
        option->textElideMode = Qt::ElideMiddle;
}

QRect Cell_delegate::tick_box(const QTableView& view, const QModelIndex& index,
                              QStyleOptionViewItem option) const {
    option.rect = view.visualRect(index);
    initStyleOption(&option, index);
    return view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
}

QWidget* Cell_delegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
    const auto editor = table_.editor(index.row(), index.column());
    if (!editor || editor->kind == Cell_editor::Kind::other)
        return nullptr;
    if (editor->kind == Cell_editor::Kind::choice) {
        auto& box = *new QComboBox(parent);
        box.addItems(to_qt(editor->items));
        return &box;
    }
    auto& line = *new QLineEdit(parent);
    line.setFrame(false);
    if (editor->kind == Cell_editor::Kind::number)
        line.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return &line;
}

void Cell_delegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (auto* const box = qobject_cast<QComboBox*>(editor))
        box->setCurrentText(index.data(Qt::EditRole).toString());
    else
        QStyledItemDelegate::setEditorData(editor, index);
}

void Cell_delegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    const auto* const box = qobject_cast<QComboBox*>(editor);
    const auto* const line = qobject_cast<QLineEdit*>(editor);
    const QString text = box ? box->currentText() : line ? line->text() : QString();
    if (text != index.data(Qt::EditRole).toString())
        on_edited(index.row(), index.column(), from_qt(text));
}

bool Cell_delegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                              const QModelIndex& index) {
    const QString text = index.data().toString();
    const bool is_cut = sizeHint(option, index).width() > view->visualRect(index).width();
    if (event->type() == QEvent::ToolTip && is_cut && index.data(Qt::ToolTipRole).toString().isEmpty()) {
        QToolTip::showText(event->globalPos(), text, view);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

Table_widget::Table_widget(QWidget* parent) : QTableView(parent) {
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 5 / 4 + 2);
    setIconSize({fontMetrics().height(), fontMetrics().height()});
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(horizontalHeader(), &QHeaderView::customContextMenuRequested, this, [this] { on_header_menu(); });
    setEditTriggers(EditKeyPressed | AnyKeyPressed);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setAlternatingRowColors(true);
}

void Table_widget::set_delegate(Cell_delegate* delegate) {
    delegate_ = delegate;
    setItemDelegate(delegate);
}

void Table_widget::show_row_headers() {
    constexpr int most_characters = 34;
    QHeaderView& header = *verticalHeader();
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header.setTextElideMode(Qt::ElideRight);
    header.setMaximumWidth(most_characters * fontMetrics().averageCharWidth());
    header.setHighlightSections(false);
    header.show();
}

void Table_widget::set_empty_text(const QString& text) {
    empty_text_ = text;
    viewport()->update();
}

// Left alone, the table paints all its rows for a change of one.
void Table_widget::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>&) {
    const int top = rowViewportPosition(first.row());
    const int below = rowViewportPosition(last.row()) + rowHeight(last.row());
    viewport()->update(0, top, viewport()->width(), below - top);
}

QModelIndex Table_widget::tick_at(const QMouseEvent& event) const {
    const QPoint point = event.position().toPoint();
    const QModelIndex index = indexAt(point);
    if (event.button() != Qt::LeftButton || !index.data(Qt::CheckStateRole).isValid())
        return {};
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    return delegate_->tick_box(*this, index, option).contains(point) ? index : QModelIndex();
}

void Table_widget::mousePressEvent(QMouseEvent* event) {
    const QModelIndex hit = tick_at(*event);
    if (hit.isValid())
        on_toggle(hit.row());
    else
        QTableView::mousePressEvent(event);
}

void Table_widget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (tick_at(*event).isValid())
        mousePressEvent(event);
    else
        QTableView::mouseDoubleClickEvent(event);
}

// What an editor leaves, as the enter that ends it, is not meant for the form.
void Table_widget::keyPressEvent(QKeyEvent* event) {
    if (state() == EditingState)
        return;
    if (!on_command(to_key(*event)))
        QTableView::keyPressEvent(event);
}

// What the cursor stands on stays on view when the room for the table gets less.
void Table_widget::resizeEvent(QResizeEvent* event) {
    const QRect row = visualRect(currentIndex());
    const bool was_on_view = row.isValid() && row.top() >= 0 && row.top() < event->oldSize().height();
    QTableView::resizeEvent(event);
    if (on_resize && event->size().width() != event->oldSize().width())
        on_resize();
    if (was_on_view && row.bottom() >= viewport()->height())
        scrollTo(model()->index(currentIndex().row(), columnAt(0)));
}

void Table_widget::contextMenuEvent(QContextMenuEvent* event) {
    on_menu(event->reason() == QContextMenuEvent::Mouse ? indexAt(event->pos()) : currentIndex());
}

void Table_widget::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!currentIndex().isValid())
        paint_focus(*this);
    if (empty_text_.isEmpty() || !model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, empty_text_);
}
