#include <tlm/surveying/BalanceChange.h>

#include <gtest/gtest.h>
#include <set>

using namespace tlm::accounting;
using tlm::surveying::BalanceChange;

namespace {

static_assert(std::is_nothrow_move_constructible_v<BalanceChange>);

Transaction posting(unsigned short number)
{
    return {QDate(2024, 2, 29),
            AccountCode(AccountNumber(1), "Cash", std::nullopt),
            AccountCode(AccountNumber(2), "Wage", std::nullopt),
            fiscora::Money(fiscora::Currency::EUR, 5, 0, 0),
            std::nullopt,
            TransactionNumber(number),
            TransactionStatuses::NotCleared};
}
}

TEST(BalanceChangeTest, ASetHoldsDecreasesFirstInTheOrderOfTheLedger)
{
    std::set<BalanceChange> const changes{
        {true, posting(1)}, {false, posting(3)}, {false, posting(2)}, {true, posting(1)}};

    EXPECT_EQ(std::vector(changes.begin(), changes.end()),
              (std::vector<BalanceChange>{{false, posting(2)}, {false, posting(3)}, {true, posting(1)}}));
}
