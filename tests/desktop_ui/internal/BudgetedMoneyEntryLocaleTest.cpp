#include "BudgetedEntryFixture.h"
#include "internal/BudgetedDebtEntryWidget.h"
#include "internal/BudgetedGoalEntryWidget.h"
#include "support/OwnProcess.h"
#include "support/Typing.h"

#include <tlm/budgeting/Debt.h>
#include <tlm/budgeting/Goal.h>

#include <QDoubleSpinBox>

using tlm::budgeting::Debt;
using tlm::budgeting::Goal;
using tlm::desktop_ui::internal::BudgetedDebtEntryWidget;
using tlm::desktop_ui::internal::BudgetedGoalEntryWidget;
using tlm::testing::BudgetedEntryFixture;
using tlm::testing::inOwnProcess;
using tlm::testing::PlanningRow;
using tlm::testing::typeOver;

namespace {

struct LocaleCase
{
    char const* locale;
    QString typed; ///< 12.5 as people there write it
};

/// What people type where the decimal point is another, or the digits are. Each runs in a process of its own.
class BudgetedMoneyEntryLocaleTest : public BudgetedEntryFixture, public ::testing::WithParamInterface<LocaleCase>
{
protected:
    static void inItsLocale(std::function<void()> const& body) { inOwnProcess(QLocale(GetParam().locale), body); }

    static void typeAndLeave(Row& row, QWidget& field)
    {
        showIn(row, field);
        typeOver(field, GetParam().typed);
        QTest::keyClick(&field, Qt::Key_Tab);
    }
};

INSTANTIATE_TEST_SUITE_P(Locales, BudgetedMoneyEntryLocaleTest,
                         ::testing::Values(LocaleCase{"en_US", "12.5"}, LocaleCase{"de_DE", "12,5"},
                                           LocaleCase{"ar_EG", "١٢٫٥"}, LocaleCase{"fa_IR", "۱۲٫۵"}),
                         [](auto const& locale) { return locale.param.locale; });
}

TEST_P(BudgetedMoneyEntryLocaleTest, ATypedAmountIsRead)
{
    inItsLocale([] {
        Row row(usable, asCode, nullptr);
        row.setBudgetedMoney({Source("Rent"), euros(950), monthly, mayDay});

        typeAndLeave(row, PlanningRow(row).amount());

        EXPECT_EQ(row.amount(), Money(Currency::EUR, 12, 50, 0));
        EXPECT_TRUE(row.isDirty());
    });
}

TEST_P(BudgetedMoneyEntryLocaleTest, TheSumBorrowedAndTheInterestAreRead)
{
    inItsLocale([] {
        BudgetedDebtEntryWidget row({}, {}, {}, usable, asCode, nullptr);
        row.setBudgetedMoney(Debt(Source(), euros(250), monthly, mayDay, euros(9000), {1.0, 2}));

        typeAndLeave(row, PlanningRow(row).borrowed());
        typeAndLeave(row, PlanningRow(row).interest());

        EXPECT_EQ(row.borrowed(), Money(Currency::EUR, 12, 50, 0));
        EXPECT_EQ(row.interest().rate(), 12.5);
    });
}

TEST_P(BudgetedMoneyEntryLocaleTest, TheFinalTotalIsReadAndTheShareIsShown)
{
    inItsLocale([] {
        auto const wages = euros(100);
        BudgetedGoalEntryWidget row({}, wages, {}, {}, usable, asCode, nullptr);
        tlm::testing::expectMessage(QtWarningMsg, "no period");
        row.setBudgetedMoney(Goal(Source(), euros(1), monthly, mayDay, euros(1)));

        typeAndLeave(row, PlanningRow(row).finalTotal());
        typeAndLeave(row, PlanningRow(row).amount());

        EXPECT_EQ(row.finalTotal(), Money(Currency::EUR, 12, 50, 0));
        EXPECT_EQ(row.findChild<QDoubleSpinBox*>()->value(), 12.5);
        EXPECT_EQ(row.findChild<QDoubleSpinBox*>()->text(), QLocale().toString(12.5, 'f', 2) + "%");
    });
}
