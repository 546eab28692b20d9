#pragma once

#include "internal/ParentNumbers.h"

#include <tlm/accounting/AccountNumber.h>

#include <QAbstractListModel>
#include <QString>

#include <cstddef>
#include <vector>

namespace tlm::desktop_ui::internal {

/// Numbers that an account can have as its parent, below a row for none.
class ParentNumbersModel : public QAbstractListModel
{
public:
    static constexpr int noParentRow = 0;

    /// \param numbers offered in their order, but for \a own
    /// \param own number of the account itself, the invalid one when it has none yet
    ParentNumbersModel(ParentNumbers numbers, accounting::AccountNumber const& own, QObject* parent);

    /// \return the text of the row for none
    static QString const& noParentText();

    /// Offers \a number below the others, unless it is on offer already.
    void add(accounting::AccountNumber const& number);

    /// \return where \a number is offered, the row for none when it isn't
    int rowOf(accounting::AccountNumber const& number) const;

    int rowCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role) const override;

private:
    std::size_t countOfChart() const;
    accounting::AccountNumber const& numberAt(std::size_t place) const;

    ParentNumbers chart_;
    std::size_t own_; ///< where the chart has the account itself, past its end when it hasn't
    std::vector<accounting::AccountNumber> added_;
};
}
