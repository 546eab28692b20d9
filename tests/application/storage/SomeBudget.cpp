#include "SomeBudget.h"

#include "Budgets.h"

#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <rapidcheck.h>

namespace tallymere::storage::testing {

using fiscora::Currency;
using fiscora::Money;
using tallymere::engine::BookAccount;
using tallymere::engine::Books;
using tallymere::engine::BudgetContent;
using tallymere::engine::NewBudget;
using tallymere::engine::PlannedItem;
using tallymere::engine::Posting;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::EventFrequency;
using tlm::foundation::Percentage;

namespace {

template <typename Value>
Value oneOf(std::set<Value> const& values)
{
    auto const place = *rc::gen::inRange<std::size_t>(0, values.size());
    return *std::next(values.begin(), static_cast<std::ptrdiff_t>(place));
}

std::set<Currency> someCurrencies()
{
    std::set<Currency> chosen;
    auto const count = *rc::gen::inRange(1, 8);
    while (chosen.size() < static_cast<std::size_t>(count)) {
        auto const code = fiscora::allCurrencies.at(*rc::gen::inRange<std::size_t>(0, fiscora::allCurrencies.size()));
        if (code != Currency::XXX) {
            chosen.insert(code);
        }
    }
    return chosen;
}

Percentage somePercentage()
{
    return {*rc::gen::inRange(0, 1'000'001) / 10'000.0, *rc::gen::arbitrary<unsigned char>()};
}

Money someMoney(Currency code)
{
    return Money::fromAmount(code, *rc::gen::inRange(1LL, std::numeric_limits<long long>::max()));
}

/// Names of all planes, so that folding, composing and storing meet what people write.
QString someName(int number)
{
    QString name;
    for (auto const character : *rc::gen::container<std::vector<char32_t>>(rc::gen::inRange<char32_t>(0x21, 0x2FFFF))) {
        if (character < 0xD800 || character > 0xDFFF) {
            name += QString::fromUcs4(&character, 1);
        }
    }
    return name.normalized(QString::NormalizationForm_C) + QString::number(number);
}

/// An account's name holds no control characters, no breaks of lines, and not the blank of a code's separator.
QString someAccountName()
{
    auto name = someName(*rc::gen::inRange(0, 10));
    name.removeIf([](QChar character) {
        auto const category = character.category();
        return category == QChar::Other_Control || category == QChar::Separator_Line ||
               category == QChar::Separator_Paragraph || character == QChar(0x2002);
    });
    return name;
}

PlannedItem someItem(int number, std::set<Currency> const& usable)
{
    auto const code = oneOf(usable);
    auto const anchor = QDate(1, 1, 1).addDays(*rc::gen::inRange(0, 3'600'000));
    PlannedItem item{
        .identifier = {static_cast<BudgetItemTypes>(*rc::gen::inRange(1, 6)), BudgetSource(someName(number))},
        .amount = someMoney(code),
        .period = static_cast<EventFrequency>(*rc::gen::inRange(0, 22)),
        .anchoredOn = anchor,
        .nextOccurOn = anchor.addDays(*rc::gen::inRange(0, 10'000)),
        .account = {},
        .debt = {},
        .goalTotal = {}};
    if (item.identifier.type == BudgetItemTypes::Debt) {
        item.debt = engine::DebtTerms{.borrowed = someMoney(code), .interest = somePercentage()};
    }
    if (item.identifier.type == BudgetItemTypes::Goal) {
        item.goalTotal = someMoney(code);
    }
    return item;
}

tlm::conversion::ConversionMap someRates(std::set<Currency> const& usable)
{
    using Rates = tlm::conversion::ConversionMap;
    Rates rates;
    for (auto count = *rc::gen::inRange(0, 10); count > 0; --count) {
        auto const rate = std::exp(*rc::gen::inRange(-600'000, 600'000) / 1000.0);
        rates.updateConversion(oneOf(usable), oneOf(usable), fiscora::FloatingPoint(rate),
                               {*rc::gen::arbitrary<bool>()});
    }
    rates.setLastFetched(Rates::TimePoint(Rates::TimePoint::duration(*rc::gen::arbitrary<long long>())));
    return rates;
}

std::vector<AccountNumber> someNumbers(int count)
{
    std::set<AccountNumber> numbers;
    while (numbers.size() < static_cast<std::size_t>(count)) {
        numbers.emplace(*rc::gen::inRange(1U, std::numeric_limits<unsigned int>::max()));
    }
    return {numbers.begin(), numbers.end()};
}

engine::AccountPurposes somePurpose(AccountTypes type)
{
    return type == AccountTypes::Equity ? static_cast<engine::AccountPurposes>(*rc::gen::inRange(0, 3))
                                        : engine::AccountPurposes::Household;
}

/// \return accounts of which some are part of another one, be its number greater or less, but never in a circle
std::map<AccountNumber, BookAccount> someAccounts(int count, std::set<Currency> const& usable)
{
    std::map<AccountNumber, BookAccount> accounts;
    std::vector<AccountNumber> made;
    for (auto numbers = someNumbers(count); !numbers.empty();) {
        auto const chosen = numbers.begin() + *rc::gen::inRange<std::ptrdiff_t>(0, std::ssize(numbers));
        auto const number = *chosen;
        numbers.erase(chosen);
        auto const place = *rc::gen::inRange<std::size_t>(0, 2 * made.size() + 1);
        auto const parent = place < made.size() ? std::optional(made[place]) : std::nullopt;
        auto const type = static_cast<AccountTypes>(*rc::gen::inRange(0, 6));
        accounts[number] = {.code = AccountCode(number, someAccountName(), parent),
                            .type = type,
                            .currency = oneOf(usable),
                            .isClosed = *rc::gen::arbitrary<bool>(),
                            .purpose = somePurpose(type)};
        made.push_back(number);
    }
    return accounts;
}

tlm::banking::BankMap someBanks(std::map<AccountNumber, BookAccount> const& accounts)
{
    std::vector<std::map<AccountNumber, BankAccountTypes>> kept(*rc::gen::inRange<std::size_t>(1, 5));
    for (auto const& entry : accounts) {
        if (*rc::gen::arbitrary<bool>()) {
            kept[*rc::gen::inRange<std::size_t>(0, kept.size())].emplace(
                entry.first, static_cast<BankAccountTypes>(*rc::gen::inRange(0, 6)));
        }
    }
    tlm::banking::BankMap banks;
    for (auto number = 0U; number < kept.size(); ++number) {
        BankName const name(someName(static_cast<int>(number)));
        banks.emplace(name, Bank(name, kept[number], *rc::gen::arbitrary<bool>()));
    }
    return banks;
}

void postSome(NewBudget& budget)
{
    for (auto left = *rc::gen::inRange(0, 50); left > 0; --left) {
        if (auto const posting = somePosting(budget.content.books.accounts)) {
            count(budget.content, {*posting});
            budget.postings.push_back(*posting);
        }
    }
}
}

std::optional<Posting> somePosting(std::map<AccountNumber, BookAccount> const& accounts)
{
    auto const pick = [&accounts] {
        return *std::next(accounts.begin(),
                          *rc::gen::inRange<std::ptrdiff_t>(0, static_cast<std::ptrdiff_t>(accounts.size())));
    };
    if (accounts.empty()) {
        return std::nullopt;
    }
    auto const [debiting, debited] = pick();
    auto const [crediting, credited] = pick();
    if (debiting == crediting || debited.currency != credited.currency) {
        return std::nullopt;
    }
    return Posting{.occurredOn = QDate(1, 1, 1).addDays(*rc::gen::inRange(0, 3'600'000)),
                   .debiting = debiting,
                   .crediting = crediting,
                   .amount = Money::fromAmount(debited.currency, *rc::gen::inRange(1LL, 100'000'000'000'000'000LL)),
                   .description = someName(*rc::gen::inRange(0, 10)),
                   .status = static_cast<tlm::accounting::TransactionStatuses>(*rc::gen::inRange(0, 3)),
                   .madeFrom = *rc::gen::arbitrary<bool>() ? std::optional(pick().first) : std::nullopt};
}

NewBudget someBudget()
{
    NewBudget budget;
    auto& content = budget.content;
    content.settings = {
        .preferred = {},
        .usable = someCurrencies(),
        .displayAs = static_cast<tlm::navigation::CurrencyDisplayOptions>(*rc::gen::inRange(0, 3)),
        .balanceWindow = somePercentage(),
        .dueWithin = std::chrono::days(*rc::gen::inRange(0, 61)),
        .workingWeek = {std::chrono::hours(*rc::gen::inRange(1, 169)), std::chrono::days(*rc::gen::inRange(1, 8))}};
    content.settings.preferred = oneOf(content.settings.usable);
    content.rates = someRates(content.settings.usable);
    auto const itemCount = *rc::gen::inRange(0, 20);
    content.books.accounts = someAccounts(itemCount + *rc::gen::inRange(0, 10), content.settings.usable);
    content.books.banks = someBanks(content.books.accounts);
    auto account = content.books.accounts.begin();
    for (auto number = 0; number < itemCount; ++number, ++account) {
        auto item = someItem(number, content.settings.usable);
        item.account = account->first;
        content.items.emplace(item.identifier, item);
    }
    postSome(budget);
    return budget;
}
}
