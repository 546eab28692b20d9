#include "Anything.h"

#include <map>
#include <optional>

using tlm::accounting::AccountNumber;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;

namespace tallymere::engine {

namespace {

/// \return \a listed with an account more or less
BooksModel::Listed anyListing(BooksModel const& model, BooksModel::Listed listed)
{
    if (!listed.empty() && isOneOf(3)) {
        listed.erase(listed.begin());
    }
    for (auto count = pick(0, 3); count > 0; --count) {
        auto const number = anyNumber(model);
        auto const* const account = model.account(number);
        auto const fitting = account != nullptr && account->type == BooksModel::Types::Liability
                                 ? BankAccountTypes::Loan
                                 : BankAccountTypes::Savings;
        listed.insert_or_assign(number, isOneOf(6) ? anyKind() : fitting);
    }
    return listed;
}

std::map<AccountNumber, BankAccountTypes> typed(BooksModel::Listed const& listed)
{
    std::map<AccountNumber, BankAccountTypes> typed;
    for (auto const& [number, kind] : listed) {
        typed.emplace(AccountNumber(number), kind);
    }
    return typed;
}
}

Step anyNewBankAccount()
{
    auto const bank = isOneOf(3) ? std::nullopt : std::optional(anyBank());
    auto const name = anyName();
    auto const kind = anyKind();
    auto const balance = isOneOf(4) ? dollars(0) : anyAmount();
    return {[=](Household& household) {
                bank ? household.addBankAccount(BankName(*bank), name, kind, balance, openedOn)
                     : household.addBankAccount(name, kind, balance, openedOn);
            },
            [=](BooksModel& books) { return books.addBankAccount(bank, name, kind, balance); }};
}

Step anyBankChange(BooksModel const& model)
{
    auto const bank = anyBank();
    auto const other = anyOf<QString>({"River", " river", "Hill", "HILL", "Lake ", "", "Odd\nname"});
    switch (pick(0, 8)) {
    case 0:
        return {[=](Household& household) { household.renameBank(BankName(bank), BankName(other)); },
                [=](BooksModel& books) { return books.renameBank(bank, other); }};
    case 1: {
        auto const listed = anyListing(model, model.listed(bank));
        return {[=](Household& household) { household.listAccounts(BankName(bank), typed(listed)); },
                [=](BooksModel& books) { return books.listAccounts(bank, listed); }};
    }
    case 2:
        return {[=](Household& household) { household.closeBank(BankName(bank)); },
                [=](BooksModel& books) { return books.setBankClosed(bank, true); }};
    case 3:
        return {[=](Household& household) { household.reopenBank(BankName(bank)); },
                [=](BooksModel& books) { return books.setBankClosed(bank, false); }};
    case 4:
        return {[=](Household& household) { household.removeBank(BankName(bank)); },
                [=](BooksModel& books) { return books.removeBank(bank); }};
    case 5:
        return {[=](Household& household) { household.addBank(BankName(other)); },
                [=](BooksModel& books) { return books.addBank(other, {}, false); }};
    default: {
        auto const listed = anyListing(model, {});
        auto const isClosed = isOneOf(4);
        return {[=](Household& household) {
                    household.addBank(tlm::banking::Bank(BankName(other), typed(listed), isClosed));
                },
                [=](BooksModel& books) { return books.addBank(other, listed, isClosed); }};
    }
    }
}
}
