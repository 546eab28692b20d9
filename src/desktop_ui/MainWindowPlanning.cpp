#include "internal/BudgetedMoneyCreator.h"
#include "internal/BudgetedMoniesWidget.h"
#include "internal/CentralView.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <QDebug>

#include <concepts>
#include <memory>
#include <utility>

namespace tlm::desktop_ui {

using accounting::AccountCode;
using banking::BankAccount;
using banking::BankName;
using budgeting::BudgetItemTypes;
using fiscora::Currency;
using internal::BudgetedMoniesWidget;
using navigation::BudgetBankAccount;
using navigation::CurrencyDisplayOptions;
using navigation::GuiElementIdentifier;

namespace {

using AnyMoney = std::unique_ptr<budgeting::BudgetedMoney>;

template <BudgetItemTypes Type>
constexpr BudgetItemTypes typeOf(budgeting::BudgetedMoneyOf<Type> const* /*tag*/)
{
    return Type;
}

/// The kind of budget items whose record is \a Item.
template <typename Item>
constexpr auto type = typeOf(static_cast<Item const*>(nullptr));

/// Whether an \a Item knows the bank account that it belongs to.
template <typename Item>
constexpr auto hasAccount = std::same_as<Item, budgeting::Debt> || std::same_as<Item, budgeting::Goal>;

using Change = void (MainWindow::*)(GuiElementIdentifier const&, BudgetItemTypes, budgeting::BudgetedMoney const&,
                                    std::optional<BankAccount> const&);

/// \return what hands a record of the view on as \a change of \a window
template <typename Item>
auto handOn(MainWindow& window, Change change)
{
    return [&window, change](GuiElementIdentifier const& id, AnyMoney const& money,
                             std::optional<BankAccount> const& account) {
        (window.*change)(id, type<Item>, dynamic_cast<Item const&>(*money), hasAccount<Item> ? account : std::nullopt);
    };
}

void joinLookUps(BudgetedMoniesWidget& view, MainWindow& window)
{
    using View = BudgetedMoniesWidget;
    QObject::connect(&view, &View::lookUpBankAccounts, &window, [&window](BankName const& bn) {
        emit window.lookUpBankAccounts(bn, navigation::AllowSubAccounts::Yes);
    });
    QObject::connect(&window, &MainWindow::lookedUpBankAccounts, &view, &View::lookedUpBankAccounts);
}

template <typename Item>
void joinChanges(BudgetedMoniesWidget& view, MainWindow& window)
{
    using View = BudgetedMoniesWidget;
    QObject::connect(&view, &View::added, &window, handOn<Item>(window, &MainWindow::added));
    QObject::connect(&view, &View::renamed, &window,
                     [&window](auto const& id, auto const& original, auto const& changed) {
                         emit window.renamed(id, type<Item>, original, changed);
                     });
    QObject::connect(&view, &View::updated, &window, handOn<Item>(window, &MainWindow::updated));
    QObject::connect(&view, &View::removed, &window,
                     [&window](auto const& id, auto const& source) { emit window.removed(id, type<Item>, source); });
    QObject::connect(&window, &MainWindow::saveSucceeded, &view, &View::onSaveSucceeded);
    QObject::connect(&window, &MainWindow::saveFailed, &view, &View::onSaveFailed);
    QObject::connect(&view, &View::closing, &window, &MainWindow::prepareShowDashboard);
}

/// Replaces the central view of \a window by one that plans \a items.
template <typename Item>
void showPlan(budgeting::BudgetedMoneyMap<Item> const& items, QString const& heading,
              std::unique_ptr<internal::BudgetedMoneyCreator> creator, Currency preferred,
              std::set<Currency> const& usableCurrencies, CurrencyDisplayOptions displayAs, MainWindow& window)
{
    // Held like this since what can't be loaded must not stay behind and hear the answers to the next view.
    auto view = std::make_unique<BudgetedMoniesWidget>(heading, std::move(creator), preferred, usableCurrencies,
                                                       displayAs, &window);
    if constexpr (std::same_as<Item, budgeting::Goal>) {
        joinLookUps(*view, window);
    }
    joinChanges<Item>(*view, window);
    view->load(items);
    internal::showCentral(window, *view.release());
}
}

void MainWindow::onShowBills(budgeting::BillMap const& bills, Currency preferred,
                             std::set<Currency> const& usableCurrencies, CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing Bills.";
    showPlan(bills, tr("Budgeted Bills:"), std::make_unique<internal::BillCreator>(), preferred, usableCurrencies,
             displayAs, *this);
}

void MainWindow::onShowDebts(budgeting::DebtMap const& debts, std::set<BudgetBankAccount> const& accounts,
                             std::set<AccountCode> const& codes, std::set<BankName> const& banks, Currency preferred,
                             std::set<Currency> const& usableCurrencies, CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing Debts.";
    showPlan(debts, tr("Budgeted Debts:"), std::make_unique<internal::DebtCreator>(banks, codes, accounts), preferred,
             usableCurrencies, displayAs, *this);
}

void MainWindow::onShowGoals(budgeting::GoalMap const& goals, std::set<BudgetBankAccount> const& accounts,
                             std::set<AccountCode> const& codes, std::set<BankName> const& banks, Currency preferred,
                             std::set<Currency> const& usableCurrencies, CurrencyDisplayOptions displayAs,
                             fiscora::Money const& wagesTotal)
{
    qInfo() << "Showing Goal.";
    showPlan(goals, tr("Budgeted Goals:"), std::make_unique<internal::GoalCreator>(banks, accounts, codes, wagesTotal),
             preferred, usableCurrencies, displayAs, *this);
}

void MainWindow::onShowNontracks(budgeting::NontrackMap const& nontracks, Currency preferred,
                                 std::set<Currency> const& usableCurrencies, CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing Nontracks.";
    showPlan(nontracks, tr("Budgeted Non-tracks:"), std::make_unique<internal::NontrackCreator>(), preferred,
             usableCurrencies, displayAs, *this);
}

void MainWindow::onShowWages(budgeting::WageMap const& wages, Currency preferred,
                             std::set<Currency> const& usableCurrencies, CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing Wages.";
    showPlan(wages, tr("Budgeted Wages:"), std::make_unique<internal::WageCreator>(), preferred, usableCurrencies,
             displayAs, *this);
}
}
