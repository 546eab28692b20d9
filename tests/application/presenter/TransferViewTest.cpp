#include "BooksView.h"
#include "LedgersFixture.h"

namespace tallymere::presenter {
namespace {

using tlm::accounting::presentationText;
using tlm::testing::child;

class TransferViewTest : public BooksView<LedgersTest>
{
protected:
    TransferViewTest()
    {
        session.change([this](Household& household) {
            foreign =
                household.addBankAccount(otherBank, "Abroad", BankAccountTypes::Savings, euros(10), QDate(2026, 1, 2));
        });
        emit window.prepareShowMoneyTransfer();
        rest();
        forget();
    }

    void chooseAccount(QString const& row, BankName const& at, AccountNumber const& number)
    {
        auto const& accounts = child<QWidget>(view(), row);
        choose(accounts, "bankCmbbx", at.institution());
        choose(accounts, "accountCmbbx", presentationText(code(number)));
    }

    void enterAmount(QString const& amount) { enter(child<QWidget>(view(), "amountMnyntrydgt"), "amountLndt", amount); }

    AccountNumber foreign; ///< at the other bank, in euros
};

TEST_F(TransferViewTest, MoneyMovesBetweenTwoAccounts)
{
    chooseAccount("fromBnkaccntwdgt", bank, everyday);
    chooseAccount("toBnkaccntwdgt", bank, card);
    enterAmount("30");
    enter(view(), "reasonLndt", "Pay the card");

    press(QDialogButtonBox::Save);

    EXPECT_TRUE(isDashboardShown());
    saveAndReopen();
    EXPECT_EQ(session.household().balance(everyday), dollars(470));
    EXPECT_EQ(session.household().balance(card), dollars(-30));
    EXPECT_EQ(session.household().latestPostingsOf(card, 9).begin()->second.description, "Pay the card");
}

TEST_F(TransferViewTest, MoneyMovesBetweenTwoCurrenciesAtTheRegisteredRate)
{
    chooseAccount("fromBnkaccntwdgt", bank, everyday);
    chooseAccount("toBnkaccntwdgt", otherBank, foreign);
    enterAmount("30");

    press(QDialogButtonBox::Save);

    EXPECT_TRUE(isDashboardShown());
    saveAndReopen();
    EXPECT_EQ(session.household().balance(everyday), dollars(470));
    EXPECT_EQ(session.household().balance(foreign), euros(25));
}

TEST_F(TransferViewTest, ARefusedTransferStaysWithItsMessage)
{
    auto const sentence = sentenceOf([this](Household& household) {
        household.transfer(everyday, everyday, dollars(30), {}, QDate::currentDate());
    });
    chooseAccount("fromBnkaccntwdgt", bank, everyday);
    chooseAccount("toBnkaccntwdgt", bank, everyday);
    enterAmount("30");

    press(QDialogButtonBox::Save);

    ASSERT_FALSE(isDashboardShown());
    EXPECT_EQ(error(view()), sentence);
    chooseAccount("toBnkaccntwdgt", bank, card);
    press(QDialogButtonBox::Save);
    EXPECT_TRUE(isDashboardShown());
    EXPECT_EQ(session.household().balance(everyday), dollars(470));
}

/// What a person fills in and the books refuse stays on the form with the reason.
class TransferRefusedTest : public TransferViewTest
{
protected:
    /// Fills in that \a amount moves from the checking account to the credit card.
    std::function<QWidget&()> filledIn(QString const& amount)
    {
        return [=, this]() -> QWidget& {
            chooseAccount("fromBnkaccntwdgt", bank, everyday);
            chooseAccount("toBnkaccntwdgt", bank, card);
            enterAmount(amount);
            return view();
        };
    }

    std::function<void(Household&)> moved(Money const& amount)
    {
        return
            [=, this](Household& household) { household.transfer(everyday, card, amount, {}, QDate::currentDate()); };
    }
};

TEST_F(TransferRefusedTest, AnAmountOfZero)
{
    expectRefusedAtSave(moved(dollars(0)), filledIn("0"));
}

TEST_F(TransferRefusedTest, AnAmountBelowZero)
{
    expectRefusedAtSave(moved(dollars(-7)), filledIn("-7"));
}

TEST_F(TransferRefusedTest, AnAccountThatWasClosedMeanwhile)
{
    session.change([this](Household& household) { household.closeAccount(card); });

    expectRefusedAtSave(moved(dollars(7)), filledIn("7"));
}

TEST_F(TransferViewTest, MoreThanThereIsMayBeMoved)
{
    chooseAccount("fromBnkaccntwdgt", bank, everyday);
    chooseAccount("toBnkaccntwdgt", bank, card);
    enterAmount("800");

    press(QDialogButtonBox::Save);

    EXPECT_TRUE(isDashboardShown());
    saveAndReopen();
    EXPECT_EQ(session.household().balance(everyday), dollars(-300));
}

TEST_F(TransferViewTest, ClosedAccountsAndClosedBanksAreNotOffered)
{
    session.change([this](Household& household) {
        household.closeAccount(card);
        household.transfer(foreign, everyday, euros(10), {}, QDate(2026, 1, 3));
        household.closeBank(otherBank);
    });
    emit window.prepareShowMoneyTransfer();
    rest();

    auto const& from = child<QWidget>(view(), "fromBnkaccntwdgt");
    choose(from, "bankCmbbx", bank.institution());

    EXPECT_EQ(child<QComboBox>(from, "accountCmbbx").count(), 2) << "a blank row and the open account";
    EXPECT_EQ(child<QComboBox>(from, "bankCmbbx").count(), 2) << "a blank row and the open bank";
}
}
}
