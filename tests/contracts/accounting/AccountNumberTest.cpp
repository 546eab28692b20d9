#include <tlm/accounting/AccountNumber.h>

#include <QLocale>

#include <support/Properties.h>

using namespace tlm::accounting;

static_assert(!std::is_convertible_v<unsigned int, AccountNumber>);
static_assert(!std::is_convertible_v<AccountNumber, unsigned int>);
static_assert(AccountNumber().integer() == AccountNumber::invalid_);
static_assert(sizeof(AccountNumber) == sizeof(quint32));
static_assert(std::is_nothrow_move_constructible_v<AccountNumber>);

TEST(AccountNumberTest, AnyNumberReadsBackBaseTen)
{
    tlm::testing::expectAlways(
        [](unsigned int number) { RC_ASSERT(presentationText(AccountNumber(number)).toUInt(nullptr, 10) == number); });
}

TEST(AccountNumberTest, ADefaultNumberReadsBackAsTheInvalidOne)
{
    auto isNumber = false;

    auto const number = presentationText(AccountNumber()).toUInt(&isNumber, 10);

    EXPECT_TRUE(isNumber);
    EXPECT_EQ(number, AccountNumber::invalid_);
}

TEST(AccountNumberTest, IsPlainDigitsInALocaleWithGroupsAndItsOwnDigits)
{
    QLocale const before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));

    auto const text = presentationText(AccountNumber(4'294'967'295U));

    QLocale::setDefault(before);
    EXPECT_EQ(text, "4294967295");
}

TEST(AccountNumberTest, OrdersByNumber)
{
    tlm::testing::expectStrongOrder([] { return AccountNumber(*rc::gen::inRange(0U, 4U)); });
    EXPECT_LT(AccountNumber(9), AccountNumber(10));
}

TEST(AccountNumberTest, IsLoggedWithItsType)
{
    QString log;

    QDebug(&log) << AccountNumber(7);

    EXPECT_EQ(log.trimmed(), "AccountNumber(7)");
}
