#include "internal/BudgetedMoneyCreator.h"

#include "internal/BudgetedDebtEntryWidget.h"
#include "internal/BudgetedGoalEntryWidget.h"
#include "support/MessageLog.h"
#include "support/Widgets.h"

#include <QComboBox>
#include <QDoubleSpinBox>

#include <gtest/gtest.h>
#include <typeinfo>

using namespace tlm::desktop_ui::internal;
using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::Bill;
using tlm::budgeting::BudgetedMoney;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::Debt;
using tlm::budgeting::EventFrequency;
using tlm::budgeting::Goal;
using tlm::budgeting::Nontrack;
using tlm::budgeting::Wage;
using tlm::foundation::Percentage;
using tlm::navigation::BudgetBankAccount;
using tlm::testing::child;
using tlm::testing::expectMessage;

namespace {

BankName const birch("Birch Bank");
AccountCode const loan(AccountNumber(300), "Loan", std::nullopt);
AccountCode const savings(AccountNumber(200), "Rainy days", std::nullopt);
Money const hundred(Currency::EUR, 100, 0, 0);
BudgetSource const car("Car");

/// \return a row of \a creator that shows \a money
std::unique_ptr<BudgetedMoneyEntryWidget> loaded(BudgetedMoneyCreator& creator, BudgetedMoney const& money)
{
    auto row = creator.makeEntryWidget({Currency::EUR}, tlm::navigation::CurrencyDisplayOptions::Code, nullptr);
    row->setBudgetedMoney(money);
    return row;
}

/// Each kind makes an empty record, a row of its own, and reads back what it loaded, source and all.
template <typename Row, typename Item>
void expectToKeep(BudgetedMoneyCreator&& creator, Item const& item)
{
    auto const empty = creator.makeEmptyBudgetedMoney();
    auto const row = loaded(creator, item);
    auto const stated = creator.makeBudgetedMoney(*row);

    EXPECT_EQ(*empty, Item());
    EXPECT_EQ(typeid(*row), typeid(Row));
    EXPECT_EQ(*stated, item);
}

// The row of a goal reckons its share of the wages as soon as it has an amount.
auto const noPeriodYet = QStringLiteral("^What has no period can't be reckoned up");

template <typename Item>
Item plain()
{
    return {car, hundred, EventFrequency::Weekly, QDate(2031, 2, 3)};
}

Debt const debt(car, hundred, EventFrequency::Weekly, QDate(2031, 2, 3), Money(Currency::EUR, 9'000, 0, 0),
                Percentage(4.25, 6));
Goal const goal(car, hundred, EventFrequency::Monthly, QDate(2031, 2, 3), Money(Currency::EUR, 5'000, 0, 0));
}

TEST(BudgetedMoneyCreatorTest, PlainItemsShareTheirRowAndKeepTheirKind)
{
    expectToKeep<BudgetedMoneyEntryWidget>(BillCreator(), plain<Bill>());
    expectToKeep<BudgetedMoneyEntryWidget>(NontrackCreator(), plain<Nontrack>());
    expectToKeep<BudgetedMoneyEntryWidget>(WageCreator(), plain<Wage>());
}

TEST(BudgetedMoneyCreatorTest, ADebtAddsWhatWasBorrowedAndTheInterest)
{
    expectToKeep<BudgetedDebtEntryWidget>(DebtCreator({birch}, {loan}, {}), debt);
}

TEST(BudgetedMoneyCreatorTest, AGoalAddsItsFinalTotal)
{
    expectMessage(QtWarningMsg, noPeriodYet);

    expectToKeep<BudgetedGoalEntryWidget>(GoalCreator({birch}, {}, {savings}, hundred), goal);
}

TEST(BudgetedMoneyCreatorTest, ARowWithoutANameStatesTheEmptySource)
{
    BillCreator creator;
    auto const row = loaded(creator, Bill());

    EXPECT_EQ(creator.makeBudgetedMoney(*row)->source(), BudgetSource());
}

TEST(BudgetedMoneyCreatorTest, ADebtKnowsItsBankAndAccount)
{
    BankAccount const lent{birch, loan.number(), BankAccountTypes::Loan};
    DebtCreator creator({birch}, {loan}, {{car, lent}});

    auto const row = loaded(creator, debt);

    EXPECT_EQ(child<QComboBox>(*row, "bankCmbbx").currentText(), "Birch Bank");
    EXPECT_EQ(row->bankAccount(), lent);
}

TEST(BudgetedMoneyCreatorTest, AGoalKnowsItsBankItsAccountAndTheWages)
{
    BankAccount const store{birch, savings.number(), BankAccountTypes::Savings};
    GoalCreator creator({birch}, {{car, store}}, {savings}, Money(Currency::EUR, 400, 0, 0));
    auto const row = creator.makeEntryWidget({Currency::EUR}, tlm::navigation::CurrencyDisplayOptions::Code, nullptr);
    QObject::connect(row.get(), &BudgetedMoneyEntryWidget::lookUpBankAccounts, row.get(),
                     [&](auto const& bank) { row->onLookedUpBankAccounts(bank, {store.numberBankType()}); });

    expectMessage(QtWarningMsg, noPeriodYet);

    row->setBudgetedMoney(goal);

    EXPECT_EQ(row->bankAccount(), store);
    EXPECT_EQ(row->findChild<QDoubleSpinBox*>()->value(), 25.0);
}

TEST(BudgetedMoneyCreatorTest, ARowOfAnotherKindIsAFault)
{
    BillCreator creator;
    auto const row = loaded(creator, plain<Bill>());

    EXPECT_THROW(DebtCreator({}, {}, {}).makeBudgetedMoney(*row), std::bad_cast);
    EXPECT_THROW(GoalCreator({}, {}, {}, Money()).makeBudgetedMoney(*row), std::bad_cast);
}
