#pragma once

#include "ShowActive.h"
#include "internal/BudgetedMoneyEntryWidget.h"
#include "support/ComboBoxes.h"
#include "support/LocaleForScope.h"
#include "support/MessageLog.h"
#include "support/PlanningRow.h"

#include <tlm/accounting/AccountCode.h>

#include <QDebug>
#include <QFormLayout>
#include <QTest>

#include <gtest/gtest.h>
#include <set>

namespace tlm::testing {

/// What the rows of a planning view are made of, and what one of them does, in order.
class BudgetedEntryFixture : public ::testing::Test
{
protected:
    using Currency = fiscora::Currency;
    using Money = fiscora::Money;
    using Source = budgeting::BudgetSource;
    using Row = desktop_ui::internal::BudgetedMoneyEntryWidget;
    using Account = banking::AccountNumberBankType;
    using Types = banking::BankAccountTypes;

    static constexpr auto asCode = navigation::CurrencyDisplayOptions::Code;
    static constexpr auto monthly = budgeting::EventFrequency::Monthly;

    inline static std::set<Currency> const usable{Currency::USD, Currency::EUR};
    inline static banking::BankName const aspen{"Aspen Bank"};
    inline static banking::BankName const birch{"Birch Bank"};
    inline static QDate const mayDay{2031, 5, 1};

    static Money euros(long long amount) { return {Currency::EUR, amount, 0, 0}; }

    static accounting::AccountCode code(unsigned int number, QString const& name)
    {
        return {accounting::AccountNumber(number), name, std::nullopt};
    }

    /// Writes what \a row tells into the log, where it stands in line with what the row writes there itself.
    static void hear(Row& row)
    {
        QObject::connect(&row, &Row::valueChanged, &row, [] { qInfo("told valueChanged"); });
        QObject::connect(&row, &Row::lookUpBankAccounts, &row, [](auto const& bank) {
            qInfo().noquote() << "told lookUpBankAccounts" << bank.institution();
        });
    }

    /// \return signals of the row and its turning dirty, in order, since the log was cleared
    static QStringList events()
    {
        QStringList found;
        for (auto const& text : MessageLog::texts(QtInfoMsg)) {
            if (text.startsWith("told ")) {
                found.append(text.mid(5));
            } else if (text.startsWith("Budgeted Money Entry Widget is Dirty:")) {
                found.append("dirty");
            }
        }
        return found;
    }

    /// What a row does on an edit that can move the total.
    inline static QStringList const edited{"dirty", "valueChanged"};

    /// \return what \a act makes the row do
    template <typename Act>
    static QStringList eventsOf(Act const& act)
    {
        MessageLog::clear();
        act();
        return events();
    }

    /// Leaves \a row clean, on screen, and with the focus in \a entry.
    static void showIn(Row& row, QWidget& entry)
    {
        showActive(row);
        entry.setFocus();
        row.clearDirty();
        MessageLog::clear();
    }

    /// \return the labels and the entries of the extras from left to right; a label is empty where there is none
    static std::vector<std::pair<QString, QWidget*>> extras(Row const& row)
    {
        std::vector<std::pair<QString, QWidget*>> found;
        auto const& line = child<QHBoxLayout>(row, "extrasHbxlyt");
        for (auto index = 0; index < line.count(); ++index) {
            auto& item = *line.itemAt(index);
            if (auto const* const form = qobject_cast<QFormLayout*>(item.layout())) {
                auto const* const label = qobject_cast<QLabel*>(form->itemAt(0, QFormLayout::LabelRole)->widget());
                auto* const entry = form->itemAt(0, QFormLayout::FieldRole)->widget();
                EXPECT_EQ(label->buddy(), entry);
                found.emplace_back(label->text(), entry);
            } else {
                auto const* const label = item.widget()->findChild<QLabel*>("amountLbl");
                found.emplace_back(label == nullptr ? QString() : label->text(), item.widget());
            }
        }
        return found;
    }

    LocaleForScope const locale{QLocale("en_US")};
};
}
