#include "internal/Shared.h"

#include <gtest/gtest.h>
#include <string>

using tlm::desktop_ui::internal::shared;

namespace {

/// Counts how often it is made.
struct Value
{
    explicit Value(std::string const& key) : text(key) { ++made; }

    static inline int made = 0;
    std::string text;
};

class SharedTest : public ::testing::Test
{
protected:
    SharedTest() { Value::made = 0; }
};
}

TEST_F(SharedTest, EqualKeysShareOneValue)
{
    auto const first = shared<Value>(std::string("a"));
    auto const other = shared<Value>(std::string("b"));
    auto const again = shared<Value>(std::string("a"));

    EXPECT_EQ(first, again);
    EXPECT_NE(first, other);
    EXPECT_EQ(other->text, "b");
    EXPECT_EQ(Value::made, 2);
}

TEST_F(SharedTest, AValueEndsWithItsLastHolder)
{
    std::weak_ptr<Value const> const ended = shared<Value>(std::string("a"));

    auto const next = shared<Value>(std::string("a"));

    EXPECT_TRUE(ended.expired());
    EXPECT_EQ(next->text, "a");
    EXPECT_EQ(Value::made, 2);
}
