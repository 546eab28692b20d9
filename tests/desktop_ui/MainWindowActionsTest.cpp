#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QAction>
#include <QSignalSpy>

#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using tlm::testing::child;

namespace {

struct ActionRow
{
    char const* name;
    char const* text;
    char const* toolTip;
    char const* statusTip;
    char const* shortcut;
};

std::ostream& operator<<(std::ostream& out, ActionRow const& row)
{
    return out << row.name;
}

constexpr ActionRow accountingActions[] = {
    {"exitActn", "E&xit", "Exits Application", "Click to quit the current application", "Ctrl+Q"},
    {"openActn", "&Open", "Load Budget File", "Click to load an existing budget file", "Ctrl+O"},
    {"saveActn", "&Save", "Save Budget File", "Click to save the current data using the current budget file", "Ctrl+S"},
    {"aboutQtActn", "About &Qt", "Qt Information", "Click to display information about the Qt library", ""},
    {"aboutActn", "&About", "Application Information", "Click to display information about the applcation", ""},
    {"wagesActn", "&Wages", "Manage Wages", "Click to manage all wage budget items", "Ctrl+W"},
    {"billsActn", "&Bills", "Manage Bills", "Click to manage all bill budget items", "Ctrl+B"},
    {"debtsActn", "&Debts", "Manage Debts", "Click to manage all debt budget items", "Ctrl+D"},
    {"goalsActn", "&Goals", "Manage Goals", "Click to manage all goal budget items", "Ctrl+G"},
    {"nontracksActn", "&Nontracks", "Manage Nontracks", "Click to manage all nontrack budget items", "Ctrl+A"},
    {"configureActn", "&Configure", "Configure Application", "Click to configure application settings", ""},
    {"exchangeRatesActn", "&Exchange Rates", "Manage Exchange Rates",
     "Click to manage the currency exchange rate information", ""},
    {"accountsActn", "&Accounts", "General Ledger Accounts", "Click to view all general ledger accounts", "Ctrl+U"},
    {"ledgersActn", "&Ledgers", "View Ledger Transactions", "Click to view all account ledger transactions", "Ctrl+L"},
    {"banksActn", "&Banks", "View Bank Accounts", "Click to view all bank accounts", "Ctrl+K"},
    {"processActn", "&Process", "Process Budget Items Due", "Click to process a budget item due", "Ctrl+T"},
    {"saveAsActn", "Save &As...", "Save Budget File with a name", "Click to save a budget file under a provided name",
     "Ctrl+Shift+S"},
    {"reloadActn", "&Reload", "Reload Budget File", "Click to reload the current budget file", ""},
    {"reconciliationActn", "&Reconciliation", "Survey Bank Account Reconcilliation",
     "Click to create a survey mapping of a bank account reconcilliation", "Ctrl+Y"},
    {"releaseNotesActn", "&Release Notes", "Application Release Notes",
     "Click to display the latest application release notes", ""},
    {"transferActn", "Tr&ansfer", "Transfer Between Accounts", "Click to transfer monies between bank accounts",
     "Ctrl+R"},
    {"refundActn", "&Refund", "Refund Budget Item", "Click to refund a processed budget item", "Ctrl+E"},
    {"emptyActn", "&Empty", "Empty Budget File", "Click to create a new empty budget file", "Ctrl+N"},
    {"wizardActn", "&Wizard", "Auto-generated Budget File", "Click to create a new budget file via a wizard", ""},
    {"handbookActn", "&Handbook", "Application Usage Information",
     "Click to display the help information on the application", "F1"},
};

constexpr ActionRow rewordedActions[] = {
    {"reconciliationActn", "&Survey", "Survey Bank Account Balance",
     "Click to create a survey mapping of a bank account balance", "Ctrl+Y"},
    {"processActn", "&Track", "Track Entry Budget Items Due", "Click to add a tracking entry for a budget item due",
     "Ctrl+T"},
    {"refundActn", "&Refund", "Refund Budget Item", "Click to refund a tracked budget item entry", "Ctrl+E"},
};

ActionRow inPlanningWording(ActionRow const& row)
{
    for (auto const& reworded : rewordedActions) {
        if (QLatin1String(reworded.name) == QLatin1String(row.name)) {
            return reworded;
        }
    }
    return row;
}

void expectAction(MainWindow const& window, ActionRow const& expected)
{
    auto const& action = child<QAction>(window, expected.name);

    EXPECT_EQ(action.parent(), &window);
    EXPECT_EQ(action.text(), expected.text);
    EXPECT_EQ(action.toolTip(), expected.toolTip);
    EXPECT_EQ(action.statusTip(), expected.statusTip);
    EXPECT_EQ(action.shortcut().toString(QKeySequence::PortableText), expected.shortcut);
    EXPECT_EQ(action.iconText(), QString(expected.text).remove('&').remove("..."));
}
}

class MainWindowActionTest : public ::testing::TestWithParam<ActionRow>
{};

TEST_P(MainWindowActionTest, ReadsAsAnAccountantExpects)
{
    navigation::ConfigurationOptions const options{true, false};
    MainWindow const window(options);

    expectAction(window, GetParam());
}

TEST_P(MainWindowActionTest, ReadsAsAPlannerExpects)
{
    navigation::ConfigurationOptions const options{false, false};
    MainWindow const window(options);

    expectAction(window, inPlanningWording(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(AllActions, MainWindowActionTest, ::testing::ValuesIn(accountingActions),
                         [](auto const& row) { return std::string(row.param.name); });

struct RequestRow
{
    char const* action;
    void (MainWindow::*request)();
};

std::ostream& operator<<(std::ostream& out, RequestRow const& row)
{
    return out << row.action;
}

constexpr RequestRow requests[] = {
    {"emptyActn", &MainWindow::prepareNewBudgetEmpty},
    {"wizardActn", &MainWindow::prepareNewBudgetFirstTimeWizard},
    {"saveActn", &MainWindow::saveBudgetFile},
    {"reloadActn", &MainWindow::reloadBudgetFile},
    {"billsActn", &MainWindow::prepareShowBills},
    {"debtsActn", &MainWindow::prepareShowDebts},
    {"goalsActn", &MainWindow::prepareShowGoals},
    {"nontracksActn", &MainWindow::prepareShowNontracks},
    {"wagesActn", &MainWindow::prepareShowWages},
    {"accountsActn", &MainWindow::prepareShowAccounts},
    {"banksActn", &MainWindow::prepareShowBanks},
    {"ledgersActn", &MainWindow::prepareShowLedgers},
    {"processActn", &MainWindow::prepareShowProcessBudgetItems},
    {"reconciliationActn", &MainWindow::prepareShowSurvey},
    {"transferActn", &MainWindow::prepareShowMoneyTransfer},
    {"refundActn", &MainWindow::prepareShowBudgetItemRefund},
    {"configureActn", &MainWindow::prepareShowConfigure},
    {"exchangeRatesActn", &MainWindow::prepareShowExchangeRates},
    {"releaseNotesActn", &MainWindow::fetchReleaseNotes},
};

class MainWindowRequestTest : public ::testing::TestWithParam<std::tuple<RequestRow, bool>>
{};

TEST_P(MainWindowRequestTest, AnActionAsksOnceAndForNothingElse)
{
    auto const& [row, isAccounting] = GetParam();
    navigation::ConfigurationOptions const options{isAccounting, false};
    MainWindow window(options);
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    auto const& meta = MainWindow::staticMetaObject;
    for (auto index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        if (meta.method(index).methodType() == QMetaMethod::Signal) {
            spies.push_back(std::make_unique<QSignalSpy>(&window, meta.method(index)));
        }
    }
    QSignalSpy const request(&window, row.request);

    child<QAction>(window, row.action).trigger();

    auto emissions = 0;
    for (auto const& spy : spies) {
        emissions += static_cast<int>(spy->count());
    }
    EXPECT_EQ(request.count(), 1);
    EXPECT_EQ(emissions, 1);
}

INSTANTIATE_TEST_SUITE_P(AllRequests, MainWindowRequestTest,
                         ::testing::Combine(::testing::ValuesIn(requests), ::testing::Bool()), [](auto const& row) {
                             return std::string(std::get<0>(row.param).action) +
                                    (std::get<1>(row.param) ? "Accounting" : "Planning");
                         });

struct KeyRow
{
    Qt::Key key;
    void (MainWindow::*request)();
    bool worksForAccountants;
    bool worksForPlanners;
};

class MainWindowKeyTest : public ::testing::TestWithParam<KeyRow>
{};

TEST_P(MainWindowKeyTest, AsksOnlyWhereItsActionIsVisible)
{
    auto const& row = GetParam();

    for (auto const isAccounting : {true, false}) {
        navigation::ConfigurationOptions const options{isAccounting, false};
        MainWindow window(options);
        QSignalSpy const request(&window, row.request);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

        QTest::keyClick(&window, row.key, Qt::ControlModifier);

        EXPECT_EQ(request.count(), (isAccounting ? row.worksForAccountants : row.worksForPlanners) ? 1 : 0);
    }
}

INSTANTIATE_TEST_SUITE_P(WordingsDiffer, MainWindowKeyTest,
                         ::testing::Values(KeyRow{Qt::Key_U, &MainWindow::prepareShowAccounts, true, false},
                                           KeyRow{Qt::Key_L, &MainWindow::prepareShowLedgers, true, false},
                                           KeyRow{Qt::Key_E, &MainWindow::prepareShowBudgetItemRefund, false, true},
                                           KeyRow{Qt::Key_R, &MainWindow::prepareShowMoneyTransfer, false, true},
                                           KeyRow{Qt::Key_B, &MainWindow::prepareShowBills, true, true},
                                           KeyRow{Qt::Key_Y, &MainWindow::prepareShowSurvey, true, true}));
}
