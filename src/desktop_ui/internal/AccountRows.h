#pragma once

#include "internal/AccountReplies.h"

#include <tlm/accounting/AccountCode.h>
#include <tlm/foundation/QtPtr.h>

#include <QDebug>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <vector>

class QListWidgetItem;

namespace tlm::desktop_ui::internal {

class AccountEntryWidget;

/// The rows of the list of accounts with their forms, in the order of adding, and what each waits to be told.
///
/// Rows and forms find each other by what they are, since their texts are typed by people: any two may be equal.
class AccountRows
{
public:
    using Form = foundation::QtPtr<AccountEntryWidget>;

    AccountRows();
    ~AccountRows();

    /// \param item and \a form stay until remove()
    void add(QListWidgetItem& item, AccountEntryWidget& form);

    /// Forgets \a form with its row, and ends neither.
    void remove(AccountEntryWidget const& form);

    bool contains(AccountEntryWidget const& form) const { return rowOf_.contains(&form); }

    /// \return nullptr for a row that isn't here
    AccountEntryWidget* formOf(QListWidgetItem const* item) const;
    QListWidgetItem* itemOf(AccountEntryWidget const& form) const { return rowOf_.at(&form)->item; }

    /// \return the forms as they are now, to walk through while they come and go
    std::vector<Form> forms() const;

    bool anyDirty() const;

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
    void leave(AccountEntryWidget const& form) { rowOf_.at(&form)->isLeaving = true; }
    bool isLeaving(AccountEntryWidget const& form) const { return rowOf_.at(&form)->isLeaving; }

    /// \return whether the account is closed as far as was told
    bool wasClosed(AccountEntryWidget const& form) const;

    /// \return the first form that \a matches, nullptr when none does
    template <typename Matches>
    AccountEntryWidget* find(Matches const& matches) const
    {
        for (auto const& row : rows_) {
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
        for (auto const& row : rows_) {
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
    struct Row
    {
        QListWidgetItem* item;
        AccountEntryWidget* form;
        std::deque<SentAccountChange> awaited;
        bool isClosed;
        bool isLeaving = false;
    };

    static bool isDirty(Row const& row);

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

    std::vector<std::unique_ptr<Row>> rows_;
    std::unordered_map<AccountEntryWidget const*, Row*> rowOf_;
    std::unordered_map<QListWidgetItem const*, Row*> rowAt_;
    mutable AccountEntryWidget const* lastDirty_ = nullptr; ///< where anyDirty() looks first
};
}
