#include "BanksFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::MessageLog;

/// Rows, the forms that follow them, and new ones.
class BanksSelectionTest : public tlm::testing::BanksFixture
{
protected:
    static QString newAccount() { return AccountForm::newEntryText(); }
};

TEST_F(BanksSelectionTest, EachChangeOfRowIsLogged)
{
    keepTwoBanks();
    load();

    choose("Birch Bank");
    tree().setCurrentItem(nullptr);
    choose("Aspen Bank");
    emit tree().currentItemChanged(nullptr, nullptr);

    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Changing displayed bank from \"Aspen Bank\" to \"Birch Bank\"",
                            "Changing displayed bank from \"Birch Bank\" to nothing.",
                            "Changing displayed bank from nothing to \"Aspen Bank\"",
                            "Changing displayed bank from nothing to nothing."));
}

TEST_F(BanksSelectionTest, TheRowTellsWhatMayBeAdded)
{
    keepTwoBanks();
    load();
    auto const enabled = [this] { return std::pair(addBank().isEnabled(), addAccount().isEnabled()); };

    EXPECT_EQ(enabled(), std::pair(true, true));
    choose(text(100, "Everyday"));
    EXPECT_EQ(enabled(), std::pair(true, false));
    choose(text(111, "Holiday"));
    EXPECT_EQ(enabled(), std::pair(false, false));
    tree().setCurrentItem(nullptr);
    EXPECT_EQ(enabled(), std::pair(false, false));
    EXPECT_THAT(shown<BankForm>(), IsEmpty());
    EXPECT_THAT(shown<AccountForm>(), IsEmpty());
    choose("Birch Bank");
    EXPECT_EQ(enabled(), std::pair(true, true));
}

TEST_F(BanksSelectionTest, ARowFollowsItsFormOnceItIsLeft)
{
    keepTwoBanks();
    load();
    typeName("Cedar Bank");
    EXPECT_EQ(currentText(), "Aspen Bank");

    choose(text(100, "Everyday"));
    typeName("Daily");
    choose("Birch Bank");

    EXPECT_THAT(rows(), ElementsAre("Cedar Bank", "  " + text(100, "Daily"), "  " + text(110, "Rainy days"),
                                    "    " + text(111, "Holiday"), "Birch Bank", "  " + text(200, "Card")));
}

TEST_F(BanksSelectionTest, ARowWithoutANameSaysWhatItIs)
{
    keepTwoBanks();
    load();
    typeName("");
    choose(text(100, "Everyday"));
    typeName("");
    addBank().click();
    addAccount().click();

    choose(row("New Bank", 0));

    EXPECT_THAT(rows(), ElementsAre("New Bank", "  " + text(100, "New Account"), "  " + text(110, "Rainy days"),
                                    "    " + text(111, "Holiday"), "Birch Bank", "  " + text(200, "Card"), "New Bank",
                                    "  " + newAccount()));
}

TEST_F(BanksSelectionTest, ANewBankIsCleanAndAwaitsItsName)
{
    keepTwoBanks();
    load();
    show();

    addBank().click();

    EXPECT_EQ(rows().constLast(), "New Bank");
    EXPECT_EQ(currentText(), "New Bank");
    EXPECT_EQ(bank().bank(), std::nullopt);
    EXPECT_FALSE(bank().isDirty());
    EXPECT_EQ(QApplication::focusWidget(), &child<QLineEdit>(bank(), "nameLndt"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Handling bank entry widget clicked button \"&Add Bank\""));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Adding bank \"\""));
}

TEST_F(BanksSelectionTest, ANewAccountMakesItsBankDirty)
{
    keepTwoBanks();
    load();
    show();
    auto const& birch = (choose("Birch Bank"), bank());

    addAccount().click();

    EXPECT_EQ(rows().constLast(), "  " + newAccount());
    EXPECT_EQ(&row(newAccount()), tree().currentItem());
    EXPECT_EQ(row(newAccount()).parent()->text(0), "Birch Bank");
    EXPECT_TRUE(birch.isDirty());
    EXPECT_FALSE(account().isDirty());
    EXPECT_EQ(account().code(), std::nullopt);
    EXPECT_EQ(account().bankType(), std::nullopt);
    EXPECT_FALSE(addAccount().isEnabled());
    EXPECT_EQ(QApplication::focusWidget(), &child<QComboBox>(account(), "bankTypeCmbbx"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Adding bank account \"Birch Bank\" \"\""));
}

TEST_F(BanksSelectionTest, ANewAccountGoesToTheBankChosenThoughAnotherIsCalledTheSame)
{
    keepBank("Aspen Bank");
    keepBank("Birch Bank");
    load();
    typeName("Birch Bank");
    choose("Birch Bank");
    ASSERT_THAT(rows(), ElementsAre("Birch Bank", "Birch Bank"));

    addAccount().click();

    EXPECT_THAT(rows(), ElementsAre("Birch Bank", "Birch Bank", "  " + newAccount()));
}

TEST_F(BanksSelectionTest, ANewAccountGoesToABankWhoseNameIsBeingTyped)
{
    load();
    typeName("Cedar Bank");

    addAccount().click();

    EXPECT_THAT(rows(), ElementsAre("Cedar Bank", "  " + newAccount()));
}

TEST_F(BanksSelectionTest, TabGoesFromTheTreeThroughTheFormToTheButtons)
{
    keepTwoBanks();
    load();
    show();
    auto const stops = [this] {
        auto names = tlm::testing::tabOrder(tree());
        names.removeAll(QString());
        return names;
    };
    EXPECT_THAT(stops(), ElementsAre("bankAndAccountsTrwdgt", "nameLndt", "closedChckbx", "removeChckbx"));
    QTest::keyClick(&tree(), Qt::Key_Backtab);
    EXPECT_TRUE(buttons().isAncestorOf(QApplication::focusWidget()));

    addBank().click();
    auto& removed = child<QCheckBox>(bank(), "removeChckbx");
    removed.setFocus();
    QTest::keyClick(&removed, Qt::Key_Tab);

    EXPECT_TRUE(buttons().isAncestorOf(QApplication::focusWidget()));
    EXPECT_THAT(stops(), ElementsAre("bankAndAccountsTrwdgt", "nameLndt", "closedChckbx", "removeChckbx"));
}

using BanksSelectionDeathTest = BanksSelectionTest;

TEST_F(BanksSelectionDeathTest, ARowOfNoFormEndsTheProgramWhenItIsLeft)
{
    keepTwoBanks();
    load();
    auto* const foreign = new QTreeWidgetItem(&tree(), {"Foreign"});
    choose(*foreign);

    EXPECT_FALSE(addBank().isEnabled());
    EXPECT_DEATH(choose("Birch Bank"), "Failed to locate the widget item that was previously selected\\.");
    delete &tree();
}

TEST_F(BanksSelectionDeathTest, AnAccountWithoutABankEndsTheProgram)
{
    load();
    tree().setCurrentItem(nullptr);

    EXPECT_DEATH(emit buttons().clicked(&addAccount()),
                 "Failed to locate the bank widget item that is to hold the account\\.");
}
