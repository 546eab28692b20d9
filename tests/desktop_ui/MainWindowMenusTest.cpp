#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <gtest/gtest.h>
#include <ostream>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using tlm::testing::child;

namespace {

QStringList entries(QMenu const& menu)
{
    QStringList names;
    for (auto const* const action : menu.actions()) {
        auto const name = action->menu() == nullptr ? action->objectName() : action->menu()->objectName();
        names.append(action->isSeparator() ? QStringLiteral("-") : name);
    }
    return names;
}

QStringList visibleEntries(QMenu const& menu)
{
    QStringList names;
    for (auto const* const action : menu.actions()) {
        if (action->isVisible()) {
            names.append(action->objectName());
        }
    }
    return names;
}
}

struct MenuRow
{
    char const* name;
    char const* accountingTitle;
    char const* planningTitle;
    QStringList entries;
};

std::ostream& operator<<(std::ostream& out, MenuRow const& row)
{
    return out << row.name;
}

class MainWindowMenuTest : public ::testing::TestWithParam<MenuRow>
{};

TEST_P(MainWindowMenuTest, HasItsTitleAndItsEntriesInBothWordings)
{
    auto const& row = GetParam();

    for (auto const isAccounting : {true, false}) {
        navigation::ConfigurationOptions const options{isAccounting, false};
        MainWindow const window(options);
        auto const& menu = child<QMenu>(window, row.name);

        EXPECT_EQ(menu.title(), isAccounting ? row.accountingTitle : row.planningTitle);
        EXPECT_EQ(entries(menu), row.entries);
    }
}

INSTANTIATE_TEST_SUITE_P(
    AllMenus, MainWindowMenuTest,
    ::testing::Values(
        MenuRow{"fileMn",
                "&File",
                "&File",
                {"newMn", "openActn", "saveActn", "saveAsActn", "-", "reloadActn", "-", "exitActn"}},
        MenuRow{"newMn", "&New", "&New", {"emptyActn", "wizardActn"}},
        MenuRow{"budgetingMn",
                "&Budgeting",
                "&Planning",
                {"billsActn", "debtsActn", "goalsActn", "nontracksActn", "wagesActn"}},
        MenuRow{"accountingMn",
                "&Accounting",
                "&Journalling",
                {"accountsActn", "banksActn", "ledgersActn", "processActn", "refundActn", "reconciliationActn",
                 "transferActn"}},
        MenuRow{"settingsMn", "Setti&ngs", "Setti&ngs", {"configureActn", "exchangeRatesActn"}},
        MenuRow{"helpMn", "&Help", "&Help", {"handbookActn", "releaseNotesActn", "-", "aboutActn", "aboutQtActn"}}),
    [](auto const& row) { return std::string(row.param.name); });

TEST(MainWindowMenuBarTest, ListsTheMenusInOrder)
{
    navigation::ConfigurationOptions const options;
    MainWindow const window(options);

    QStringList names;
    for (auto const* const action : child<QMenuBar>(window, "mainMnbr").actions()) {
        names.append(action->menu()->objectName());
    }

    EXPECT_EQ(names, QStringList({"fileMn", "budgetingMn", "accountingMn", "settingsMn", "helpMn"}));
}

TEST(MainWindowWordingTest, AccountantsSeeNoRefundAndNoTransfer)
{
    navigation::ConfigurationOptions const options{true, false};
    MainWindow const window(options);

    EXPECT_EQ(visibleEntries(child<QMenu>(window, "accountingMn")),
              QStringList({"accountsActn", "banksActn", "ledgersActn", "processActn", "reconciliationActn"}));
}

TEST(MainWindowWordingTest, PlannersSeeNoAccountsAndNoLedgers)
{
    navigation::ConfigurationOptions const options{false, false};
    MainWindow const window(options);

    EXPECT_EQ(visibleEntries(child<QMenu>(window, "accountingMn")),
              QStringList({"banksActn", "processActn", "refundActn", "reconciliationActn", "transferActn"}));
}
}
