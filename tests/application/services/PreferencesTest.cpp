#include <services/Preferences.h>

#include <gtest/gtest.h>
#include <support/Home.h>

namespace tallymere::services {
namespace {

class PreferencesTest : public ::testing::Test
{
protected:
    PreferencesTest()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path("settings"));
        QCoreApplication::setOrganizationName("Tallymere");
        QCoreApplication::setApplicationName("tallymere-preferences-test");
    }

    tlm::testing::Home home;
};

TEST_F(PreferencesTest, StartWithThePlanningWordingAndNoFile)
{
    Preferences const preferences;

    EXPECT_FALSE(preferences.isAccounting());
    EXPECT_TRUE(preferences.lastFile().isEmpty());
    EXPECT_TRUE(preferences.windowGeometry().isEmpty());
}

TEST_F(PreferencesTest, AreThereAtTheNextStart)
{
    {
        Preferences preferences;
        preferences.setAccounting(true);
        preferences.setLastFile("/home/family.budget");
        preferences.setWindowGeometry("geometry");
    }

    Preferences const next;

    EXPECT_TRUE(next.isAccounting());
    EXPECT_EQ(next.lastFile(), "/home/family.budget");
    EXPECT_EQ(next.windowGeometry(), "geometry");
}
}
}
