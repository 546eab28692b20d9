#include <tlm/desktop_ui/DataEntryError.h>

#include <gtest/gtest.h>
#include <stdexcept>
#include <support/MessageLog.h>
#include <support/Translation.h>
#include <type_traits>

namespace tlm::desktop_ui {

using tlm::testing::MessageLog;

static_assert(std::is_base_of_v<foundation::Error, DataEntryError>);
static_assert(std::is_nothrow_copy_constructible_v<DataEntryError> &&
              std::is_nothrow_copy_assignable_v<DataEntryError>);
static_assert(std::is_nothrow_move_constructible_v<DataEntryError> &&
              std::is_nothrow_move_assignable_v<DataEntryError>);

TEST(DataEntryErrorTest, TellsTheValueTheFieldAndTheReason)
{
    DataEntryError const error("period", "Sometimes", "The frequency is not a valid selection.", std::exception());

    EXPECT_EQ(error.message(), "The value, Sometimes, is not valid for the \"period\" entry. The frequency is not a "
                               "valid selection.");
}

TEST(DataEntryErrorTest, PlaceMarkersInWhatWasTypedStandLiterally)
{
    DataEntryError const error("%3", "%2", "%1", std::exception());

    EXPECT_EQ(error.message(), "The value, %2, is not valid for the \"%3\" entry. %1");
}

TEST(DataEntryErrorTest, SignsOutsideOfAsciiSurviveTheStandardText)
{
    DataEntryError const error("Währung", "٠٫٥٠ 𞥐", "Nein.", std::exception());

    EXPECT_EQ(QString(error.what()), error.message());
    EXPECT_EQ(error.message(), "The value, ٠٫٥٠ 𞥐, is not valid for the \"Währung\" entry. Nein.");
}

TEST(DataEntryErrorTest, ATranslationMayOrderItsArgumentsAnew)
{
    testing::Translation const german(
        {{"The value, %1, is not valid for the \"%2\" entry. %3", "%3 Im Feld \"%2\" steht %1."}});

    DataEntryError const error("Betrag", "x", "Das ist keine Zahl.", std::exception());

    EXPECT_EQ(error.message(), "Das ist keine Zahl. Im Feld \"Betrag\" steht x.");
}

TEST(DataEntryErrorTest, ItsCauseGoesToTheDebugLogAlone)
{
    DataEntryError const error("currency", "x", "No.", std::runtime_error("inner matters"));

    EXPECT_FALSE(error.message().contains("inner matters"));
    ASSERT_EQ(MessageLog::texts(QtDebugMsg).size(), 1);
    EXPECT_TRUE(MessageLog::texts(QtDebugMsg).front().contains("inner matters"));
}

TEST(DataEntryErrorTest, WithoutACauseNothingIsLogged)
{
    DataEntryError const error("currency", "x", "No.", std::exception());

    EXPECT_TRUE(MessageLog::lines().isEmpty());
}

TEST(DataEntryErrorTest, AnAssignedErrorTellsTheOtherMessage)
{
    DataEntryError error("currency", "x", "No.", std::exception());
    DataEntryError const other("period", "y", "Never.", std::exception());

    error = other;

    EXPECT_EQ(error.message(), other.message());
    EXPECT_STREQ(error.what(), other.what());
}
}
