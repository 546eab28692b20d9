#include "internal/ParentNumbersModel.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountNumber;

ParentNumbersModel::ParentNumbersModel(ParentNumbers numbers, AccountNumber const& own, QObject* parent)
    : QAbstractListModel(parent), chart_(std::move(numbers)), own_(chart_.placeOf(own))
{}

QString const& ParentNumbersModel::noParentText()
{
    static auto const text = QCoreApplication::translate("tlm::desktop_ui::internal::AccountEntryWidget", "No Parent");
    return text;
}

void ParentNumbersModel::add(AccountNumber const& number)
{
    if (rowOf(number) == noParentRow) {
        auto const row = rowCount();
        beginInsertRows({}, row, row);
        added_.push_back(number);
        endInsertRows();
    }
}

int ParentNumbersModel::rowOf(AccountNumber const& number) const
{
    constexpr std::size_t first = noParentRow + 1;
    auto const place = chart_.placeOf(number);
    if (place < chart_.size() && place != own_) {
        return static_cast<int>(first + place - (place > own_ ? 1 : 0));
    }
    auto const added = std::ranges::find(added_, number);
    return added == added_.end() ? noParentRow
                                 : static_cast<int>(first + countOfChart()) + static_cast<int>(added - added_.begin());
}

int ParentNumbersModel::rowCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(noParentRow + 1 + countOfChart() + added_.size());
}

QVariant ParentNumbersModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) {
        return {};
    }
    return index.row() == noParentRow ? noParentText()
                                      : presentationText(numberAt(static_cast<std::size_t>(index.row()) - 1));
}

std::size_t ParentNumbersModel::countOfChart() const
{
    return chart_.size() - (own_ < chart_.size() ? 1 : 0);
}

AccountNumber const& ParentNumbersModel::numberAt(std::size_t place) const
{
    auto const count = countOfChart();
    return place < count ? chart_.at(place < own_ ? place : place + 1) : added_.at(place - count);
}
}
