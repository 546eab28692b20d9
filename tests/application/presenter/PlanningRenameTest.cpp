#include "PlanningFixture.h"

#include <presenter/DashboardPresenter.h>

#include <QLabel>

namespace tallymere::presenter {
namespace {

using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::shownWindow;

/// A view tells a renamed entry twice, with `renamed` and with `updated` under the new name.
class PlanningRenameTest : public PlanningTest
{
protected:
    PlanningRenameTest()
    {
        add(bill_, {"Rent", dollars(700)});
        add(bill_, {"Water", dollars(30)});
        forget();
    }

    /// Has the view go away as soon as the next answer is a success, as a view does with its last entry.
    void closeOnSuccess()
    {
        QObject::connect(&window, &MainWindow::saveSucceeded, &window, &MainWindow::prepareShowDashboard);
    }

    bool isBillsViewShown() const
    {
        auto const* const heading = window.centralWidget()->findChild<QLabel*>("displayingLbl");
        return heading != nullptr && heading->text() == "Budgeted Bills:";
    }

    BudgetItemTypes const bill_ = BudgetItemTypes::Bill;
    DashboardPresenter dashboard{window, session};
};

TEST_F(PlanningRenameTest, BothHalvesOfARenamedEntryAreAnswered)
{
    rename(bill_, "Rent", "Flat");
    update(bill_, {"Flat", dollars(710)});

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(0).refusal, std::nullopt);
    EXPECT_EQ(answers.at(1).refusal, std::nullopt);
    EXPECT_EQ(item(bill_, "Flat").amount, dollars(710));
}

TEST_F(PlanningRenameTest, AnUpdateUnderARefusedNameLeavesTheOtherItemOfThatNameAlone)
{
    auto const before = content();

    rename(bill_, "Rent", "water");
    update(bill_, {"water", dollars(700)});

    ASSERT_EQ(answers.size(), 2U);
    auto const sentence = "Water is planned already. Change that bill, or give this one another name.";
    for (auto const& answer : answers) {
        EXPECT_EQ(answer.refusal, sentence);
        EXPECT_EQ(answer.original, BudgetSource("Rent"));
        EXPECT_EQ(answer.displayed, BudgetSource("water"));
    }
    EXPECT_EQ(content(), before);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(PlanningRenameTest, AClearedNameIsRefusedForBothHalves)
{
    auto const before = content();

    rename(bill_, "Rent", "");
    update(bill_, {""});

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(0).refusal, "This bill has no name. Give it one by which you will know it.");
    EXPECT_EQ(answers.at(1).refusal, answers.at(0).refusal);
    EXPECT_EQ(content(), before);
}

TEST_F(PlanningRenameTest, AnotherEntryOfTheRefusedNameIsUpdatedAllTheSame)
{
    rename(bill_, "Rent", "Water");
    forget();
    id = GuiElementIdentifier();

    update(bill_, {"Water", dollars(35)});

    expectAccepted("Water");
    EXPECT_EQ(item(bill_, "Water").amount, dollars(35));
}

TEST_F(PlanningRenameTest, ARefusedNameIsForgottenOnceTheEntryHasItsOldOneAgain)
{
    rename(bill_, "Rent", "Water");
    update(bill_, {"Water"});
    forget();

    update(bill_, {"Rent", dollars(720)});

    expectAccepted("Rent");
    forget();
    update(bill_, {"Water", dollars(35)});
    expectAccepted("Water");
}

TEST_F(PlanningRenameTest, ARefusedNameIsForgottenOnceAnotherOneIsAccepted)
{
    rename(bill_, "Rent", "Water");
    update(bill_, {"Water"});
    forget();

    rename(bill_, "Rent", "Flat");
    update(bill_, {"Flat", dollars(720)});

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(1).refusal, std::nullopt);
    EXPECT_EQ(item(bill_, "Flat").amount, dollars(720));
}

TEST_F(PlanningRenameTest, ARefusedNameThatHasBecomeFreeIsTakenAtTheNextAttempt)
{
    rename(bill_, "Rent", "Water");
    update(bill_, {"Water"});
    remove(bill_, "Water");
    forget();

    rename(bill_, "Rent", "Water");
    update(bill_, {"Water", dollars(705)});

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(1).refusal, std::nullopt);
    EXPECT_EQ(item(bill_, "Water").amount, dollars(705));
}

TEST_F(PlanningRenameTest, ARefusalAfterTheViewWentAwayIsToldOverAFreshView)
{
    closeOnSuccess();
    expectMessage(QtWarningMsg, "Not Everything Was Changed");

    rename(bill_, "Rent", "Flat");
    update(bill_, {"Flat", dollars(0)});
    QCoreApplication::processEvents();

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(0).refusal, std::nullopt);
    EXPECT_EQ(answers.at(1).refusal, "The amount of Flat isn't above zero. Enter what it comes to each time.");
    EXPECT_EQ(item(bill_, "Flat").amount, dollars(700));
    auto* const box = shownWindow<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), "Rent is called Flat now. What else was changed about it was refused: The amount of Flat "
                           "isn't above zero. Enter what it comes to each time.");
    box->button(QMessageBox::Ok)->click();
    EXPECT_TRUE(isBillsViewShown());
}

TEST_F(PlanningRenameTest, ARefusalInAViewThatIsStillThereIsLeftToTheView)
{
    rename(bill_, "Rent", "Flat");
    update(bill_, {"Flat", dollars(0)});
    QCoreApplication::processEvents();

    EXPECT_EQ(shownWindow<QMessageBox>(), nullptr);
    EXPECT_EQ(answers.size(), 2U);
}

TEST_F(PlanningRenameTest, AnUpdateThatNeverComesAfterTheViewWentAwayIsToldOverAFreshView)
{
    closeOnSuccess();
    expectMessage(QtWarningMsg, "Not Everything Was Changed");

    rename(bill_, "Rent", "Flat");
    QCoreApplication::processEvents();

    auto* const box = shownWindow<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(),
              "Rent is called Flat now. What else was typed for it can't be read, so it is as it was before.");
    box->button(QMessageBox::Ok)->click();
    EXPECT_TRUE(isBillsViewShown());
    EXPECT_EQ(answers.size(), 1U);
}

TEST_F(PlanningRenameTest, NothingIsToldWhenBothHalvesAreAcceptedAndTheViewWentAway)
{
    closeOnSuccess();

    rename(bill_, "Rent", "Flat");
    update(bill_, {"Flat", dollars(710)});

    QCoreApplication::processEvents();

    EXPECT_EQ(shownWindow<QMessageBox>(), nullptr);
    EXPECT_EQ(item(bill_, "Flat").amount, dollars(710));
}
}
}
