#include "MainWindowBudgetFixture.h"

namespace tlm::desktop_ui {

TEST_F(MainWindowBudgetFileTest, ANewBudgetIsConfirmedAsTheKindWishedFor)
{
    trigger("emptyActn");
    MessageBoxAnswer const answer(QMessageBox::Yes);
    window.onShowConfirmNewBudget();

    expectQuestion(answer, window, "Confirm New Budget",
                   "Are you sure you wish to create a new budget?\nThis will lose all current changes.");
    EXPECT_EQ(confirmedEmpty.count(), 1);
    EXPECT_EQ(confirmedWizard.count(), 0);

    trigger("wizardActn");
    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedEmpty.count(), 1);
    EXPECT_EQ(confirmedWizard.count(), 1);
}

TEST_F(MainWindowBudgetFileTest, ANewBudgetThatNobodyWishedForIsEmpty)
{
    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedEmpty.count(), 1);
    EXPECT_EQ(confirmedWizard.count(), 0);
}

TEST_F(MainWindowBudgetFileTest, TheKindWishedForIsForgottenOnceConfirmed)
{
    trigger("wizardActn");
    confirmNewBudget(QMessageBox::Yes);

    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedWizard.count(), 1);
    EXPECT_EQ(confirmedEmpty.count(), 1);
}

TEST_F(MainWindowBudgetFileTest, TheNextWishReplacesTheOneBefore)
{
    trigger("wizardActn");
    trigger("emptyActn");

    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedEmpty.count(), 1);
    EXPECT_EQ(confirmedWizard.count(), 0);
}

TEST_P(MainWindowRefusalTest, ADeclinedNewBudgetKeepsTheKindWishedFor)
{
    trigger("wizardActn");
    MessageBoxAnswer const answer(GetParam().act);
    window.onShowConfirmNewBudget();
    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(confirmedEmpty.count() + confirmedWizard.count(), 0);

    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedWizard.count(), 1);
}

TEST_F(MainWindowBudgetFileTest, ADeclinedNewBudgetHasNoEffectOnOpening)
{
    trigger("wizardActn");
    confirmNewBudget(QMessageBox::No);
    MessageBoxAnswer const answer(QMessageBox::Yes);

    window.onShowConfirmLoadBudgetFile("/home/a/home.budget");

    EXPECT_EQ(confirmedLoad.count(), 1);
    EXPECT_EQ(confirmedEmpty.count() + confirmedWizard.count(), 0);
}

TEST_F(MainWindowBudgetFileTest, ANewBudgetIsToldAndLeadsToTheDashboard)
{
    window.onShowNewBudget();

    expectStatus("Created New Budget");
    EXPECT_EQ(dashboard.count(), 1);
}
}
