#include "Anything.h"

#include <optional>

using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;

namespace tallymere::engine {

namespace {

using Number = BooksModel::Number;

/// \return mostly one that no account has
Number anyNewNumber(BooksModel const& model)
{
    return isOneOf(8) ? anyNumber(model) : anyOf<Number>({10, 11, 12, 100, 1500, 2500, 3500, 20'000});
}

std::optional<AccountNumber> parentOf(Number number)
{
    return number == 0 ? std::nullopt : std::optional(AccountNumber(number));
}

Step anyNewAccount(BooksModel const& model)
{
    auto const number = anyNewNumber(model);
    auto const balance = anyAmount();
    BooksModel::Account account{static_cast<BooksModel::Types>(pick(0, 6)), anyName(), balance.code()};
    account.parent = isOneOf(3) ? anyPeer(model, account.type, account.currency) : 0;
    account.isClosed = isOneOf(8);
    return {[=](Household& household) {
                AccountCode const code(AccountNumber(number), account.name, parentOf(account.parent));
                household.addAccount({account.type, code, balance, account.isClosed}, openedOn);
            },
            [=](BooksModel& books) { return books.addAccount(number, account, balance); }};
}

Step anyRecoding(BooksModel const& model)
{
    auto const current = anyNumber(model);
    auto const* const account = model.account(current);
    auto number = current;
    auto name = account == nullptr ? anyName() : account->name;
    auto parent = account == nullptr ? 0 : account->parent;
    switch (pick(0, 4)) {
    case 0:
        number = anyNewNumber(model);
        break;
    case 1:
        name = anyName();
        break;
    case 2:
        parent = account == nullptr ? anyNumber(model) : anyPeer(model, account->type, account->currency);
        break;
    default:
        number = anyNewNumber(model);
        parent = isOneOf(2) ? 0 : parent;
    }
    return {[=](Household& household) {
                household.recode(AccountNumber(current), {AccountNumber(number), name, parentOf(parent)});
            },
            [=](BooksModel& books) { return books.recode(current, number, name, parent); }};
}

Step anyReopening(BooksModel const& model)
{
    auto numbers = model.numbers();
    std::erase_if(numbers, [&](auto const number) { return !model.account(number)->isClosed; });
    auto const number = numbers.empty() ? anyNumber(model) : anyOf(numbers);
    return {[=](Household& household) { household.reopenAccount(AccountNumber(number)); },
            [=](BooksModel& books) { return books.setClosed(number, false); }};
}
}

Step anyAccountChange(BooksModel const& model)
{
    auto const number = anyNumber(model);
    AccountNumber const own(number);
    switch (pick(0, 8)) {
    case 0:
        return {[=](Household& household) { household.closeAccount(own); },
                [=](BooksModel& books) { return books.setClosed(number, true); }};
    case 1:
        return anyReopening(model);
    case 2:
        return {[=](Household& household) { household.removeAccount(own); },
                [=](BooksModel& books) { return books.removeAccount(number); }};
    case 3:
    case 4:
        return anyNewAccount(model);
    default:
        return anyRecoding(model);
    }
}
}
