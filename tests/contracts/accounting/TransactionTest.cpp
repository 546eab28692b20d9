#include <tlm/accounting/Transaction.h>
#include <tlm/foundation/Error.h>

#include <climits>
#include <support/Properties.h>

using namespace tlm::accounting;
using fiscora::Currency;
using fiscora::Money;
using tlm::foundation::Error;

namespace {

static_assert(sizeof(TransactionStatuses) == 1);
static_assert(std::is_nothrow_move_constructible_v<Transaction> && std::is_nothrow_move_assignable_v<Transaction>);

AccountCode const cash(AccountNumber(1), "Cash", std::nullopt);
AccountCode const food(AccountNumber(2), "Food", std::nullopt);
QDate const day(2024, 2, 29);
Money const five(Currency::EUR, 5, 0, 0);

Transaction posting(QDate const& date, AccountCode const& debiting, AccountCode const& crediting, Money const& amount)
{
    return {date, debiting, crediting, amount, std::nullopt, std::nullopt, TransactionStatuses::NotCleared};
}

Transaction numbered(QDate const& date, std::optional<TransactionNumber> number)
{
    return {date, food, cash, five, std::nullopt, number, TransactionStatuses::NotCleared};
}

Transaction anyTransaction()
{
    auto const isFood = *rc::gen::arbitrary<bool>();
    return {day.addDays(*rc::gen::inRange(0, 2)),
            isFood ? food : cash,
            isFood ? cash : food,
            Money::fromAmount(Currency::EUR, *rc::gen::inRange(1, 3)),
            *rc::gen::element(std::optional<QString>(), std::optional<QString>("a")),
            *rc::gen::element(std::optional<TransactionNumber>(), std::optional(TransactionNumber(1))),
            static_cast<TransactionStatuses>(*rc::gen::inRange(0, 3))};
}
}

TEST(TransactionTest, ADefaultTransactionHasNoNumberAndIsNotCleared)
{
    Transaction const transaction;

    EXPECT_FALSE(transaction.number().has_value());
    EXPECT_FALSE(transaction.description().has_value());
    EXPECT_FALSE(transaction.occurredOn().isValid());
    EXPECT_EQ(transaction.amount(), Money());
    EXPECT_EQ(transaction.status(), TransactionStatuses::NotCleared);
}

TEST(TransactionTest, KeepsWhatItIsMadeOf)
{
    Transaction const transaction(day, food, cash, five, "Bread", TransactionNumber(4), TransactionStatuses::Cleared);

    EXPECT_EQ(transaction.occurredOn(), day);
    EXPECT_EQ(transaction.debiting(), food);
    EXPECT_EQ(transaction.crediting(), cash);
    EXPECT_EQ(transaction.amount(), five);
    EXPECT_EQ(transaction.description(), "Bread");
    EXPECT_EQ(transaction.number(), TransactionNumber(4));
    EXPECT_EQ(transaction.status(), TransactionStatuses::Cleared);
}

TEST(TransactionTest, RefusesAnInvalidDate)
{
    EXPECT_THROW(posting(QDate(), food, cash, five), Error);
    EXPECT_THROW(posting(QDate(2023, 2, 29), food, cash, five), Error);
}

TEST(TransactionTest, RefusesTheSameAccountOnBothSides)
{
    AccountCode const renamedFood(AccountNumber(2), "Groceries", AccountNumber(7));

    EXPECT_THROW(posting(day, food, food, five), Error);
    EXPECT_THROW(posting(day, food, renamedFood, five), Error);
    EXPECT_THROW(posting(day, AccountCode("New", {}), AccountCode("New", AccountNumber(3)), five), Error);
}

TEST(TransactionTest, TellsAccountsWithoutNumbersApartByName)
{
    EXPECT_NO_THROW(posting(day, AccountCode("New", std::nullopt), AccountCode("Old", std::nullopt), five));
}

TEST(TransactionTest, RefusesAnAmountThatIsNotAboveZero)
{
    EXPECT_THROW(posting(day, food, cash, Money(Currency::EUR)), Error);
    EXPECT_THROW(posting(day, food, cash, Money::fromAmount(Currency::EUR, -1)), Error);
    EXPECT_THROW(posting(day, food, cash, Money::fromAmount(Currency::EUR, LLONG_MIN)), Error);
    EXPECT_NO_THROW(posting(day, food, cash, Money::fromAmount(Currency::EUR, 1)));
    EXPECT_NO_THROW(posting(day, food, cash, Money::fromAmount(Currency::EUR, LLONG_MAX)));
}

TEST(TransactionTest, RefusesAnAmountWithoutCurrency)
{
    EXPECT_THROW(posting(day, food, cash, Money()), Error);
    EXPECT_THROW(posting(day, food, cash, Money::fromAmount(Currency::XXX, 5)), Error);
}

TEST(TransactionTest, TellsWhyItIsRefusedInASentence)
{
    try {
        posting(day, food, food, five);
        FAIL() << "the posting was accepted";
    } catch (Error const& refusal) {
        EXPECT_EQ(refusal.message(),
                  "The money comes from the account that it goes to. Choose two different accounts.");
    }
}

TEST(TransactionTest, MarkingOnlyRaisesTheStatus)
{
    auto transaction = posting(day, food, cash, five);

    transaction.markCleared();
    EXPECT_EQ(transaction.status(), TransactionStatuses::Cleared);
    transaction.markReconciled();
    EXPECT_EQ(transaction.status(), TransactionStatuses::Reconciled);
    transaction.markCleared();
    EXPECT_EQ(transaction.status(), TransactionStatuses::Reconciled);
}

TEST(TransactionTest, OrdersByDateThenNumber)
{
    EXPECT_LT(numbered(day, TransactionNumber(9)), numbered(day.addDays(1), TransactionNumber(1)));
    EXPECT_LT(numbered(day, TransactionNumber(1)), numbered(day, TransactionNumber(2)));
    EXPECT_LT(numbered(day, std::nullopt), numbered(day, TransactionNumber(1)));
}

TEST(TransactionTest, IsStronglyOrdered)
{
    tlm::testing::expectStrongOrder(anyTransaction);
}

TEST(TransactionTest, IsLoggedWithItsStatus)
{
    QString log;

    QDebug(&log) << Transaction(day, food, cash, five, "Bread", TransactionNumber(4), TransactionStatuses::Cleared);

    EXPECT_TRUE(log.contains("\"Bread\", TransactionNumber(4), TransactionStatuses(Cleared)")) << log.toStdString();
}
