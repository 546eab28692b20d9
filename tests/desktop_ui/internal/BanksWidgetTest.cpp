#include "BanksFixture.h"

#include <tlm/foundation/Error.h>

#include <QHeaderView>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::foundation::Error;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// What the view is built of.
class BanksWidgetTest : public tlm::testing::BanksFixture
{
protected:
    QString messageOfLoad()
    {
        try {
            load();
        } catch (Error const& error) {
            return error.message();
        }
        return "no error";
    }
};

TEST_F(BanksWidgetTest, NoBanksOpenOnOneNewBank)
{
    load();

    EXPECT_THAT(rows(), ElementsAre("New Bank"));
    EXPECT_EQ(currentText(), "New Bank");
    EXPECT_EQ(bank().tryBankName(), std::nullopt);
    EXPECT_EQ(child<QLineEdit>(bank(), "nameLndt").placeholderText(), "New Bank");
    EXPECT_FALSE(bank().isDirty());
    EXPECT_TRUE(addBank().isEnabled());
    EXPECT_TRUE(addAccount().isEnabled());
}

TEST_F(BanksWidgetTest, BanksHoldTheirAccountsAndTheseTheirSubAccountsInTheOrderOfTheirTexts)
{
    keepTwoBanks();
    keep("Aspen Bank", code(105, "Large"));

    load();

    EXPECT_THAT(rows(), ElementsAre("Aspen Bank", "  " + text(100, "Everyday"), "  " + text(105, "Large"),
                                    "  " + text(110, "Rainy days"), "    " + text(111, "Holiday"), "Birch Bank",
                                    "  " + text(200, "Card")));
    EXPECT_EQ(currentText(), "Aspen Bank");
    EXPECT_EQ(shown<BankForm>().size(), 1);
    EXPECT_THAT(shown<AccountForm>(), IsEmpty());
    EXPECT_EQ(bank().bankName(), Name("Aspen Bank"));
    EXPECT_TRUE(view->testAttribute(Qt::WA_DeleteOnClose));
}

TEST_F(BanksWidgetTest, EveryRowHasAFormOfItsKind)
{
    keepTwoBanks();
    load();

    choose(text(110, "Rainy days"));
    EXPECT_EQ(account().code(), code(110, "Rainy days"));
    EXPECT_EQ(account().bankType(), Types::Savings);
    EXPECT_EQ(account().balance(), euros(300));
    EXPECT_FALSE(child<QLineEdit>(account(), "numberLndt").isVisibleTo(&account()));
    EXPECT_FALSE(child<QComboBox>(account(), "ledgerTypeCmbbx").isVisibleTo(&account()));
    EXPECT_THAT(shown<BankForm>(), IsEmpty());

    choose(text(111, "Holiday"));
    EXPECT_EQ(account().code(), code(111, "Holiday", 110));
    EXPECT_TRUE(child<QLineEdit>(account(), "numberLndt").isVisibleTo(&account()));
    EXPECT_TRUE(child<QComboBox>(account(), "ledgerTypeCmbbx").isVisibleTo(&account()));
    EXPECT_EQ(account().parent(), 110U);
    EXPECT_EQ(shown<AccountForm>().size(), 1);
}

TEST_F(BanksWidgetTest, ASubAccountIsForDisplay)
{
    keepTwoBanks();
    load();
    choose(text(111, "Holiday"));
    auto& name = child<QLineEdit>(account(), "nameLndt");

    tlm::testing::typeOver(name, "Journey");
    QTest::keyClick(&name, Qt::Key_Return);
    markForRemoval();

    EXPECT_EQ(account().name(), "Holiday");
    EXPECT_FALSE(account().isRemoved());
    EXPECT_FALSE(account().isDirty());
}

TEST_F(BanksWidgetTest, AClosedBankAndAClosedAccountSaySo)
{
    keepBank("Aspen Bank", true);
    chart(code(200, "Card"), euros(0), true);
    banks[Name("Birch Bank")] = tlm::banking::Bank(Name("Birch Bank"), {{Number(200), Types::CreditCard}}, false);

    load();

    EXPECT_TRUE(bank().isClosed());
    choose(text(200, "Card"));
    EXPECT_TRUE(account().isClosed());
}

TEST_F(BanksWidgetTest, AnAccountThatTheChartLacksKeepsTheViewFromOpening)
{
    banks[Name("Aspen Bank")] = tlm::banking::Bank(Name("Aspen Bank"), {{Number(77), Types::Checking}}, false);

    EXPECT_EQ(messageOfLoad(), "Failed to locate bank account '77'.");
}

TEST_F(BanksWidgetTest, AParentThatTheChartLacksKeepsTheViewFromOpening)
{
    keep("Aspen Bank", code(111, "Holiday", 110));

    EXPECT_EQ(messageOfLoad(), "Failed to locate bank account '110'.");
}

TEST_F(BanksWidgetTest, AChildOfAnAccountThatNoBankHasIsNotShown)
{
    keep("Aspen Bank", code(111, "Holiday", 110));
    chart(code(110, "Rainy days"));
    expectMessage(QtCriticalMsg, "^Failed to add child account AccountCode\\(111, \"Holiday\", parent 110\\) to parent "
                                 "account AccountCode\\(110, \"Rainy days\"\\)$");

    load();

    EXPECT_THAT(rows(), ElementsAre("Aspen Bank"));
}

TEST_F(BanksWidgetTest, AChildOfAChildNeedsItsParentToComeFirst)
{
    keep("Aspen Bank", code(100, "Everyday"));
    keep("Aspen Bank", code(101, "Holiday", 100));
    keep("Aspen Bank", code(102, "Train", 101));
    keep("Aspen Bank", code(103, "Hotel", 104));
    keep("Aspen Bank", code(104, "Trips", 100));
    expectMessage(QtCriticalMsg, "^Failed to add child account AccountCode\\(103, \"Hotel\", parent 104\\) to parent");

    load();

    EXPECT_THAT(rows(), ElementsAre("Aspen Bank", "  " + text(100, "Everyday"), "    " + text(101, "Holiday"),
                                    "      " + text(102, "Train"), "    " + text(104, "Trips")));
}

TEST_F(BanksWidgetTest, ABankCalledLikeAnAccountHoldsNoneOfItsSubAccounts)
{
    keepBank(text(110, "Rainy days"));
    keep("Birch Bank", code(110, "Rainy days"));
    keep("Birch Bank", code(111, "Holiday", 110));

    load();

    EXPECT_THAT(rows(), ElementsAre(text(110, "Rainy days"), "Birch Bank", "  " + text(110, "Rainy days"),
                                    "    " + text(111, "Holiday")));
}

TEST_F(BanksWidgetTest, BuildingTellsItsSteps)
{
    keep("Aspen Bank", code(110, "Rainy days"), Types::Goal);
    keep("Aspen Bank", code(111, "Holiday", 112));
    chart(code(112, "Elsewhere"));
    expectMessage(QtCriticalMsg, "^Failed to add child account");
    auto const lines = [] {
        QStringList texts;
        for (auto const& line : MessageLog::lines()) {
            for (auto const* start : {"Adding", "Bank account", "Failed", "Calculating", "Changing"}) {
                if (line.text.startsWith(start) && !line.text.startsWith("Adding new money")) {
                    texts.append(QString::number(line.type) + " " + line.text);
                }
            }
        }
        return texts;
    };

    View const built(banks, accounts, {Currency::EUR}, tlm::navigation::CurrencyDisplayOptions::Code, &window);

    auto const info = QString::number(QtInfoMsg) + " ";
    EXPECT_THAT(
        lines(),
        ElementsAre(
            info + "Adding bank \"Aspen Bank\"",
            info + "Bank account AccountCode(110, \"Rainy days\") is a goal account, which does not have a parent.",
            info + "Adding bank account \"Aspen Bank\" \"Rainy days\"",
            QString::number(QtDebugMsg) + " Failed to locate the account widget item that is to hold the account.",
            QString::number(QtCriticalMsg) + " Failed to add child account AccountCode(111, \"Holiday\", parent "
                                             "112) to parent account AccountCode(112, \"Elsewhere\")",
            info + "Calculating parent balances.",
            info + "Changing displayed bank from " + QDebug::toString(text(110, "Rainy days")) + " to \"Aspen Bank\""));
}

TEST_F(BanksWidgetTest, TheTreeIsLaidOutAsItIsRead)
{
    keepTwoBanks();
    load();

    auto const& header = *tree().header();
    EXPECT_EQ(tree().headerItem()->text(0), "Bank Accounts");
    EXPECT_EQ(tree().headerItem()->text(1), "Combined Balance");
    EXPECT_EQ(header.sectionResizeMode(0), QHeaderView::Stretch);
    EXPECT_EQ(header.sectionResizeMode(1), QHeaderView::Fixed);
    EXPECT_EQ(header.minimumSectionSize(), 50);
    EXPECT_FALSE(header.stretchLastSection());
    EXPECT_EQ(tree().editTriggers(), QAbstractItemView::NoEditTriggers);
}

TEST_F(BanksWidgetTest, DiscardClosesWithoutAWord)
{
    keepTwoBanks();
    load();
    typeName("Cedar Bank");

    discard();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                Contains("Handling bank entry widget clicked button " +
                         QDebug::toString(buttons().button(QDialogButtonBox::Discard)->text()).trimmed()));
    turnEventLoop();
    EXPECT_TRUE(view.isNull());
}

TEST_F(BanksWidgetTest, EndsWhileItIsOnScreenWithTheCursorInAForm)
{
    keepTwoBanks();
    load();
    show();
    auto& name = child<QLineEdit>(bank(), "nameLndt");
    name.setFocus();
    tlm::testing::typeOver(name, "Cedar Bank");

    delete view.data();

    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BanksWidgetTest, MayEndWhileItCloses)
{
    load();
    QObject::connect(view, &View::closing, view, [this] { delete view.data(); });

    discard();

    EXPECT_TRUE(view.isNull());
}
