#include "Process.h"

#include <engine/Household.h>
#include <storage/Document.h>

#include <QDate>
#include <QLocale>

#include <support/DollarsAndEuros.h>

namespace tallymere {
namespace {

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;

/// A budget with a bank and two accounts, of which one holds 500 dollars.
class KilledProcessTest : public ProcessTest
{
protected:
    KilledProcessTest()
    {
        auto const document = storage::Document::create(places, engine::emptyContent(QLocale::c()));
        engine::Household household(document->content(), *document);
        auto settings = household.content().settings;
        settings.preferred = Currency::USD;
        settings.usable = {Currency::USD};
        household.configure(settings);
        household.addBank(bank);
        auto const open = [&](QString const& name, BankAccountTypes type, Money const& balance) {
            return household.addBankAccount(bank, name, type, balance, QDate::currentDate());
        };
        everyday = open("Everyday", BankAccountTypes::Checking, dollars(500));
        reserve = open("Reserve", BankAccountTypes::Savings, dollars(0));
        document->saveAs(path);
    }

    /// \return what the file has on the account
    Money saved(AccountNumber const& number)
    {
        auto const document = storage::Document::open(places, path);
        return engine::Household(document->content(), *document).balance(number);
    }

    storage::Places const places{home.path("copies"), home.path("backups")};
    QString const path = home.path("family.budget");
    BankName const bank{"Aspen Bank"};
    AccountNumber everyday;
    AccountNumber reserve;
};

TEST_F(KilledProcessTest, ATransferThatWasNotInTheFileYetIsRecovered)
{
    start({"--planning", path});
    auto const window = windowOf("family.budget");
    press(window, {"ctrl+r"});
    // Bank, account and kind that the money leaves; those that it enters; the amount, whose currency is told.
    press(window, {"Down", "Tab", "Down", "Tab", "Tab", "Down", "Tab", "Down", "Down", "Tab", "Tab"});
    xdotool({"type", "--delay", "60", "120"});
    press(window, {"Tab", "Tab", "space"});
    ASSERT_FALSE(windowOf("family.budget\\*").isEmpty()) << "the transfer is accepted, and not saved";

    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(saved(everyday), dollars(500));
    start({"--planning", path});
    press(windowOf("Recover Unsaved Changes"), {"alt+r"});
    press(windowOf("family.budget\\*"), {"ctrl+s", "ctrl+q"});

    ASSERT_TRUE(end());
    EXPECT_EQ(saved(everyday), dollars(380));
    EXPECT_EQ(saved(reserve), dollars(120));
}
}
}
