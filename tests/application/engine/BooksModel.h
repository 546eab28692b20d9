#pragma once

#include "HouseholdFixture.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace tallymere::engine {

/// The books told plainly: lists, walked from end to end, and balances that are added up anew each time.
///
/// An operation tells whether the books take it. Where they don't, the model may have moved: work on a copy.
class BooksModel
{
public:
    using Number = unsigned int; ///< 0 is no account
    using Currency = fiscora::Currency;
    using ItemTypes = tlm::budgeting::BudgetItemTypes;
    using Kinds = tlm::banking::BankAccountTypes;
    using KeptAt = std::optional<tlm::banking::BankAccount>;
    using Listed = std::map<Number, Kinds>;
    using Money = fiscora::Money;
    using Status = tlm::accounting::TransactionStatuses;
    using Types = tlm::accounting::AccountTypes;

    struct Item
    {
        ItemTypes type;
        QString name;
        Money amount;
        Money borrowed;
        Number account;
    };

    struct Account
    {
        Types type;
        QString name;
        Currency currency;
        Number parent = 0;
        bool isClosed = false;
        AccountPurposes purpose{};
    };

    /// \param openedOn the day of all openings and transfers
    /// \param hasWayBack whether dollars can be turned into euros, as euros can be into dollars
    BooksModel(QDate const& openedOn, bool hasWayBack) : openedOn_(openedOn), hasWayBack_(hasWayBack) {}

    bool add(Item item, KeptAt const& keptAt);
    bool change(QString const& original, Item item, KeptAt const& keptAt);
    bool rename(ItemTypes type, QString const& original, QString const& name);
    bool remove(ItemTypes type, QString const& name);

    bool addAccount(Number number, Account account, Money const& balance);
    bool recode(Number current, Number number, QString const& name, Number parent);
    bool setClosed(Number number, bool isClosed);
    bool removeAccount(Number number);

    bool addBank(QString const& name, Listed const& listed, bool isClosed);
    bool renameBank(QString const& original, QString const& name);
    bool listAccounts(QString const& bank, Listed const& listed);
    bool setBankClosed(QString const& name, bool isClosed);
    bool removeBank(QString const& name);
    /// \param bank none for an account that no bank lists
    bool addBankAccount(std::optional<QString> const& bank, QString const& name, Kinds kind, Money const& balance);

    bool post(Posting const& posting);
    bool changePosting(PostingId const& id, Posting posting);
    bool removePosting(PostingId const& id);
    /// Gives each posting a status from \a least to \a most.
    bool mark(std::set<PostingId> const& ids, Status least, Status most);
    bool transfer(Number from, Number to, Money const& amount, QString const& reason);

    /// \return what a household tells whose books are these
    Books books() const;

    std::vector<Item> const& items() const { return items_; }
    std::map<PostingId, Posting> const& postings() const { return postings_; }

    /// \return the numbers of all accounts
    std::vector<Number> numbers() const;

    /// \return the accounts that banks list
    std::vector<tlm::banking::BankAccount> bankAccounts() const;

    Account const* account(Number number) const;

    /// \return what \a bank lists, nothing for one that isn't known
    Listed listed(QString const& bank) const;

private:
    struct Bank
    {
        Listed accounts;
        bool isClosed = false;
    };
    using Banks = std::map<QString, Bank>;

    Item* find(ItemTypes type, QString const& name);
    Item const* owner(Number account) const;
    std::size_t postingsOf(Number account) const;
    Money debited(Number account) const;
    bool opensDebt(Posting const& posting) const;
    bool isOpening(Number account, Posting const& posting) const;
    bool drop(Number account);
    Number open(Types type, QString const& name, Currency currency);
    Number serving(AccountPurposes purpose, QString const& name, Currency currency);
    void openWith(Number account, Money const& balance);
    bool isOpen(Number account, Currency currency) const;
    bool canTake(Posting const& posting) const;
    bool canChange(PostingId const& id) const;
    void keep(Posting const& posting);

    Banks::iterator bank(QString const& name);
    Banks::const_iterator bank(QString const& name) const;
    QString listedAt(Number account) const;
    QString bankOf(Number account) const;
    bool isAtOrBelow(Number account, Number above) const;
    bool canStand(Number account, Number parent) const;
    bool isTaken(QString const& name, Number own) const;
    bool canList(QString const& bank, bool isNew, Listed const& before, Listed const& after) const;
    bool holdsNothing(Listed const& listed) const;
    bool canHold(tlm::banking::BankAccount const& place, Number goal) const;
    bool place(Number goal, KeptAt const& keptAt);
    bool list(Number debt, KeptAt const& keptAt);

    QDate openedOn_;
    bool hasWayBack_;
    std::map<Number, Account> accounts_;
    Banks banks_;
    std::vector<Item> items_;
    std::map<PostingId, Posting> postings_;
    std::int64_t lastId_ = 0;
};

/// What the model knows of names and money.
namespace model {

QString key(QString const& name);
bool isName(QString const& name);
bool isUsable(fiscora::Money const& money);
bool isLiability(BooksModel::Kinds kind);
BooksModel::Types typeOf(BooksModel::Kinds kind);
}
}
