#include "Budgets.h"

using fiscora::Currency;
using fiscora::FloatingPoint;
using fiscora::Money;
using tallymere::engine::BookAccount;
using tallymere::engine::BudgetContent;
using tallymere::engine::DebtTerms;
using tallymere::engine::PlannedItem;
using tallymere::engine::Posting;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::accounting::TransactionStatuses;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::EventFrequency;
using tlm::foundation::Percentage;

namespace tallymere::storage::testing {

namespace {

PlannedItem item(BudgetItemTypes type, QString const& source, Money const& amount, EventFrequency period)
{
    return {.identifier = {type, BudgetSource(source)},
            .amount = amount,
            .period = period,
            .anchoredOn = QDate(2026, 1, 31),
            .nextOccurOn = QDate(2026, 2, 28),
            .account = {},
            .debt = {},
            .goalTotal = {}};
}

void plan(BudgetContent& content, PlannedItem const& planned)
{
    content.items.emplace(planned.identifier, planned);
}

engine::Settings settings()
{
    return {.preferred = Currency::EUR,
            .usable = {Currency::EUR, Currency::JPY, Currency::KWD},
            .displayAs = tlm::navigation::CurrencyDisplayOptions::NameAndCode,
            .balanceWindow = Percentage(2.5, 1),
            .dueWithin = std::chrono::days(14),
            .workingWeek = {.hours = std::chrono::hours(38), .days = std::chrono::days(4)}};
}

void open(BudgetContent& content, BookAccount const& opened)
{
    content.books.accounts.emplace(opened.code.number(), opened);
}

/// Opens an account for the item of \a type and \a source, under \a parent where one is told.
void openFor(BudgetContent& content, BudgetItemTypes type, QString const& source, unsigned int number,
             AccountTypes accountType, std::optional<AccountNumber> const& parent = {})
{
    auto& planned = content.items.at({type, BudgetSource(source)});
    planned.account = AccountNumber(number);
    open(
        content,
        {.code = AccountCode(planned.account, source, parent), .type = accountType, .currency = planned.amount.code()});
}

void keep(BudgetContent& content, QString const& name, std::map<AccountNumber, BankAccountTypes> const& accounts,
          bool isClosed)
{
    content.books.banks.emplace(BankName(name), Bank(BankName(name), accounts, isClosed));
}

void turnOver(BudgetContent& content, AccountNumber account, Money const& debited)
{
    auto const nothing = engine::Turnover{.debited = Money(debited.code())};
    auto& turnover = content.books.turnovers.try_emplace(account, nothing).first->second;
    turnover.debited += debited;
    ++turnover.postings;
}
}

void count(BudgetContent& content, std::vector<Posting> const& counted)
{
    for (auto const& posting : counted) {
        turnOver(content, posting.debiting, posting.amount);
        turnOver(content, posting.crediting, -posting.amount);
    }
}

BookAccount account(unsigned int number, QString const& name, AccountTypes type, Currency currency)
{
    return {.code = AccountCode(AccountNumber(number), name, std::nullopt), .type = type, .currency = currency};
}

BudgetContent planOnly()
{
    BudgetContent content{.settings = settings(), .rates = {}, .items = {}, .books = {}};
    content.rates.updateConversion(Currency::JPY, Currency::EUR, FloatingPoint(0.00613), {.value = true});
    content.rates.updateConversion(Currency::KWD, Currency::EUR, FloatingPoint(3.0 + 1.0 / 3.0), {.value = false});
    content.rates.setLastFetched(decltype(content.rates)::TimePoint(std::chrono::seconds(1'770'000'000)));
    plan(content, item(BudgetItemTypes::Bill, "Rent", Money(Currency::EUR, 950, 0, 0), EventFrequency::Monthly));
    plan(content,
         item(BudgetItemTypes::Nontrack, "Groceries", Money(Currency::JPY, 9'000, 0, 0), EventFrequency::Weekly));
    plan(content, item(BudgetItemTypes::Wage, "Café «Zur Straße»", Money(Currency::KWD, 812, 345, 67),
                       EventFrequency::EveryFourWeeks));
    auto debt = item(BudgetItemTypes::Debt, "Car", Money(Currency::EUR, 210, 50, 0), EventFrequency::Monthly);
    debt.debt = DebtTerms{.borrowed = Money(Currency::EUR, 12'000, 0, 0), .interest = Percentage(4.25, 2)};
    plan(content, debt);
    auto goal = item(BudgetItemTypes::Goal, "Rent", Money(Currency::EUR, 50, 0, 0), EventFrequency::None);
    goal.goalTotal = Money(Currency::EUR, 1'000, 0, 0);
    plan(content, goal);
    return content;
}

BudgetContent household()
{
    auto content = planOnly();
    open(content, account(current.integer(), "Current", AccountTypes::Asset));
    open(content, account(1002, "Yen", AccountTypes::Asset, Currency::JPY));
    open(content, account(2002, "Card", AccountTypes::Liability));
    auto old = account(4'294'967'295, "Old «Ünïcode» 東京", AccountTypes::Suspense, Currency::XAU);
    old.isClosed = true;
    open(content, old);
    auto opening = account(3001, "Opening balances (EUR)", AccountTypes::Equity);
    opening.purpose = engine::AccountPurposes::OpeningBalances;
    open(content, opening);
    openFor(content, BudgetItemTypes::Bill, "Rent", 5000, AccountTypes::Expense);
    openFor(content, BudgetItemTypes::Nontrack, "Groceries", 4999, AccountTypes::Expense);
    openFor(content, BudgetItemTypes::Wage, "Café «Zur Straße»", 4001, AccountTypes::Income);
    openFor(content, BudgetItemTypes::Debt, "Car", 2001, AccountTypes::Liability);
    openFor(content, BudgetItemTypes::Goal, "Rent", 1000, AccountTypes::Asset, current); // before its parent
    keep(content, "Sparkasse «Süd»",
         {{current, BankAccountTypes::Checking},
          {AccountNumber(2001), BankAccountTypes::Loan},
          {AccountNumber(2002), BankAccountTypes::CreditCard}},
         false);
    keep(content, "Yen House", {{AccountNumber(1002), BankAccountTypes::Savings}}, false);
    keep(content, "Gone", {}, true);
    return content;
}

std::vector<Posting> postings()
{
    auto const posting = [](QDate const& on, unsigned int debiting, unsigned int crediting, Money const& amount,
                            QString const& description) {
        return Posting{.occurredOn = on,
                       .debiting = AccountNumber(debiting),
                       .crediting = AccountNumber(crediting),
                       .amount = amount,
                       .description = description,
                       .madeFrom = {}};
    };
    std::vector<Posting> made{
        posting(QDate(2025, 12, 31), 3001, 2001, Money(Currency::EUR, 12'000, 0, 0), "Opening balance"),
        posting(QDate(1, 1, 1), 1001, 3001, Money(Currency::EUR, 2'500, 10, 5), QString()),
        posting(QDate(9999, 12, 31), 5000, 1001, Money(Currency::EUR, 950, 0, 0), "Rent «März»\nand \"more\""),
        posting(QDate(2026, 2, 3), 4999, 1002, Money::fromAmount(Currency::JPY, 1), "東京 🛒")};
    made[1].status = TransactionStatuses::Reconciled;
    made[2].status = TransactionStatuses::Cleared;
    made[2].madeFrom = AccountNumber(5000);
    return made;
}

BudgetContent bookkeeping()
{
    auto content = household();
    count(content, postings());
    return content;
}

PlannedItem numberedBill(int number)
{
    auto bill = item(BudgetItemTypes::Bill, QStringLiteral("Bill %1").arg(number),
                     Money(Currency::EUR, number + 1, 0, 0), EventFrequency::Monthly);
    bill.account = AccountNumber(10'000U + static_cast<unsigned int>(number));
    return bill;
}

Posting payment(int number)
{
    auto const bill = numberedBill(number);
    return {.occurredOn = QDate(2026, 1, 1).addDays(number),
            .debiting = bill.account,
            .crediting = current,
            .amount = bill.amount,
            .description = "Paid",
            .madeFrom = bill.account};
}

BudgetContent billsOnly(int count)
{
    BudgetContent content{.settings = settings(), .rates = {}, .items = {}, .books = {}};
    open(content, account(current.integer(), "Current", AccountTypes::Asset));
    for (auto number = 0; number < count; ++number) {
        auto const bill = numberedBill(number);
        plan(content, bill);
        open(content, account(bill.account.integer(), bill.identifier.source.name(), AccountTypes::Expense));
    }
    testing::count(content, payments(count));
    return content;
}

std::vector<Posting> payments(int count)
{
    std::vector<Posting> made;
    for (auto number = 0; number < count; ++number) {
        made.push_back(payment(number));
    }
    return made;
}

void plan(Document& document, int number)
{
    auto const bill = numberedBill(number);
    document.transact([&] {
        document.add(account(bill.account.integer(), bill.identifier.source.name(), AccountTypes::Expense));
        document.add(bill);
        document.post(payment(number));
    });
}

void drop(Document& document, int number)
{
    auto const bill = numberedBill(number);
    document.transact([&] {
        for (auto const& posted : document.postingsOf(bill.account)) {
            document.remove(posted.first);
        }
        document.remove(bill.identifier);
        document.remove(bill.account);
    });
}
}
