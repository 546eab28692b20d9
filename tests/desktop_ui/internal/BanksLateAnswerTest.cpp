#include "BanksFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::expectMessage;

/// Answers that come when a person has gone on: to what was sent before, twice, or for a row that has gone.
class BanksLateAnswerTest : public tlm::testing::BanksFixture
{
protected:
    /// Adds an account to the bank called \a bank, and leaves it chosen.
    AccountForm& addAccountTo(QString const& bank, QString const& name)
    {
        choose(bank);
        addAccount().click();
        typeType(Types::Checking);
        tlm::testing::pasteOver(child<QLineEdit>(account(), "nameLndt"), name);
        return account();
    }

    void saveAll()
    {
        save();
        saveBanks();
    }

    /// Sends the removal of Everyday twice, and takes the first answer.
    void removeAnAccountTwice()
    {
        keepTwoBanks();
        keep("Birch Bank", code(210, "Everyday"));
        load();
        choose(text(100, "Everyday"));
        markForRemoval();
        save();
        save();
        accept(changes.at(0));
    }

    /// Sends the removal of Aspen Bank twice, while Birch Bank has something left to save, and takes the first answer.
    void removeABankTwice()
    {
        keepTwoBanks();
        load();
        markForRemoval();
        saveAll();
        choose("Birch Bank");
        check("closedChckbx");
        saveBanks();
        accept(changes.at(0));
    }
};

TEST_F(BanksLateAnswerTest, ASecondAnswerToTheRemovalOfAnAccountIsNobodys)
{
    removeAnAccountTwice();

    accept(changes.at(1));

    EXPECT_THAT(painted(Qt::green), IsEmpty());
    choose(text(210, "Everyday"));
    EXPECT_EQ(account().code(), code(210, "Everyday"));
}

TEST_F(BanksLateAnswerTest, ASecondRemovalOfAnAccountMayBeRefused)
{
    removeAnAccountTwice();
    expectMessage(QtWarningMsg, "^Account entry failed to save,");

    refuse(changes.at(1), "There is no such account.");

    EXPECT_THAT(painted(Qt::red), IsEmpty());
}

TEST_F(BanksLateAnswerTest, ASecondAnswerToTheRemovalOfABankIsNobodys)
{
    removeABankTwice();

    accept(changes.at(1));

    EXPECT_THAT(painted(Qt::green), IsEmpty());
    EXPECT_THAT(rows(), ElementsAre("Birch Bank", "  " + text(200, "Card")));
}

TEST_F(BanksLateAnswerTest, ASecondRemovalOfABankMayBeRefused)
{
    removeABankTwice();
    expectMessage(QtCriticalMsg, "^Bank entry save error for \"Aspen Bank\" \"Aspen Bank\" ");

    refuse(changes.at(1), "There is no such bank.");

    EXPECT_THAT(painted(Qt::red), IsEmpty());
    accept(changes.at(2));
    EXPECT_THAT(painted(Qt::green), ElementsAre("Birch Bank"));
}

TEST_F(BanksLateAnswerTest, ANewAccountMayHaveGoneByTheTimeItIsAnswered)
{
    keepTwoBanks();
    load();
    addAccountTo("Birch Bank", "Spare");
    save();
    choose(text(0, "Spare"));
    markForRemoval();
    save();

    accept(changes.at(0));

    EXPECT_THAT(painted(Qt::green), IsEmpty());
}

TEST_F(BanksLateAnswerTest, ANewAccountThatNoAnswerCanNameMayHaveGoneByThen)
{
    keepTwoBanks();
    load();
    auto const pasted = "5" + Code::separator_ + "Spare";
    addAccountTo("Birch Bank", pasted);
    QObject::disconnect(view, &View::addedAccount, nullptr, nullptr); // there is no code of that name to be told
    save();
    choose("0" + Code::separator_ + pasted);
    markForRemoval();
    save();
    expectMessage(QtWarningMsg, "^Account entry failed to save, Original Code \"\" Displayed Code \"\" ");

    view->onAccountSaveFailed(std::nullopt, "Type a blank.", Code());

    EXPECT_THAT(painted(Qt::red), IsEmpty());
}

TEST_F(BanksLateAnswerTest, ABankSentUnderTwoNamesIsAnsweredUnderEach)
{
    keepBank("Aspen Bank");
    load();
    addBank().click();
    auto const& added = bank();
    typeName("Cedar Bank");
    saveAll();
    choose("Cedar Bank");
    typeName("Dune Bank");
    choose("Aspen Bank");
    check("closedChckbx");
    saveAll();
    expectMessage(QtCriticalMsg, "^Bank entry save error for \"\" \"Dune Bank\" \"One is enough\\.\"$");

    accept(changes.at(0));
    EXPECT_FALSE(added.isDirty());
    view->onSaveFailed(std::nullopt, "One is enough.", Name("Dune Bank"));

    EXPECT_EQ(&bank(), &added);
    EXPECT_EQ(error(), "One is enough.");
}

TEST_F(BanksLateAnswerTest, AnAccountSentUnderTwoNamesIsAnsweredUnderEach)
{
    keepTwoBanks();
    load();
    auto const& added = addAccountTo("Birch Bank", "Spare");
    save();
    choose(text(0, "Spare"));
    typeName("Visa");
    save();
    expectMessage(QtWarningMsg, "^Account entry failed to save, Original Code \"\" Displayed Code \"Visa\" ");

    accept(changes.at(0));
    EXPECT_FALSE(added.isDirty());
    refuse(changes.at(1), "One is enough.");

    EXPECT_EQ(&account(), &added);
    EXPECT_EQ(error(), "One is enough.");
}

TEST_F(BanksLateAnswerTest, AccountsOfOddNamesAreAnsweredAtOnceAndLater)
{
    QStringList const names{"0",           "123",      "4294967296", "a  b",    " c",
                            "New Account", "New Bank", "Aspen Bank", "Everyday"};
    for (auto const isLate : {false, true}) {
        banks.clear();
        accounts.clear();
        changes.clear();
        nextNumber = 900;
        keepTwoBanks();
        load();
        std::vector<AccountForm const*> forms;
        for (auto const& name : names) {
            forms.push_back(&addAccountTo("Birch Bank", name));
        }
        acceptAll();
        if (isLate) {
            answer = nullptr;
        }

        save();
        for (auto const& change : isLate ? changes : std::vector<Change>()) {
            accept(change);
        }

        for (auto place = 0; place < names.size(); ++place) {
            auto const& form = *forms.at(static_cast<std::size_t>(place));
            EXPECT_EQ(form.code(), code(900U + static_cast<unsigned int>(place), names.at(place))) << isLate;
            EXPECT_FALSE(form.isDirty());
        }
        delete view.data();
    }
}

TEST_F(BanksLateAnswerTest, BanksOfOddNamesAreAnsweredAtOnceAndLater)
{
    QStringList const names{"0", "123", "a  b", " c", "New Account", "New Bank", text(100, "Everyday")};
    for (auto const isLate : {false, true}) {
        banks.clear();
        accounts.clear();
        changes.clear();
        keepTwoBanks();
        load();
        std::vector<BankForm const*> forms;
        for (auto const& name : names) {
            choose(*tree().topLevelItem(0));
            addBank().click();
            forms.push_back(&bank());
            auto& field = child<QLineEdit>(bank(), "nameLndt");
            tlm::testing::pasteOver(field, name);
            QTest::keyClick(&field, Qt::Key_Return);
        }
        acceptAll();
        if (isLate) {
            answer = nullptr;
        }

        saveAll();
        for (auto const& change : isLate ? changes : std::vector<Change>()) {
            accept(change);
        }

        for (auto place = 0; place < names.size(); ++place) {
            auto const& form = *forms.at(static_cast<std::size_t>(place));
            ASSERT_TRUE(form.bank()) << names.at(place).toStdString();
            EXPECT_EQ(form.bank()->name, Name(names.at(place))) << isLate;
            EXPECT_FALSE(form.isDirty());
        }
        delete view.data();
    }
}

using BanksLateAnswerDeathTest = BanksLateAnswerTest;

TEST_F(BanksLateAnswerDeathTest, AnAnswerMoreThanWasSentEndsTheProgram)
{
    keepTwoBanks();
    load();
    markForRemoval();
    choose(text(200, "Card"));
    markForRemoval();
    saveAll();
    accept(changes.at(0));
    accept(changes.at(1));

    EXPECT_DEATH(accept(changes.at(0)), "Failed to locate the account that saved successfully\\.");
    EXPECT_DEATH(accept(changes.at(1)), "Failed to locate the bank that saved successfully\\.");
}
