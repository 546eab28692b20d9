#include "PlanningFixture.h"

#include <tlm/foundation/PresentationText.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>

#include <gmock/gmock.h>
#include <support/ComboBoxes.h>
#include <support/PlanningRow.h>

namespace tallymere::presenter {
namespace {

using tlm::banking::AccountNumberBankType;
using tlm::foundation::presentationText;
using tlm::navigation::AllowSubAccounts;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::itemTexts;
using tlm::testing::planningRow;
using tlm::testing::planningRows;

class PlanningViewsTest : public PlanningTest
{
protected:
    QWidget& view() { return *window.centralWidget(); }
    QString heading() { return child<QLabel>(view(), "displayingLbl").text(); }
    QStringList sources()
    {
        QStringList names;
        for (auto const& row : planningRows(view())) {
            names.append(row.source().text());
        }
        return names;
    }

    void showBills() { emit window.prepareShowBills(); }
    void showDebts() { emit window.prepareShowDebts(); }
    void showGoals() { emit window.prepareShowGoals(); }
};

struct Kind
{
    BudgetItemTypes type;
    void (MainWindow::*wish)();
    char const* heading;
};

class PlanningKindsTest : public PlanningViewsTest, public ::testing::WithParamInterface<Kind>
{};

TEST_P(PlanningKindsTest, ShowsTheItemsOfItsKindAndNoOthers)
{
    for (auto const type : everyKind) {
        add(type, {.name = presentationText(type) + " b", .amount = euros(20), .further = euros(900)});
    }
    add(GetParam().type, {"a", dollars(10)});
    if (GetParam().type == BudgetItemTypes::Goal) {
        // Goals are loaded part by part, and tell no share of wages in another currency.
        expectMessage(QtWarningMsg, "What has no period can't be reckoned up");
        expectMessage(QtWarningMsg, "Amounts of different currencies can't be reckoned with each other");
    }

    emit(window.*GetParam().wish)();

    EXPECT_EQ(heading(), GetParam().heading);
    auto const second = presentationText(GetParam().type) + " b";
    EXPECT_THAT(sources(), ::testing::UnorderedElementsAre(QString("a"), second));
    auto const row = planningRow(view(), second);
    EXPECT_EQ(row.amount().text(), presentationText(Money(Currency::EUR, 20, 0, 0)));
    auto const shown = [](Currency code) { return toDisplayable(code, tlm::navigation::CurrencyDisplayOptions::Code); };
    EXPECT_EQ(row.currency().currentText(), shown(Currency::EUR));
    EXPECT_THAT(itemTexts(row.currency()),
                ::testing::UnorderedElementsAre("", shown(Currency::EUR), shown(Currency::USD)));
    EXPECT_EQ(row.period().currentText(), presentationText(EventFrequency::Monthly));
    EXPECT_EQ(row.dueNext().date(), QDate(2026, 3, 31));
}

TEST_P(PlanningKindsTest, WithNothingPlannedThereIsOneEmptyRow)
{
    emit(window.*GetParam().wish)();

    EXPECT_EQ(heading(), GetParam().heading);
    EXPECT_EQ(sources(), QStringList{""});
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, PlanningKindsTest,
    ::testing::Values(Kind{BudgetItemTypes::Bill, &MainWindow::prepareShowBills, "Budgeted Bills:"},
                      Kind{BudgetItemTypes::Debt, &MainWindow::prepareShowDebts, "Budgeted Debts:"},
                      Kind{BudgetItemTypes::Goal, &MainWindow::prepareShowGoals, "Budgeted Goals:"},
                      Kind{BudgetItemTypes::Nontrack, &MainWindow::prepareShowNontracks, "Budgeted Non-tracks:"},
                      Kind{BudgetItemTypes::Wage, &MainWindow::prepareShowWages, "Budgeted Wages:"}),
    [](auto const& kind) { return presentationText(kind.param.type).toStdString(); });

TEST_F(PlanningViewsTest, AStoredDebtShowsItsTermsAndItsBankForReading)
{
    add(BudgetItemTypes::Debt, {.name = "Car loan", .further = dollars(9'000), .interest = {5.75, 2}},
        BankAccount{bank, {}, BankAccountTypes::Loan});

    showDebts();

    auto const row = planningRow(view(), "Car loan");
    EXPECT_TRUE(row.borrowed().isReadOnly());
    EXPECT_EQ(row.borrowed().text(), presentationText(dollars(9'000)));
    EXPECT_EQ(row.bank().currentText(), "Aspen Bank");
    EXPECT_FALSE(row.bank().isEnabled());
    EXPECT_EQ(row.accountType().currentText(), presentationText(BankAccountTypes::Loan));
}

TEST_F(PlanningViewsTest, ADebtWithoutABankIsOfferedTheOpenOnes)
{
    add(BudgetItemTypes::Debt, {.name = "Car loan"});

    showDebts();

    auto const row = planningRow(view(), "Car loan");
    EXPECT_TRUE(row.bank().isEnabled());
    EXPECT_EQ(itemTexts(row.bank()), (QStringList{"", "Aspen Bank"}));
}

TEST_F(PlanningViewsTest, AStoredGoalShowsWhereItIsStoredAndItsShareOfTheWages)
{
    // A row learns its amount ahead of its period.
    expectMessage(QtWarningMsg, "What has no period can't be reckoned up");
    add(BudgetItemTypes::Wage, {"Salary", dollars(400)});
    add(BudgetItemTypes::Goal, {"Bicycle", dollars(100)}, everyday);

    showGoals();

    auto const row = planningRow(view(), "Bicycle");
    EXPECT_EQ(row.bank().currentText(), "Aspen Bank");
    EXPECT_TRUE(row.account().currentText().contains("Everyday")) << row.account().currentText().toStdString();
    auto const shares = row.form().findChildren<QDoubleSpinBox*>();
    ASSERT_EQ(shares.size(), 1);
    EXPECT_EQ(shares.first()->value(), 25.0);
}

TEST_F(PlanningViewsTest, TheAccountsOfABankAreLookedUpAsAsked)
{
    add(BudgetItemTypes::Goal, {"Bicycle"}, everyday);
    std::vector<std::pair<BankName, std::set<AccountNumberBankType>>> answered;
    QObject::connect(&window, &MainWindow::lookedUpBankAccounts, &window,
                     [&](auto const& bn, auto const& accounts) { answered.emplace_back(bn, accounts); });
    auto const own = item(BudgetItemTypes::Goal, "Bicycle").account;

    emit window.lookUpBankAccounts(bank, AllowSubAccounts::No);
    emit window.lookUpBankAccounts(bank, AllowSubAccounts::Yes);
    emit window.lookUpBankAccounts(BankName("Nowhere"), AllowSubAccounts::Yes);

    std::set<AccountNumberBankType> const top{everyday.numberBankType(), card.numberBankType()};
    auto all = top;
    all.insert({own, BankAccountTypes::Goal});
    ASSERT_EQ(answered.size(), 3U);
    EXPECT_EQ(answered.at(0), std::pair(bank, top));
    EXPECT_EQ(answered.at(1), std::pair(bank, all));
    EXPECT_EQ(answered.at(2), std::pair(BankName("Nowhere"), std::set<AccountNumberBankType>()));
}

TEST_F(PlanningViewsTest, GoalsAreShownWithoutAShareWhereWagesAreTooLargeToCount)
{
    expectMessage(QtWarningMsg, "Failed to compare goals with wages");
    add(BudgetItemTypes::Goal, {"Bicycle"});
    add(BudgetItemTypes::Wage, {"Treasure", dollars(600'000'000'000'000)});
    add(BudgetItemTypes::Wage, {"Ransom", dollars(600'000'000'000'000)});

    showGoals();

    EXPECT_EQ(sources(), QStringList{"Bicycle"});
    EXPECT_EQ(status(), "The budget's amounts add up to more than can be counted. Plan smaller ones, or correct the "
                        "exchange rates.");
}

TEST_F(PlanningViewsTest, ShowsWhatIsPlannedNow)
{
    add(BudgetItemTypes::Bill, {"Rent"});
    showBills();
    session.beginEmpty();

    showBills();

    EXPECT_EQ(sources(), QStringList{""});
}
}
}
