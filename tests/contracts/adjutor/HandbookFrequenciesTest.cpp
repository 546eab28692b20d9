#include "Handbook.h"

#include <tlm/budgeting/Accumulate.h>
#include <tlm/budgeting/EventFrequency.h>
#include <tlm/budgeting/WorkingWeek.h>

#include <QLocale>
#include <QTextTable>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace tlm::adjutor {

namespace {

using budgeting::EventFrequency;
using fiscora::Currency;
using fiscora::Money;

QString cellText(QTextTable const& table, int row, int column)
{
    return table.cellAt(row, column).firstCursorPosition().block().text();
}

/// \return what 120 dollars come to per month, in cents rounded half up
long long centsPerMonth(EventFrequency frequency)
{
    auto const month = accumulateOver(EventFrequency::Monthly, Money(Currency::USD, 120, 0, 0), frequency);
    return (month.amount() + 50) / 100;
}

TEST(HandbookFrequenciesTest, EachFrequencyIsToldAsItCounts)
{
    budgeting::setWorkingWeek(budgeting::WorkingWeek());
    HelpWidget help(nullptr);
    help.displayStartPage();
    browser(help).setSource(QUrl(QStringLiteral("frequencies.md")));
    auto const frames = browser(help).document()->rootFrame()->childFrames();
    ASSERT_EQ(frames.size(), 1);
    auto const& table = *qobject_cast<QTextTable*>(frames.first());

    std::set<EventFrequency> told;
    for (auto row = 1; row < table.rows(); ++row) {
        auto const frequency = budgeting::toEventFrequency(cellText(table, row, 0));
        told.insert(frequency);
        EXPECT_EQ(cellText(table, row, 2),
                  QLocale(QLocale::English).toString(static_cast<double>(centsPerMonth(frequency)) / 100.0, 'f', 2))
            << cellText(table, row, 0).toStdString();
    }

    EXPECT_EQ(told.size(), 21U);
    EXPECT_FALSE(told.contains(EventFrequency::None));
}
}
}
