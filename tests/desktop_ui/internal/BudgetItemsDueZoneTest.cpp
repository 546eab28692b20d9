#include "BudgetItemsDueFixture.h"
#include "support/MessageLog.h"

#include <ctime>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using tlm::testing::BudgetItemsDueFixture;
using tlm::testing::dueIn;
using tlm::testing::dueOn;
using tlm::testing::MessageLog;
using tlm::testing::today;

namespace {

/// Lets the process live in another time zone for a scope.
class InTimeZone
{
public:
    explicit InTimeZone(QByteArray const& rule) : before_(qgetenv("TZ")), wasSet_(qEnvironmentVariableIsSet("TZ"))
    {
        qputenv("TZ", rule);
        tzset();
    }

    ~InTimeZone()
    {
        if (wasSet_) {
            qputenv("TZ", before_);
        } else {
            qunsetenv("TZ");
        }
        tzset();
    }

    Q_DISABLE_COPY_MOVE(InTimeZone)

private:
    QByteArray before_;
    bool wasSet_;
};

struct ZoneCase
{
    char const* name;
    char const* rule;
    QDate date;
};

class BudgetItemsDueZoneTest : public BudgetItemsDueFixture, public ::testing::WithParamInterface<ZoneCase>
{};
}

// Rules instead of names, so that no data base of zones is needed.
INSTANTIATE_TEST_SUITE_P(
    Zones, BudgetItemsDueZoneTest,
    ::testing::Values(ZoneCase{"Utc", "UTC0", QDate(2031, 5, 17)}, ZoneCase{"FarEast", "<+14>-14", QDate(2031, 5, 17)},
                      ZoneCase{"FarWest", "<-12>12", QDate(2031, 5, 17)},
                      ZoneCase{"QuarterHours", "<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45", QDate(2018, 9, 30)},
                      ZoneCase{"BerlinSpring", "CET-1CEST,M3.5.0,M10.5.0/3", QDate(2018, 3, 25)},
                      ZoneCase{"BerlinAutumn", "CET-1CEST,M3.5.0,M10.5.0/3", QDate(2018, 10, 28)},
                      ZoneCase{"NoMidnight", "<-03>3<-02>,M11.1.0/0,M2.3.0/0", QDate(2018, 11, 4)},
                      ZoneCase{"NoMidnightAhead", "<-03>3<-02>,M11.1.0/0,M2.3.0/0", QDate(2030, 11, 3)},
                      ZoneCase{"MidnightTwice", "<-03>3<-02>,M11.1.0/0,M2.3.0/0", QDate(2018, 2, 18)}),
    [](auto const& zone) { return zone.param.name; });

TEST_P(BudgetItemsDueZoneTest, CountsMidnights)
{
    InTimeZone const zone(GetParam().rule);
    auto const date = GetParam().date;

    update({dueOn("Eve", date.addDays(-1)), dueOn("Day", date), dueOn("Morrow", date.addDays(1))}, 14);

    auto const left = today().daysTo(date);
    auto const line = QStringLiteral("The budget item %1 is due within %2 days.");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Updating the budget items due", line.arg("Eve").arg(left - 1), line.arg("Day").arg(left),
                            line.arg("Morrow").arg(left + 1)));
}

TEST_P(BudgetItemsDueZoneTest, KnowsToday)
{
    InTimeZone const zone(GetParam().rule);

    update({dueIn(-1), dueIn(0), dueIn(1)}, 14);

    EXPECT_EQ(background(0), QColor(Qt::darkRed));
    EXPECT_EQ(background(1), QColor(Qt::red));
    EXPECT_EQ(background(2), QColor(Qt::yellow));
}
