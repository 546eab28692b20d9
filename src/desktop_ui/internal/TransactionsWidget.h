#pragma once

#include "internal/OtherAccounts.h"
#include "internal/TransactionRecords.h"
#include "internal/TransactionRows.h"
#include "ui_transactionsWdgt.h"

#include <fiscora/Currency.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QString>
#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace tlm::desktop_ui::internal {

/// A scrolling list of transactions, of many ledgers at once, each of which can be shown and hidden.
///
/// Whatever a receiver of a signal does, even to end an entry or the list at once, is fine.
class TransactionsWidget : public QWidget, private Ui::transactionsWdgt
{
    Q_OBJECT

public:
    explicit TransactionsWidget(foundation::QtPtr<QWidget> const& parent);
    ~TransactionsWidget() override;

    /// Comes once, before the first entry.
    /// \param accounts offered as the other account of a transaction
    /// \param usable currencies that amounts may be entered in
    void setUp(std::vector<accounting::AccountCode>&& accounts, std::set<fiscora::Currency>&& usable,
               navigation::CurrencyDisplayOptions displayAs, bool usesEverydayTerms);

    /// Offers \a account as the other account too, in all entries now and later.
    void addAccount(accounting::AccountCode const& account);

    /// \param ledger told from others by its number
    /// \param txn one without a number is new
    void add(accounting::AccountCode const& ledger, accounting::Transaction const& txn);
    /// Adds \a txns in their order.
    void add(accounting::AccountCode const& ledger, std::vector<accounting::Transaction> txns);

    /// \return whether the ledger has entries
    bool isLoaded(accounting::AccountCode const& ledger) const;

    /// Shows the entries of \a ledger and scrolls to the latest one.
    void showLedger(accounting::AccountCode const& ledger);
    void hideLedger(accounting::AccountCode const& ledger);

    /// All entries now and later.
    void setReadOnly(bool isReadOnly);
    /// \param mode 0 for no selection, 1 for one entry at most, any other for as many as wanted; all entries now and later
    void setSelectionMode(std::uint8_t mode);
    void clearSelections();

    bool anyDirty() const;
    /// \return whether an entry has no number yet
    bool hasNewEntry() const;

    /// \return what the first entry with the number \a txnNum shows, none when none has it
    /// \throws foundation::Error when it shows no transaction
    std::optional<accounting::Transaction> find(std::optional<accounting::TransactionNumber> const& txnNum) const;
    /// \return what the selected entries show. Throws as find() does.
    std::vector<accounting::Transaction> selectedTransactions() const;

    /// Sends each changed entry, of hidden ledgers too.
    void save();

    /// \param displayed number that an entry shows. One that no entry shows ends the program.
    /// \param posted number of the transaction from here on, unless it is none
    void saveSucceeded(std::optional<accounting::TransactionNumber> const& displayed,
                       std::optional<accounting::TransactionNumber> const& posted);
    /// \param errorMessage is shown in the entry. One that no entry shows ends the program.
    void saveFailed(std::optional<accounting::TransactionNumber> const& txnNum, QString const& errorMessage);

signals:
    void added(tlm::accounting::Transaction const& txn);
    void updated(tlm::accounting::TransactionNumber const& tn, tlm::accounting::Transaction const& txn);
    void markCleared(std::set<tlm::accounting::TransactionNumber> const& txnNum);
    void markReconciled(tlm::accounting::TransactionNumber const& txnNum);
    void removed(tlm::accounting::TransactionNumber const& txnNum);
    void selected(std::optional<tlm::accounting::TransactionNumber> const& txnNum);
    void deselected(std::optional<tlm::accounting::TransactionNumber> const& txnNum);

private slots:
    void onSelected(std::optional<tlm::accounting::TransactionNumber> const& txnNum);

private:
    using Index = TransactionRecords::Index;
    using Number = TransactionRecords::Number;

    /// The entry that a walk sends at this moment.
    struct Sending
    {
        Index index;
        Number number; ///< that it is sent under
    };

    /// What the entries of a ledger offer that were added at one time.
    struct Offer
    {
        accounting::AccountCode ledger;
        std::size_t accounts;
        OtherAccounts others;
    };

    Index addRecord(accounting::AccountCode const& ledger, accounting::Transaction&& txn);
    foundation::QtPtr<TransactionWidget> makeRow(TransactionRecord const& record);
    OtherAccounts const& othersOf(TransactionRecord const& record);

    std::optional<Index> latestOf(accounting::AccountCode const& ledger) const;
    Index answeredEntry(Number const& number) const;

    void examine(Index index);
    void send(Index index);
    void sendChange(TransactionWidget const& row, Number const& number);
    void sendRemoval(Number const& number);
    void sendUpdate(TransactionWidget const& row, accounting::TransactionNumber const& number);
    void sendAddition(TransactionWidget const& row);

    std::vector<accounting::AccountCode> accounts_;
    std::set<fiscora::Currency> usable_;
    navigation::CurrencyDisplayOptions displayAs_{};
    std::optional<bool> readOnly_;
    std::uint8_t selectionMode_ = 0;
    bool usesEverydayTerms_ = false;
    std::optional<Offer> offer_; ///< that was made last
    std::optional<Sending> sending_;
    TransactionRecords records_;
    std::unique_ptr<TransactionRows> rows_;
};
}
