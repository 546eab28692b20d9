#include "internal/MonthlyTotalsWidget.h"

#include "ShowActive.h"
#include "support/MessageLog.h"
#include "support/Widgets.h"

#include <tlm/foundation/PresentationText.h>

#include <QHeaderView>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <set>

using fiscora::Currency;
using fiscora::Money;
using ::testing::ElementsAre;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetTotals;
using tlm::desktop_ui::internal::MonthlyTotalsWidget;
using tlm::foundation::presentationText;
using tlm::navigation::CurrencyDisplayOptions;
using tlm::testing::child;
using tlm::testing::MessageLog;
using tlm::testing::showActive;

namespace {

Money units(long long major, Currency code = Currency::USD)
{
    return {code, major, 0, 0};
}

BudgetTotals const totals{units(1), units(2), units(3), units(4), units(5)};

struct RowCase
{
    int row;
    char const* header;
    long long total;
    BudgetItemTypes type;
    char const* logged;
};

class MonthlyTotalsWidgetTest : public ::testing::Test
{
protected:
    void update(Currency preferred = Currency::USD, CurrencyDisplayOptions displayAs = CurrencyDisplayOptions::Code)
    {
        widget.updateTotals(totals, displayAs, preferred);
    }

    void doubleClick(int row)
    {
        auto const at = table.visualItemRect(table.item(row, 0)).center();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, at);
    }

    MonthlyTotalsWidget widget{nullptr};
    QTableWidget& table = child<QTableWidget>(widget, "monthlyTotalsTblwdgt");
    QSignalSpy selected{&widget, &MonthlyTotalsWidget::selectedBudgetType};
};

class MonthlyTotalsRowTest : public MonthlyTotalsWidgetTest, public ::testing::WithParamInterface<RowCase>
{};
}

INSTANTIATE_TEST_SUITE_P(Rows, MonthlyTotalsRowTest,
                         ::testing::Values(RowCase{0, "Wages", 1, BudgetItemTypes::Wage, "Selected wages total."},
                                           RowCase{1, "Nontrack", 5, BudgetItemTypes::Nontrack,
                                                   "Selected nontrack total."},
                                           RowCase{2, "Goals", 2, BudgetItemTypes::Goal, "Selected goals total."},
                                           RowCase{3, "Bills", 3, BudgetItemTypes::Bill, "Selected bills total."},
                                           RowCase{4, "Debts", 4, BudgetItemTypes::Debt, "Selected debts total."}),
                         [](auto const& row) { return row.param.header; });

TEST_P(MonthlyTotalsRowTest, ShowsTheTotalOfItsType)
{
    update();

    EXPECT_EQ(table.verticalHeaderItem(GetParam().row)->text(), GetParam().header);
    EXPECT_EQ(table.item(GetParam().row, 0)->text(), presentationText(units(GetParam().total)));
}

TEST_P(MonthlyTotalsRowTest, TellsOnceOfADoubleClick)
{
    update();
    showActive(widget);
    MessageLog::clear();

    doubleClick(GetParam().row);

    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected.at(0).at(0).value<BudgetItemTypes>(), GetParam().type);
    EXPECT_THAT(
        MessageLog::texts(QtInfoMsg),
        ElementsAre(QStringLiteral("Selected monthly total budget row %1").arg(GetParam().row), GetParam().logged));
}

TEST_P(MonthlyTotalsRowTest, OpensByKeyAsByDoubleClick)
{
    update();
    showActive(widget);
    table.setFocus();
    for (auto row = 0; row < GetParam().row; ++row) {
        QTest::keyClick(&table, Qt::Key_Down);
    }

    QTest::keyClick(&table, Qt::Key_Return);
    QTest::keyClick(&table, Qt::Key_Enter, Qt::KeypadModifier);

    ASSERT_EQ(selected.count(), 2);
    EXPECT_EQ(selected.at(0).at(0).value<BudgetItemTypes>(), GetParam().type);
    EXPECT_EQ(selected.at(1).at(0).value<BudgetItemTypes>(), GetParam().type);
}

TEST_F(MonthlyTotalsWidgetTest, TellsNothingOfASingleClick)
{
    update();
    showActive(widget);

    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(2, 0)).center());

    EXPECT_EQ(selected.count(), 0);
}

TEST_F(MonthlyTotalsWidgetTest, TellsNothingOfADoubleClickBelowTheRows)
{
    update();
    showActive(widget);
    auto const below = table.visualItemRect(table.item(4, 0)).bottomLeft() + QPoint(5, 5);

    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, below);

    EXPECT_EQ(selected.count(), 0);
}

TEST_F(MonthlyTotalsWidgetTest, OpensNothingForARowThatHasNoType)
{
    update();
    table.setRowCount(6);
    table.setItem(5, 0, new QTableWidgetItem("more"));
    MessageLog::clear();

    emit table.itemDoubleClicked(table.item(5, 0));

    EXPECT_EQ(selected.count(), 0);
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Selected monthly total budget row 5"));
}

TEST_F(MonthlyTotalsWidgetTest, OpensNothingForAnItemThatLeftItsTable)
{
    update();
    std::unique_ptr<QTableWidgetItem> const taken(table.takeItem(0, 0));
    MessageLog::clear();

    emit table.itemDoubleClicked(taken.get());

    EXPECT_EQ(selected.count(), 0);
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Selected monthly total budget row -1"));
}

TEST_F(MonthlyTotalsWidgetTest, LogsItsUpdate)
{
    MessageLog::clear();

    update();

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Updating monthly budget totals"));
}

TEST_F(MonthlyTotalsWidgetTest, NamesThePreferredCurrencyAsTheOptionShowsIt)
{
    for (auto const displayAs :
         {CurrencyDisplayOptions::Code, CurrencyDisplayOptions::SymbolAndCode, CurrencyDisplayOptions::NameAndCode}) {
        MonthlyTotalsWidget other(nullptr);

        other.updateTotals(totals, displayAs, Currency::EUR);

        EXPECT_EQ(child<QTableWidget>(other, "monthlyTotalsTblwdgt").horizontalHeaderItem(0)->text(),
                  QStringLiteral("Monthly Total (%1)").arg(toDisplayable(Currency::EUR, displayAs)));
    }
}

TEST_F(MonthlyTotalsWidgetTest, NamesEachOfTheCurrencies)
{
    std::set<QString> headers;

    for (auto const currency : fiscora::allCurrencies) {
        MonthlyTotalsWidget other(nullptr);
        other.updateTotals(
            {units(0, currency), units(0, currency), units(0, currency), units(0, currency), units(0, currency)},
            CurrencyDisplayOptions::NameAndCode, currency);
        headers.insert(child<QTableWidget>(other, "monthlyTotalsTblwdgt").horizontalHeaderItem(0)->text());
    }

    EXPECT_EQ(headers.size(), fiscora::allCurrencies.size());
}

TEST_F(MonthlyTotalsWidgetTest, ShowsTheEmptyMoneyAsBlank)
{
    widget.updateTotals({}, CurrencyDisplayOptions::Code, Currency::XXX);

    for (auto row = 0; row < table.rowCount(); ++row) {
        EXPECT_EQ(table.item(row, 0)->text(), QString());
    }
}

TEST_F(MonthlyTotalsWidgetTest, ShowsAllRowsWithoutScrolling)
{
    update();
    showActive(widget);

    auto const last = table.visualItemRect(table.item(4, 0));

    EXPECT_LE(last.bottom(), table.viewport()->height());
    EXPECT_FALSE(table.verticalScrollBar()->isVisible());
    EXPECT_EQ(table.height(), 210);
}

TEST_F(MonthlyTotalsWidgetTest, LetsTabLeaveTheTable)
{
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    auto* const totalsView = new MonthlyTotalsWidget(&window);
    auto* const next = new QLineEdit(&window);
    layout->addWidget(totalsView);
    layout->addWidget(next);
    totalsView->updateTotals(totals, CurrencyDisplayOptions::Code, Currency::USD);
    showActive(window);
    auto& first = child<QTableWidget>(window, "monthlyTotalsTblwdgt");
    first.setFocus();

    QTest::keyClick(&first, Qt::Key_Tab);

    EXPECT_EQ(QApplication::focusWidget(), next);
}

TEST_F(MonthlyTotalsWidgetTest, EndsWhenClosed)
{
    QPointer<MonthlyTotalsWidget> const view = new MonthlyTotalsWidget(nullptr);
    showActive(*view);

    view->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_TRUE(view.isNull());
}
