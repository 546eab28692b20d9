#pragma once

#include "internal/AccountEntryWidget.h"
#include "internal/ErrorMessageWidget.h"
#include "support/ComboBoxes.h"
#include "support/MessageLog.h"
#include "support/Typing.h"
#include "support/Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tlm::testing {

/// Forms of accounts and their controls.
class AccountEntryFixture : public ::testing::Test
{
protected:
    using Entry = desktop_ui::internal::AccountEntryWidget;
    using Code = accounting::AccountCode;
    using Number = accounting::AccountNumber;
    using Types = accounting::AccountTypes;
    using BankTypes = banking::BankAccountTypes;
    using Currency = fiscora::Currency;
    using Money = fiscora::Money;
    using Display = navigation::CurrencyDisplayOptions;

    static Money euros(long long whole) { return {Currency::EUR, whole, 0, 0}; }

    static Code groceries() { return {Number(5000), "Groceries", Number(4000)}; }

    /// \return the form of an account of the ledger, which offers 1000, 4000 and 5000
    static std::unique_ptr<Entry> ledgerForm(std::optional<Code> const& code, bool closed = false)
    {
        return std::make_unique<Entry>(code, closed, Types::Expense, euros(20), chart(), usable(), Display::Code,
                                       nullptr);
    }
    static std::unique_ptr<Entry> newForm() { return ledgerForm(std::nullopt); }

    static std::unique_ptr<Entry> bankForm(std::optional<Code> const& code, BankTypes type)
    {
        return std::make_unique<Entry>(code, false, std::nullopt, euros(20), chart(), usable(), Display::Code, type,
                                       nullptr);
    }

    static std::set<Number> chart() { return {Number(1000), Number(4000), Number(5000)}; }
    static std::set<Currency> usable() { return {Currency::EUR, Currency::USD}; }

    static QLineEdit& number(QWidget const& form) { return child<QLineEdit>(form, "numberLndt"); }
    static QLineEdit& name(QWidget const& form) { return child<QLineEdit>(form, "nameLndt"); }
    static QComboBox& parents(QWidget const& form) { return child<QComboBox>(form, "parentCmbbx"); }
    static QComboBox& ledgerType(QWidget const& form) { return child<QComboBox>(form, "ledgerTypeCmbbx"); }
    static QComboBox& bankType(QWidget const& form) { return child<QComboBox>(form, "bankTypeCmbbx"); }
    static QCheckBox& closed(QWidget const& form) { return child<QCheckBox>(form, "closedChckbx"); }
    static QCheckBox& remove(QWidget const& form) { return child<QCheckBox>(form, "removeChckbx"); }
    static desktop_ui::MoneyEntryWidget& balance(QWidget const& form)
    {
        return child<desktop_ui::MoneyEntryWidget>(form, "balanceMnyntrywdgt");
    }
    static QLineEdit& amount(QWidget const& form) { return child<QLineEdit>(form, "amountLndt"); }
    static QComboBox& currency(QWidget const& form) { return child<QComboBox>(form, "codeCmbbx"); }
    static QString balanceLabel(QWidget const& form) { return child<QLabel>(form, "amountLbl").text(); }

    /// \return what the form tells to be wrong, none when its line is hidden
    static std::optional<QString> error(QWidget const& form)
    {
        auto const& line = child<desktop_ui::internal::ErrorMessageWidget>(form, "errorWdgt");
        return line.isHidden() ? std::nullopt : line.message();
    }

    static bool isOnView(QWidget const& form, char const* part)
    {
        return !child<QWidget>(form, QLatin1String(part)).isHidden();
    }

    /// Types over what is in the field, and leaves it with the Return key.
    static void enter(QLineEdit& field, QString const& text)
    {
        typeOver(field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    static QString row(QString const& number, QString const& name) { return number + Code::separator_ + name; }
};
}
