#include "AccountsFixture.h"
#include "ShowActive.h"

using ::testing::ElementsAreArray;
using tlm::testing::child;
using tlm::testing::showActive;
using tlm::testing::tabOrder;

/// A view on screen, and the way of the keyboard through it.
class AccountsKeyboardTest : public tlm::testing::AccountsFixture
{
protected:
    static constexpr QSize smallScreen{1'024, 500}; // below the bars of the window

    void loadOnScreen(std::set<Account> const& accounts)
    {
        load(accounts);
        view->resize(smallScreen);
        showActive(*view);
    }

    /// \return the parts that Tab comes to in an account's form, and the buttons after it, which have no names
    static QStringList wayThrough(QStringList const& form)
    {
        return QStringList{"accountCodesLstwdgt"} + form + QStringList{"", "", ""};
    }
    static inline QStringList const knownForm{"numberLndt", "nameLndt",     "parentCmbbx",
                                              "amountLndt", "closedChckbx", "removeChckbx"};
    static inline QStringList const newForm{"ledgerTypeCmbbx", "numberLndt", "nameLndt",     "parentCmbbx",
                                            "codeCmbbx",       "amountLndt", "closedChckbx", "removeChckbx"};
};

TEST_F(AccountsKeyboardTest, TabGoesFromTheListThroughTheFormToTheButtons)
{
    loadOnScreen({account(1, "A"), account(2, "B"), account(3, "C")});

    for (auto row = 0; row < 3; ++row) {
        list().setCurrentRow(row);
        EXPECT_THAT(tabOrder(list()), ElementsAreArray(wayThrough(knownForm)));
    }
}

TEST_F(AccountsKeyboardTest, TabComesToANewFormAheadOfTheButtonsToo)
{
    loadOnScreen({account(1, "A")});
    enter(number(*(addButton().click(), shown())), "7");
    EXPECT_THAT(tabOrder(list()), ElementsAreArray(wayThrough(newForm)));

    addButton().click();

    EXPECT_THAT(tabOrder(list()), ElementsAreArray(wayThrough(newForm)));
    list().setCurrentRow(list().count() - 1);
    EXPECT_THAT(tabOrder(list()), ElementsAreArray(wayThrough(newForm)));
}

TEST_F(AccountsKeyboardTest, TheListHasTheCursorAtTheStart)
{
    loadOnScreen({account(1, "A"), account(2, "B")});
    EXPECT_EQ(QApplication::focusWidget(), &list());

    QTest::keyClick(&list(), Qt::Key_Down);

    EXPECT_EQ(shown(), &form("B"));
}

TEST_F(AccountsKeyboardTest, TheKeyGoesBackTheSameWay)
{
    loadOnScreen({account(1, "A"), account(2, "B")});
    auto const way = tabOrder(list());
    list().setFocus();

    QStringList back;
    for (auto step = 0; step < way.size(); ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        back.prepend(QApplication::focusWidget()->objectName());
    }

    EXPECT_EQ(back, way);
}

TEST_F(AccountsKeyboardTest, AddPutsTheCursorIntoTheNumberOfTheNewForm)
{
    loadOnScreen({account(1, "A")});

    QTest::mouseClick(&addButton(), Qt::LeftButton);

    EXPECT_EQ(QApplication::focusWidget(), &number(*shown()));
    QTest::keyClicks(QApplication::focusWidget(), "17");
    EXPECT_EQ(shown()->number(), 17U);
}

TEST_F(AccountsKeyboardTest, AddPutsTheCursorBackIntoABlankForm)
{
    loadOnScreen({account(1, "A")});
    addButton().click();
    select(row("1", "A"));
    list().setFocus();

    addButton().click();

    EXPECT_EQ(QApplication::focusWidget(), &number(*shown()));
    EXPECT_TRUE(shown()->isEmpty());
}

TEST_F(AccountsKeyboardTest, WhatIsTypedIsSavedFromTheKeyboard)
{
    loadOnScreen({account(1, "A")});
    QTest::mouseClick(&addButton(), Qt::LeftButton);
    QTest::keyClicks(QApplication::focusWidget(), "17");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), "Rent");

    QTest::mouseClick(buttons().button(QDialogButtonBox::Save), Qt::LeftButton);

    EXPECT_THAT(sent, ::testing::ElementsAre("added 17 Rent"));
}

TEST_F(AccountsKeyboardTest, WhatIsBeingTypedIsSavedToo)
{
    loadOnScreen({account(1, "A")});
    name(*shown()).setFocus();
    tlm::testing::typeOver(name(*shown()), "B");

    buttons().button(QDialogButtonBox::Save)->click(); // which leaves the cursor where it is

    EXPECT_THAT(sent, ::testing::ElementsAre("recoded 1 A to 1 B"));
}

TEST_F(AccountsKeyboardTest, EverythingFitsASmallScreen)
{
    loadOnScreen({account(1, "A"), account(2, "B")});
    refuse(code(1, "A"), QString("It is taken. ").repeated(12), std::nullopt);
    QApplication::processEvents();

    EXPECT_EQ(view->size(), smallScreen);
    for (auto const* const part : view->findChildren<QWidget*>()) {
        if (part->isVisible() && part->window() == view) {
            EXPECT_GE(part->width(), part->minimumSizeHint().width()) << part->objectName().toStdString();
            EXPECT_GE(part->height(), part->minimumSizeHint().height()) << part->objectName().toStdString();
        }
    }
}
