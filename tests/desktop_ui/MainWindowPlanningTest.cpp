#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/banking/BankName.h>
#include <tlm/budgeting/BudgetedMoneyMap.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/BudgetBankAccount.h>
#include <tlm/navigation/ConfigurationOptions.h>
#include <tlm/navigation/GuiElementIdentifier.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/MessageLog.h>
#include <support/Typing.h>
#include <support/Widgets.h>
#include <typeinfo>

namespace tlm::desktop_ui {

using accounting::AccountCode;
using accounting::AccountNumber;
using banking::BankAccount;
using banking::BankAccountTypes;
using banking::BankName;
using budgeting::BudgetItemTypes;
using budgeting::BudgetSource;
using budgeting::EventFrequency;
using fiscora::Currency;
using fiscora::Money;
using navigation::CurrencyDisplayOptions;
using navigation::GuiElementIdentifier;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

namespace {

BudgetSource const car(QStringLiteral("Car"));
BankName const aspen("Aspen Bank");
BankName const birch("Birch Bank");
AccountCode const loan(AccountNumber(300), "Loan", std::nullopt);
AccountCode const savings(AccountNumber(200), "Rainy days", std::nullopt);
BankAccount const lent{birch, loan.number(), BankAccountTypes::Loan};
BankAccount const store{birch, savings.number(), BankAccountTypes::Savings};
std::set const usable{Currency::EUR, Currency::USD};
Money const hundred(Currency::EUR, 100, 0, 0);

constexpr auto displayAs = CurrencyDisplayOptions::Code;

/// How one kind of budget items is planned.
struct Kind
{
    BudgetItemTypes type;
    char const* heading;
    char const* logLine;
    void (*showNone)(MainWindow&);
    void (*showCar)(MainWindow&); ///< one item of a hundred euros a month; a debt or a goal has a bank account
    std::type_info const* record;
    std::optional<BankAccount> account;
};

template <typename Item, typename... Terms>
auto carOf(Terms const&... terms)
{
    return std::pair(car, Item(car, hundred, EventFrequency::Monthly, QDate(2031, 2, 3), terms...));
}

void showDebts(MainWindow& window, budgeting::DebtMap const& debts)
{
    window.onShowDebts(debts, {{car, lent}}, {loan}, {aspen, birch}, Currency::EUR, usable, displayAs);
}

void showGoals(MainWindow& window, budgeting::GoalMap const& goals)
{
    // The row of a goal reckons its share of the wages as soon as it has an amount.
    expectMessage(QtWarningMsg, "^What has no period can't be reckoned up");
    window.onShowGoals(goals, {{car, store}}, {savings}, {aspen, birch}, Currency::EUR, usable, displayAs,
                       Money(Currency::EUR, 400, 0, 0));
}

Money const total(Currency::EUR, 5'000, 0, 0);

Kind const kinds[] = {
    {BudgetItemTypes::Bill, "Budgeted Bills:", "Showing Bills.",
     [](MainWindow& window) { window.onShowBills({}, Currency::EUR, usable, displayAs); },
     [](MainWindow& window) { window.onShowBills({carOf<budgeting::Bill>()}, Currency::EUR, usable, displayAs); },
     &typeid(budgeting::Bill), std::nullopt},
    {BudgetItemTypes::Debt, "Budgeted Debts:", "Showing Debts.", [](MainWindow& window) { showDebts(window, {}); },
     [](MainWindow& window) { showDebts(window, {carOf<budgeting::Debt>(total, foundation::Percentage(4.25, 2))}); },
     &typeid(budgeting::Debt), lent},
    {BudgetItemTypes::Goal, "Budgeted Goals:", "Showing Goal.", [](MainWindow& window) { showGoals(window, {}); },
     [](MainWindow& window) { showGoals(window, {carOf<budgeting::Goal>(total)}); }, &typeid(budgeting::Goal), store},
    {BudgetItemTypes::Nontrack, "Budgeted Non-tracks:", "Showing Nontracks.",
     [](MainWindow& window) { window.onShowNontracks({}, Currency::EUR, usable, displayAs); },
     [](MainWindow& window) {
         window.onShowNontracks({carOf<budgeting::Nontrack>()}, Currency::EUR, usable, displayAs);
     },
     &typeid(budgeting::Nontrack), std::nullopt},
    {BudgetItemTypes::Wage, "Budgeted Wages:", "Showing Wages.",
     [](MainWindow& window) { window.onShowWages({}, Currency::EUR, usable, displayAs); },
     [](MainWindow& window) { window.onShowWages({carOf<budgeting::Wage>()}, Currency::EUR, usable, displayAs); },
     &typeid(budgeting::Wage), std::nullopt},
};
}

class MainWindowPlanningTest : public ::testing::Test
{
private:
    auto hear(QString const& change)
    {
        return [this, change](auto const& id, auto type, budgeting::BudgetedMoney const& item, auto const& account) {
            ids.push_back(id);
            types.push_back(type);
            records.push_back(&typeid(item));
            accounts.push_back(account);
            sent.append(change + " " + item.source().name());
        };
    }

protected:
    MainWindowPlanningTest()
    {
        QObject::connect(&window, &MainWindow::added, &window, hear("added"));
        QObject::connect(&window, &MainWindow::updated, &window, hear("updated"));
        QObject::connect(&window, &MainWindow::renamed, &window,
                         [this](auto const& id, auto type, auto const& original, auto const& changed) {
                             ids.push_back(id);
                             types.push_back(type);
                             sent.append("renamed " + original.name() + " to " + changed.name());
                         });
        QObject::connect(&window, &MainWindow::removed, &window, [this](auto const& id, auto type, auto const& source) {
            ids.push_back(id);
            types.push_back(type);
            sent.append("removed " + source.name());
        });
        QObject::connect(&window, &MainWindow::lookUpBankAccounts, &window, [this](auto const& bank, auto allow) {
            lookUps.append(bank.institution());
            EXPECT_EQ(allow, navigation::AllowSubAccounts::Yes);
            emit window.lookedUpBankAccounts(bank, {store.numberBankType()});
        });
    }

    QWidget& view() const { return *window.centralWidget(); }
    QLineEdit& source() const { return child<QLineEdit>(view(), "sourceLndt"); }
    void rename(QString const& name) const { tlm::testing::typeOver(source(), name); }
    void save() const { child<QDialogButtonBox>(view(), "saveDiscardBttnbx").button(QDialogButtonBox::Save)->click(); }

    navigation::ConfigurationOptions const options{true, false};
    MainWindow window{options};
    QSignalSpy dashboards{&window, &MainWindow::prepareShowDashboard};
    QStringList sent;
    QStringList lookUps; // names of banks
    std::vector<GuiElementIdentifier> ids;
    std::vector<BudgetItemTypes> types;
    std::vector<std::type_info const*> records;
    std::vector<std::optional<BankAccount>> accounts;
};

class MainWindowPlanningKindTest : public MainWindowPlanningTest, public ::testing::WithParamInterface<Kind>
{};

TEST_P(MainWindowPlanningKindTest, TheCentralViewPlansWhatWasAskedFor)
{
    GetParam().showCar(window);

    EXPECT_EQ(view().objectName(), "BudgetedMoniesWidget");
    EXPECT_EQ(child<QLabel>(view(), "displayingLbl").text(), GetParam().heading);
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString(GetParam().logLine)));
    EXPECT_EQ(source().text(), "Car");
}

TEST_P(MainWindowPlanningKindTest, NothingPlannedYetShowsAnEmptyRow)
{
    GetParam().showNone(window);

    EXPECT_EQ(source().text(), "");
    EXPECT_THAT(lookUps, IsEmpty());
}

TEST_P(MainWindowPlanningKindTest, ANewItemLeavesAsARecordOfItsKind)
{
    GetParam().showNone(window);
    rename("Boat");

    save();

    EXPECT_THAT(sent, ElementsAre("added Boat"));
    EXPECT_THAT(types, ElementsAre(GetParam().type));
    EXPECT_EQ(*records.front(), *GetParam().record);
    EXPECT_THAT(accounts, ElementsAre(std::nullopt));
}

TEST_P(MainWindowPlanningKindTest, AChangedItemLeavesAsARecordOfItsKindWithItsAccount)
{
    GetParam().showCar(window);
    rename("Boat");

    save();

    EXPECT_THAT(sent, ElementsAre("renamed Car to Boat", "updated Boat"));
    EXPECT_THAT(types, ElementsAre(GetParam().type, GetParam().type));
    EXPECT_EQ(ids.front(), ids.back());
    EXPECT_EQ(*records.front(), *GetParam().record);
    EXPECT_THAT(accounts, ElementsAre(GetParam().account));
}

TEST_P(MainWindowPlanningKindTest, ARemovedItemLeavesWithItsKind)
{
    GetParam().showCar(window);
    child<QCheckBox>(view(), "removeChckbx").click();

    save();

    EXPECT_THAT(sent, ElementsAre("removed Car"));
    EXPECT_THAT(types, ElementsAre(GetParam().type));
    EXPECT_EQ(dashboards.count(), 1);
}

TEST_P(MainWindowPlanningKindTest, AnAnswerReachesTheView)
{
    GetParam().showCar(window);
    rename("Boat");
    save();
    expectMessage(QtWarningMsg,
                  "^Failed to save, Original Source \"Car\" Displayed Source \"Boat\" \"It is taken\\.\"$");

    emit window.saveFailed(ids.front(), car, "It is taken.", BudgetSource("Boat"));
    EXPECT_EQ(child<QLabel>(view(), "messageLbl").text(), "It is taken.");
    EXPECT_EQ(dashboards.count(), 0);

    emit window.saveSucceeded(ids.front(), BudgetSource("Boat"));
    EXPECT_EQ(child<QLabel>(view(), "messageLbl").text(), "");
    EXPECT_EQ(dashboards.count(), 1);
}

TEST_P(MainWindowPlanningKindTest, DiscardAsksForTheDashboard)
{
    GetParam().showCar(window);
    rename("Boat");

    child<QDialogButtonBox>(view(), "saveDiscardBttnbx").button(QDialogButtonBox::Discard)->click();

    EXPECT_EQ(dashboards.count(), 1);
    EXPECT_THAT(sent, IsEmpty());
}

TEST_P(MainWindowPlanningKindTest, ShowingTheViewAgainReplacesIt)
{
    GetParam().showCar(window);
    rename("Boat");
    QPointer<QWidget> const before = &view();

    GetParam().showCar(window);

    EXPECT_NE(&view(), before);
    EXPECT_EQ(source().text(), "Car");
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(before.isNull());
    EXPECT_EQ(dashboards.count(), 0);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, MainWindowPlanningKindTest, ::testing::ValuesIn(kinds),
                         [](auto const& kind) { return presentationText(kind.param.type).toStdString(); });

TEST_F(MainWindowPlanningTest, ADebtShowsWhereItWasBorrowed)
{
    showDebts(window, {carOf<budgeting::Debt>(total, foundation::Percentage(4.25, 2))});

    EXPECT_EQ(child<QComboBox>(view(), "bankCmbbx").currentText(), "Birch Bank");
    EXPECT_THAT(lookUps, IsEmpty());
}

TEST_F(MainWindowPlanningTest, AGoalAsksForTheAccountsOfItsBankAndShowsItsOwn)
{
    showGoals(window, {carOf<budgeting::Goal>(total)});

    EXPECT_THAT(lookUps, ElementsAre("Birch Bank"));
    EXPECT_EQ(child<QComboBox>(view(), "bankCmbbx").currentText(), "Birch Bank");
    EXPECT_THAT(child<QComboBox>(view(), "accountCmbbx").currentText().toStdString(),
                ::testing::HasSubstr("Rainy days"));
    auto const spinBoxes = view().findChildren<QDoubleSpinBox*>();
    ASSERT_EQ(spinBoxes.size(), 1);
    EXPECT_EQ(spinBoxes.front()->value(), 25.0);
}

TEST_F(MainWindowPlanningTest, ALookUpAnswersTheGoalThatAskedAlone)
{
    showGoals(window, {});
    auto const& add = child<QDialogButtonBox>(view(), "saveDiscardBttnbx");
    for (auto* const button : add.buttons()) {
        if (add.buttonRole(button) == QDialogButtonBox::ActionRole) {
            button->click();
        }
    }
    auto const banks = view().findChildren<QComboBox*>("bankCmbbx");
    auto const offered = view().findChildren<QComboBox*>("accountCmbbx");
    ASSERT_EQ(banks.size(), 2);

    banks.at(1)->setCurrentText("Birch Bank");

    EXPECT_THAT(lookUps, ElementsAre("Birch Bank"));
    EXPECT_EQ(offered.at(0)->findText("Rainy days", Qt::MatchContains), -1);
    EXPECT_NE(offered.at(1)->findText("Rainy days", Qt::MatchContains), -1);
}

TEST_F(MainWindowPlanningTest, OtherKindsHearNoLookUp)
{
    window.onShowBills({carOf<budgeting::Bill>()}, Currency::EUR, usable, displayAs);

    emit window.lookedUpBankAccounts(birch, {store.numberBankType()});

    EXPECT_THAT(MessageLog::texts(QtWarningMsg), IsEmpty());
}

TEST_F(MainWindowPlanningTest, AViewThatCannotBeFilledLeavesTheOneBeforeAlone)
{
    window.onShowBills({carOf<budgeting::Bill>()}, Currency::EUR, usable, displayAs);
    rename("Boat");
    auto const showUnknownBank = [&] {
        window.onShowDebts({carOf<budgeting::Debt>(total, foundation::Percentage())}, {{car, lent}}, {loan}, {aspen},
                           Currency::EUR, usable, displayAs);
    };

    EXPECT_THROW(showUnknownBank(), std::exception);

    save();
    emit window.saveSucceeded(ids.front(), BudgetSource("Boat"));
    EXPECT_EQ(dashboards.count(), 1);
}
}
