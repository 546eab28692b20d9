#pragma once

#include "internal/TransactionWidget.h"

#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/foundation/QtPtr.h>

#include <cstddef>
#include <deque>
#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tlm::desktop_ui::internal {

/// One entry of a list of transactions: all that there is of it until somebody needs its form.
struct TransactionRecord
{
    accounting::Transaction transaction; ///< as it was added
    accounting::AccountCode ledger;
    std::size_t accounts = 0;                            ///< how many accounts were on offer when it was added
    std::optional<accounting::TransactionNumber> number; ///< that the entry shows, none for a new one
    foundation::QtPtr<TransactionWidget> row;            ///< none as long as nobody needs it
    bool isShown = true;
    bool isGone = false;      ///< removed, or its form was ended by others
    bool wasAnswered = false; ///< its form may show more than the record knows
};

/// The entries of many ledgers in the order in which they were added, by which all look-ups and walks go.
///
/// An entry keeps its index for good. Ledgers are told apart by their numbers, since a code that was read back from a text
/// has lost its parent.
class TransactionRecords
{
public:
    using Index = std::size_t;
    using Number = std::optional<accounting::TransactionNumber>;

    /// Shown, and without a form.
    Index add(accounting::AccountCode const& ledger, accounting::Transaction&& txn, std::size_t accounts);

    /// \return how many were ever added
    Index size() const noexcept { return records_.size(); }
    TransactionRecord& at(Index index) { return records_.at(index); }
    TransactionRecord const& at(Index index) const { return records_.at(index); }

    /// \return whether the ledger has entries
    bool isLoaded(accounting::AccountCode const& ledger) const;

    /// \return the ledger's entries in order; those that others have ended are gone
    std::vector<Index> const& of(accounting::AccountCode const& ledger) const;

    /// \return the present entries with that number in order
    std::vector<Index> const& numbered(Number const& number) const;

    /// \return the present entries that are shown in order
    std::vector<Index> const& shown() const noexcept { return shown_; }

    /// \return how many of the shown entries lie before \a index
    std::size_t rankOf(Index index) const;

    /// \return whether this shows or hides any
    bool setShown(accounting::AccountCode const& ledger, bool isShown);
    void renumber(Index index, accounting::TransactionNumber const& number);

    /// Takes an entry away. The ledger counts as not loaded from its last entry on.
    void remove(Index index);

    /// Takes an entry away whose form has ended. Its ledger stays loaded.
    void forget(Index index);

private:
    std::vector<Index>& numberedAs(Number const& number);

    std::deque<TransactionRecord> records_; // references outlive additions
    std::map<accounting::AccountNumber, std::vector<Index>> entries_;
    std::unordered_map<int, std::vector<Index>> numbered_;
    std::vector<Index> shown_;
};
}
