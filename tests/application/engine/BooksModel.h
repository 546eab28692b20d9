#pragma once

#include "HouseholdFixture.h"

#include <map>
#include <optional>
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
    using Types = tlm::accounting::AccountTypes;
    using KeptAt = std::optional<tlm::banking::BankAccount>;

    struct Item
    {
        ItemTypes type;
        QString name;
        fiscora::Money amount;
        fiscora::Money borrowed;
        Number account;
    };

    bool add(Item item, KeptAt const& keptAt);
    bool change(QString const& original, Item item, KeptAt const& keptAt);
    bool rename(ItemTypes type, QString const& original, QString const& name);
    bool remove(ItemTypes type, QString const& name);
    bool addBank(QString const& name);
    bool addBankAccount(QString const& bank, QString const& name, Kinds kind, fiscora::Money const& balance);
    bool post(Posting const& posting);

    /// \return what a household tells whose books are these
    Books books() const;

    std::vector<Item> const& items() const { return items_; }

    /// \return the numbers of all accounts
    std::vector<Number> numbers() const;

    /// \return the accounts that banks list
    std::vector<tlm::banking::BankAccount> bankAccounts() const;

private:
    struct Account
    {
        Types type;
        QString name;
        Currency currency;
        Number parent;
        bool opens;
    };

    Item* find(ItemTypes type, QString const& name);
    Item const* owner(Number account) const;
    std::size_t postingsOf(Number account) const;
    Number open(Types type, QString const& name, Currency currency);
    void openWith(Number account, fiscora::Money const& balance);
    QString bankOf(Number account) const;
    bool canHold(tlm::banking::BankAccount const& place, Currency currency) const;
    bool place(Number goal, Currency currency, KeptAt const& keptAt);
    bool list(Number debt, KeptAt const& keptAt);

    std::map<Number, Account> accounts_;
    std::map<QString, std::map<Number, Kinds>> banks_;
    std::vector<Item> items_;
    std::vector<Posting> postings_;
};
}
