#pragma once

#include <tlm/desktop_ui/CurrencyComboBox.h>
#include <tlm/desktop_ui/MoneyEntryWidget.h>

#include <QLineEdit>

#include <gtest/gtest.h>
#include <support/LocaleForScope.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using fiscora::Currency;
using fiscora::Money;

/// A money entry that offers dollars and euros, in a locale with a decimal point, and what is heard of it.
///
/// Every test of the program has that locale, or a process of its own, since a process takes its decimal point once.
class MoneyEntryFixture : public ::testing::Test
{
protected:
    static constexpr auto asCode = navigation::CurrencyDisplayOptions::Code;

    MoneyEntryFixture()
    {
        widget.setUsableCurrencies({Currency::USD, Currency::EUR}, asCode);
        auto const hear = [this](QString const& text) { heard.append(text); };
        QObject::connect(&widget, &MoneyEntryWidget::editingFinished, &widget, [hear] { hear("editingFinished"); });
        QObject::connect(&widget, &MoneyEntryWidget::currentIndexChanged, &widget,
                         [hear](int index) { hear(QStringLiteral("currentIndexChanged %1").arg(index)); });
        QObject::connect(&widget, &MoneyEntryWidget::moneyChanged, &widget, [hear](Money const& money) {
            hear("moneyChanged " + QString::fromStdString(toStdString(money)));
        });
    }

    /// Shows the entry, with the amount \a text in it as if it had been loaded.
    void showWith(Currency code, QString const& text)
    {
        codes.setCurrentCode(code);
        field.setText(text);
        widget.show();
        widget.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
        field.setFocus();
        heard.clear();
    }

    testing::LocaleForScope const locale{QLocale("en_US")};
    MoneyEntryWidget widget{nullptr};
    CurrencyComboBox& codes = testing::child<CurrencyComboBox>(widget, "codeCmbbx");
    QLineEdit& field = testing::child<QLineEdit>(widget, "amountLndt");
    QStringList heard;
};
}
