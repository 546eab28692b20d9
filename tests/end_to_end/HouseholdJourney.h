#pragma once

#include "Journey.h"

#include <tlm/foundation/PresentationText.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>

#include <support/DollarsAndEuros.h>

namespace tallymere {

using fiscora::Currency;
using fiscora::Money;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;

/// A journey through a budget in which nothing is planned yet. It is kept in dollars, knows euros at 1.25 dollars each, and one bank
/// with one account.
class HouseholdJourney : public Journey
{
protected:
    HouseholdJourney()
    {
        auto const places = storage::Places::ofUser();
        auto const document = storage::Document::create(places, engine::emptyContent(QLocale()));
        engine::Household household(document->content(), *document);
        keepInDollarsAndEuros(household, {.dollarsAnEuro = 1.25, .eurosADollar = 0.8});
        household.addBank(BankName("Aspen Bank"));
        household.addBankAccount(BankName("Aspen Bank"), "Everyday", BankAccountTypes::Checking, dollars(500),
                                 QDate::currentDate());
        document->saveAs(path);
    }

    QWidget& view() { return *window().centralWidget(); }

    /// Chooses by the first letters of a row, with the focus on \a box.
    static void choose(QComboBox& box, QString const& letters)
    {
        box.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&box, letters);
        ASSERT_TRUE(box.currentText().startsWith(letters)) << box.currentText().toStdString();
    }

    /// Saves the budget in its file, ends the program with the keyboard, and drops it.
    void saveAndQuit()
    {
        press(Qt::Key_S, Qt::ControlModifier);
        ASSERT_EQ(status(), QStringLiteral("Saved: '%1'").arg(path));
        EXPECT_FALSE(window().isWindowModified());
        press(Qt::Key_Q, Qt::ControlModifier);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !window().isVisible(); }))
            << "nothing is unsaved, so nothing is asked";
        program.reset();
    }

    QString const path = home.path("family.budget");
};
}
