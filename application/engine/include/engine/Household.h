#pragma once

#include <engine/BudgetContent.h>
#include <engine/Store.h>
#include <tlm/accounting/Account.h>
#include <tlm/adviser/BudgetHealth.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/budgeting/BudgetTotals.h>
#include <tlm/navigation/AllowSubAccounts.h>
#include <tlm/navigation/BudgetBankAccount.h>

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace tallymere::engine {

class BooksDraft;
class Chart;
class Plan;
struct NewBankAccount;

/// The budget and its books in memory: checks every change, stores it, then takes it over.
///
/// A refused change throws a foundation::Error whose message tells the person what, why and what to do; neither the
/// store nor the content has moved then. What the store throws passes through, and the content stays as it was.
///
/// Views total with the rates and the working week of the process. Those are the ones of the household that was made,
/// configured or given rates last.
class Household
{
public:
    /// What due() tells of one item at most: about four years of working days, or eighty of months.
    static constexpr std::size_t mostDueOfOneItem_ = 1000;

    /// What due() tells of all items at most, shared among them evenly, at least one of each.
    static constexpr std::size_t mostDue_ = 100'000;

    /// \param store outlives the household and holds \a content already
    /// \throws foundation::Error when \a content breaks a rule that the changes below keep
    Household(BudgetContent content, Store& store);
    Household(Household const&) = delete;
    Household& operator=(Household const&) = delete;
    ~Household();

    BudgetContent const& content() const;

    /// Plans \a item and makes its ledger account. Its rhythm counts from its next occurrence on, whatever its anchor.
    ///
    /// A debt opens with the sum borrowed as its balance, posted on \a openedOn.
    /// \param keptAt the bank and the kind of account of a debt, whose number doesn't matter; the bank account under
    ///        which a goal is stored; none for the other types
    void add(PlannedItem item, std::optional<tlm::banking::BankAccount> const& keptAt, QDate const& openedOn);

    /// Puts \a item in the place of \a original, which is found without regard to case and surrounding blanks. Its
    /// ledger account stays, under its name.
    ///
    /// Another period or next occurrence makes the rhythm count from that occurrence on. Otherwise the anchor stays,
    /// whatever the anchor of \a item.
    /// \param keptAt as in add(); none leaves the account where it is
    void change(tlm::budgeting::BudgetItemIdentifier const& original, PlannedItem item,
                std::optional<tlm::banking::BankAccount> const& keptAt);

    /// Gives the item, which is found as change() finds it, and its ledger account another name.
    void rename(tlm::budgeting::BudgetItemIdentifier const& original, tlm::budgeting::BudgetSource const& changed);

    /// Drops the item, which is found as change() finds it, with its ledger account and the balance that it opened with.
    /// Refused while any other posting needs them.
    void remove(tlm::budgeting::BudgetItemIdentifier const& identifier);

    /// \name Accounts
    /// An account that belongs to a budget item keeps that item's name and place: it can be given another number, and
    /// nothing else.
    ///@{

    /// Adds an account to the chart, and posts its balance against an equity account unless it is zero.
    /// \param account with a number and a name that no other account has; its balance tells the account's currency
    void addAccount(tlm::accounting::Account const& account, QDate const& openedOn);

    /// Gives an account another number, name or parent. Banks, items, postings and sub-accounts follow its number.
    void recode(tlm::accounting::AccountNumber const& current, tlm::accounting::AccountCode const& changed);

    /// Closes an account whose balance is zero and that nothing else needs open. A closed one stays closed.
    void closeAccount(tlm::accounting::AccountNumber const& number);
    void reopenAccount(tlm::accounting::AccountNumber const& number);

    /// Drops an account with the balance that it opened with. Refused while any other posting needs it. A bank that
    /// lists it lists it no longer.
    void removeAccount(tlm::accounting::AccountNumber const& number);
    ///@}

    /// \name Banks
    ///@{
    void addBank(tlm::banking::BankName const& name);

    /// Adds a bank with accounts of the chart that no other bank lists.
    void addBank(tlm::banking::Bank const& bank);
    void renameBank(tlm::banking::BankName const& original, tlm::banking::BankName const& changed);

    /// Puts \a accounts in the place of those that the bank lists. Those that it lists no longer stay in the chart.
    void listAccounts(tlm::banking::BankName const& bank,
                      std::map<tlm::accounting::AccountNumber, tlm::banking::BankAccountTypes> const& accounts);

    /// Closes a bank whose accounts hold nothing. A closed one stays closed.
    void closeBank(tlm::banking::BankName const& name);
    void reopenBank(tlm::banking::BankName const& name);

    /// Drops a bank without accounts.
    void removeBank(tlm::banking::BankName const& name);

    /// Makes an account of the kind \a type that no bank lists yet, and posts \a openingBalance unless it is zero.
    /// \param openingBalance as below
    tlm::accounting::AccountNumber addBankAccount(QString const& name, tlm::banking::BankAccountTypes type,
                                                  fiscora::Money const& openingBalance, QDate const& openedOn);

    /// Makes an account at the bank \a bank, and posts \a openingBalance unless it is zero.
    /// \param openingBalance in the account's currency; what the household has in an asset account, what it owes in others
    tlm::accounting::AccountNumber addBankAccount(tlm::banking::BankName const& bank, QString const& name,
                                                  tlm::banking::BankAccountTypes type,
                                                  fiscora::Money const& openingBalance, QDate const& openedOn);

    ///@}

    /// \name Postings
    /// What is reconciled stays as it is, until it is unreconciled.
    ///@{
    PostingId post(Posting const& posting);

    /// Puts \a posting in the place of the one of \a id, which remembers its item as long as it touches that item's account.
    void changePosting(PostingId const& id, Posting posting);
    void removePosting(PostingId const& id);

    /// Raises what isn't reconciled to cleared, all of \a ids or none.
    void markCleared(std::set<PostingId> const& ids);
    void markReconciled(PostingId const& id);
    /// Lowers what is reconciled to cleared, all of \a ids or none.
    void markUnreconciled(std::set<PostingId> const& ids);

    /// Moves \a amount from one account to another. Where their currencies differ, it goes through the exchange accounts of
    /// both, at the registered rate.
    /// \param amount above zero, in the currency of the account \a from
    /// \param reason may be empty
    /// \return the posting by which the amount left the account \a from
    PostingId transfer(tlm::accounting::AccountNumber const& from, tlm::accounting::AccountNumber const& to,
                       fiscora::Money const& amount, QString const& reason, QDate const& transferredOn);

    /// \return the \a most latest postings to the account, by day, and by identifier within a day
    std::map<PostingId, Posting> latestPostingsOf(tlm::accounting::AccountNumber const& number, std::size_t most) const;
    ///@}

    /// \return all accounts with their balances, closed ones too
    std::set<tlm::accounting::Account> accounts() const;

    /// \return what the account holds: debits less credits of assets and expenses, credits less debits of the others
    fiscora::Money balance(tlm::accounting::AccountNumber const& number) const;

    /// \return the codes of all accounts of the type \a type
    std::set<tlm::accounting::AccountCode> codes(tlm::accounting::AccountTypes type) const;

    /// \return the bank of that name, which is found without regard to case and surrounding blanks; none when there is none
    tlm::banking::Bank const* bank(tlm::banking::BankName const& name) const;

    /// \return the banks that aren't closed
    std::set<tlm::banking::BankName> openBanks() const;

    /// \return the open accounts of a bank with their kinds, none for a bank that isn't known.
    /// \param shouldAllow tells whether accounts below them are among them: those of goals as goal accounts, others with
    ///        the kind of the account that they stand under
    std::set<tlm::banking::AccountNumberBankType> bankAccounts(tlm::banking::BankName const& bank,
                                                               tlm::navigation::AllowSubAccounts shouldAllow) const;

    /// \return where the debts or the goals are kept, as far as they are: a debt's own account, or the account under
    ///         which a goal is stored; nothing for the other types
    std::set<tlm::navigation::BudgetBankAccount> keptAt(tlm::budgeting::BudgetItemTypes type) const;

    /// Also gives each usable currency the rate 1 for itself, which a whole table of rates needs.
    void configure(Settings settings);

    /// Replaces all rates. A usable currency's rate for itself is always 1, whatever \a rates tell.
    void setRates(tlm::conversion::ConversionMap rates);

    /// \return what each type comes to per month in the preferred currency, without items that happen once and
    ///         currencies that have no rate, which are logged
    /// \throws foundation::Error when a total is too large to count
    tlm::budgeting::BudgetTotals monthlyTotals() const;

    /// \return every occurrence neither posted nor skipped up to as many days after \a today as the settings tell, overdue
    ///         ones included, ordered by date, type and source. The earliest of each item come first and later ones follow
    ///         up once they are dealt with, where there are more than `mostDueOfOneItem_` or its share of `mostDue_`. An
    ///         hourly item is due with the hours of a whole working day.
    /// \throws foundation::Error when those come to more than can be counted
    std::vector<tlm::budgeting::BudgetItemAmountDue> due(QDate const& today) const;

    /// \return the adviser's judgement of the monthly totals and of all that was borrowed
    /// \throws foundation::Error when a total is too large to count
    tlm::adviser::BudgetHealth health() const;

private:
    PlannedItem const& planned(tlm::budgeting::BudgetItemIdentifier const& identifier) const;
    void check(PlannedItem const& item) const;
    void checkUnused(tlm::budgeting::BudgetItemIdentifier const& name, PlannedItem const* replaced) const;
    void replace(PlannedItem const& before, PlannedItem const& after, BooksDraft& draft);
    template <typename Changes, typename Change>
    PostingId make(Change const& change);
    tlm::accounting::AccountNumber addBankAccount(NewBankAccount const& account);
    PostingId keep(BooksDraft& draft);
    void countInProcess() const;

    BudgetContent content_;
    Store& store_;
    std::unique_ptr<Chart> chart_;
    std::unique_ptr<Plan> plan_;
};
}
