#include "Plans.h"

#include <QLocale>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace tlm::adviser {

namespace {

using fiscora::Currency;
using fiscora::Money;

class AdviceTest : public ::testing::Test
{
protected:
    AdviceTest() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    ~AdviceTest() override { QLocale::setDefault(before_); }

    static QString adviceOn(Cents const& plan) { return assess(plan).information().join(u'\n'); }

private:
    QLocale before_;
};

void expectSaid(QString const& advice, char const* words)
{
    EXPECT_TRUE(advice.contains(QString::fromUtf8(words))) << words << "\nin\n" << advice.toStdString();
}

TEST_F(AdviceTest, NamesTheHouseholdsOwnNumbers)
{
    auto const advice = assess(millers).information();

    ASSERT_EQ(advice.size(), 5);
    expectSaid(advice.at(0), "The plan takes 87% of wages. Of $4,000.00 a month, $520.00 are left without a task.");
    expectSaid(advice.at(1), "Bills take 43% of wages. Together with debts and nontracks it is 72%");
    expectSaid(advice.at(2),
               "Debt payments take 9% of wages, and the $12,000.00 still owed come to 25% of a year's wages.");
    expectSaid(advice.at(3), "Nontracks take 20% of wages.");
    expectSaid(advice.at(4), "Goals put aside 15% of wages. Another $200.00 a month would make it a fifth.");
}

TEST_F(AdviceTest, BeginsANewBudgetWithWages)
{
    EXPECT_EQ(assess(Cents{}).information(),
              QList<QString>{QStringLiteral(
                  "Nothing is planned yet. Begin with your wages, then add the bills that you know of.")});
}

TEST_F(AdviceTest, AsksForWagesWhereThereAreNone)
{
    auto const advice = assess(Cents{0, 5000, 120000, 0, 0, 90000}).information();

    ASSERT_EQ(advice.size(), 2);
    expectSaid(advice.at(0), "No wages are planned, yet $1,250.00 a month go out.");
    expectSaid(advice.at(1), "Debts of $900.00 are still owed.");
}

TEST_F(AdviceTest, AsksForWagesWhereOnlyADebtIsKnown)
{
    auto const advice = assess(Cents{0, 0, 0, 0, 0, 90000}).information();

    ASSERT_EQ(advice.size(), 2);
    expectSaid(advice.at(0), "No wages are planned. Plan what comes in");
}

TEST_F(AdviceTest, TellsByHowMuchAPlanGoesTooFar)
{
    expectSaid(adviceOn({400000, 0, 300000, 100000, 40000, 0}),
               "The plan takes 110% of wages: $400.00 a month more than the $4,000.00 that come in.");
}

TEST_F(AdviceTest, TellsThatEveryCentHasATask)
{
    expectSaid(adviceOn({400000, 100000, 300000, 0, 0, 0}), "All of your wages, $4,000.00 a month, have a task.");
}

TEST_F(AdviceTest, AdvisesOnDebtsThatWeighHeavily)
{
    expectSaid(adviceOn({400000, 0, 0, 60000, 0, 0}), "Pay off the debt with the highest interest first.");
    EXPECT_FALSE(adviceOn({400000, 0, 0, 40000, 0, 0}).contains(QStringLiteral("highest interest")));
    expectSaid(adviceOn({400000, 0, 0, 0, 0, 0}), "No debts are planned");
}

TEST_F(AdviceTest, AdvisesOnNontracksWhereTheyAreMany)
{
    expectSaid(adviceOn({400000, 0, 0, 0, 120000, 0}), "Nontracks take 30% of wages. They are mostly the easiest");
    EXPECT_FALSE(adviceOn({400000, 0, 0, 0, 0, 0}).contains(QStringLiteral("Nontracks")));
}

TEST_F(AdviceTest, AdvisesOnGoals)
{
    expectSaid(adviceOn({400000, 0, 0, 0, 0, 0}), "No goals are planned. Even 5% of wages, $200.00 a month,");
    expectSaid(adviceOn({400000, 80000, 0, 0, 0, 0}), "Goals put aside 20% of wages, a fifth or more");
    expectSaid(adviceOn({400000, 80000, 360000, 0, 0, 0}),
               "Goals ask for 20% of wages, but the rest of the plan leaves only 10% for them.");
}

TEST_F(AdviceTest, AsksForBillsWhereThereAreNone)
{
    expectSaid(adviceOn({400000, 0, 0, 0, 0, 0}), "No bills are planned.");
}

TEST_F(AdviceTest, SharesTooSmallOrTooLargeToBeReadAreRoundedInWords)
{
    expectSaid(adviceOn({400000, 0, 100, 0, 0, 0}), "Bills take less than 1% of wages.");
    expectSaid(adviceOn({100, 0, 400000, 0, 0, 0}), "Bills take more than 999% of wages.");
}

TEST_F(AdviceTest, FractionsOfACentAreCutOff)
{
    auto const wages = Money::fromAmount(Currency::USD, 40000099);

    auto const advice = assess({wages, Money(), Money(), Money(), Money()}, Money()).information();

    expectSaid(advice.at(0), "Of $4,000.00 a month");
}

TEST_F(AdviceTest, SpeaksTheLocalesNumbers)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));

    expectSaid(adviceOn(millers), "12.000,00");
}

TEST_F(AdviceTest, SpeaksOfCurrenciesWithoutMinorUnits)
{
    auto const yen = [](long long amount) { return Money(Currency::JPY, amount, 0, 0); };

    auto const advice = assess({yen(400000), Money(), yen(172000), Money(), Money()}, Money()).information();

    expectSaid(advice.at(0), "400,000");
    expectSaid(advice.at(0), "228,000");
}

TEST_F(AdviceTest, AmountsAtTheEdgeOf64BitsAreTold)
{
    auto const most = Money::fromAmount(Currency::USD, std::numeric_limits<long long>::max());

    auto const advice = assess({most, most, most, most, most}, most).information();

    expectSaid(advice.at(0), "more than the $922,337,203,685,477.58 that come in");
    EXPECT_EQ(advice.size(), 5);
}
}
}
