#include "LedgerRecords.h"

#include <tlm/foundation/Error.h>

#include <QCoreApplication>

namespace tallymere::presenter {

using engine::BookAccount;
using engine::Household;
using engine::Posting;
using fiscora::Currency;
using tlm::accounting::Account;
using tlm::accounting::AccountNumber;
using tlm::accounting::Transaction;
using tlm::accounting::TransactionNumber;
using tlm::navigation::AllowSubAccounts;
using tlm::navigation::BankAccountCode;

Account account(Household const& household, AccountNumber const& number)
{
    auto const balance = household.balance(number);
    auto const& kept = household.content().books.accounts.at(number);
    return {kept.type, kept.code, balance, kept.isClosed};
}

Transaction transaction(Posting const& posting, TransactionNumber const& number,
                        std::map<AccountNumber, BookAccount> const& accounts)
{
    auto const& description = posting.description;
    return {posting.occurredOn,
            accounts.at(posting.debiting).code,
            accounts.at(posting.crediting).code,
            posting.amount,
            description.isEmpty() ? std::nullopt : std::optional(description),
            number,
            posting.status};
}

Posting posting(Transaction const& record)
{
    auto const debiting = record.debiting().number();
    auto const crediting = record.crediting().number();
    if (debiting == AccountNumber() || crediting == AccountNumber()) {
        throw tlm::foundation::Error(QCoreApplication::translate(
            "LedgerRecords",
            "The other account of this transaction isn't chosen. Choose where the money came from or went to."));
    }
    return {record.occurredOn(), debiting,    crediting, record.amount(), record.description().value_or(QString()),
            record.status(),     std::nullopt};
}

std::set<BankAccountCode> transferable(Household const& household)
{
    auto const& accounts = household.content().books.accounts;
    std::set<BankAccountCode> found;
    for (auto const& bank : household.openBanks()) {
        for (auto const& [number, type] : household.bankAccounts(bank, AllowSubAccounts::Yes)) {
            auto const& kept = accounts.at(number);
            found.emplace(bank, kept.code, type, kept.currency);
        }
    }
    return found;
}

std::set<Currency> currencies(engine::BudgetContent const& content)
{
    auto found = content.settings.usable;
    for (auto const& [number, kept] : content.books.accounts) {
        found.insert(kept.currency);
    }
    return found;
}
}
