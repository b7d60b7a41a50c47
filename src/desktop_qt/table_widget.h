// Qt's table over rows that it reads from a table control as they come on view.
#pragma once

#include "toolkit/table.h"

#include <QtCore/QAbstractTableModel>
#include <QtGui/QIcon>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QTableView>

#include <map>

// The rows and columns of a table. The number of rows is kept here, since Qt asks for it before and after
// each change.
class Table_model : public QAbstractTableModel {
public:
    Table_model(const TTable& table, QWidget* view);

    void let_go();
    void show(const Change& change);

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QVariant tick(int row) const;
    QVariant row_header(int row, int role) const;
    QFont strong_font() const;
    QIcon icon_of(const Picture& picture) const;
    QPixmap pixmap_of(const Picture& picture, bool has_plate) const;

    const TTable* table_;
    const QWidget& view_;
    int rows_;
    mutable std::map<std::pair<int, Colour>, QIcon> icons_; // by shape and mark, and colour
};

// Makes the editors of cells, says where a row's tick is drawn, and shows as a hint what a cell is too narrow
// for.
class Cell_delegate : public QStyledItemDelegate {
public:
    Cell_delegate(const TTable& table, QObject* parent) : QStyledItemDelegate(parent), table_(table) {}

    std::function<void(int row, int column, const std::string& text)> on_edited;

    QRect tick_box(const QTableView& view, const QModelIndex& index, QStyleOptionViewItem option) const;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&, const QModelIndex&) override {
        return false; // a tick is turned by the control
    }

private:
    const TTable& table_;
};

// A table view that tells apart what its control does itself, and paints of a change the rows that changed.
class Table_widget : public QTableView {
public:
    explicit Table_widget(QWidget* parent);

    std::function<void(int row)> on_toggle;
    std::function<bool(const Key& key)> on_command; // answers whether the key is used up
    std::function<void(const QModelIndex& index)> on_menu;
    std::function<void()> on_header_menu;
    std::function<void()> on_resize; // the room for the rows has become another

    void set_delegate(Cell_delegate* delegate);
    void show_row_headers();
    void set_empty_text(const QString& text);

protected:
    void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QModelIndex tick_at(const QMouseEvent& event) const;

    Cell_delegate* delegate_ = nullptr;
    QString empty_text_;
};
