#pragma once

#include "ui_BudgetItemTypeWidget.h"

#include <tlm/budgeting/BudgetItemIdentifier.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/foundation/QtPtr.h>

#include <QString>
#include <QWidget>

#include <set>

namespace tlm::desktop_ui::internal {

/// Lets a person pick a budget item by its type and its source.
class BudgetItemTypeWidget : public QWidget, private Ui::BudgetItemTypeWidget
{
    Q_OBJECT

public:
    /// Offers every type and no source, and is read-only.
    explicit BudgetItemTypeWidget(foundation::QtPtr<QWidget> const& parent);

    /// \return the selected type, `None` for the blank row
    budgeting::BudgetItemTypes budgetItemType() const;
    /// \return the selected source, the empty one for the blank row
    budgeting::BudgetSource budgetSource() const;
    budgeting::BudgetItemIdentifier identifier() const;

    /// Offers \a sources and a blank row, which is selected.
    void setSources(std::set<budgeting::BudgetSource> const& sources);

    /// \throws foundation::Error when the source isn't on offer; the selection stays as it was
    void select(budgeting::BudgetItemIdentifier const& identifier);

    void setReadOnly(bool isReadOnly);
    void setTypeLabel(QString const& text);
    void setSourceLabel(QString const& text);

signals:
    void typeChanged();
    void sourceChanged();
};
}
