#include "internal/BankNameWidget.h"

#include "ShowActive.h"
#include "support/Translation.h"
#include "support/Widgets.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <QAccessible>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using tlm::banking::BankName;
using tlm::desktop_ui::DataEntryError;
using tlm::desktop_ui::internal::BankNameWidget;
using tlm::testing::child;
using tlm::testing::showActive;
using tlm::testing::Translation;

namespace {

class BankNameWidgetTest : public ::testing::Test
{
protected:
    /// \return what the widget tells of its missing name
    QString refusal() const
    {
        try {
            widget.bankName();
        } catch (DataEntryError const& error) {
            return error.message();
        }
        return {};
    }

    BankNameWidget widget{nullptr};
    QLineEdit& name = child<QLineEdit>(widget, "nameLndt");
    QSignalSpy finished{&widget, &BankNameWidget::editingFinished};
};
}

TEST_F(BankNameWidgetTest, StartsWithoutAName)
{
    EXPECT_EQ(name.text(), QString());
    EXPECT_EQ(widget.tryBankName(), std::nullopt);
}

TEST_F(BankNameWidgetTest, SharesOneTextForANewBank)
{
    BankNameWidget const other(nullptr);

    EXPECT_EQ(name.placeholderText(), "New Bank");
    EXPECT_EQ(BankNameWidget::newBankText(), "New Bank");
    EXPECT_EQ(&BankNameWidget::newBankText(), &BankNameWidget::newBankText());
    EXPECT_EQ(child<QLineEdit>(other, "nameLndt").placeholderText().constData(), name.placeholderText().constData());
}

TEST_F(BankNameWidgetTest, ShowsTheNameSetWithoutTellingOfIt)
{
    widget.setBankName(BankName("Birch & Daughters"));

    EXPECT_EQ(name.text(), "Birch & Daughters");
    EXPECT_EQ(finished.count(), 0);
}

TEST_F(BankNameWidgetTest, GivesTheNameAsTyped)
{
    QTest::keyClicks(&name, " Birch Bank ");

    EXPECT_EQ(widget.tryBankName(), BankName(" Birch Bank "));
    EXPECT_EQ(widget.bankName(), BankName(" Birch Bank "));
}

TEST_F(BankNameWidgetTest, AcceptsANameOfBlanks)
{
    QTest::keyClicks(&name, "  ");

    EXPECT_EQ(widget.tryBankName(), BankName("  "));
    EXPECT_EQ(widget.bankName(), BankName("  "));
}

TEST_F(BankNameWidgetTest, RefusesAMissingName)
{
    widget.setBankName(BankName("Birch Bank"));
    name.selectAll();
    QTest::keyClick(&name, Qt::Key_Delete);

    EXPECT_EQ(widget.tryBankName(), std::nullopt);
    EXPECT_EQ(refusal(), "The value, , is not valid for the \"bank name\" entry. A valid bank name cannot be empty.");
}

TEST_F(BankNameWidgetTest, RefusesAMissingNameInThePersonsLanguage)
{
    Translation const german({{"bank name", "Bankname"},
                              {"A valid bank name cannot be empty.", "Ein Bankname darf nicht leer sein."},
                              {"The value, %1, is not valid for the \"%2\" entry. %3", "%1%2: %3"}});

    EXPECT_EQ(refusal(), "Bankname: Ein Bankname darf nicht leer sein.");
}

TEST_F(BankNameWidgetTest, TellsOnceThatTypingIsFinished)
{
    QTest::keyClicks(&name, "Birch");

    QTest::keyClick(&name, Qt::Key_Return);

    EXPECT_EQ(finished.count(), 1);
}

TEST_F(BankNameWidgetTest, TellsThatTypingIsFinishedWhenTheFocusLeaves)
{
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    auto* const entry = new BankNameWidget(&window);
    auto* const next = new QLineEdit(&window);
    layout->addWidget(entry);
    layout->addWidget(next);
    QSignalSpy left(entry, &BankNameWidget::editingFinished);
    showActive(window);
    auto& typed = child<QLineEdit>(*entry, "nameLndt");
    typed.setFocus();
    QTest::keyClicks(&typed, "Birch");

    QTest::keyClick(&typed, Qt::Key_Tab);

    EXPECT_EQ(QApplication::focusWidget(), next);
    EXPECT_EQ(left.count(), 1);
}

TEST_F(BankNameWidgetTest, LeadsItsMnemonicToTheName)
{
    showActive(widget);
    name.clearFocus();

    QTest::keyClick(&widget, Qt::Key_K, Qt::AltModifier);

    EXPECT_TRUE(name.hasFocus());
}

TEST_F(BankNameWidgetTest, TellsAssistiveToolsWhatIsTyped)
{
    auto* const entry = QAccessible::queryAccessibleInterface(&name);

    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->text(QAccessible::Name), "Bank Name:");
}
