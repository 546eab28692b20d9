#include "internal/AccountRows.h"

#include "internal/AccountEntryWidget.h"

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;

void AccountRows::add(QListWidgetItem& item, AccountEntryWidget& form)
{
    FormRows::add({&item, &form, {}, form.wasClosed()});
}

void AccountRows::await(AccountEntryWidget const& form, AccountChange change, AccountCode const& shown)
{
    rowOf(form).awaited.push_back({change, shown});
}

std::optional<AccountChange> AccountRows::answer(AccountEntryWidget const& form, bool isAccepted)
{
    auto& row = rowOf(form);
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
    return rowOf(form).awaited.size();
}

void AccountRows::awaitAtMost(AccountEntryWidget const& form, std::size_t most)
{
    auto& awaited = rowOf(form).awaited;
    while (awaited.size() > most) {
        awaited.pop_back();
    }
}

bool AccountRows::wasClosed(AccountEntryWidget const& form) const
{
    return rowOf(form).isClosed;
}
}
