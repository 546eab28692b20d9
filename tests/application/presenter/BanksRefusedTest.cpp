#include "BanksViewFixture.h"

namespace tallymere::presenter {
namespace {

using tlm::testing::expectMessage;

/// What a person fills in and the books refuse stays on its form with the reason.
class BanksRefusedTest : public BanksViewTest
{
protected:
    BanksRefusedTest() { show(); }
};

TEST_F(BanksRefusedTest, ANameThatAnotherBankHas)
{
    expectMessage(QtCriticalMsg, "Bank entry save error for");
    expectRefusedAtSave([this](Household& household) { household.renameBank(otherBank, BankName("aspen bank")); },
                        [this]() -> QWidget& {
                            auto& entry = bankForm("Birch Bank");
                            enter(entry, "nameLndt", "aspen bank");
                            return entry;
                        });
}

TEST_F(BanksRefusedTest, AClosingWithABalance)
{
    expectMessage(QtCriticalMsg, "Bank entry save error for");
    expectRefusedAtSave([this](Household& household) { household.closeBank(bank); },
                        [this]() -> QWidget& {
                            auto& entry = bankForm("Aspen Bank");
                            click(entry, "closedChckbx");
                            return entry;
                        });
}

TEST_F(BanksRefusedTest, ANameThatAnotherAccountOfTheBankHas)
{
    expectMessage(QtWarningMsg, "Account entry failed to save");
    expectRefusedAtSave(
        [this](Household& household) { household.recode(card, AccountCode(card, "everyday", std::nullopt)); },
        [this]() -> QWidget& {
            auto& entry = accountForm(code(card));
            enter(entry, "nameLndt", "everyday");
            return entry;
        });
}

TEST_F(BanksRefusedTest, ARemovalOfAnAccountWithPostings)
{
    expectMessage(QtWarningMsg, "Account entry failed to save");
    post(food, everyday, dollars(5));

    expectRefusedAtSave([this](Household& household) { household.removeAccount(everyday); },
                        [this]() -> QWidget& {
                            auto& entry = accountForm(code(everyday));
                            click(entry, "removeChckbx");
                            return entry;
                        });
}
}
}
