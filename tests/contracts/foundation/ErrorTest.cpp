#include "support/MessageLog.h"

#include <tlm/foundation/Error.h>

#include <gmock/gmock.h>
#include <stdexcept>
#include <type_traits>

using tlm::foundation::Error;
using namespace ::testing;

static_assert(std::is_base_of_v<std::runtime_error, Error>);
static_assert(std::has_virtual_destructor_v<Error>);
static_assert(std::is_nothrow_copy_constructible_v<Error> && std::is_nothrow_move_assignable_v<Error>);
static_assert(!std::is_convertible_v<QString, Error>);

TEST(ErrorTest, WhatReadsBackToTheMessage)
{
    auto const message = QStringLiteral("Die Währung „€“ fehlt – ١٢ 𞥑");

    Error const error(message);

    EXPECT_EQ(error.message(), message);
    EXPECT_EQ(QString(error.what()), message);
}

TEST(ErrorTest, TheCauseGoesToTheLogAndNotToThePerson)
{
    Error const error("The budget can't be read.", std::runtime_error("page 7 is torn"));

    EXPECT_EQ(error.message(), "The budget can't be read.");
    EXPECT_STREQ(error.what(), "The budget can't be read.");
    EXPECT_THAT(tlm::testing::MessageLog::texts(QtDebugMsg),
                ElementsAre(QStringLiteral("The budget can't be read. Caused by: page 7 is torn")));
}

TEST(ErrorTest, ABlankCauseIsNotLogged)
{
    Error const error("The amount isn't valid.", std::exception());

    EXPECT_THAT(tlm::testing::MessageLog::texts(QtDebugMsg), IsEmpty());
}

TEST(ErrorTest, CopiesAndAssignedErrorsKeepTheMessage)
{
    Error const original("one");
    Error copy = original;
    Error assigned("two");

    assigned = std::move(copy);

    EXPECT_EQ(assigned.message(), "one");
    EXPECT_STREQ(assigned.what(), "one");
}
