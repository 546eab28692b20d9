#include "FullDisk.h"
#include "PlanningFixture.h"

#include <tlm/foundation/PresentationText.h>

#include <functional>

namespace tallymere::presenter {
namespace {

using tlm::testing::expectMessage;

/// Each refusal is answered once with its sentence, and changes nothing.
class PlanningRefusalTest : public PlanningTest
{
protected:
    /// \param original what the entry was called before, empty for a new one
    void expectRefused(std::function<void()> const& attempt, QString const& sentence,
                       std::optional<BudgetSource> const& original = {})
    {
        forget();
        auto const before = content();

        attempt();

        ASSERT_EQ(answers.size(), 1U) << sentence.toStdString();
        EXPECT_EQ(answers.front().id, id);
        EXPECT_EQ(answers.front().refusal.value_or("accepted").toStdString(), sentence.toStdString());
        EXPECT_EQ(answers.front().original, original);
        EXPECT_EQ(content(), before);
        EXPECT_EQ(changes.count(), 0);
    }

    /// Expects that \a told is refused for a new item and, under the name of one that is planned, for that one.
    void expectUnplannable(BudgetItemTypes type, Told const& told, QString const& sentence,
                           std::optional<BankAccount> const& ba = {})
    {
        expectRefused([&] { add(type, told, ba); }, sentence);
        add(type, {told.name});
        expectRefused([&] { update(type, told, ba); }, sentence, BudgetSource(told.name));
        remove(type, told.name);
    }

    BudgetItemTypes const bill = BudgetItemTypes::Bill;
    BudgetItemTypes const debt = BudgetItemTypes::Debt;
    BudgetItemTypes const goal = BudgetItemTypes::Goal;
};

TEST_F(PlanningRefusalTest, AnItemWithoutAName)
{
    auto const sentence = "This bill has no name. Give it one by which you will know it.";

    expectRefused([&] { add(bill, {""}); }, sentence);
    expectRefused([&] { add(bill, {"  "}); }, sentence);
    add(bill, {"Rent"});
    expectRefused([&] { rename(bill, "Rent", ""); }, sentence, BudgetSource("Rent"));
}

TEST_F(PlanningRefusalTest, ANameThatIsPlannedAlready)
{
    add(bill, {"Rent"});
    add(bill, {"Water"});
    auto const sentence = "Rent is planned already. Change that bill, or give this one another name.";

    expectRefused([&] { add(bill, {"Rent"}); }, sentence);
    expectRefused([&] { add(bill, {" rENT "}); }, sentence);
    expectRefused([&] { rename(bill, "Water", "rent"); }, sentence, BudgetSource("Water"));
}

TEST_F(PlanningRefusalTest, ACurrencyThatIsNotUsable)
{
    expectUnplannable(bill, {"Rent", Money(Currency::JPY, 900, 0, 0)},
                      "Rent can't be planned in JPY. Choose a usable currency, or make that one usable.");
}

TEST_F(PlanningRefusalTest, AnAmountWithoutACurrency)
{
    expectUnplannable(bill, {"Rent", Money()}, "The amount of Rent has no currency. Choose one.");
}

TEST_F(PlanningRefusalTest, AnAmountThatIsNotAboveZero)
{
    auto const sentence = "The amount of Rent isn't above zero. Enter what it comes to each time.";

    expectUnplannable(bill, {"Rent", dollars(0)}, sentence);
    expectUnplannable(bill, {"Rent", dollars(-5)}, sentence);
}

TEST_F(PlanningRefusalTest, AnAmountWhoseMonthIsTooLargeToCount)
{
    expectUnplannable(bill, {"Rent", dollars(900'000'000'000'000), EventFrequency::Weekly},
                      "What Rent comes to per month is too large to count. Enter a smaller amount.");
}

TEST_F(PlanningRefusalTest, AnItemWithoutADay)
{
    expectUnplannable(bill, {.name = "Rent", .nextOccurOn = QDate()},
                      "Rent has no day on which it is due next. Enter one.");
}

TEST_F(PlanningRefusalTest, AnItemThatNeverHappens)
{
    expectUnplannable(bill, {.name = "Rent", .period = EventFrequency::None},
                      "Rent has no frequency. Choose how often it happens.");
}

TEST_F(PlanningRefusalTest, ANameThatCannotBeShown)
{
    auto const sentence = "The name of this bill holds signs that can't be shown, such as a line break, or a blank of "
                          "unusual width. Type the name anew.";

    expectRefused([&] { add(bill, {"Rent\nof the flat"}); }, sentence);
    add(bill, {"Rent"});
    expectRefused([&] { rename(bill, "Rent", "Rent\nof the flat"); }, sentence, BudgetSource("Rent"));
}

TEST_F(PlanningRefusalTest, AnotherCurrencyOnceSomethingWasPosted)
{
    add(bill, {"Rent"});
    session.change([&](engine::Household& household) {
        engine::Posting paid;
        paid.occurredOn = QDate(2026, 2, 1);
        paid.debiting = item(bill, "Rent").account;
        paid.crediting = everyday.number;
        paid.amount = dollars(100);
        household.post(paid);
    });

    expectRefused(
        [&] {
            update(bill, {"Rent", euros(100)});
        },
        "Rent has postings in USD, so it stays in that currency. Plan another item in EUR.", BudgetSource("Rent"));
    expectRefused([&] { remove(bill, "Rent"); },
                  "Rent can't be removed, since a posting of " + tlm::foundation::presentationText(QDate(2026, 2, 1)) +
                      " needs it. Delete that posting first, or keep Rent.",
                  BudgetSource("Rent"));
}

TEST_F(PlanningRefusalTest, AnotherSumBorrowed)
{
    add(debt, {.name = "Car loan", .further = dollars(2'000)});
    ASSERT_EQ(answers.back().refusal, std::nullopt);

    expectRefused([&] { update(debt, {.name = "Car loan", .further = dollars(3'000)}); },
                  "The sum borrowed for Car loan is posted as " +
                      tlm::foundation::presentationText(dollars(2'000), tlm::foundation::WithCurrency()) +
                      " and stays. Plan what was borrowed since as another debt.",
                  BudgetSource("Car loan"));
}

TEST_F(PlanningRefusalTest, ABankThatIsNotKnownOrOfTheWrongKind)
{
    BankName const nowhere("Nowhere");

    expectUnplannable(debt, {"Car loan"}, "There is no bank called Nowhere. Choose another bank for Car loan.",
                      BankAccount{nowhere, {}, BankAccountTypes::Loan});
    expectUnplannable(debt, {"Car loan"},
                      "It isn't chosen as what Car loan is borrowed from its bank. Choose Credit Card or Loan.",
                      BankAccount{bank, {}, BankAccountTypes::Unspecified});
    expectUnplannable(debt, {"Car loan"},
                      "Car loan is owed, and an account of the kind Checking holds what one has. Choose Credit Card or "
                      "Loan.",
                      everyday);
    expectUnplannable(goal, {"Bicycle"},
                      "Card is an account of what is owed, so it can't hold the money of Bicycle. Choose a checking or "
                      "savings account.",
                      card);
    expectUnplannable(goal, {"Bicycle"},
                      "No account is chosen for Bicycle. Choose the account at Aspen Bank that holds its money.",
                      BankAccount{bank, {}, BankAccountTypes::Unspecified});
}

TEST_F(PlanningRefusalTest, AGoalInAnAccountOfAnotherCurrency)
{
    expectRefused([&] { add(goal, {.name = "Lisbon", .amount = euros(20), .further = euros(900)}, everyday); },
                  "Everyday is kept in USD, so it can't hold the money of Lisbon. Choose an account in EUR.");
}

TEST_F(PlanningRefusalTest, ADebtOfNothing)
{
    expectRefused([&] { add(debt, {.name = "Car loan", .further = dollars(0)}); },
                  "The sum borrowed for Car loan isn't above zero in the currency of its payments. Enter one that is.");
}

TEST_F(PlanningRefusalTest, AnInterestOfMoreThanAllOfIt)
{
    expectUnplannable(debt, {.name = "Car loan", .interest = {100.5, 1}},
                      "The interest on Car loan lies outside of 0% to 100%. Enter a rate between them.");
}

TEST_F(PlanningRefusalTest, AGoalOfNothing)
{
    expectUnplannable(goal, {.name = "Bicycle", .further = dollars(0)},
                      "The final total of Bicycle isn't above zero in the currency of its amount. Enter one that is.");
}

TEST_F(PlanningRefusalTest, AnItemThatHasGone)
{
    auto const sentence = "Rent isn't planned any more, so it can't be changed. Add it as a new bill.";
    BudgetSource const rent("Rent");

    expectRefused([&] { rename(bill, "Rent", "Flat"); }, sentence, rent);
    id = GuiElementIdentifier();
    expectRefused([&] { update(bill, {"Rent"}); }, sentence, rent);
    expectRefused([&] { remove(bill, "Rent"); }, sentence, rent);
}

TEST_F(PlanningRefusalTest, ARecordOfAnotherKindThanToldIsAnsweredToo)
{
    expectMessage(QtWarningMsg, "Failed to change the budget");
    auto const before = content();

    emit window.added(id, debt, *record(bill, {"Car loan"}), {});

    ASSERT_EQ(answers.size(), 1U);
    EXPECT_TRUE(answers.front().refusal.value().startsWith(
        "That didn't work, and your budget is as it was before. The cause: "));
    EXPECT_EQ(content(), before);
}

TEST_F(PlanningRefusalTest, AFullDisk)
{
    add(bill, {"Rent"});
    auto const before = content();
    auto const attempts = {std::function<void()>([&] { add(bill, {"Water"}); }),
                           std::function<void()>([&] { rename(bill, "Rent", "Flat"); }),
                           std::function<void()>([&] { remove(bill, "Rent"); }), std::function<void()>([&] {
                               update(bill, {"Rent", dollars(1)});
                           })};
    for (auto const& attempt : attempts) {
        forget();
        id = GuiElementIdentifier();
        {
            FullDisk const full;
            attempt();
        }
        ASSERT_EQ(answers.size(), 1U);
        EXPECT_FALSE(answers.front().refusal.value_or(QString()).isEmpty());
        EXPECT_EQ(content(), before);
        EXPECT_EQ(changes.count(), 0);
    }
    forget();

    update(bill, {"Rent", dollars(1)});

    expectAccepted("Rent");
    session.saveAs(home.path("family.budget"));
    session.open(home.path("family.budget"));
    EXPECT_EQ(item(bill, "Rent").amount, dollars(1));
}
}
}
