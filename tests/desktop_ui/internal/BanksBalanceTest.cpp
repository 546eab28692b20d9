#include "BanksFixture.h"

#include <tlm/foundation/PresentationText.h>

#include <QHeaderView>

#include <limits>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::StartsWith;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// The column of combined balances.
class BanksBalanceTest : public tlm::testing::BanksFixture
{
protected:
    QString balance(QString const& row) const { return this->row(row).text(1); }
    static QString told(fiscora::Money const& money)
    {
        return tlm::foundation::presentationText(money, tlm::foundation::WithCurrency{});
    }
    int widthOf(QString const& text) const
    {
        return static_cast<int>(text.size()) * tree().fontMetrics().averageCharWidth();
    }
};

TEST_F(BanksBalanceTest, AParentCombinesItsOwnBalanceWithItsDirectChildren)
{
    keep("Aspen Bank", code(100, "Everyday"), Types::Checking, euros(1000));
    keep("Aspen Bank", code(101, "Holiday", 100), Types::Goal, euros(30));
    keep("Aspen Bank", code(102, "Bicycle", 100), Types::Goal, euros(-4));
    keep("Aspen Bank", code(103, "Train", 101), Types::Goal, euros(500));

    load();

    EXPECT_EQ(balance(text(100, "Everyday")), told(euros(1026)));
    EXPECT_EQ(balance(text(101, "Holiday")), told(euros(530)));
}

TEST_F(BanksBalanceTest, BanksAndAccountsWithoutChildrenSayNothing)
{
    keepTwoBanks();

    load();

    EXPECT_EQ(balance("Aspen Bank"), "");
    EXPECT_EQ(balance(text(100, "Everyday")), "");
    EXPECT_EQ(balance(text(111, "Holiday")), "");
    EXPECT_EQ(balance(text(110, "Rainy days")), told(euros(325)));
}

TEST_F(BanksBalanceTest, TheColumnIsAsWideAsItsLongestText)
{
    keepTwoBanks();
    load();
    EXPECT_EQ(tree().header()->sectionSize(1), widthOf("Combined Balance"));
    delete view.data();

    keep("Aspen Bank", code(120, "Large"), Types::Checking, euros(12'345'678'901'234));
    keep("Aspen Bank", code(121, "Small", 120));
    load();

    ASSERT_EQ(balance(text(120, "Large")), told(euros(12'345'678'901'234)));
    EXPECT_EQ(tree().header()->sectionSize(1), widthOf(told(euros(12'345'678'901'234))));
}

TEST_F(BanksBalanceTest, IsReckonedOnce)
{
    keepTwoBanks();
    load();

    choose(text(110, "Rainy days"));
    markForRemoval();
    choose("Birch Bank");
    addAccount().click();

    EXPECT_EQ(balance(text(110, "Rainy days")), told(euros(325)));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).count("Calculating parent balances."), 0);
}

TEST_F(BanksBalanceTest, TwoCurrenciesLeaveItEmpty)
{
    keepTwoBanks();
    keep("Aspen Bank", code(112, "Journey", 110), Types::Goal, Money(Currency::USD, 5, 0, 0));
    expectMessage(QtWarningMsg, "^There is no combined balance of \"110.*Rainy days\" ");

    load();

    EXPECT_EQ(balance(text(110, "Rainy days")), "");
    choose(text(112, "Journey"));
    EXPECT_EQ(account().balance(), Money(Currency::USD, 5, 0, 0));
}

TEST_F(BanksBalanceTest, MoreThanCanBeCountedLeavesItEmpty)
{
    auto const most = std::numeric_limits<long long>::max() / 10'000;
    keep("Aspen Bank", code(100, "Everyday"), Types::Checking, euros(most));
    keep("Aspen Bank", code(101, "Holiday", 100), Types::Goal, euros(most));
    expectMessage(QtWarningMsg, "^There is no combined balance of \"100.*Everyday\" ");

    load();

    EXPECT_EQ(balance(text(100, "Everyday")), "");
}

TEST_F(BanksBalanceTest, ACurrencyThatIsNotUsableIsStillTheBalance)
{
    keep("Aspen Bank", code(100, "Everyday"), Types::Checking, Money(Currency::JPY, 900, 0, 0));
    keep("Aspen Bank", code(101, "Holiday", 100), Types::Goal, Money(Currency::JPY, 100, 0, 0));

    load();

    EXPECT_EQ(balance(text(100, "Everyday")), "1000 JPY");
    choose(text(100, "Everyday"));
    EXPECT_EQ(account().balance(), Money(Currency::JPY, 900, 0, 0));
}

TEST_F(BanksBalanceTest, NothingIsCutOffOnScreen)
{
    keep("Aspen Bank", code(120, "Large"), Types::Checking, euros(12'345'678'901'234));
    keep("Aspen Bank", code(121, "Small", 120));
    load();

    show();

    auto const wanted = tree().fontMetrics().horizontalAdvance(told(euros(12'345'678'901'234)));
    EXPECT_GT(tree().header()->sectionSize(1), wanted);
    EXPECT_GE(tree().header()->sectionSize(1), tree().header()->sectionSizeHint(1));
}
