// The view of a month's days.
#include "desktop_qt/views.h"
#include "toolkit/month_grid.h"
#include "toolkit/screen_language.h"

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableWidget>

namespace {

constexpr int weeks = 6;
constexpr int weekdays = 7;
constexpr const char* weekday_names[weekdays] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};

class Month_view : public View_of<TMonthGrid, QTableWidget> {
public:
    Month_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QTableWidget(weeks, weekdays, parent)) {
        QTableWidget& table = widget();
        QStringList names;
        for (const char* name : weekday_names)
            names.append(to_qt(worded(name)));
        table.setHorizontalHeaderLabels(names);
        table.verticalHeader()->hide();
        table.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        table.verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        table.horizontalHeader()->setMinimumSectionSize(table.fontMetrics().horizontalAdvance("0000"));
        table.verticalHeader()->setMinimumSectionSize(table.fontMetrics().height() * 5 / 4);
        table.horizontalHeader()->setHighlightSections(false);
        table.setSelectionMode(QAbstractItemView::SingleSelection);
        table.setEditTriggers(QAbstractItemView::NoEditTriggers);
        table.setTabKeyNavigation(false);
        table.setCornerButtonEnabled(false);
        table.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        table.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        table.setMinimumSize(table.fontMetrics().horizontalAdvance("0000") * weekdays + 2,
                             table.fontMetrics().height() * 5 / 4 * (weeks + 1) + 8);
        connect(&table, &QTableWidget::itemSelectionChanged, this, [this] {
            const QList<QTableWidgetItem*> selected = widget().selectedItems();
            if (!selected.isEmpty()) {
                const int day = day_at(*selected.first());
                act([&] { this->control().pick(day); });
            }
        });
    }

protected:
    void show_state() override {
        widget().horizontalHeader()->setVisible(control().shows_weekdays());
        for (int cell = 0; cell < weeks * weekdays; ++cell) {
            const int day = cell - control().first_weekday() + 1;
            const bool exists = day >= 1 && day <= control().days();
            auto& item = *new QTableWidgetItem(exists ? QString::number(day) : QString());
            item.setTextAlignment(Qt::AlignCenter);
            item.setFlags(exists ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
            widget().setItem(cell / weekdays, cell % weekdays, &item);
        }
        settle();
    }

    void settle() override {
        const int cell = control().day() + control().first_weekday() - 1;
        if (control().day() > 0)
            widget().setCurrentCell(cell / weekdays, cell % weekdays);
        else
            widget().setCurrentItem(nullptr);
    }

private:
    int day_at(const QTableWidgetItem& item) const {
        return item.row() * weekdays + item.column() - control().first_weekday() + 1;
    }
};

} // namespace

View& make_month_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Month_view(context, control, parent);
}
