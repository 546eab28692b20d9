#include <tlm/foundation/ScopeExecutor.h>

#include <gtest/gtest.h>
#include <stdexcept>
#include <type_traits>

using tlm::foundation::ScopeExecutor;

static_assert(!std::is_copy_constructible_v<ScopeExecutor> && !std::is_move_constructible_v<ScopeExecutor>);

TEST(ScopeExecutorTest, RunsOnceOnLeavingTheScope)
{
    auto runs = 0;
    {
        ScopeExecutor const executor([&runs] { ++runs; });
        EXPECT_EQ(runs, 0);
    }

    EXPECT_EQ(runs, 1);
}

TEST(ScopeExecutorTest, RunsWhenAnExceptionLeavesTheScope)
{
    auto runs = 0;
    auto const fail = [&runs] {
        ScopeExecutor const executor([&runs] { ++runs; });
        throw std::runtime_error("on the way");
    };

    EXPECT_THROW(fail(), std::runtime_error);

    EXPECT_EQ(runs, 1);
}

TEST(ScopeExecutorTest, AnEmptyFunctionIsLeftAlone)
{
    EXPECT_NO_THROW(ScopeExecutor({}));
}
