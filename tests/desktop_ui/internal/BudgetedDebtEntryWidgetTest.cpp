#include "BudgetedDebtEntryFixture.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tlm/banking/BankError.h>
#include <tlm/budgeting/Goal.h>

#include <gmock/gmock.h>
#include <typeinfo>

using ::testing::ElementsAre;
using tlm::banking::BankAccount;
using tlm::budgeting::Goal;
using tlm::desktop_ui::DataEntryError;
using tlm::foundation::Percentage;
using tlm::testing::BudgetedDebtEntryFixture;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::itemTexts;
using tlm::testing::MessageLog;

namespace {

class BudgetedDebtEntryWidgetTest : public BudgetedDebtEntryFixture
{};
}

TEST_F(BudgetedDebtEntryWidgetTest, NamesTheAmountPerPeriodThePayment)
{
    EXPECT_EQ(child<QLabel>(entries.perPeriod(), "amountLbl").text(), "Minimum Payment:");
    EXPECT_EQ(entries.perPeriod().toolTip(), "Minimum payment to be made on the debt per period");
}

TEST_F(BudgetedDebtEntryWidgetTest, AddsTheSumTheInterestAndTheBankInThisOrder)
{
    auto const added = extras(row);

    ASSERT_EQ(added.size(), 3);
    EXPECT_EQ(added[0].first, "Total Borrowed:");
    EXPECT_EQ(added[0].second->toolTip(), "Total amount borrowed from the debt source");
    EXPECT_EQ(added[1].first, "Interest Rate:");
    EXPECT_EQ(added[1].second->toolTip(), "Interest rate on the debt");
    EXPECT_EQ(added[2].second->toolTip(), "Account from which the debt was borrowed");
}

TEST_F(BudgetedDebtEntryWidgetTest, OffersTheCurrenciesForTheSumButLetsNobodyPickOne)
{
    EXPECT_THAT(itemTexts(borrowedCurrency()), ElementsAre("", "USD", "EUR"));
    EXPECT_FALSE(borrowedCurrency().isEnabled());
    EXPECT_TRUE(entries.currency().isEnabled());
}

TEST_F(BudgetedDebtEntryWidgetTest, TakesInterestFromNothingToAll)
{
    EXPECT_EQ(interest().minimum(), 0.0);
    EXPECT_EQ(interest().maximum(), 100.0);
}

TEST_F(BudgetedDebtEntryWidgetTest, OffersTheBanksAndTheTypesOfLiabilitiesButNoAccount)
{
    EXPECT_THAT(itemTexts(entries.bank()), ElementsAre("", "Aspen Bank", "Birch Bank"));
    EXPECT_THAT(itemTexts(entries.accountType()), ElementsAre("", "Credit Card", "Loan"));
    EXPECT_TRUE(entries.account().isHidden());
    EXPECT_TRUE(child<QLabel>(row, "descriptionLbl").isHidden());
}

TEST_F(BudgetedDebtEntryWidgetTest, ShowsANewDebt)
{
    row.setBudgetedMoney(Debt());

    EXPECT_EQ(row.originalSource(), std::nullopt);
    EXPECT_EQ(row.nextOccurOn(), QDate::currentDate());
    EXPECT_EQ(row.borrowed(), Money());
    EXPECT_EQ(row.interest(), Percentage(0.0, 6));
    EXPECT_EQ(row.bankAccount(), std::nullopt);
    EXPECT_FALSE(row.isDirty());
    EXPECT_FALSE(borrowedEntry().isReadOnly());
    EXPECT_TRUE(entries.bank().isEnabled());
}

TEST_F(BudgetedDebtEntryWidgetTest, ShowsAStoredDebtWhoseSumStays)
{
    row.setBudgetedMoney(debt("Loan from Ann"));

    EXPECT_EQ(row.source(), Source("Loan from Ann"));
    EXPECT_EQ(row.amount(), euros(250));
    EXPECT_EQ(row.borrowed(), euros(9000));
    EXPECT_TRUE(borrowedEntry().isReadOnly());
    EXPECT_EQ(row.interest(), Percentage(4.25, 6));
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedDebtEntryWidgetTest, LetsTheSumOfADebtWithoutASourceBeTyped)
{
    row.setBudgetedMoney(debt(""));

    EXPECT_EQ(row.borrowed(), euros(9000));
    EXPECT_FALSE(borrowedEntry().isReadOnly());
}

TEST_F(BudgetedDebtEntryWidgetTest, ShowsTheSumInItsOwnCurrency)
{
    row.setBudgetedMoney(Debt(Source("Car"), euros(250), monthly, mayDay, Money(Currency::USD, 7, 0, 0), {}));

    EXPECT_EQ(row.borrowed(), Money(Currency::USD, 7, 0, 0));
    EXPECT_EQ(row.amount(), euros(250));
}

TEST_F(BudgetedDebtEntryWidgetTest, LoadedAgainKeepsTheCurrencyOfTheSumFromBeingPicked)
{
    row.setBudgetedMoney(debt("Car"));
    row.setBudgetedMoney(Debt());

    EXPECT_FALSE(borrowedCurrency().isEnabled());
}

struct RateCase
{
    Percentage interest;
    QString shown;
};

class BudgetedDebtEntryRateTest : public BudgetedDebtEntryFixture, public ::testing::WithParamInterface<RateCase>
{};

INSTANTIATE_TEST_SUITE_P(Rates, BudgetedDebtEntryRateTest,
                         ::testing::Values(RateCase{{4.25, 2}, "4.25"}, RateCase{{4.25, 3}, "4.250"},
                                           RateCase{{3.14159, 4}, "3.1400"}, RateCase{{12.7, 0}, "13"},
                                           RateCase{{250.0, 1}, "100.0"}, RateCase{{-1.0, 1}, "0.0"}));

/// The rate comes first, so that it is rounded to the decimals shown before.
TEST_P(BudgetedDebtEntryRateTest, TakesTheRateAndThenItsDecimals)
{
    row.setBudgetedMoney(debt("Loan from Ann", GetParam().interest));

    EXPECT_EQ(interest().text(), GetParam().shown);
    EXPECT_EQ(row.interest(), Percentage(GetParam().shown.toDouble(), 6));
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedDebtEntryWidgetTest, ShowsTheLenderOfAStoredDebtReadOnly)
{
    hear(row);
    row.setBudgetedMoney(debt("Car"));

    EXPECT_EQ(entries.bank().currentText(), "Birch Bank");
    EXPECT_EQ(entries.accountType().currentText(), "Loan");
    EXPECT_FALSE(entries.bank().isEnabled());
    EXPECT_FALSE(entries.accountType().isEnabled());
    EXPECT_EQ(row.bankAccount(), lender);
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedDebtEntryWidgetTest, OffersTheBanksForAStoredDebtWithoutALender)
{
    row.setBudgetedMoney(debt("Loan from Ann"));

    EXPECT_TRUE(entries.bank().isEnabled());
    EXPECT_TRUE(entries.accountType().isEnabled());
    EXPECT_EQ(row.bankAccount(), std::nullopt);
}

TEST_F(BudgetedDebtEntryWidgetTest, RefusesALenderThatIsNotOnOffer)
{
    DebtRow other({aspen}, {{Source("Car"), lender}}, {carLoan}, usable, asCode, nullptr);

    EXPECT_THROW(other.setBudgetedMoney(debt("Car")), DataEntryError);
}

TEST_F(BudgetedDebtEntryWidgetTest, RefusesAnAccountOfTheLenderThatHasNoCode)
{
    DebtRow other({birch}, {{Source("Car"), lender}}, {}, usable, asCode, nullptr);

    EXPECT_THROW(other.setBudgetedMoney(debt("Car")), tlm::banking::BankError);
}

TEST_F(BudgetedDebtEntryWidgetTest, RefusesAnotherKindOfItem)
{
    EXPECT_THROW(row.setBudgetedMoney(Goal()), std::bad_cast);
}

TEST_F(BudgetedDebtEntryWidgetTest, RefusesToReadASumThatIsNone)
{
    row.setBudgetedMoney(debt("Car"));

    entries.borrowed().setText("1-2");

    EXPECT_THROW(row.borrowed(), DataEntryError);
}

TEST_F(BudgetedDebtEntryWidgetTest, TellsWhatIsMissingOfTheBankAccount)
{
    entries.bank().setCurrentText("Birch Bank");
    MessageLog::clear();

    EXPECT_EQ(row.bankAccount(), (BankAccount{birch, {}, Types::Unspecified}));

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Account code not present for widget entry.",
                                                          "Bank account type not present for widget entry."));
}

TEST_F(BudgetedDebtEntryWidgetTest, TellsThatNoBankIsChosen)
{
    MessageLog::clear();

    EXPECT_EQ(row.bankAccount(), std::nullopt);

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Bank name not present for widget entry."));
}

TEST_F(BudgetedDebtEntryWidgetTest, WarnsOfAnAnswerThatItNeverAskedFor)
{
    row.setBudgetedMoney(debt("Car"));
    expectMessage(QtWarningMsg, "^BudgetSource\\(\"Car\"\\) Budgeted Money Entry Widget does not support processing "
                                "bank account look-up operations\\.$");

    row.onLookedUpBankAccounts(birch, {lender.numberBankType()});

    EXPECT_FALSE(row.isDirty());
}
