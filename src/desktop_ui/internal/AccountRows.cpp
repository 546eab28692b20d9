#include "internal/AccountRows.h"

#include "internal/AccountEntryWidget.h"

#include <algorithm>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;

AccountRows::AccountRows() = default;
AccountRows::~AccountRows() = default;

void AccountRows::add(QListWidgetItem& item, AccountEntryWidget& form)
{
    auto& row = *rows_.emplace_back(std::make_unique<Row>(Row{&item, &form, {}, form.wasClosed(), false}));
    rowOf_.emplace(&form, &row);
    rowAt_.emplace(&item, &row);
}

void AccountRows::remove(AccountEntryWidget const& form)
{
    auto const* const row = rowOf_.at(&form);
    rowAt_.erase(row->item);
    rowOf_.erase(&form);
    std::erase_if(rows_, [row](auto const& each) { return each.get() == row; });
}

AccountEntryWidget* AccountRows::formOf(QListWidgetItem const* item) const
{
    auto const found = rowAt_.find(item);
    return found == rowAt_.end() ? nullptr : found->second->form;
}

std::vector<AccountRows::Form> AccountRows::forms() const
{
    std::vector<Form> forms;
    forms.reserve(rows_.size());
    for (auto const& row : rows_) {
        forms.emplace_back(row->form);
    }
    return forms;
}

bool AccountRows::isDirty(Row const& row)
{
    return row.form->isDirty();
}

/// Asked for each answer of a walk: the form found last is mostly dirty still, since the walk cleans from the front.
bool AccountRows::anyDirty() const
{
    if (auto const known = rowOf_.find(lastDirty_); known != rowOf_.end() && isDirty(*known->second)) {
        return true;
    }
    auto const found = std::find_if(rows_.rbegin(), rows_.rend(), [](auto const& row) { return isDirty(*row); });
    lastDirty_ = found == rows_.rend() ? nullptr : (*found)->form;
    return lastDirty_ != nullptr;
}

void AccountRows::await(AccountEntryWidget const& form, AccountChange change, AccountCode const& shown)
{
    rowOf_.at(&form)->awaited.push_back({change, shown});
}

std::optional<AccountChange> AccountRows::answer(AccountEntryWidget const& form, bool isAccepted)
{
    auto& row = *rowOf_.at(&form);
    if (row.awaited.empty()) {
        return std::nullopt;
    }
    auto const change = row.awaited.front().change;
    row.awaited.pop_front();
    if (isAccepted && change == AccountChange::Add) {
        row.isClosed = form.isClosed();
    } else if (isAccepted && (change == AccountChange::Close || change == AccountChange::Open)) {
        row.isClosed = change == AccountChange::Close;
    }
    return change;
}

std::size_t AccountRows::countAwaited(AccountEntryWidget const& form) const
{
    return rowOf_.at(&form)->awaited.size();
}

void AccountRows::awaitAtMost(AccountEntryWidget const& form, std::size_t most)
{
    auto& awaited = rowOf_.at(&form)->awaited;
    while (awaited.size() > most) {
        awaited.pop_back();
    }
}

bool AccountRows::wasClosed(AccountEntryWidget const& form) const
{
    return rowOf_.at(&form)->isClosed;
}
}
