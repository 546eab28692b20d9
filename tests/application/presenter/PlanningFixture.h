#pragma once

#include "Fixture.h"

#include <presenter/PlanningPresenter.h>
#include <tlm/budgeting/Bill.h>
#include <tlm/budgeting/Debt.h>
#include <tlm/budgeting/Goal.h>
#include <tlm/budgeting/Nontrack.h>
#include <tlm/budgeting/Wage.h>

#include <QSignalSpy>

#include <memory>
#include <optional>
#include <ostream>
#include <support/DollarsAndEuros.h>
#include <vector>

namespace tallymere::presenter {

using fiscora::Currency;
using fiscora::Money;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::Bill;
using tlm::budgeting::BudgetedMoney;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::Debt;
using tlm::budgeting::EventFrequency;
using tlm::budgeting::Goal;
using tlm::desktop_ui::MainWindow;
using tlm::foundation::Percentage;
using tlm::navigation::GuiElementIdentifier;

inline constexpr auto everyKind = {BudgetItemTypes::Bill, BudgetItemTypes::Debt, BudgetItemTypes::Goal,
                                   BudgetItemTypes::Nontrack, BudgetItemTypes::Wage};

/// How the presenter answered one change.
struct Answer
{
    GuiElementIdentifier id;
    std::optional<QString> refusal; ///< empty for a success
    std::optional<BudgetSource> original;
    std::optional<BudgetSource> displayed;
};

/// What a view tells of one item, as it stands in the form.
struct Told
{
    QString name;
    Money amount = dollars(100);
    EventFrequency period = EventFrequency::Monthly;
    QDate nextOccurOn = QDate(2026, 3, 31);
    Money further = dollars(2'000); ///< the sum borrowed of a debt, the final total of a goal
    Percentage interest = {4.5, 2};
};

inline std::unique_ptr<BudgetedMoney> record(BudgetItemTypes type, Told const& told)
{
    BudgetSource const source(told.name);
    switch (type) {
    case BudgetItemTypes::Bill:
        return std::make_unique<Bill>(source, told.amount, told.period, told.nextOccurOn);
    case BudgetItemTypes::Debt:
        return std::make_unique<Debt>(source, told.amount, told.period, told.nextOccurOn, told.further, told.interest);
    case BudgetItemTypes::Goal:
        return std::make_unique<Goal>(source, told.amount, told.period, told.nextOccurOn, told.further);
    case BudgetItemTypes::Nontrack:
        return std::make_unique<tlm::budgeting::Nontrack>(source, told.amount, told.period, told.nextOccurOn);
    case BudgetItemTypes::Wage:
        return std::make_unique<tlm::budgeting::Wage>(source, told.amount, told.period, told.nextOccurOn);
    case BudgetItemTypes::None:
        break;
    }
    throw std::logic_error("no kind of budget item");
}

/// A budget in dollars and euros, with a bank of two accounts, and the presenter under test. Changes reach it as the window
/// tells them; its answers are kept in `answers`.
class PlanningTest : public PresenterTest
{
protected:
    PlanningTest()
    {
        session.change([this](engine::Household& household) { setUp(household); });
        changes.clear();
        QObject::connect(&window, &MainWindow::saveSucceeded, &window, [this](auto const& entry, auto const& source) {
            answers.push_back({entry, {}, {}, source});
        });
        QObject::connect(&window, &MainWindow::saveFailed, &window,
                         [this](auto const& entry, auto const& original, auto const& message, auto const& displayed) {
                             answers.push_back({entry, message, original, displayed});
                         });
    }

    void add(BudgetItemTypes type, Told const& told, std::optional<BankAccount> const& ba = {})
    {
        emit window.added(id, type, *record(type, told), ba);
    }
    void rename(BudgetItemTypes type, QString const& original, QString const& changed)
    {
        emit window.renamed(id, type, BudgetSource(original), BudgetSource(changed));
    }
    void update(BudgetItemTypes type, Told const& told, std::optional<BankAccount> const& ba = {})
    {
        emit window.updated(id, type, *record(type, told), ba);
    }
    void remove(BudgetItemTypes type, QString const& name) { emit window.removed(id, type, BudgetSource(name)); }

    /// \return the item of that name, to the letter
    /// \throws std::out_of_range when there is none
    engine::PlannedItem const& item(BudgetItemTypes type, QString const& name) const
    {
        return content().items.at({type, BudgetSource(name)});
    }
    bool isPlanned(BudgetItemTypes type, QString const& name) const
    {
        return content().items.contains({type, BudgetSource(name)});
    }
    engine::BudgetContent const& content() const { return session.household().content(); }

    /// Expects that the last change was accepted, answered once, and told to whoever follows the budget.
    void expectAccepted(QString const& name)
    {
        ASSERT_EQ(answers.size(), 1U);
        EXPECT_EQ(answers.front().id, id);
        EXPECT_EQ(answers.front().refusal, std::nullopt) << answers.front().refusal->toStdString();
        EXPECT_EQ(answers.front().displayed, BudgetSource(name));
        EXPECT_EQ(changes.count(), 1);
    }

    /// Forgets what was answered so far.
    void forget()
    {
        answers.clear();
        changes.clear();
    }

    GuiElementIdentifier id;
    BankName const bank{"Aspen Bank"};
    BankAccount everyday{bank, {}, BankAccountTypes::Checking};
    BankAccount card{bank, {}, BankAccountTypes::CreditCard};
    PlanningPresenter presenter{window, session};
    std::vector<Answer> answers;
    QSignalSpy changes{&session, &Session::changed};

private:
    void setUp(engine::Household& household)
    {
        keepInDollarsAndEuros(household, {.dollarsAnEuro = 1.5, .eurosADollar = 0.5});
        household.addBank(bank);
        QDate const opened(2026, 1, 2);
        everyday.number = household.addBankAccount(bank, "Everyday", everyday.type, dollars(500), opened);
        card.number = household.addBankAccount(bank, "Card", card.type, dollars(0), opened);
    }
};
}
