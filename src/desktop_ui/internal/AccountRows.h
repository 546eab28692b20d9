#pragma once

#include "internal/AccountReplies.h"
#include "internal/FormRows.h"

#include <tlm/accounting/AccountCode.h>

#include <QDebug>

#include <cstddef>
#include <deque>
#include <exception>
#include <optional>
#include <tuple>

class QListWidgetItem;

namespace tlm::desktop_ui::internal {

class AccountEntryWidget;

/// A row of the list of accounts.
struct AccountRow
{
    QListWidgetItem* item;
    AccountEntryWidget* form;
    std::deque<SentAccountChange> awaited;
    bool isClosed;
    bool isLeaving = false;
};

/// The rows of the list of accounts with their forms, and what each waits to be told.
class AccountRows : public FormRows<QListWidgetItem, AccountEntryWidget, AccountRow>
{
public:
    /// \param item and \a form stay until remove()
    void add(QListWidgetItem& item, AccountEntryWidget& form);

    using FormRows::remove;

    /// The form sent \a change, which will be answered.
    /// \param shown the account as it was sent
    void await(AccountEntryWidget const& form, AccountChange change, accounting::AccountCode const& shown);

    /// Takes the answer to the first change that the form still waits for.
    /// \return the change, none when it waits for nothing
    std::optional<AccountChange> answer(AccountEntryWidget const& form, bool isAccepted);

    /// \return to how many changes the form waits for an answer
    std::size_t countAwaited(AccountEntryWidget const& form) const;

    /// No answers come to the changes after the first \a most that the form waits for.
    void awaitAtMost(AccountEntryWidget const& form, std::size_t most);

    /// The account is removed, but the form stays until it waits for nothing.
    void leave(AccountEntryWidget const& form) { rowOf(form).isLeaving = true; }
    bool isLeaving(AccountEntryWidget const& form) const { return rowOf(form).isLeaving; }

    /// \return whether the account is closed as far as was told
    bool wasClosed(AccountEntryWidget const& form) const;

    /// \return the first form that \a matches, nullptr when none does
    template <typename Matches>
    AccountEntryWidget* find(Matches const& matches) const
    {
        for (auto const& row : rows()) {
            if (tried([&] { return matches(*row->form); }, false)) {
                return row->form;
            }
        }
        return nullptr;
    }

    /// \param distance of a form, and of what it sent, from what an answer tells: none when it can't be meant, and the
    ///        less, the better
    /// \return the nearest form: first of all one that waits for an answer, of equally near ones one that is dirty, and of
    ///         these the first; nullptr when none is near
    template <typename Measure>
    AccountEntryWidget* nearest(Measure const& distance) const
    {
        AccountEntryWidget* nearest = nullptr;
        std::tuple<bool, int, bool> least;
        for (auto const& row : rows()) {
            auto const sent = row->awaited.empty() ? Distance() : distance(row->awaited.front());
            auto const shown = tried([&] { return distance(*row->form); }, Distance());
            auto const found = lesser(sent, shown);
            if (!found) {
                continue;
            }
            auto const order = std::tuple(row->awaited.empty(), *found, !isDirty(*row));
            if (nearest == nullptr || order < least) {
                nearest = row->form;
                least = order;
            }
        }
        return nearest;
    }

private:
    /// \return what \a look finds, \a nothing where it fails
    template <typename Look, typename Found>
    static Found tried(Look const& look, Found nothing)
    {
        try {
            return look();
        } catch (std::exception const& failure) {
            qInfo() << "An error occurred while checking an account entry." << failure.what();
            return nothing;
        }
    }
};
}
