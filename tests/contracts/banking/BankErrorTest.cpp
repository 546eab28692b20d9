#include <tlm/banking/BankError.h>

#include <gtest/gtest.h>

using namespace tlm::banking;

static_assert(std::is_base_of_v<tlm::foundation::Error, BankError>);
static_assert(std::has_virtual_destructor_v<BankError>);
static_assert(std::is_nothrow_copy_constructible_v<BankError>);

TEST(BankErrorTest, TellsTheBankAndTheMessage)
{
    BankError const error(BankName("Penny"), "There is no such account.", std::runtime_error("cause"));
    auto const copy = error;

    EXPECT_EQ(copy.bank(), BankName("Penny"));
    EXPECT_EQ(copy.message(), "There is no such account.");
    EXPECT_STREQ(copy.what(), "There is no such account.");
}
