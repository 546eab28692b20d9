#include <fiscora/Money.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/budgeting/Debt.h>
#include <tlm/budgeting/Goal.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/foundation/Percentage.h>
#include <tlm/navigation/ConfigurationOptions.h>
#include <tlm/navigation/GuiElementIdentifier.h>

#include <QMetaMethod>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace tlm::desktop_ui {

using budgeting::BudgetItemTypes;
using fiscora::Currency;
using fiscora::Money;

class MainWindowSignalsTest : public ::testing::Test
{
protected:
    navigation::ConfigurationOptions const options{true, false};
    MainWindow window{options};
};

TEST_F(MainWindowSignalsTest, EveryParameterIsKnownToTheMetaObject)
{
    auto const& meta = MainWindow::staticMetaObject;
    auto signalCount = 0;

    for (auto index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        auto const method = meta.method(index);
        signalCount += method.methodType() == QMetaMethod::Signal ? 1 : 0;
        for (auto parameter = 0; parameter < method.parameterCount(); ++parameter) {
            auto const type = method.parameterMetaType(parameter);

            EXPECT_TRUE(type.isValid()) << method.methodSignature().constData();
        }
    }

    EXPECT_EQ(signalCount, 90);
}

TEST_F(MainWindowSignalsTest, EveryParameterIsNamedWhole)
{
    QRegularExpression const shortened(
        "\\b(?<!::)(accounting|adviser|banking|budgeting|conversion|foundation|navigation|surveying|updating)::");
    auto const& meta = MainWindow::staticMetaObject;

    for (auto index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        auto const signature = QString::fromLatin1(meta.method(index).methodSignature());

        EXPECT_FALSE(signature.contains(shortened)) << signature.toStdString();
    }
}

TEST_F(MainWindowSignalsTest, ADebtLeavesAsADebt)
{
    navigation::GuiElementIdentifier const id;
    budgeting::Debt const debt(budgeting::BudgetSource("Car loan"), Money(Currency::USD, 250, 0, 0),
                               budgeting::EventFrequency::Monthly, QDate(2026, 1, 31), Money(Currency::USD, 9000, 0, 0),
                               foundation::Percentage(4.5, 6));
    std::optional<Money> borrowed;
    QObject::connect(&window, &MainWindow::added, &window,
                     [&](auto const&, BudgetItemTypes, budgeting::BudgetedMoney const& item, auto const&) {
                         borrowed = dynamic_cast<budgeting::Debt const&>(item).borrowed();
                     });

    emit window.added(id, BudgetItemTypes::Debt, debt, std::nullopt);

    EXPECT_EQ(borrowed, Money(Currency::USD, 9000, 0, 0));
}

TEST_F(MainWindowSignalsTest, AChangedGoalLeavesAsAGoal)
{
    navigation::GuiElementIdentifier const id;
    budgeting::Goal const goal(budgeting::BudgetSource("Holiday"), Money(Currency::USD, 80, 0, 0),
                               budgeting::EventFrequency::Monthly, QDate(2026, 2, 28),
                               Money(Currency::USD, 2000, 0, 0));
    std::optional<Money> aim;
    std::optional<navigation::GuiElementIdentifier> received;
    QObject::connect(&window, &MainWindow::updated, &window,
                     [&](auto const& entry, BudgetItemTypes, budgeting::BudgetedMoney const& item, auto const&) {
                         received = entry;
                         aim = dynamic_cast<budgeting::Goal const&>(item).final();
                     });

    emit window.updated(id, BudgetItemTypes::Goal, goal, std::nullopt);

    EXPECT_EQ(aim, Money(Currency::USD, 2000, 0, 0));
    EXPECT_TRUE(received == id);
}
}
