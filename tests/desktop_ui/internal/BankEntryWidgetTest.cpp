#include "internal/BankEntryWidget.h"

#include "ShowActive.h"
#include "internal/ErrorMessageWidget.h"
#include "support/MessageLog.h"
#include "support/Widgets.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using tlm::accounting::AccountNumber;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::desktop_ui::DataEntryError;
using tlm::desktop_ui::internal::BankEntryWidget;
using tlm::desktop_ui::internal::ErrorMessageWidget;
using tlm::testing::child;
using tlm::testing::MessageLog;
using tlm::testing::showActive;

namespace {

using Accounts = std::map<AccountNumber, BankAccountTypes>;

Accounts const savings{{AccountNumber(100), BankAccountTypes::Savings}};
Bank const openBank(BankName("Birch Bank"), savings, false);
Bank const closedBank(BankName("Aspen Bank"), {}, true);

/// The form of \a bank, as a person meets it.
struct Form
{
    explicit Form(std::optional<Bank> const& bank) : widget(bank, nullptr) {}
    // A shown window takes the focus from its line edit on its way out, when the form around that is half gone.
    ~Form() { widget.hide(); }
    Q_DISABLE_COPY_MOVE(Form)

    void type(QString const& text)
    {
        showActive(widget);
        name.setFocus();
        QTest::keyClicks(&name, text);
        QTest::keyClick(&name, Qt::Key_Tab);
    }

    BankEntryWidget widget;
    QLineEdit& name = child<QLineEdit>(widget, "nameLndt");
    QCheckBox& closed = child<QCheckBox>(widget, "closedChckbx");
    QCheckBox& removed = child<QCheckBox>(widget, "removeChckbx");
    ErrorMessageWidget& error = child<ErrorMessageWidget>(widget, "errorWdgt");
};
}

TEST(BankEntryWidgetTest, StartsCleanAndEmptyForANewBank)
{
    Form const form(std::nullopt);

    EXPECT_EQ(form.name.placeholderText(), "New Bank");
    EXPECT_EQ(form.widget.tryBankName(), std::nullopt);
    EXPECT_EQ(form.widget.bank(), std::nullopt);
    EXPECT_FALSE(form.widget.isClosed());
    EXPECT_FALSE(form.widget.isRemoved());
    EXPECT_FALSE(form.widget.isDirty());
    EXPECT_TRUE(form.error.isHidden());
}

TEST(BankEntryWidgetTest, ShowsASavedBankAndStaysClean)
{
    for (auto const& bank : {openBank, closedBank}) {
        Form const form(bank);

        EXPECT_EQ(form.widget.bankName(), bank.name);
        EXPECT_EQ(form.widget.isClosed(), bank.isClosed());
        EXPECT_FALSE(form.widget.isRemoved());
        EXPECT_EQ(form.widget.bank(), bank);
        EXPECT_FALSE(form.widget.isDirty());
    }
}

TEST(BankEntryWidgetTest, TurnsDirtyByATypedName)
{
    Form form(std::nullopt);

    form.type("Birch");

    EXPECT_TRUE(form.widget.isDirty());
    EXPECT_EQ(form.widget.tryBankName(), BankName("Birch"));
    EXPECT_EQ(form.widget.bankName(), BankName("Birch"));
}

TEST(BankEntryWidgetTest, StaysCleanWhileTabWalksThrough)
{
    Form form(std::nullopt);
    showActive(form.widget);

    auto const stops = tlm::testing::tabOrder(form.name);

    EXPECT_THAT(stops, ElementsAre("nameLndt", "closedChckbx", "removeChckbx"));
    EXPECT_FALSE(form.widget.isDirty());
}

TEST(BankEntryWidgetTest, TurnsDirtyByEitherCheckBoxBothWays)
{
    for (auto* const box : {"closedChckbx", "removeChckbx"}) {
        for (auto const& bank : {openBank, closedBank}) {
            Form form(bank);

            QTest::keyClick(&child<QCheckBox>(form.widget, box), Qt::Key_Space);

            EXPECT_TRUE(form.widget.isDirty()) << box;
        }
    }
}

TEST(BankEntryWidgetTest, TellsWhatIsChecked)
{
    Form form(openBank);

    QTest::keyClick(&form.closed, Qt::Key_Space);

    EXPECT_TRUE(form.widget.isClosed());
    EXPECT_FALSE(form.widget.isRemoved());

    QTest::keyClick(&form.removed, Qt::Key_Space);
    QTest::keyClick(&form.closed, Qt::Key_Space);

    EXPECT_FALSE(form.widget.isClosed());
    EXPECT_TRUE(form.widget.isRemoved());
}

TEST(BankEntryWidgetTest, TakesWhatWasSaved)
{
    Form form(openBank);
    form.type(" & Sons");
    QTest::keyClick(&form.closed, Qt::Key_Space);
    form.widget.showError("The bank is busy.");
    Accounts const accounts{{AccountNumber(300), BankAccountTypes::Loan}};

    form.widget.saved(accounts);

    EXPECT_EQ(form.widget.bank(), Bank(BankName("Birch Bank & Sons"), accounts, true));
    EXPECT_FALSE(form.widget.isDirty());
    EXPECT_EQ(form.error.message(), std::nullopt);
    EXPECT_TRUE(form.error.isHidden());
}

TEST(BankEntryWidgetTest, KeepsTheBankAsSavedWhileItIsEdited)
{
    Form form(openBank);

    form.type("!");
    QTest::keyClick(&form.closed, Qt::Key_Space);

    EXPECT_EQ(form.widget.bank(), openBank);
}

TEST(BankEntryWidgetTest, KeepsAllWhenItsNameIsMissing)
{
    Form form(openBank);
    form.name.clear();
    form.widget.showError("The bank is busy.");

    EXPECT_THROW(form.widget.bankName(), DataEntryError);
    EXPECT_THROW(form.widget.saved({}), DataEntryError);

    EXPECT_EQ(form.widget.bank(), openBank);
    EXPECT_TRUE(form.widget.isDirty());
    EXPECT_EQ(form.error.message(), "The bank is busy.");
}

TEST(BankEntryWidgetTest, ShowsAnErrorAndTurnsDirty)
{
    Form form(openBank);
    showActive(form.widget);

    form.widget.showError("The bank is busy.");

    EXPECT_TRUE(form.error.isVisible());
    EXPECT_EQ(child<QLabel>(form.error, "messageLbl").text(), "The bank is busy.");
    EXPECT_TRUE(form.widget.isDirty());
}

TEST(BankEntryWidgetTest, IsMarkedDirtyAndReset)
{
    Form form(openBank);

    form.widget.markDirty();
    EXPECT_TRUE(form.widget.isDirty());

    form.widget.resetDirty();
    EXPECT_FALSE(form.widget.isDirty());
}

TEST(BankEntryWidgetTest, LogsWhichFormIsReset)
{
    Form saved(openBank);
    Form added(std::nullopt);
    MessageLog::clear();

    saved.widget.resetDirty();
    added.widget.resetDirty();

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Resetting the dirty flag of BankName(\"Birch Bank\")",
                                                          "Resetting the dirty flag of BankName(\"\")"));
}

TEST(BankEntryWidgetTest, StandsItsNameLeftAndItsCheckBoxesRight)
{
    Form form(openBank);
    form.widget.showError("The bank is busy.");
    showActive(form.widget);
    auto const span = [&](QWidget const& part) { return QRect(part.mapTo(&form.widget, QPoint()), part.size()); };
    auto const& label = child<QLabel>(form.widget, "nameLbl");

    EXPECT_EQ(span(label).left(), 0);
    EXPECT_LT(span(form.name).right(), form.widget.width() - 40);
    EXPECT_EQ(span(form.closed).right(), form.widget.width() - 1);
    EXPECT_EQ(span(form.removed).right(), form.widget.width() - 1);
    EXPECT_LT(span(form.name).bottom(), span(form.closed).top());
    EXPECT_LT(span(form.closed).bottom(), span(form.removed).top());
    EXPECT_LT(span(form.removed).bottom(), span(form.error).top());
}
