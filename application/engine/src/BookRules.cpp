#include "BookRules.h"

#include "ItemAccounts.h"
#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

#include <QList>

#include <algorithm>
#include <set>
#include <utility>

using fiscora::Currency;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::foundation::presentationText;

namespace tallymere::engine::rules {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("BookRules", text);
}

void checkAccount(AccountNumber const& number, BookAccount const& account)
{
    if (number == AccountNumber() || account.code.number() != number || account.code.name().isEmpty()) {
        refuse(
            tr("Account %1 has no number or no name of its own. The books are damaged.").arg(presentationText(number)));
    }
    if (account.currency == Currency::XXX) {
        refuse(tr("Account %1 has no currency. The books are damaged.").arg(account.code.name()));
    }
}

/// Follows each account up to one that stands alone. No road may lead in a circle.
void checkParents(Books const& books)
{
    std::set<AccountNumber> known;
    for (auto const& [number, account] : books.accounts) {
        std::set<AccountNumber> road;
        for (auto const* place = &account; known.insert(place->code.number()).second;) {
            road.insert(place->code.number());
            auto const& parent = place->code.parent();
            if (!parent) {
                break;
            }
            auto const found = books.accounts.find(*parent);
            if (found == books.accounts.end() || found->second.type != place->type || road.contains(*parent)) {
                refuse(tr("Account %1 stands under an account under which it can't be. The books are damaged.")
                           .arg(place->code.name()));
            }
            place = &found->second;
        }
    }
}

/// What the books need an account for stands in one equity account of each currency.
void checkPurposes(Books const& books)
{
    std::set<std::pair<AccountPurposes, Currency>> known;
    for (auto const& [number, account] : books.accounts) {
        if (account.purpose == AccountPurposes::Household ||
            (account.type == AccountTypes::Equity && known.emplace(account.purpose, account.currency).second)) {
            continue;
        }
        refuse(
            (account.purpose == AccountPurposes::Exchange
                 ? tr("Transfers out of and into %1 stand in more than one account, or in one that isn't equity. The "
                      "books are damaged.")
                 : tr("Opening balances in %1 stand in more than one account, or in one that isn't equity. The "
                      "books are damaged."))
                .arg(presentationText(account.currency)));
    }
}

void checkBankAccounts(Bank const& bank, Books const& books, std::set<AccountNumber>& listed)
{
    for (auto const& [number, kind] : bank.accounts()) {
        auto const found = books.accounts.find(number);
        if (found == books.accounts.end() || !listed.insert(number).second) {
            refuse(tr("%1 lists account %2, which isn't there or is another bank's. The books are damaged.")
                       .arg(bank.name.institution(), presentationText(number)));
        }
        if (kind != BankAccountTypes::Unspecified && toAccountTypes(kind) != found->second.type) {
            refuse(tr("%1 is at %2 as %3, which it can't be. The books are damaged.")
                       .arg(found->second.code.name(), bank.name.institution(), presentationText(kind)));
        }
    }
}

void checkBanks(Books const& books)
{
    std::set<AccountNumber> listed;
    std::set<QString> names;
    for (auto const& [name, bank] : books.banks) {
        auto const key = comparable(name.institution());
        if (bank.name != name || key.isEmpty() || !names.insert(key).second) {
            refuse(tr("The bank %1 has no name of its own. The books are damaged.").arg(name.institution()));
        }
        checkBankAccounts(bank, books, listed);
    }
}

/// Adds up amounts without leaving 64 bits, however many there are: the halves of an amount are summed apart.
class WideSum
{
public:
    void add(long long amount)
    {
        high_ += amount >> halfBits_;
        low_ += amount & lowHalf_;
        high_ += low_ >> halfBits_;
        low_ &= lowHalf_;
    }
    bool isZero() const { return high_ == 0 && low_ == 0; }

private:
    static constexpr int halfBits_ = 32;
    static constexpr long long lowHalf_ = 0xFFFF'FFFFLL;
    long long high_ = 0;
    long long low_ = 0;
};

void checkTurnovers(Books const& books)
{
    std::map<Currency, WideSum> sums;
    for (auto const& [number, turnover] : books.turnovers) {
        auto const found = books.accounts.find(number);
        if (found == books.accounts.end() || found->second.currency != turnover.debited.code() ||
            turnover.postings == 0) {
            refuse(tr("What is posted to account %1 doesn't fit it. The books are damaged.")
                       .arg(presentationText(number)));
        }
        sums[turnover.debited.code()].add(turnover.debited.amount());
    }
    for (auto const& [currency, sum] : sums) {
        if (!sum.isZero()) {
            refuse(tr("Debits and credits in %1 aren't equal. The books are damaged.").arg(presentationText(currency)));
        }
    }
}
}

void check(Books const& books)
{
    for (auto const& [number, account] : books.accounts) {
        checkAccount(number, account);
    }
    checkParents(books);
    checkPurposes(books);
    checkBanks(books);
    checkTurnovers(books);
}

void checkAccounts(PlannedItems const& items, Books const& books)
{
    std::set<AccountNumber> owned;
    for (auto const& [identifier, item] : items) {
        auto const found = books.accounts.find(item.account);
        if (found == books.accounts.end() || found->second.type != toAccountTypes(identifier.type) ||
            found->second.currency != item.amount.code() || !owned.insert(item.account).second) {
            refuse(
                tr("%1 has no account of its own that fits it. The books are damaged.").arg(identifier.source.name()));
        }
    }
}

bool isDebitType(AccountTypes type)
{
    return type == AccountTypes::Asset || type == AccountTypes::Expense;
}

void refuseUnknown(AccountNumber const& number)
{
    refuse(tr("There is no account %1 in the books. Choose another account.").arg(presentationText(number)));
}

QString tidied(QString const& name)
{
    return name.trimmed().normalized(QString::NormalizationForm_C);
}

QString comparable(QString const& name)
{
    auto characters = name.normalized(QString::NormalizationForm_C).simplified().toUcs4();
    std::ranges::transform(characters, characters.begin(),
                           [](uint character) { return QChar::toCaseFolded(character); });
    return QString::fromUcs4(reinterpret_cast<char32_t const*>(characters.constData()), characters.size());
}
}
