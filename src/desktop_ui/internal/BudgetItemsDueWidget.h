#pragma once

#include "ui_BudgetItemsDueWdgt.h"

#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/foundation/QtPtr.h>

#include <QColor>
#include <QResizeEvent>
#include <QWidget>

#include <chrono>
#include <optional>
#include <vector>

namespace tlm::desktop_ui::internal {

/// Lists the budget items that fall due, in colours that tell how pressing each is.
class BudgetItemsDueWidget : public QWidget, private Ui::BudgetItemsDueWdgt
{
    Q_OBJECT

public:
    explicit BudgetItemsDueWidget(foundation::QtPtr<QWidget> const& parent);

    /// Lists \a items in their order, which stands until the person sorts the list.
    ///
    /// \param dueWithin an item that falls due later than so many days from today leaves its row blank
    void updateItems(std::vector<budgeting::BudgetItemAmountDue> const& items, std::chrono::days const& dueWithin);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void startList(int rows);
    void showItem(int row, budgeting::BudgetItemAmountDue const& item, std::optional<QColor> const& pressing);
};
}
