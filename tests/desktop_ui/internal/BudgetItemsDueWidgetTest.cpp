#include "internal/BudgetItemsDueWidget.h"

#include "ShowActive.h"
#include "support/MessageLog.h"
#include "support/Widgets.h"

#include <QAccessible>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include <algorithm>
#include <ctime>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

using fiscora::Currency;
using fiscora::Money;
using std::chrono::days;
using ::testing::ElementsAre;
using tlm::budgeting::BudgetItemAmountDue;
using tlm::budgeting::BudgetItemTypes;
using tlm::desktop_ui::internal::BudgetItemsDueWidget;
using tlm::testing::child;
using tlm::testing::MessageLog;
using tlm::testing::showActive;

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

/// \return the present day; waits for the next one when it is about to end, since a day that turns within a test spoils it
QDate today()
{
    constexpr auto quiet = 10'000;
    auto const left = QTime::currentTime().msecsTo(QTime(23, 59, 59, 999));
    if (left < quiet) {
        QTest::qSleep(left + 1);
    }
    return QDate::currentDate();
}

BudgetItemAmountDue dueOn(QString const& name, QDate const& date)
{
    return {{{BudgetItemTypes::Bill, tlm::budgeting::BudgetSource(name)}, date}, Money(Currency::USD)};
}

BudgetItemAmountDue dueIn(qint64 dayCount)
{
    return dueOn(QString::number(dayCount), today().addDays(dayCount));
}

double luminance(QColor const& colour)
{
    auto const linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// \return from 1 for none to 21, as accessibility guides count it; 4.5 reads well
double contrast(QColor const& one, QColor const& other)
{
    auto const [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QPalette darkPalette()
{
    QPalette palette(QColor(0x32, 0x32, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    palette.setColor(QPalette::Text, Qt::white);
    return palette;
}

class BudgetItemsDueWidgetTest : public ::testing::Test
{
protected:
    void update(std::vector<BudgetItemAmountDue> const& items, int dueWithin)
    {
        widget.updateItems(items, days(dueWithin));
    }

    QColor background(int row, int column = 0) const { return table.item(row, column)->background().color(); }

    bool isBlank(int row) const { return table.item(row, 0) == nullptr && table.item(row, 1) == nullptr; }

    QStringList names() const
    {
        QStringList found;
        for (auto row = 0; row < table.rowCount(); ++row) {
            found.append(isBlank(row) ? QString() : table.item(row, 0)->text());
        }
        return found;
    }

    void clickHeader(int column)
    {
        auto* const header = table.horizontalHeader();
        QTest::mouseClick(
            header->viewport(), Qt::LeftButton, {},
            {header->sectionViewportPosition(column) + header->sectionSize(column) / 2, header->height() / 2});
    }

    BudgetItemsDueWidget widget{nullptr};
    QTableWidget& table = child<QTableWidget>(widget, "budgetItemsDueTblwdgt");
};

struct ColourBands
{
    int dueWithin;
    int lastYellow; // 0: nothing shows yellow
    int lastGreen;  // not above lastYellow: nothing shows green
};

class BudgetItemsDueColourTest : public BudgetItemsDueWidgetTest, public ::testing::WithParamInterface<ColourBands>
{
protected:
    static std::optional<QColor> expected(int left)
    {
        if (left < 0) {
            return Qt::darkRed;
        }
        if (left == 0) {
            return Qt::red;
        }
        if (left <= GetParam().lastYellow) {
            return Qt::yellow;
        }
        if (left <= GetParam().lastGreen) {
            return Qt::green;
        }
        return std::nullopt;
    }
};

struct ZoneCase
{
    char const* name;
    char const* rule;
    QDate date;
};

class BudgetItemsDueZoneTest : public BudgetItemsDueWidgetTest, public ::testing::WithParamInterface<ZoneCase>
{};
}

INSTANTIATE_TEST_SUITE_P(Limits, BudgetItemsDueColourTest,
                         ::testing::Values(ColourBands{0, 0, 0}, ColourBands{1, 0, 0}, ColourBands{2, 0, 1},
                                           ColourBands{3, 0, 1}, ColourBands{4, 1, 2}, ColourBands{5, 1, 2},
                                           ColourBands{7, 1, 3}, ColourBands{8, 2, 4}, ColourBands{14, 3, 7},
                                           ColourBands{30, 7, 15}, ColourBands{365, 91, 182}),
                         [](auto const& bands) { return "Within" + std::to_string(bands.param.dueWithin); });

TEST_P(BudgetItemsDueColourTest, TellsHowPressingEachItemIs)
{
    std::vector<BudgetItemAmountDue> items;
    for (auto left = -3; left <= GetParam().dueWithin; ++left) {
        items.push_back(dueIn(left));
    }

    update(items, GetParam().dueWithin);

    for (auto row = 0; row < table.rowCount(); ++row) {
        auto const colour = expected(row - 3);
        for (auto const column : {0, 1}) {
            auto const* const item = table.item(row, column);
            EXPECT_EQ(item->background().color(), colour.value_or(table.palette().color(QPalette::Base))) << row - 3;
            EXPECT_EQ(item->data(Qt::ForegroundRole).isValid(), colour.has_value()) << row - 3;
            EXPECT_TRUE(!colour || item->foreground().color() == QColor(Qt::black)) << row - 3;
        }
    }
}

TEST_P(BudgetItemsDueColourTest, LeavesItemsBeyondTheLimitBlankInTheirRows)
{
    auto const limit = GetParam().dueWithin;

    update({dueIn(limit + 1), dueIn(limit), dueIn(limit + 400), dueIn(-1)}, limit);

    ASSERT_EQ(table.rowCount(), 4);
    EXPECT_TRUE(isBlank(0));
    EXPECT_EQ(table.item(1, 0)->text(), QString::number(limit));
    EXPECT_TRUE(isBlank(2));
    EXPECT_EQ(table.item(3, 0)->text(), "-1");
}

TEST_F(BudgetItemsDueWidgetTest, ShowsNoRowWhenNothingIsDue)
{
    update({}, 14);

    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_EQ(table.columnCount(), 2);
}

TEST_F(BudgetItemsDueWidgetTest, ShowsEachItemWithItsDate)
{
    auto const first = today();

    update({dueOn("Rent", first), dueOn("Wage", first.addDays(3))}, 14);

    EXPECT_EQ(table.item(0, 0)->text(), "Rent");
    EXPECT_EQ(table.item(0, 1)->text(), first.toString(Qt::TextDate));
    EXPECT_EQ(table.item(1, 0)->text(), "Wage");
    EXPECT_EQ(table.item(1, 1)->text(), first.addDays(3).toString(Qt::TextDate));
}

TEST_F(BudgetItemsDueWidgetTest, KeepsTheGivenOrderUntilThePersonSorts)
{
    update({dueOn("B", today().addDays(2)), dueOn("D", today()), dueOn("A", today().addDays(9)),
            dueOn("C", today().addDays(-5))},
           14);

    EXPECT_EQ(names(), QStringList({"B", "D", "A", "C"}));
    EXPECT_TRUE(table.isSortingEnabled());
    EXPECT_EQ(table.horizontalHeader()->sortIndicatorSection(), -1);
}

TEST_F(BudgetItemsDueWidgetTest, SortsDueDatesByDate)
{
    std::vector<BudgetItemAmountDue> items;
    for (auto left = -7; left <= 14; ++left) {
        items.push_back(dueIn(left));
    }
    std::shuffle(items.begin(), items.end(), std::mt19937(1)); // NOLINT(cert-msc51-cpp): the same each time
    update(items, 14);
    showActive(widget);

    clickHeader(1);

    for (auto row = 0; row < table.rowCount(); ++row) {
        EXPECT_EQ(table.item(row, 0)->text(), QString::number(row - 7));
        EXPECT_EQ(table.item(row, 1)->text(), today().addDays(row - 7).toString(Qt::TextDate));
    }
}

TEST_F(BudgetItemsDueWidgetTest, SortsWholeRowsByName)
{
    update({dueOn("Rent", today().addDays(2)), dueOn("Car", today()), dueOn("Water", today().addDays(-1))}, 14);
    showActive(widget);

    clickHeader(0);

    EXPECT_EQ(names(), QStringList({"Car", "Rent", "Water"}));
    EXPECT_EQ(table.item(0, 1)->text(), today().toString(Qt::TextDate));
    EXPECT_EQ(table.item(2, 1)->text(), today().addDays(-1).toString(Qt::TextDate));
    EXPECT_EQ(background(0), QColor(Qt::red));
    EXPECT_EQ(background(1), QColor(Qt::yellow));
    EXPECT_EQ(background(2), QColor(Qt::darkRed));
}

TEST_F(BudgetItemsDueWidgetTest, SortsBlankRowsToTheEndEitherWay)
{
    update({dueIn(20), dueIn(3), dueIn(30), dueIn(1)}, 14);
    showActive(widget);

    clickHeader(1);
    auto const ascending = names();
    clickHeader(1);
    auto const descending = names();

    EXPECT_EQ(ascending, QStringList({"1", "3", "", ""}));
    EXPECT_EQ(descending, QStringList({"3", "1", "", ""}));
}

TEST_F(BudgetItemsDueWidgetTest, ListsANewFillInItsOwnOrder)
{
    update({dueIn(3), dueIn(1), dueIn(2)}, 14);
    showActive(widget);
    clickHeader(1);

    update({dueIn(2), dueIn(40), dueIn(1), dueIn(5)}, 14);

    EXPECT_EQ(names(), QStringList({"2", "", "1", "5"}));
}

TEST_F(BudgetItemsDueWidgetTest, LogsHowManyDaysEachItemHas)
{
    update({dueOn("Rent", today().addDays(3)), dueOn("The \"old\" car", today()), dueOn("Water", today().addDays(-1)),
            dueOn("Late", today().addDays(99))},
           14);

    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Updating the budget items due", "The budget item Rent is due within 3 days.",
                            "The budget item The \"old\" car is due within 0 days.",
                            "The budget item Water is due within -1 days.",
                            "The budget item Late is due within 99 days."));
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

TEST_F(BudgetItemsDueWidgetTest, KeepsCalmRowsReadableWhenThePaletteTurnsDark)
{
    update({dueIn(14)}, 14);

    widget.setPalette(darkPalette());

    EXPECT_EQ(background(0), darkPalette().color(QPalette::Base));
    EXPECT_GE(contrast(table.palette().color(QPalette::Text), background(0)), 4.5);
    EXPECT_FALSE(table.item(0, 0)->data(Qt::ForegroundRole).isValid());
}

TEST_F(BudgetItemsDueWidgetTest, KeepsPressingRowsAlikeInADarkPalette)
{
    widget.setPalette(darkPalette());

    update({dueIn(0), dueIn(1), dueIn(5)}, 14);

    for (auto row = 0; row < table.rowCount(); ++row) {
        EXPECT_GE(contrast(table.item(row, 0)->foreground().color(), background(row)), 4.5) << row;
    }
}

TEST_F(BudgetItemsDueWidgetTest, SharesItsWidthTwoToOne)
{
    showActive(widget);

    for (auto const width : {250, 500, 667, 1000, 1001, 1919}) {
        widget.resize(width, 400);
        QCoreApplication::processEvents();

        EXPECT_EQ(table.columnWidth(0), width * 2 / 3);
        EXPECT_EQ(table.columnWidth(1), width / 3);
    }
}

TEST_F(BudgetItemsDueWidgetTest, SelectsOneWholeRowAndEditsNothing)
{
    update({dueIn(0), dueIn(1), dueIn(2)}, 14);
    showActive(widget);

    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(1, 1)).center());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      table.visualItemRect(table.item(2, 0)).center());
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(2, 0)).center());

    ASSERT_EQ(table.selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(table.selectionModel()->selectedRows().first().row(), 2);
    EXPECT_EQ(table.findChild<QLineEdit*>(), nullptr);
}

TEST_F(BudgetItemsDueWidgetTest, KeepsTheNameInSightWhenTheDateBecomesCurrent)
{
    std::vector<BudgetItemAmountDue> const many(40, dueIn(1)); // scrolls, which narrows the view
    update(many, 14);
    showActive(widget);

    QTest::keyClick(&table, Qt::Key_Right);

    EXPECT_EQ(table.currentColumn(), 1);
    EXPECT_GT(table.visualItemRect(table.item(0, 0)).right(), table.columnWidth(0) / 2);
}

TEST_F(BudgetItemsDueWidgetTest, FillsALongListInLinearTime)
{
    auto const fill = [this](std::size_t count) {
        std::vector<BudgetItemAmountDue> const items(count, dueIn(1));
        auto const start = std::clock();
        update(items, 14);
        return static_cast<double>(std::clock() - start);
    };
    fill(1000);

    auto const few = std::min({fill(2500), fill(2500), fill(2500)});
    auto const many = std::min({fill(20'000), fill(20'000)});

    EXPECT_EQ(table.rowCount(), 20'000);
    EXPECT_LT(many, 3 * 8 * few); // a square cost would take 64 times as long
}

namespace {

/// Visits all that a screen reader could ask a table for.
/// \return text of the current cell, then name and date of each row
QStringList readAloud(QTableWidget& table)
{
    auto* const spoken = QAccessible::queryAccessibleInterface(&table);
    auto* const focus = spoken->focusChild();
    QStringList texts{focus != nullptr ? focus->text(QAccessible::Name) : QStringLiteral("nothing")};
    for (auto index = 0; index < spoken->childCount(); ++index) {
        auto* const part = spoken->child(index);
        EXPECT_EQ(spoken->indexOfChild(part), index);
        EXPECT_TRUE(part->isValid());
        part->rect();
        part->state();
    }
    auto* const cells = spoken->tableInterface();
    for (auto row = 0; row < cells->rowCount(); ++row) {
        texts.append(cells->cellAt(row, 0)->text(QAccessible::Name) + '|' +
                     cells->cellAt(row, 1)->text(QAccessible::Name));
    }
    return texts;
}

QString spokenRow(qint64 dayCount)
{
    return QString::number(dayCount) + '|' + today().addDays(dayCount).toString(Qt::TextDate);
}

class BudgetItemsDueSpokenTest : public BudgetItemsDueWidgetTest
{
protected:
    BudgetItemsDueSpokenTest() { QAccessible::setActive(true); }
    ~BudgetItemsDueSpokenTest() override { QAccessible::setActive(false); }
};
}

TEST_F(BudgetItemsDueSpokenTest, TellsNamesAndDates)
{
    update({dueIn(0), dueIn(99), dueIn(1)}, 14);
    showActive(widget);

    EXPECT_THAT(readAloud(table), ElementsAre("0", spokenRow(0), "|", spokenRow(1)));
}

TEST_F(BudgetItemsDueSpokenTest, HasACurrentCellThatIsNotSelected)
{
    update({dueIn(99), dueIn(0)}, 14);

    EXPECT_EQ(table.currentRow(), 0);
    EXPECT_FALSE(table.selectionModel()->hasSelection());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&table)->text(QAccessible::Name), "Budget items due");
}

TEST_F(BudgetItemsDueSpokenTest, SurvivesAnEmptyList)
{
    update({}, 14);
    showActive(widget);
    table.setFocus();

    EXPECT_THAT(readAloud(table), ElementsAre("nothing"));
}

TEST_F(BudgetItemsDueSpokenTest, KeepsTheCurrentItemWhenThePersonSorts)
{
    update({dueIn(3), dueIn(99), dueIn(1)}, 14);
    showActive(widget);

    clickHeader(1);

    EXPECT_THAT(readAloud(table), ElementsAre("3", spokenRow(1), spokenRow(3), "|"));
}

TEST_F(BudgetItemsDueSpokenTest, SurvivesAnEmptyListAfterALongOne)
{
    update({dueIn(3), dueIn(99), dueIn(1)}, 14);
    showActive(widget);
    readAloud(table);

    update({}, 14);

    EXPECT_THAT(readAloud(table), ElementsAre("nothing"));
}
