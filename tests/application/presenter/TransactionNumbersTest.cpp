#include <presenter/TransactionNumbers.h>

#include <gtest/gtest.h>

namespace tallymere::presenter {
namespace {

using engine::PostingId;
using tlm::accounting::TransactionNumber;

class TransactionNumbersTest : public ::testing::Test
{
protected:
    TransactionNumbers numbers;
};

TEST_F(TransactionNumbersTest, APostingIsKnownByItsIdentifierWhereThatFits)
{
    EXPECT_EQ(numbers.take({1}), TransactionNumber(1));
    EXPECT_EQ(numbers.take({65'535}), TransactionNumber(65'535));
    EXPECT_EQ(numbers.find(TransactionNumber(1)), PostingId{1});
}

TEST_F(TransactionNumbersTest, APostingKeepsItsNumber)
{
    auto const number = numbers.take({70'000});

    EXPECT_EQ(numbers.take({70'000}), number);
    EXPECT_TRUE(numbers.has({70'000}));
    EXPECT_EQ(numbers.left(), TransactionNumbers::most_ - 1);
}

TEST_F(TransactionNumbersTest, AnIdentifierThatDoesNotFitGetsAnotherNumber)
{
    auto const first = numbers.take({65'536});
    auto const second = numbers.take({std::int64_t(1) << 40});

    EXPECT_NE(first, second);
    EXPECT_EQ(numbers.find(first), PostingId{65'536});
    EXPECT_EQ(numbers.find(second), PostingId{std::int64_t(1) << 40});
}

TEST_F(TransactionNumbersTest, AnIdentifierWhoseNumberIsTakenGetsAnotherOne)
{
    auto const stranger = numbers.take({1'000'000});

    auto const number = numbers.take({stranger.integer()});

    EXPECT_NE(number, stranger);
    EXPECT_EQ(numbers.find(number), PostingId{stranger.integer()});
}

TEST_F(TransactionNumbersTest, ANumberThatNothingWasGivenMeansNothing)
{
    EXPECT_EQ(numbers.find(TransactionNumber(7)), std::nullopt);
    numbers.take({8});
    EXPECT_EQ(numbers.find(TransactionNumber(7)), std::nullopt);
    EXPECT_EQ(numbers.find(TransactionNumber()), std::nullopt);
}

TEST_F(TransactionNumbersTest, AllNumbersCanBeTakenAndNoneTwice)
{
    for (std::int64_t id = 100'000; id < 100'000 + std::int64_t(TransactionNumbers::most_); ++id) {
        ASSERT_EQ(numbers.find(numbers.take({id})), PostingId{id});
    }

    EXPECT_EQ(numbers.left(), 0U);
    EXPECT_THROW(numbers.take({1}), std::length_error);
    EXPECT_FALSE(numbers.has({1}));
    EXPECT_EQ(numbers.take({100'000}), TransactionNumber(65'535));
}

TEST_F(TransactionNumbersTest, NothingIsLeftOfWhatWasCleared)
{
    numbers.take({1});
    numbers.take({70'000});

    numbers.clear();

    EXPECT_EQ(numbers.left(), TransactionNumbers::most_);
    EXPECT_EQ(numbers.find(TransactionNumber(1)), std::nullopt);
    EXPECT_EQ(numbers.take({65'535}), TransactionNumber(65'535));
}
}
}
