#include <tlm/desktop_ui/MainWindow.h> // and no header of a record

#include <gtest/gtest.h>

namespace tlm::desktop_ui {

namespace {

template <typename... Types>
constexpr bool areWhole = (... && (sizeof(Types) > 0));

static_assert(areWhole<fiscora::Money, accounting::Account, accounting::LedgerAccount, adviser::BudgetHealth,
                       banking::BankMap, banking::BankAccount, banking::ReconciledBalance, budgeting::BudgetTotals,
                       budgeting::BudgetItemAmountDue, budgeting::BillMap, budgeting::DebtMap, budgeting::GoalMap,
                       budgeting::NontrackMap, budgeting::WageMap, conversion::ConversionMap, foundation::Percentage,
                       navigation::BankAccountCode, navigation::BudgetBankAccount, navigation::GuiElementIdentifier,
                       surveying::DistributedAmount, surveying::MappingSurvey, updating::SemanticVersion,
                       surveying::IndexedIncreaseDecreases<budgeting::BudgetItemIdentifier>>);
}

TEST(MainWindowHeaderTest, APresenterJoinsTheWindowByThatHeaderAlone)
{
    navigation::ConfigurationOptions const options{true, false};
    MainWindow window(options);
    QString opened;
    QObject::connect(&window, &MainWindow::opened, &window,
                     [&opened](accounting::AccountCode const& code) { opened = code.name(); });

    emit window.opened(accounting::AccountCode(accounting::AccountNumber(1), "Cash", std::nullopt));

    EXPECT_EQ(opened, "Cash");
}
}
