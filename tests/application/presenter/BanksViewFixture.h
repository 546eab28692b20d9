#pragma once

#include "BanksFixture.h"
#include "BooksView.h"

#include <engine/PlannedItem.h>

#include <QTreeWidget>

#include <chrono>

namespace tallymere::presenter {

/// The view of banks.
class BanksViewTest : public BooksView<BanksTest>
{
protected:
    void show()
    {
        emit window.prepareShowBanks();
        rest();
    }

    QTreeWidget& tree() { return tlm::testing::child<QTreeWidget>(view(), "bankAndAccountsTrwdgt"); }

    QTreeWidgetItem& row(QString const& text)
    {
        auto const rows = tree().findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        if (rows.size() != 1) {
            throw std::runtime_error("no one row of " + text.toStdString());
        }
        return *rows.front();
    }

    /// Chooses a row. \return its form
    QWidget& bankForm(QString const& name)
    {
        tree().setCurrentItem(&row(name));
        return shownForm("BankEntryWdgt");
    }
    QWidget& accountForm(AccountCode const& code)
    {
        tree().setCurrentItem(&row(tlm::accounting::presentationText(code)));
        return shownForm("AccountEntryWdgt");
    }

    void addBank(QString const& name)
    {
        press("&Add Bank");
        enter(shownForm("BankEntryWdgt"), "nameLndt", name);
    }

    /// Fills in a new account of the bank that is chosen. \return its form
    QWidget& addAccount(QString const& name, BankAccountTypes type, QString const& amount)
    {
        press("Add A&ccount");
        auto& added = shownForm("AccountEntryWdgt");
        enter(added, "nameLndt", name);
        choose(added, "bankTypeCmbbx", presentationText(type));
        enterDollars(added, "balanceMnyntrywdgt", amount);
        return added;
    }

    /// Saves, and waits until the banks have followed the accounts.
    void save() override
    {
        press(QDialogButtonBox::Save);
        QTest::qWait(int(std::chrono::milliseconds(std::chrono::seconds(2)).count()));
        rest();
    }

    /// Plans a goal that is stored under the checking account. \return the account that it owns
    AccountNumber storeGoal()
    {
        engine::PlannedItem goal;
        goal.identifier = {tlm::budgeting::BudgetItemTypes::Goal, tlm::budgeting::BudgetSource("Bicycle")};
        goal.amount = dollars(50);
        goal.period = tlm::budgeting::EventFrequency::Monthly;
        goal.nextOccurOn = QDate(2026, 12, 1);
        goal.goalTotal = dollars(850);
        session.change([&](Household& household) {
            household.add(goal, tlm::banking::BankAccount{bank, everyday, BankAccountTypes::Checking},
                          QDate(2026, 1, 2));
        });
        forget();
        return numberOf("Bicycle");
    }
};
}
