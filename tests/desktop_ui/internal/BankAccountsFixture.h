#pragma once

#include "internal/BankAccountsWidget.h"
#include "support/ComboBoxes.h"
#include "support/Widgets.h"

#include <QComboBox>

#include <gtest/gtest.h>
#include <optional>
#include <set>

namespace tlm::testing {

inline accounting::AccountCode code(unsigned int number, QString const& name)
{
    return {accounting::AccountNumber(number), name, std::nullopt};
}

/// Two banks and the codes of three accounts, none of which has been looked up yet.
class BankAccountsFixture : public ::testing::Test
{
protected:
    using Account = banking::AccountNumberBankType;
    using Types = banking::BankAccountTypes;

    inline static banking::BankName const aspen{"Aspen Bank"};
    inline static banking::BankName const birch{"Birch Bank"};
    inline static accounting::AccountCode const everyday = code(100, "Everyday");
    inline static accounting::AccountCode const rainyDays = code(200, "Rainy days");
    inline static accounting::AccountCode const card = code(300, "Card");
    inline static std::set<Account> const birchAccounts{
        {everyday.number(), Types::Checking}, {rainyDays.number(), Types::Savings}, {card.number(), Types::CreditCard}};

    BankAccountsFixture()
    {
        using desktop_ui::internal::BankAccountsWidget;
        QObject::connect(&widget, &BankAccountsWidget::changedBankName, &widget,
                         [this](auto const& name) { heard.append(name ? "bank " + name->institution() : "no bank"); });
        QObject::connect(&widget, &BankAccountsWidget::lookUpBankAccounts, &widget,
                         [this](auto const& name) { heard.append("look up " + name.institution()); });
        QObject::connect(&widget, &BankAccountsWidget::changedAccountNumber, &widget, [this](auto const& number) {
            heard.append(number ? "account " + presentationText(*number) : "no account");
        });
        QObject::connect(&widget, &BankAccountsWidget::changedBankAccountType, &widget,
                         [this](auto changed) { heard.append("type " + presentationText(changed)); });
    }

    /// Leaves the widget with Birch Bank chosen and its accounts on offer.
    void chooseBirch()
    {
        widget.setBank(birch);
        widget.lookedUpBankAccounts(birchAccounts);
        heard.clear();
    }

    QStringList heard; // what the widget told its owner, in order
    desktop_ui::internal::BankAccountsWidget widget{{birch, aspen}, std::nullopt, {everyday, rainyDays, card}, nullptr};
    QComboBox& bank = child<QComboBox>(widget, "bankCmbbx");
    QComboBox& account = child<QComboBox>(widget, "accountCmbbx");
    QComboBox& type = child<QComboBox>(widget, "typeCmbbx");
};
}
