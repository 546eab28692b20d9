#include "LedgersViewFixture.h"

namespace tallymere::presenter {
namespace {

/// What a person fills in and the books refuse stays on its form with the reason.
class LedgersRefusedTest : public LedgersViewTest
{
protected:
    LedgersRefusedTest() { tlm::testing::expectMessage(QtWarningMsg, "Failure saving"); }

    /// Fills in a new transaction that pays for food out of the account of \a payer. \return its form
    QWidget& addPaidFrom(AccountNumber const& payer, QString const& amount)
    {
        press("&Add");
        auto& added = form();
        click(added, "creditRdbttn");
        choosePayer(added, code(payer));
        enterDollars(added, "amountMnyntry", amount);
        return added;
    }

    static std::function<void(Household&)> paid(AccountNumber const& payer, Money const& amount)
    {
        return [=](Household& household) { household.post(made(food, payer, amount, QDate::currentDate())); };
    }
};

TEST_F(LedgersRefusedTest, AnAccountThatIsClosed)
{
    session.change([](Household& household) { household.closeAccount(fun); });
    show(food);

    expectRefusedAtSave(paid(fun, dollars(7)), [this]() -> QWidget& { return addPaidFrom(fun, "7"); });
}

TEST_F(LedgersRefusedTest, AmountsThatAreNotAboveZero)
{
    for (auto const* const amount : {"0", "-7"}) {
        show(food);
        auto& added = addPaidFrom(everyday, amount);

        save();

        ASSERT_FALSE(isDashboardShown());
        EXPECT_TRUE(error(added).startsWith("The amount isn't above zero.")) << error(added).toStdString();
        EXPECT_FALSE(session.isDirty());
    }
}

TEST_F(LedgersRefusedTest, TwoCurrencies)
{
    show(food);

    expectRefusedAtSave(paid(abroad, dollars(7)), [this]() -> QWidget& { return addPaidFrom(abroad, "7"); });
}

TEST_F(LedgersRefusedTest, AChangeOfWhatWasReconciledMeanwhile)
{
    auto const id = post(food, everyday, dollars(12));
    show(food);
    session.change([&](Household& household) { household.markReconciled(id); });

    expectRefusedAtSave([&](Household& household) { household.changePosting(id, made(food, everyday, dollars(21))); },
                        [&]() -> QWidget& {
                            auto& entry = form(numberOf(id));
                            enterDollars(entry, "amountMnyntry", "21");
                            return entry;
                        });
}

TEST_F(LedgersRefusedTest, ARemovalOfWhatWasReconciledMeanwhile)
{
    auto const id = post(food, everyday, dollars(12));
    show(food);
    session.change([&](Household& household) { household.markReconciled(id); });

    expectRefusedAtSave([&](Household& household) { household.removePosting(id); },
                        [&]() -> QWidget& {
                            auto& entry = form(numberOf(id));
                            click(entry, "removeChckbx");
                            return entry;
                        });
}
}
}
