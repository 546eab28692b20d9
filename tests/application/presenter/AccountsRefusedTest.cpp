#include "AccountsViewFixture.h"

namespace tallymere::presenter {
namespace {

/// What a person fills in and the books refuse stays on its form with the reason.
class AccountsRefusedTest : public AccountsViewTest
{
protected:
    AccountsRefusedTest() { tlm::testing::expectMessage(QtWarningMsg, "Failed to save an account entry"); }

    /// Has \a name stand under the account of \a parent. \return its form
    QWidget& moveUnder(QString const& name, AccountNumber const& parent)
    {
        auto& entry = form(name);
        choose(entry, "parentCmbbx", presentationText(parent));
        return entry;
    }

    static std::function<void(Household&)> foodUnder(AccountNumber const& parent)
    {
        return [parent](Household& household) { household.recode(food, AccountCode(food, "Food", parent)); };
    }

    static std::function<void(Household&)> added(Account const& account)
    {
        return [account](Household& household) { household.addAccount(account, QDate::currentDate()); };
    }
};

TEST_F(AccountsRefusedTest, ANumberThatIsInUse)
{
    expectRefusedAtSave(added(expense(601, "Garden")), [this]() -> QWidget& { return add("601", "Garden", "0"); });
}

TEST_F(AccountsRefusedTest, ANameThatIsInUse)
{
    expectRefusedAtSave(added(expense(610, "food")), [this]() -> QWidget& { return add("610", "food", "0"); });
}

TEST_F(AccountsRefusedTest, AParentThatIsClosed)
{
    session.change([](Household& household) { household.closeAccount(fun); });
    show();

    expectRefusedAtSave(foodUnder(fun), [this]() -> QWidget& { return moveUnder("Food", fun); });
}

TEST_F(AccountsRefusedTest, AParentOfAnotherType)
{
    expectRefusedAtSave(foodUnder(everyday), [this]() -> QWidget& { return moveUnder("Food", everyday); });
}

TEST_F(AccountsRefusedTest, AParentInAnotherCurrency)
{
    expectRefusedAtSave(foodUnder(abroad), [this]() -> QWidget& { return moveUnder("Food", abroad); });
}

TEST_F(AccountsRefusedTest, AParentThatStandsBelow)
{
    session.change([](Household& household) { household.recode(fun, AccountCode(fun, "Fun", food)); });
    show();

    expectRefusedAtSave(foodUnder(fun), [this]() -> QWidget& { return moveUnder("Food", fun); });
}

TEST_F(AccountsRefusedTest, AParentThatHasGoneMeanwhile)
{
    session.change([](Household& household) { household.removeAccount(fun); });

    expectRefusedAtSave(foodUnder(fun), [this]() -> QWidget& { return moveUnder("Food", fun); });
}

TEST_F(AccountsRefusedTest, AClosingWithABalance)
{
    expectRefusedAtSave([this](Household& household) { household.closeAccount(everyday); },
                        [this]() -> QWidget& {
                            auto& entry = form("Everyday");
                            click(entry, "closedChckbx");
                            return entry;
                        });
}

TEST_F(AccountsRefusedTest, ARemovalWithPostings)
{
    post(food, everyday, dollars(5));

    expectRefusedAtSave([](Household& household) { household.removeAccount(food); },
                        [this]() -> QWidget& {
                            auto& entry = form("Food");
                            click(entry, "removeChckbx");
                            return entry;
                        });
}
}
}
