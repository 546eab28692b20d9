#pragma once

#include <compare>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <type_traits>

namespace tlm::testing {

/// A property that doesn't hold fails the test as any other expectation does.
template <typename Property>
void expectAlways(Property const& property)
{
    EXPECT_TRUE(rc::check(property));
}

/// Expects what sets and maps need of their keys, and that what is equal is equivalent.
/// \param generate makes values, of a range small enough that equal ones come up
template <typename Generate>
void expectStrongOrder(Generate const& generate)
{
    expectAlways([&] {
        auto const a = generate();
        auto const b = generate();
        auto const c = generate();

        static_assert(std::is_same_v<decltype(a <=> b), std::strong_ordering>);
        RC_ASSERT(a == a);
        RC_ASSERT((a == b) == ((a <=> b) == 0));
        RC_ASSERT((a < b) == (b > a));
        RC_ASSERT(!(a <= b && b <= c) || a <= c);
    });
}
}
