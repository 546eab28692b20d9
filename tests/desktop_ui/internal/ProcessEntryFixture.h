#pragma once

#include "internal/ProcessBudgetItemEntryWidget.h"
#include "support/MessageLog.h"
#include "support/Typing.h"
#include "support/Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace tlm::testing {

/// What tests of the entries that post budget items have in common.
struct ProcessEntries
{
    using Entry = desktop_ui::internal::ProcessBudgetItemEntryWidget;
    using Action = desktop_ui::internal::BudgetItemDueAction;
    using Types = budgeting::BudgetItemTypes;
    using Source = budgeting::BudgetSource;
    using DueId = budgeting::BudgetItemDueIdentifier;
    using Due = budgeting::BudgetItemAmountDue;
    using AccountCode = accounting::AccountCode;
    using AccountNumber = accounting::AccountNumber;
    using BankName = banking::BankName;
    using Number = accounting::TransactionNumber;
    using Currency = fiscora::Currency;
    using Money = fiscora::Money;

    static Money euros(long long whole) { return {Currency::EUR, whole, 0, 0}; }

    static Due due(Types type, QString const& source, long long amount, QDate const& on = QDate(2031, 2, 3))
    {
        return {DueId{{type, Source(source)}, on}, euros(amount)};
    }

    static DueId unexpected(Types type, QString const& source) { return {{type, Source(source)}, QDate()}; }

    static QRadioButton& ignore(Entry const& entry) { return child<QRadioButton>(entry, "actionIgnoreRdbttn"); }
    static QRadioButton& process(Entry const& entry) { return child<QRadioButton>(entry, "actionProcessRdbttn"); }
    static QRadioButton& skip(Entry const& entry) { return child<QRadioButton>(entry, "actionSkipRdbttn"); }
    static QComboBox& type(Entry const& entry) { return box(entry, "itemDueCmbbx", "typeCmbbx"); }
    static QComboBox& source(Entry const& entry) { return box(entry, "itemDueCmbbx", "sourceCmbbx"); }
    static QComboBox& bank(Entry const& entry) { return child<QComboBox>(entry, "bankCmbbx"); }
    static QComboBox& account(Entry const& entry) { return child<QComboBox>(entry, "accountCmbbx"); }
    static QLabel& result(Entry const& entry) { return child<QLabel>(entry, "processLbl"); }

    static void typeAmount(Entry const& entry, QString const& text)
    {
        auto& field = child<QLineEdit>(entry, "amountLndt");
        typeOver(field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    static void choose(Entry const& entry, Types chosen) { type(entry).setCurrentText(presentationText(chosen)); }

    static QString error(Entry const& entry) { return entry.errorMessage().value_or("none"); }

    /// \return what the log and the signals tell of an amount
    static QString told(Money const& amount) { return QString::fromStdString(toStdString(amount)); }

    AccountCode const everyday{AccountNumber(1000), "Everyday", std::nullopt};
    AccountCode const savings{AccountNumber(1100), "Savings", std::nullopt};
    std::set<banking::AccountNumberBankType> const accountsOfAspen{
        {everyday.number(), banking::BankAccountTypes::Checking},
        {savings.number(), banking::BankAccountTypes::Savings}};
    BankName const aspen{"Aspen Bank"};
    BankName const birch{"Birch Bank"};

private:
    static QComboBox& box(Entry const& entry, QString const& part, QString const& name)
    {
        return child<QComboBox>(child<QWidget>(entry, part), name);
    }
};
}
