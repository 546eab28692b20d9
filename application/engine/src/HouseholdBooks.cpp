#include "BankPlaces.h"
#include "BookRules.h"
#include "Chart.h"
#include "Plan.h"
#include "Refuse.h"
#include "engine/Household.h"

#include <tlm/foundation/PresentationText.h>

#include <algorithm>
#include <stdexcept>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::AccountNumberBankType;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::foundation::presentationText;
using tlm::navigation::AllowSubAccounts;
using tlm::navigation::BudgetBankAccount;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("Household", text);
}

QString tidied(QString const& name)
{
    return name.trimmed().normalized(QString::NormalizationForm_C);
}

void checkBankName(QString const& name, Books const& books)
{
    if (name.isEmpty()) {
        refuse(tr("This bank has no name. Give it one by which you will know it."));
    }
    if (!rules::isAccountName(name)) {
        refuse(tr("The name of this bank holds signs that can't be shown, such as a line break, or a blank of unusual "
                  "width. Type the name anew."));
    }
    auto const key = rules::comparable(name);
    for (auto const& [known, bank] : books.banks) {
        if (rules::comparable(known.institution()) == key) {
            refuse(tr("There is a bank called %1 already. Use that one, or give this one another name.")
                       .arg(known.institution()));
        }
    }
}

void checkAccountName(QString const& name, Bank const& bank, Books const& books)
{
    auto const key = rules::comparable(name);
    for (auto const& [number, type] : bank.accounts()) {
        auto const& known = books.accounts.at(number).code.name();
        if (rules::comparable(known) == key) {
            refuse(tr("%1 has an account called %2 already. Give this one another name.")
                       .arg(bank.name.institution(), known));
        }
    }
}

void checkCurrency(QString const& name, Currency currency, Settings const& settings)
{
    if (currency == Currency::XXX) {
        refuse(tr("The opening balance of %1 has no currency. Choose one.").arg(name));
    }
    if (!settings.usable.contains(currency)) {
        refuse(tr("%1 can't be kept in %2. Choose a usable currency, or make that one usable.")
                   .arg(name, presentationText(currency)));
    }
}

bool isDebitAccount(AccountTypes type)
{
    return type == AccountTypes::Asset || type == AccountTypes::Expense;
}
}

void Household::addBank(BankName const& name)
{
    BankName const kept(tidied(name.institution()));
    checkBankName(kept.institution(), content_.books);
    auto draft = chart_->draft();
    draft.put(Bank(kept, {}, false));
    keep(draft);
}

AccountNumber Household::addBankAccount(BankName const& bank, QString const& name, BankAccountTypes type,
                                        Money const& openingBalance, QDate const& openedOn)
{
    auto const kept = tidied(name);
    AccountCode const named(kept, std::nullopt); // refuses what can't be a name
    auto const& at = BankPlaces(*chart_, *plan_).openBank(bank, kept);
    checkAccountName(kept, at, content_.books);
    checkCurrency(kept, openingBalance.code(), content_.settings);

    auto draft = chart_->draft();
    auto const number = draft.open(toAccountTypes(type), named.name(), openingBalance.code());
    auto accounts = at.accounts();
    accounts.emplace(number, type);
    draft.put(Bank(at.name, std::move(accounts), false));
    draft.postOpening(number, openingBalance, openedOn);
    keep(draft);
    return number;
}

PostingId Household::post(Posting const& posting)
{
    if (auto const& item = posting.madeFrom;
        item && (plan_->ownerOf(*item) == nullptr || (*item != posting.debiting && *item != posting.crediting))) {
        throw std::invalid_argument("A posting is made from an item whose account it goes to or comes from.");
    }
    auto draft = chart_->draft();
    draft.post(posting);
    return keep(draft);
}

Money Household::balance(AccountNumber const& number) const
{
    auto const* const account = chart_->find(number);
    if (account == nullptr) {
        refuse(tr("There is no account %1 in the books. Choose another account.").arg(presentationText(number)));
    }
    auto const* const turnover = chart_->turnoverOf(number);
    if (turnover == nullptr) {
        return Money(account->currency);
    }
    return isDebitAccount(account->type) ? turnover->debited : -turnover->debited;
}

std::set<AccountCode> Household::codes(AccountTypes type) const
{
    std::set<AccountCode> found;
    for (auto const& [number, account] : content_.books.accounts) {
        if (account.type == type) {
            found.insert(found.end(), account.code);
        }
    }
    return found;
}

std::set<BankName> Household::openBanks() const
{
    std::set<BankName> found;
    for (auto const& [name, bank] : content_.books.banks) {
        if (!bank.isClosed()) {
            found.insert(found.end(), name);
        }
    }
    return found;
}

std::set<AccountNumberBankType> Household::bankAccounts(BankName const& bank, AllowSubAccounts shouldAllow) const
{
    auto const* const known = chart_->find(bank);
    return known == nullptr ? std::set<AccountNumberBankType>()
                            : BankPlaces(*chart_, *plan_).openAccounts(*known, shouldAllow);
}

std::set<BudgetBankAccount> Household::keptAt(BudgetItemTypes type) const
{
    BankPlaces const places(*chart_, *plan_);
    std::set<BudgetBankAccount> found;
    for (auto const& [identifier, item] : content_.items) {
        if (auto const place = identifier.type == type ? places.keptAt(item) : std::nullopt) {
            found.insert({identifier.source, *place});
        }
    }
    return found;
}

/// Stores \a draft as a change of the books alone, and takes it over.
/// \return the identifier of the posting made, none without one
PostingId Household::keep(BooksDraft& draft)
{
    PostingId id;
    store_.transact([&] { id = draft.store(store_, [] {}); });
    chart_->take(draft);
    return id;
}
}
