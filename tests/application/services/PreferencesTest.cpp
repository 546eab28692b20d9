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

TEST_F(PreferencesTest, ThatStayTheSameLeaveTheirFileAlone)
{
    auto const keep = [](Preferences& preferences) {
        preferences.setAccounting(false);
        preferences.setLastFile("/home/family.budget");
        preferences.setWindowGeometry(QByteArray("geo\0metry", 9));
    };
    {
        Preferences preferences;
        keep(preferences);
    }
    QFile file(QSettings().fileName());
    ASSERT_TRUE(file.setPermissions(QFile::ReadOwner));
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    QDateTime const longAgo(QDate(2001, 2, 3), QTime(4, 5));
    ASSERT_TRUE(file.setFileTime(longAgo, QFile::FileModificationTime));

    {
        Preferences preferences;
        keep(preferences);
    }

    EXPECT_EQ(QFileInfo(file.fileName()).lastModified(), longAgo);
}
}
}
