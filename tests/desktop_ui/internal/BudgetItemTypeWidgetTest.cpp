#include "internal/BudgetItemTypeWidget.h"

#include "ShowActive.h"
#include "support/ComboBoxes.h"
#include "support/Widgets.h"

#include <tlm/foundation/Error.h>

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::desktop_ui::internal::BudgetItemTypeWidget;
using tlm::testing::child;
using tlm::testing::itemTexts;

namespace {

BudgetItemIdentifier const rent{BudgetItemTypes::Bill, BudgetSource("Rent")};
}

/// A selector that offers the sources Phone and Rent.
class BudgetItemTypeWidgetTest : public ::testing::Test
{
protected:
    BudgetItemTypeWidgetTest() { item.setSources({BudgetSource("Rent"), BudgetSource("Phone")}); }

    BudgetItemTypeWidget item{nullptr};
    QComboBox& type = child<QComboBox>(item, "typeCmbbx");
    QComboBox& source = child<QComboBox>(item, "sourceCmbbx");
    QSignalSpy types{&item, &BudgetItemTypeWidget::typeChanged};
    QSignalSpy sources{&item, &BudgetItemTypeWidget::sourceChanged};
};

TEST(BudgetItemTypeWidgetStartTest, OffersEachTypeAndNoSourceAndIsReadOnly)
{
    BudgetItemTypeWidget const item(nullptr);

    auto const& type = child<QComboBox>(item, "typeCmbbx");
    EXPECT_EQ(type.count(), 6);
    EXPECT_EQ(type.itemText(0), "");
    for (auto value = 1; value < type.count(); ++value) {
        EXPECT_EQ(type.itemText(value), presentationText(static_cast<BudgetItemTypes>(value)));
    }
    EXPECT_EQ(child<QComboBox>(item, "sourceCmbbx").count(), 1);
    EXPECT_EQ(item.identifier(), BudgetItemIdentifier());
    EXPECT_FALSE(type.isEnabled());
    EXPECT_FALSE(child<QComboBox>(item, "sourceCmbbx").isEnabled());
    EXPECT_TRUE(item.testAttribute(Qt::WA_DeleteOnClose));
}

TEST_F(BudgetItemTypeWidgetTest, OffersTheSourcesInOrderBelowABlankRow)
{
    EXPECT_THAT(itemTexts(source), ElementsAre("", "Phone", "Rent"));
    EXPECT_EQ(item.budgetSource(), BudgetSource());
}

TEST_F(BudgetItemTypeWidgetTest, NewSourcesReplaceTheOldOnesAndTheSelection)
{
    item.select(rent);
    sources.clear();

    item.setSources({BudgetSource("Water")});

    EXPECT_THAT(itemTexts(source), ElementsAre("", "Water"));
    EXPECT_EQ(item.identifier(), (BudgetItemIdentifier{BudgetItemTypes::Bill, BudgetSource()}));
    EXPECT_GE(sources.count(), 1);
}

TEST_F(BudgetItemTypeWidgetTest, TellsWhatAPersonPicks)
{
    type.setCurrentText(presentationText(BudgetItemTypes::Wage));
    EXPECT_EQ(types.count(), 1);
    EXPECT_EQ(item.budgetItemType(), BudgetItemTypes::Wage);

    sources.clear();
    source.setCurrentText("Phone");
    EXPECT_EQ(sources.count(), 1);
    EXPECT_EQ(item.identifier(), (BudgetItemIdentifier{BudgetItemTypes::Wage, BudgetSource("Phone")}));
}

TEST_F(BudgetItemTypeWidgetTest, SelectsAnItem)
{
    item.select(rent);

    EXPECT_EQ(item.identifier(), rent);
}

TEST_F(BudgetItemTypeWidgetTest, SelectsTheBlankRows)
{
    item.select(rent);

    item.select({});

    EXPECT_EQ(item.identifier(), BudgetItemIdentifier());
    EXPECT_EQ(type.currentIndex(), 0);
    EXPECT_EQ(source.currentIndex(), 0);
}

TEST_F(BudgetItemTypeWidgetTest, ASourceThatIsNotOnOfferLeavesTheSelection)
{
    item.select(rent);
    BudgetItemIdentifier const unknown{BudgetItemTypes::Wage, BudgetSource("rent")};

    try {
        item.select(unknown);
        FAIL() << "nothing was refused";
    } catch (tlm::foundation::Error const& error) {
        EXPECT_EQ(error.message(), "Failed to locate the budget item source 'rent'.");
    }

    EXPECT_EQ(item.identifier(), rent);
}

TEST_F(BudgetItemTypeWidgetTest, CanBePickedFromUnlessItIsReadOnly)
{
    item.setReadOnly(false);
    EXPECT_TRUE(type.isEnabled());
    EXPECT_TRUE(source.isEnabled());

    item.setReadOnly(true);
    EXPECT_FALSE(type.isEnabled());
    EXPECT_FALSE(source.isEnabled());
}

TEST_F(BudgetItemTypeWidgetTest, IsLabelledAsTold)
{
    item.setTypeLabel("Budget Type:");
    item.setSourceLabel("Item:");

    EXPECT_EQ(child<QLabel>(item, "typeLbl").text(), "Budget Type:");
    EXPECT_EQ(child<QLabel>(item, "sourceLbl").text(), "Item:");
}

TEST_F(BudgetItemTypeWidgetTest, TabGoesFromTheTypeToTheSource)
{
    item.setReadOnly(false);
    tlm::testing::showActive(item);

    EXPECT_THAT(tlm::testing::tabOrder(type), ElementsAre("typeCmbbx", "sourceCmbbx"));
}
