#include "BooksJourney.h"

#include <QDialogButtonBox>
#include <QTableWidget>

namespace tallymere {
namespace {

/// A view, by its shortcut, and what takes the keys in it at once.
struct Opened
{
    Qt::Key key;
    bool isAccounting;
    char const* viewsClass;
    char const* focused; ///< object name, of a button its text
};

void PrintTo(Opened const& opened, std::ostream* stream)
{
    *stream << opened.viewsClass << " by " << opened.focused;
}

/// The sample household in either wording, opened from the keyboard.
class FirstFocusJourneyTest : public BooksJourney, public ::testing::WithParamInterface<Opened>
{
protected:
    static QString focused()
    {
        auto const* const button = qobject_cast<QPushButton*>(QApplication::focusWidget());
        if (button != nullptr) {
            return button->text();
        }
        return QApplication::focusWidget() == nullptr ? "nothing" : QApplication::focusWidget()->objectName();
    }

    QAbstractButton& button(QDialogButtonBox::StandardButton which)
    {
        return *view().findChild<QDialogButtonBox*>()->button(which);
    }
};

TEST_P(FirstFocusJourneyTest, TheKeyboardGoesOnInTheViewAndBackOnTheDashboard)
{
    start({{}, true, GetParam().isAccounting});
    ASSERT_EQ(focused(), "budgetItemsDueTblwdgt");

    open(GetParam().key, GetParam().viewsClass);
    EXPECT_EQ(focused(), GetParam().focused);
    pressOn(button(QDialogButtonBox::Discard));

    ASSERT_TRUE(comes("DashboardWidget"));
    EXPECT_EQ(focused(), "budgetItemsDueTblwdgt");
}

std::vector const planning{Opened{Qt::Key_B, false, "BudgetedMoniesWidget", "&Add"},
                           Opened{Qt::Key_D, false, "BudgetedMoniesWidget", "&Add"},
                           Opened{Qt::Key_W, false, "BudgetedMoniesWidget", "&Add"}};
std::vector const books{Opened{Qt::Key_K, false, "BanksWidget", "bankAndAccountsTrwdgt"},
                        Opened{Qt::Key_U, true, "AccountsWidget", "accountCodesLstwdgt"},
                        Opened{Qt::Key_L, true, "LedgersWidget", "ledgersTrwdgt"}};
Opened const transfer{Qt::Key_R, false, "AccountTransferWidget", "bankCmbbx"};

INSTANTIATE_TEST_SUITE_P(OfThePlan, FirstFocusJourneyTest, ::testing::ValuesIn(planning));
INSTANTIATE_TEST_SUITE_P(OfTheBooks, FirstFocusJourneyTest, ::testing::ValuesIn(books));
INSTANTIATE_TEST_SUITE_P(OfATransfer, FirstFocusJourneyTest, ::testing::Values(transfer));

/// A transfer as it comes is none yet, and refused.
class UntouchedViewJourneyTest : public FirstFocusJourneyTest
{};

TEST_P(UntouchedViewJourneyTest, AViewThatWasOnlyWalkedThroughHasNothingToSave)
{
    start({{}, true, GetParam().isAccounting});
    open(GetParam().key, GetParam().viewsClass);

    pressOn(button(QDialogButtonBox::Save));

    ASSERT_TRUE(comes("DashboardWidget"));
    EXPECT_FALSE(program->session().isDirty());
}

INSTANTIATE_TEST_SUITE_P(OfThePlan, UntouchedViewJourneyTest, ::testing::ValuesIn(planning));
INSTANTIATE_TEST_SUITE_P(OfTheBooks, UntouchedViewJourneyTest, ::testing::ValuesIn(books));

using FirstFocusInEmptyPlanTest = BooksJourney;

TEST_F(FirstFocusInEmptyPlanTest, TheFirstBillIsTypedAtOnce)
{
    startOn(path);

    open(Qt::Key_B, "BudgetedMoniesWidget");
    QTest::keyClicks(QApplication::focusWidget(), "Rent");

    EXPECT_EQ(find<QLineEdit>("sourceLndt").text(), "Rent");
}

TEST_F(FirstFocusInEmptyPlanTest, AViewChosenFromTheMenuByKeyboardHasTheFocus)
{
    startSample();
    press(Qt::Key_J, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));

    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_B);

    ASSERT_TRUE(comes("BanksWidget"));
    EXPECT_TRUE(find<QTreeWidget>("bankAndAccountsTrwdgt").hasFocus());
}
}
}
