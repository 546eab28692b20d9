#include "HouseholdJourney.h"

#include <tlm/budgeting/BudgetTotals.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include <support/MessageLog.h>
#include <support/PlanningRow.h>
#include <support/Typing.h>

namespace tallymere {
namespace {

using tlm::foundation::presentationText;
using tlm::testing::expectMessage;
using tlm::testing::PlanningRow;
using tlm::testing::planningRow;
using tlm::testing::planningRows;
using tlm::testing::typeOver;

/// A person plans in the program's own window with keyboard and mouse.
class PlanningJourneyTest : public HouseholdJourney
{
protected:
    PlanningRow row(QString const& name) { return planningRow(view(), name); }
    PlanningRow topRow() { return planningRows(view()).front(); }

    /// \return what the planning view tells to show, empty when none is on screen
    QString heading()
    {
        auto const* const label = view().findChild<QLabel*>("displayingLbl");
        return label == nullptr ? QString() : label->text();
    }

    /// Lets the program come to rest, so that views that gave way are gone.
    bool comes(QString const& wanted)
    {
        QTest::qWait(0);
        return QTest::qWaitFor([&] { return heading() == wanted; });
    }

    void plan(Qt::Key key, QString const& wanted)
    {
        press(key, Qt::ControlModifier);
        ASSERT_TRUE(comes(wanted));
    }

    static void click(QAbstractButton& button)
    {
        QTest::mouseClick(&button, Qt::LeftButton, {}, {10, button.height() / 2});
    }

    void save() { click(*find<QDialogButtonBox>("saveDiscardBttnbx").button(QDialogButtonBox::Save)); }

    void expectUnfinishedTotals()
    {
        // While an entry is being filled in, its currency stands there before its amount.
        expectMessage(QtWarningMsg, "The total leaves out an amount that can't be read");
    }

    void addRow()
    {
        for (auto* const button : find<QDialogButtonBox>("saveDiscardBttnbx").findChildren<QPushButton*>()) {
            if (button->text() == "&Add") {
                click(*button);
                return;
            }
        }
        ADD_FAILURE() << "no button to add a row";
    }

    /// Clicks into \a field, which is scrolled into view first, and types over what it holds.
    void enter(QLineEdit& field, QString const& text)
    {
        find<QScrollArea>("budgetedMoniesScrllr").ensureWidgetVisible(&field);
        QTest::mouseClick(&field, Qt::LeftButton);
        ASSERT_TRUE(field.hasFocus());
        typeOver(field, text);
    }

    /// Types all of an entry, row by row of the list of a combo box and letter by letter of a text.
    void fill(PlanningRow const& entry, QString const& source, QString const& currency, QString const& amount,
              QString const& period)
    {
        enter(entry.source(), source);
        choose(entry.currency(), currency);
        enter(entry.amount(), amount);
        choose(entry.period(), period);
    }

    /// \return the dashboard's figure in the row of a kind
    QString total(int kind) { return find<QTableWidget>("monthlyTotalsTblwdgt").item(kind, 0)->text(); }

    void expectTotals(tlm::budgeting::BudgetTotals const& totals)
    {
        ASSERT_TRUE(comes("")) << "the dashboard comes back";
        EXPECT_EQ(total(0), presentationText(totals.wages));
        EXPECT_EQ(total(1), presentationText(totals.nontracks));
        EXPECT_EQ(total(2), presentationText(totals.goals));
        EXPECT_EQ(total(3), presentationText(totals.bills));
        EXPECT_EQ(total(4), presentationText(totals.debts));
    }
};

TEST_F(PlanningJourneyTest, AHouseholdIsPlannedSavedLeftAndFoundAgain)
{
    expectMessage(QtWarningMsg, "Failed to save,");
    expectUnfinishedTotals();
    expectMessage(QtWarningMsg, "What has no period can't be reckoned up");
    startOn(path);

    plan(Qt::Key_B, "Budgeted Bills:");
    fill(topRow(), "Rent", "USD", "700", "Monthly");
    addRow();
    fill(topRow(), "rent", "EUR", "36", "Quarterly");
    save();
    ASSERT_EQ(row("rent").error(), "Rent is planned already. Change that bill, or give this one another name.");
    ASSERT_EQ(row("Rent").error(), "");
    EXPECT_TRUE(QTest::qWaitFor([this] { return window().isWindowModified(); })) << "the rent is planned, not saved";
    enter(row("rent").source(), "Internet");
    save();
    ASSERT_TRUE(comes(""));

    plan(Qt::Key_D, "Budgeted Debts:");
    fill(topRow(), "Car loan", "USD", "250", "Monthly");
    enter(topRow().borrowed(), "9000");
    choose(topRow().bank(), "Aspen");
    choose(topRow().accountType(), "Loan");
    save();
    ASSERT_TRUE(comes(""));

    plan(Qt::Key_G, "Budgeted Goals:");
    fill(topRow(), "Bicycle", "USD", "50", "Monthly");
    enter(topRow().finalTotal(), "850");
    choose(topRow().bank(), "Aspen");
    QTest::keyClick(&topRow().account(), Qt::Key_Down);
    save();
    ASSERT_TRUE(comes(""));

    plan(Qt::Key_A, "Budgeted Non-tracks:");
    fill(topRow(), "Groceries", "USD", "90.50", "Twice");
    save();
    ASSERT_TRUE(comes(""));

    plan(Qt::Key_W, "Budgeted Wages:");
    fill(topRow(), "Salary", "EUR", "2000", "Monthly");
    QTest::keyClick(&topRow().dueNext(), Qt::Key_Up);
    auto const payday = topRow().dueNext().date();
    save();

    // By hand, in dollars: 2,000 EUR at 1.25; 90.50 twice; 50; 700 and a third of 36 EUR at 1.25; 250.
    tlm::budgeting::BudgetTotals const byHand{dollars(2'500), dollars(50), dollars(715), dollars(250), dollars(181)};
    expectTotals(byHand);
    auto const left = program->session().household().content();
    saveAndQuit();

    start({});

    EXPECT_EQ(program->session().household().content(), left);
    expectTotals(byHand);
    plan(Qt::Key_W, "Budgeted Wages:");
    EXPECT_EQ(row("Salary").dueNext().date(), payday);
    EXPECT_EQ(row("Salary").currency().currentText(), "EUR");
    plan(Qt::Key_D, "Budgeted Debts:");
    EXPECT_EQ(row("Car loan").bank().currentText(), "Aspen Bank");
    plan(Qt::Key_G, "Budgeted Goals:");
    EXPECT_TRUE(row("Bicycle").account().currentText().contains("Everyday"));
}

TEST_F(PlanningJourneyTest, AnEntryIsFilledInFromTheKeyboardAlone)
{
    expectUnfinishedTotals();
    startOn(path);
    plan(Qt::Key_B, "Budgeted Bills:");
    auto const entry = topRow();
    entry.source().setFocus(Qt::TabFocusReason);
    auto const next = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); };

    QTest::keyClicks(QApplication::focusWidget(), "Rent");
    next();
    ASSERT_EQ(QApplication::focusWidget(), &entry.currency());
    QTest::keyClicks(QApplication::focusWidget(), "USD");
    next();
    ASSERT_EQ(QApplication::focusWidget(), &entry.amount());
    typeOver(*QApplication::focusWidget(), "700");
    while (QApplication::focusWidget() != &entry.period()) {
        ASSERT_TRUE(entry.form().isAncestorOf(QApplication::focusWidget()));
        next();
    }
    QTest::keyClicks(QApplication::focusWidget(), "Monthly");
    auto* const button = find<QDialogButtonBox>("saveDiscardBttnbx").button(QDialogButtonBox::Save);
    for (int stop = 0; stop < 20 && QApplication::focusWidget() != button; ++stop) {
        next();
    }
    ASSERT_EQ(QApplication::focusWidget(), button);
    QTest::keyClick(button, Qt::Key_Space);

    expectTotals({dollars(0), dollars(0), dollars(700), dollars(0), dollars(0)});
}

TEST_F(PlanningJourneyTest, EachKindIsReachedFromTheMenuByKeyboard)
{
    startOn(path);
    std::vector<std::pair<Qt::Key, QString>> const kinds{{Qt::Key_B, "Budgeted Bills:"},
                                                         {Qt::Key_D, "Budgeted Debts:"},
                                                         {Qt::Key_G, "Budgeted Goals:"},
                                                         {Qt::Key_N, "Budgeted Non-tracks:"},
                                                         {Qt::Key_W, "Budgeted Wages:"}};
    for (auto const& [key, wanted] : kinds) {
        press(Qt::Key_P, Qt::AltModifier);
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));

        QTest::keyClick(QApplication::activePopupWidget(), key);

        EXPECT_TRUE(comes(wanted)) << wanted.toStdString();
    }
}

TEST_F(PlanningJourneyTest, EachKindIsReachedFromItsTotalAndLeftByDiscard)
{
    startOn(path);
    QStringList const headings{
        "Budgeted Wages:", "Budgeted Non-tracks:", "Budgeted Goals:", "Budgeted Bills:", "Budgeted Debts:"};
    for (int kind = 0; kind < headings.size(); ++kind) {
        auto& totals = find<QTableWidget>("monthlyTotalsTblwdgt");
        auto const place = totals.visualItemRect(totals.item(kind, 0)).center();

        QTest::mouseClick(totals.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(totals.viewport(), Qt::LeftButton, {}, place);

        ASSERT_TRUE(comes(headings.at(kind))) << kind;
        click(*find<QDialogButtonBox>("saveDiscardBttnbx").button(QDialogButtonBox::Discard));
        ASSERT_TRUE(comes(""));
    }
}
}
}
