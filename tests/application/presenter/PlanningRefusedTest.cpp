#include "PlanningViewFixture.h"

namespace tallymere::presenter {
namespace {

/// What a person fills in and the books refuse stays in its row with the reason.
class PlanningRefusedTest : public PlanningView
{
protected:
    PlanningRefusedTest() { tlm::testing::expectMessage(QtWarningMsg, "Failed to save,"); }

    /// Expects that the row of \a name is refused at Save with \a sentence, and nothing has changed.
    void expectRefusedAtSave(QString const& name, QString const& sentence)
    {
        session.save();

        press(QDialogButtonBox::Save);

        ASSERT_TRUE(isPlanning());
        EXPECT_EQ(row(name).error(), sentence);
        EXPECT_FALSE(session.isDirty());
    }

    /// Leaves what is typed and chosen for a bank to the test.
    tlm::testing::PlanningRow fillDebt(QString const& borrowed)
    {
        plan(&MainWindow::prepareShowDebts);
        auto const added = addRow();
        fill(added, "Car loan", "250");
        enter(added.borrowed(), borrowed);
        return added;
    }

    tlm::testing::PlanningRow fillGoal(QString const& finalTotal)
    {
        // A goal can't tell its share of the wages before it has an amount and a period.
        tlm::testing::expectMessage(QtWarningMsg, "The value, , is not valid");
        tlm::testing::expectMessage(QtWarningMsg, "What has no period can't be reckoned up");
        plan(&MainWindow::prepareShowGoals);
        auto const added = addRow();
        fill(added, "Bicycle", "50");
        enter(added.finalTotal(), finalTotal);
        return added;
    }
};

TEST_F(PlanningRefusedTest, ANameOfBlanks)
{
    plan(&MainWindow::prepareShowBills);
    fill(addRow(), "  ", "10");

    expectRefusedAtSave("  ", "This bill has no name. Give it one by which you will know it.");
}

TEST_F(PlanningRefusedTest, AnAmountOfZero)
{
    plan(&MainWindow::prepareShowBills);
    fill(addRow(), "Rent", "0");

    expectRefusedAtSave("Rent", "The amount of Rent isn't above zero. Enter what it comes to each time.");
}

TEST_F(PlanningRefusedTest, AnAmountBelowZero)
{
    plan(&MainWindow::prepareShowWages);
    fill(addRow(), "Salary", "-10");

    expectRefusedAtSave("Salary", "The amount of Salary isn't above zero. Enter what it comes to each time.");
}

TEST_F(PlanningRefusedTest, ACurrencyThatIsNotUsableAnyMore)
{
    plan(&MainWindow::prepareShowBills);
    auto const added = addRow();
    fill(added, "Rent", "700");
    added.currency().setCurrentText("EUR");
    auto settings = content().settings;
    settings.usable = {Currency::USD};
    session.change([&](engine::Household& household) { household.configure(settings); });

    expectRefusedAtSave("Rent", "Rent can't be planned in EUR. Choose a usable currency, or make that one usable.");
}

TEST_F(PlanningRefusedTest, NoFrequency)
{
    plan(&MainWindow::prepareShowNontracks);
    fill(addRow(), "Groceries", "90", EventFrequency::None);

    expectRefusedAtSave("Groceries", "Groceries has no frequency. Choose how often it happens.");
}

TEST_F(PlanningRefusedTest, ANothingThatWasBorrowed)
{
    fillDebt("0");

    expectRefusedAtSave("Car loan",
                        "The sum borrowed for Car loan isn't above zero in the currency of its payments. Enter one "
                        "that is.");
}

TEST_F(PlanningRefusedTest, ABankThatHasGoneMeanwhile)
{
    BankName const other("Birch Bank");
    session.change([&](engine::Household& household) { household.addBank(other); });
    auto const added = fillDebt("9000");
    added.bank().setCurrentText("Birch Bank");
    added.accountType().setCurrentText(presentationText(BankAccountTypes::Loan));
    session.change([&](engine::Household& household) { household.removeBank(other); });

    expectRefusedAtSave("Car loan", "There is no bank called Birch Bank. Choose another bank for Car loan.");
}

TEST_F(PlanningRefusedTest, AGoalOfZero)
{
    fillGoal("0");

    expectRefusedAtSave("Bicycle",
                        "The final total of Bicycle isn't above zero in the currency of its amount. Enter one that "
                        "is.");
}

TEST_F(PlanningRefusedTest, AnAccountInAnotherCurrencyThanItsGoals)
{
    tlm::testing::expectMessage(QtWarningMsg, "Amounts of different currencies can't be reckoned with each other");
    auto const added = fillGoal("850");
    added.currency().setCurrentText("EUR");
    added.bank().setCurrentText("Aspen Bank");
    added.account().setCurrentIndex(1);

    expectRefusedAtSave("Bicycle",
                        "Everyday is kept in USD, so it can't hold the money of Bicycle. Choose an account in EUR.");
}

TEST_F(PlanningRefusedTest, ARemovalOfWhatPostingsNeed)
{
    QDate const paid(2026, 2, 1);
    session.change([&](engine::Household& household) {
        engine::Posting payment;
        payment.occurredOn = paid;
        payment.debiting = item(BudgetItemTypes::Bill, "Old Bill").account;
        payment.crediting = everyday.number;
        payment.amount = dollars(40);
        household.post(payment);
    });
    plan(&MainWindow::prepareShowBills);
    row("Old Bill").remove().click();

    expectRefusedAtSave("Old Bill", "Old Bill can't be removed, since a posting of " +
                                        tlm::foundation::presentationText(paid) +
                                        " needs it. Delete that posting first, or keep Old Bill.");
}
}
}
