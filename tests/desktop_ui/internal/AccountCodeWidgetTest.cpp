#include "internal/AccountCodeWidget.h"

#include "support/ComboBoxes.h"
#include "support/Widgets.h"

#include <tlm/foundation/Error.h>

#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::desktop_ui::internal::AccountCodeWidget;
using tlm::testing::child;
using tlm::testing::itemTexts;

namespace {

AccountCode const rent(AccountNumber(5010), "Rent", AccountNumber(5000));
AccountCode const food(AccountNumber(5020), "Essen & Trinken", std::nullopt);
AccountCode const cash(AccountNumber(1000), "Cash", std::nullopt);

class AccountCodeWidgetTest : public ::testing::Test
{
protected:
    AccountCodeWidget widget{nullptr};
    QComboBox& codes = child<QComboBox>(widget, "accountCmbbx");
};
}

TEST_F(AccountCodeWidgetTest, OffersNothingAtFirst)
{
    EXPECT_EQ(codes.count(), 0);
    EXPECT_EQ(widget.code(), std::nullopt);
}

TEST_F(AccountCodeWidgetTest, OffersABlankItemAndTheCodesInTheirOrder)
{
    widget.populate({rent, food, cash});

    EXPECT_THAT(itemTexts(codes),
                ElementsAre("", presentationText(cash), presentationText(rent), presentationText(food)));
    EXPECT_EQ(codes.currentIndex(), 0);
    EXPECT_EQ(widget.code(), std::nullopt);
}

TEST_F(AccountCodeWidgetTest, ASecondFillReplacesTheFirst)
{
    widget.populate({rent, food});
    widget.selectCode(food);

    widget.populate({cash});

    EXPECT_THAT(itemTexts(codes), ElementsAre("", presentationText(cash)));
    EXPECT_EQ(widget.code(), std::nullopt);
}

TEST_F(AccountCodeWidgetTest, ListsOfTheSameCodesStayApart)
{
    AccountCodeWidget other(nullptr);
    widget.populate({rent, food});
    other.populate({rent, food});

    widget.selectCode(rent);
    codes.removeItem(2);

    EXPECT_EQ(other.code(), std::nullopt);
    EXPECT_EQ(child<QComboBox>(other, "accountCmbbx").count(), 3);
}

TEST_F(AccountCodeWidgetTest, TellsTheSelectedCodeWithoutItsParent)
{
    widget.populate({rent, food});

    widget.selectCode(rent);

    EXPECT_EQ(codes.currentIndex(), 1);
    EXPECT_EQ(widget.code(), AccountCode(AccountNumber(5010), "Rent", std::nullopt));
}

TEST_F(AccountCodeWidgetTest, SelectsTheFirstOfCodesThatReadAlike)
{
    AccountCode const loose(rent.number(), rent.name(), std::nullopt);
    widget.populate({loose, rent});

    widget.selectCode(rent);

    EXPECT_EQ(codes.currentIndex(), 1);
}

TEST_F(AccountCodeWidgetTest, RefusesACodeThatIsNotOnOffer)
{
    widget.populate({rent, food});
    widget.selectCode(food);
    QString told;

    try {
        widget.selectCode(cash);
    } catch (tlm::foundation::Error const& error) {
        told = error.message();
    }

    EXPECT_EQ(told, QStringLiteral("Failed to locate the account code source '%1'.").arg(presentationText(cash)));
    EXPECT_EQ(codes.currentText(), presentationText(food));
}

TEST_F(AccountCodeWidgetTest, RefusesACodeThatDiffersInCase)
{
    widget.populate({rent});

    EXPECT_THROW(widget.selectCode({rent.number(), "RENT", std::nullopt}), tlm::foundation::Error);

    EXPECT_EQ(codes.currentIndex(), 0);
}

TEST_F(AccountCodeWidgetTest, ReadOnlyKeepsTheCodeFromBeingPicked)
{
    widget.populate({rent});
    widget.selectCode(rent);

    widget.setReadOnly(true);
    auto const whileReadOnly = codes.isEnabled();
    widget.setReadOnly(false);

    EXPECT_FALSE(whileReadOnly);
    EXPECT_TRUE(codes.isEnabled());
    EXPECT_EQ(codes.currentText(), presentationText(rent));
}

TEST_F(AccountCodeWidgetTest, IsLabelledByItsForm)
{
    auto& label = child<QLabel>(widget, "accountLbl");
    auto const before = label.text();

    widget.setLabel("Stored in:");

    EXPECT_EQ(before, "Account Code:");
    EXPECT_EQ(label.text(), "Stored in:");
}

TEST_F(AccountCodeWidgetTest, EndsWhenClosed)
{
    QPointer<AccountCodeWidget> const closed = new AccountCodeWidget(nullptr);
    closed->show();

    closed->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_TRUE(closed.isNull());
}
