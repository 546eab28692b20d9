#include "internal/TransactionRun.h"

#include <QWidget>
#include <QWidgetItem>

#include <algorithm>

namespace tlm::desktop_ui::internal {

RowHeight heightOf(QWidget& row)
{
    row.ensurePolished();
    QWidgetItem const item(&row);
    auto const width = std::max(row.width(), row.minimumWidth());
    return {item.minimumSize().height(),
            item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height()};
}

TransactionRun::TransactionRun(std::size_t first, std::size_t last)
    : QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), first_(first), last_(last)
{}

/// A layout puts no spacing around what is no widget, so each row brings its own.
void TransactionRun::fit(std::size_t rows, RowHeight const& row, int spacing)
{
    auto const count = static_cast<int>(rows);
    minimum_ = count * (row.minimum + spacing);
    changeSize(0, count * (row.preferred + spacing), QSizePolicy::Minimum, QSizePolicy::Fixed);
}

QSize TransactionRun::minimumSize() const
{
    return {0, minimum_};
}
}
