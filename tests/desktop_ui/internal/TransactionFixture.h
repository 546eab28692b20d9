#pragma once

#include "ShowActive.h"
#include "internal/TransactionWidget.h"
#include "support/ComboBoxes.h"
#include "support/MessageLog.h"
#include "support/Widgets.h"
#include "tlm/desktop_ui/MoneyEntryWidget.h"

#include <tlm/foundation/PresentationText.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace tlm::testing {

/// The form of one transaction in euros, seen from the account of the cash unless told otherwise, not on screen yet.
class TransactionFixture : public ::testing::Test
{
protected:
    using Form = desktop_ui::internal::TransactionWidget;
    using AccountCode = accounting::AccountCode;
    using Number = accounting::TransactionNumber;
    using Statuses = accounting::TransactionStatuses;
    using Transaction = accounting::Transaction;
    using Currency = fiscora::Currency;
    using Money = fiscora::Money;

    static AccountCode account(unsigned int number, QString const& name)
    {
        return {accounting::AccountNumber(number), name, std::nullopt};
    }

    /// \return one that is part of the account numbered \a parent
    static AccountCode account(unsigned int number, QString const& name, unsigned int parent)
    {
        return {accounting::AccountNumber(number), name, accounting::AccountNumber(parent)};
    }

    static Money euros(long long whole) { return {Currency::EUR, whole, 0, 0}; }

    /// \return one of 40.50 euros, on the third of February
    static Transaction posting(AccountCode const& debiting, AccountCode const& crediting,
                               Statuses status = Statuses::NotCleared, std::optional<QString> const& about = "Bread")
    {
        return {QDate(2031, 2, 3), debiting, crediting, Money(Currency::EUR, 40, 50, 0), about, Number(7), status};
    }

    /// Makes the form.
    Form& show(Transaction const& txn) { return show(txn, cash); }
    Form& show(Transaction const& txn, AccountCode const& ledger, bool usesEverydayTerms = false)
    {
        form = std::make_unique<Form>(txn, ledger, accounts, std::set{Currency::EUR, Currency::USD},
                                      navigation::CurrencyDisplayOptions::Code, usesEverydayTerms, nullptr);
        return *form;
    }

    /// Makes the form of what was bought in cash.
    Form& showPurchase(Statuses status = Statuses::NotCleared) { return show(posting(food, cash, status)); }

    template <typename T>
    T& part(QString const& name) const
    {
        return child<T>(*form, name);
    }

    QLabel& number() const { return part<QLabel>("numberLbl"); }
    QDateEdit& date() const { return part<QDateEdit>("occurredOnDtdt"); }
    QLineEdit& description() const { return part<QLineEdit>("descriptionLndt"); }
    QRadioButton& debit() const { return part<QRadioButton>("debitRdbttn"); }
    QRadioButton& credit() const { return part<QRadioButton>("creditRdbttn"); }
    QComboBox& other() const { return part<QComboBox>("accountCmbbx"); }
    desktop_ui::MoneyEntryWidget& money() const { return part<desktop_ui::MoneyEntryWidget>("amountMnyntry"); }
    QLineEdit& amount() const { return part<QLineEdit>("amountLndt"); }
    QComboBox& currency() const { return part<QComboBox>("codeCmbbx"); }
    QCheckBox& select() const { return part<QCheckBox>("selectedChckbx"); }
    QCheckBox& reconciled() const { return part<QCheckBox>("reconciledChckbx"); }
    QCheckBox& remove() const { return part<QCheckBox>("removeChckbx"); }

    /// \return what the form tells to be wrong, "none" when nothing is
    QString error() const
    {
        auto const& line = part<QWidget>("errorWdgt");
        return line.isHidden() ? "none" : child<QLabel>(line, "messageLbl").text();
    }

    QStringList offered() const { return itemTexts(other()); }

    AccountCode const cash = account(1000, "Cash", 900);
    AccountCode const food = account(4000, "Food", 3900);
    AccountCode const rent = account(4100, "Rent");
    std::vector<AccountCode> accounts{rent, cash, food};
    std::unique_ptr<Form> form;
};
}
