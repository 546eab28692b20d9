#include "AccountsFixture.h"

#include <QVBoxLayout>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::itemTexts;
using tlm::testing::MessageLog;

class AccountsWidgetTest : public tlm::testing::AccountsFixture
{};

using AccountsWidgetDeathTest = AccountsWidgetTest;

TEST_F(AccountsWidgetTest, EveryAccountHasARowAndAFormAndTheFirstIsShown)
{
    load({account(1000, "Checking"), account(5000, "Groceries", 4000), account(4000, "Food")});

    EXPECT_THAT(rows(), ElementsAre(row("1000", "Checking"), row("4000", "Food"), row("5000", "Groceries")));
    EXPECT_EQ(currentRow(), row("1000", "Checking"));
    EXPECT_EQ(shown(), &form("Checking"));
    EXPECT_EQ(form("Groceries").code(), code(5000, "Groceries", 4000));
    EXPECT_EQ(form("Groceries").ledgerType(), presentationText(Types::Expense));
    EXPECT_EQ(form("Groceries").balance(), euros(20));
    EXPECT_THAT(itemTexts(parents(form("Checking"))), ElementsAre("No Parent", "4000", "5000"));
}

TEST_F(AccountsWidgetTest, FormsAreMadeFromTheLastAccountToTheFirstAndStandTheOtherWayRound)
{
    load({account(1, "A"), account(2, "B"), account(3, "C")});

    QStringList made;
    for (auto const* const each : forms()) {
        made.append(each->name());
    }
    EXPECT_THAT(made, ElementsAre("C", "B", "A"));
    auto const& layout = child<QVBoxLayout>(*view, "accountEntryVbxlyt");
    ASSERT_EQ(layout.count(), 4);
    EXPECT_EQ(layout.itemAt(0)->widget(), &form("A"));
    EXPECT_EQ(layout.itemAt(2)->widget(), &form("C"));
    EXPECT_NE(layout.itemAt(3)->spacerItem(), nullptr);
}

TEST_F(AccountsWidgetTest, BuildingTellsWhatIsInsertedAndLoaded)
{
    view = new View({account(1, "A"), account(2, "B")}, usable(), Display::Code, nullptr);

    EXPECT_THAT(MessageLog::texts(QtInfoMsg).filter("account entry."),
                ElementsAre("Inserting account entry. \"B\"", "Inserting account entry. \"A\""));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).constLast(), "Loading Account \"" + row("1", "A") + "\"");
    EXPECT_THAT(MessageLog::texts(QtDebugMsg),
                Contains("Failed to locate the account that is currently displayed, assuming none are."));
}

TEST_F(AccountsWidgetTest, WithoutAccountsOneBlankFormIsShown)
{
    load({});

    EXPECT_THAT(rows(), ElementsAre(Entry::newEntryText()));
    ASSERT_EQ(forms().size(), 1);
    EXPECT_EQ(shown(), forms().front());
    EXPECT_TRUE(shown()->isEmpty());
    EXPECT_EQ(shown()->code(), std::nullopt);
    EXPECT_EQ(shown()->ledgerType(), presentationText(Types{}));
    EXPECT_EQ(shown()->balance(), Money());
    EXPECT_FALSE(shown()->isClosed());
}

TEST_F(AccountsWidgetTest, TheViewStaysWhenItIsClosed)
{
    load({account(1, "A")});
    view->show();

    EXPECT_TRUE(view->close());
    turnEventLoop();

    ASSERT_FALSE(view.isNull());
    EXPECT_TRUE(view->isHidden());
    EXPECT_THAT(sent, ElementsAre("closing"));
}

TEST_F(AccountsWidgetTest, DiscardClosesAtOnceWhateverWasTyped)
{
    load({account(1, "A")});
    rename(form("A"), "B");

    discard();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Handling account entry widget clicked button \"" +
                                                       buttons().button(QDialogButtonBox::Discard)->text() + "\""));
}

TEST_F(AccountsWidgetTest, TheRowChosenShowsItsForm)
{
    load({account(1, "A"), account(2, "B")});

    select(row("2", "B"));

    EXPECT_EQ(shown(), &form("B"));
    EXPECT_TRUE(form("A").isHidden());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Changing displayed account from \"" + row("1", "A") + "\" to \"" + row("2", "B") + "\"",
                            "Loading Account \"" + row("2", "B") + "\""));
}

TEST_F(AccountsWidgetTest, EveryKindOfSelectionIsTold)
{
    load({account(1, "A")});

    view->accountSelectionChanged(nullptr, nullptr);
    list().setCurrentRow(-1);
    list().setCurrentRow(0);

    EXPECT_THAT(MessageLog::texts(QtInfoMsg).filter("Changing"),
                ElementsAre("Changing displayed account from nothing to nothing.",
                            "Changing displayed account from \"" + row("1", "A") + "\" to nothing.",
                            "Changing displayed account from nothing to \"" + row("1", "A") + "\""));
}

TEST_F(AccountsWidgetTest, ARowFollowsWhatIsTypedOnceItIsLeftAndKeepsItsFormWhenItMoves)
{
    load({account(10, "A"), account(20, "B"), account(30, "C")});
    auto& added = add("25", "Z");
    EXPECT_EQ(currentRow(), Entry::newEntryText());

    select(row("30", "C"));

    EXPECT_THAT(rows(), ElementsAre(row("10", "A"), row("20", "B"), row("25", "Z"), row("30", "C")));
    EXPECT_EQ(shown(), &form("C"));
    select(row("25", "Z"));
    EXPECT_EQ(shown(), &added);
}

TEST_F(AccountsWidgetTest, EveryRowKeepsItsFormWhateverIsTyped)
{
    load({account(1, "A"), account(2, "B"), account(3, "C")});
    auto const present = forms();
    for (auto const& name :
         {QString("B"), QString(), QString(" "), QString("17"), "3" + Code::separator_ + "C", Code::separator_,
          QString("New Account"), QString::fromUtf8("\u2002\u00B7"), QString("B")}) {
        for (auto* const each : present) {
            auto* const item = list().item(0);
            list().setCurrentItem(item);
            AccountEntryFixture::name(*shown()).setText(name);
            auto* const left = shown();
            list().setCurrentRow(list().count() - 1);
            list().setCurrentItem(item);
            EXPECT_EQ(shown(), left) << name.toStdString();
            AccountEntryFixture::name(*each).setText(name);
        }
    }
}

TEST_F(AccountsWidgetTest, ANewAccountCalledNewAccountWithoutANumberKeepsItsForm)
{
    load({account(1, "A")});
    auto& named = add("", "New Account");
    select(row("1", "A"));
    addButton().click();
    auto* const blank = shown();
    EXPECT_NE(blank, &named);

    auto const alike = list().findItems(Entry::newEntryText(), Qt::MatchExactly);
    ASSERT_EQ(alike.size(), 2);
    QSet<Entry*> seen;
    for (auto* const item : alike) {
        list().setCurrentItem(item);
        seen.insert(shown());
    }

    EXPECT_EQ(seen, (QSet<Entry*>{&named, blank}));
}

TEST_F(AccountsWidgetTest, ANumberThatIsTypedBecomesAParentForAllOthersOnceItsRowIsLeft)
{
    load({account(1, "A"), account(2, "B")});
    auto& added = add("7", "");
    EXPECT_THAT(itemTexts(parents(form("A"))), ElementsAre("No Parent", "2"));

    select(row("2", "B"));

    EXPECT_THAT(itemTexts(parents(form("A"))), ElementsAre("No Parent", "2", "7"));
    EXPECT_THAT(itemTexts(parents(form("B"))), ElementsAre("No Parent", "1", "7"));
    EXPECT_THAT(itemTexts(parents(added)), ElementsAre("No Parent", "1", "2"));
    addButton().click();
    EXPECT_THAT(itemTexts(parents(*shown())), ElementsAre("No Parent", "1", "2", "7"));
}

TEST_F(AccountsWidgetTest, ANumberThatIsGivenUpBecomesAParentOnceItIsTypedElsewhere)
{
    load({account(1, "A")});
    auto& first = add("7", "B");
    select(row("1", "A"));
    select(row("7", "B"));
    enter(number(first), "8");
    add("7", "C");

    select(row("1", "A"));

    EXPECT_THAT(itemTexts(parents(first)), ElementsAre("No Parent", "1", "7"));
    EXPECT_THAT(itemTexts(parents(form("A"))), ElementsAre("No Parent", "7", "8"));
    EXPECT_THAT(itemTexts(parents(form("C"))), ElementsAre("No Parent", "1", "7", "8"));
}

TEST_F(AccountsWidgetTest, FormsBuildNoPopUpAheadOfTime)
{
    load({account(1, "A"), account(2, "B")});

    EXPECT_THAT(view->findChildren<QAbstractItemView*>(), ElementsAre(&list()));
}

TEST_F(AccountsWidgetTest, ANumberThatIsCutIsNoParent)
{
    load({account(1, "A"), account(2, "B")});
    addButton().click();
    number(*shown()).setText("4294967305");

    select(row("2", "B"));

    EXPECT_THAT(itemTexts(parents(form("A"))), ElementsAre("No Parent", "2"));
}

TEST_F(AccountsWidgetTest, AddShowsABlankFormWhoseRowIsCurrent)
{
    load({account(1, "A")});

    addButton().click();

    EXPECT_EQ(currentRow(), Entry::newEntryText());
    ASSERT_EQ(forms().size(), 2);
    EXPECT_EQ(shown(), forms().constLast());
    EXPECT_TRUE(shown()->isEmpty());
    EXPECT_FALSE(shown()->isDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Handling account entry widget clicked button \"&Add\""));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Inserting account entry. \"\""));
}

TEST_F(AccountsWidgetTest, AddingTwiceMakesOneBlankForm)
{
    load({account(1, "A")});

    addButton().click();
    addButton().click();

    EXPECT_EQ(forms().size(), 2);
}

TEST_F(AccountsWidgetTest, AddGoesBackToABlankFormThatIsThere)
{
    load({account(1, "A")});
    addButton().click();
    auto* const blank = shown();
    select(row("1", "A"));

    addButton().click();

    EXPECT_EQ(shown(), blank);
    EXPECT_EQ(forms().size(), 2);
    enter(number(*blank), "7");
    addButton().click();
    EXPECT_EQ(forms().size(), 3);
}

TEST_F(AccountsWidgetTest, AViewThatEndsOnScreenWhileItIsEditedEndsQuietly)
{
    load({account(1, "A"), account(2, "B")});
    view->show();
    name(*shown()).setFocus();
    tlm::testing::type(name(*shown()), "x");

    delete view.data();

    EXPECT_TRUE(view.isNull());
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(AccountsWidgetTest, ARowOfNoFormIsMatchedByItsText)
{
    load({account(1, "A"), account(2, "B")});
    QListWidgetItem const foreign(row("2", "B"));

    view->accountSelectionChanged(const_cast<QListWidgetItem*>(&foreign), nullptr);

    EXPECT_EQ(shown(), &form("B"));
}

TEST_F(AccountsWidgetDeathTest, ARowThatFitsNoFormEndsTheProgram)
{
    load({account(1, "A"), account(2, "B")});
    QListWidgetItem foreign(row("2", "C"));
    QListWidgetItem blank(Entry::newEntryText());

    EXPECT_DEATH(view->accountSelectionChanged(&foreign, nullptr),
                 "Failed to locate the account that is to be displayed\\.");
    EXPECT_DEATH(view->accountSelectionChanged(&blank, nullptr),
                 "Failed to locate the account that is to be displayed\\.");
}

TEST_F(AccountsWidgetDeathTest, ATextThatIsNoRowIsToldForEachFormAheadOfTheEnd)
{
    load({account(1, "A")});
    QListWidgetItem foreign("Rent");

    auto const select = [&] {
        qInstallMessageHandler(nullptr); // lets the log be seen in what the process leaves behind
        view->accountSelectionChanged(&foreign, nullptr);
    };

    EXPECT_DEATH(select(),
                 "An error occurred while checking an account entry\\. \"Rent\" isn't(.|\n)*to be displayed\\.");
}

TEST_F(AccountsWidgetDeathTest, LeavingARowWhileNoFormIsShownEndsTheProgram)
{
    load({account(1, "A"), account(2, "B")});
    shown()->hide();

    EXPECT_DEATH(select(row("2", "B")), "Failed to locate the previously selected displayed account\\.");
}
