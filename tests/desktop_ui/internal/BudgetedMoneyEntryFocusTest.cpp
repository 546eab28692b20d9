#include "BudgetedEntryFixture.h"
#include "internal/BudgetedDebtEntryWidget.h"
#include "internal/BudgetedGoalEntryWidget.h"
#include "support/Typing.h"
#include "support/Wheel.h"

#include <QAccessible>
#include <QDoubleSpinBox>

#include <algorithm>
#include <gmock/gmock.h>
#include <memory>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::desktop_ui::internal::BudgetedDebtEntryWidget;
using tlm::desktop_ui::internal::BudgetedGoalEntryWidget;
using tlm::testing::BudgetedEntryFixture;
using tlm::testing::child;
using tlm::testing::PlanningRow;
using tlm::testing::showActive;
using tlm::testing::tabOrder;
using tlm::testing::turnWheelOver;
using tlm::testing::type;

namespace {

/// Where the keyboard leads in a row of each kind.
class BudgetedMoneyEntryFocusTest : public BudgetedEntryFixture
{
protected:
    std::unique_ptr<Row> make(QString const& kind) const
    {
        if (kind == "debt") {
            return std::make_unique<BudgetedDebtEntryWidget>(banks, links, codes, usable, asCode, nullptr);
        }
        if (kind == "goal") {
            return std::make_unique<BudgetedGoalEntryWidget>(banks, wages, links, codes, usable, asCode, nullptr);
        }
        return std::make_unique<Row>(usable, asCode, nullptr);
    }

    static QStringList tabsOf(Row& row)
    {
        showActive(row);
        auto stops = tabOrder(PlanningRow(row).source());
        stops.erase(std::unique(stops.begin(), stops.end()), stops.end()); // a date has three parts
        return stops;
    }

    Money const wages = euros(2000);
    std::set<tlm::banking::BankName> const banks{aspen, birch};
    std::set<tlm::accounting::AccountCode> const codes{code(100, "Everyday")};
    std::set<tlm::navigation::BudgetBankAccount> const links;
};

class BudgetedMoneyEntryEndTest : public BudgetedMoneyEntryFocusTest, public ::testing::WithParamInterface<char const*>
{};

INSTANTIATE_TEST_SUITE_P(Kinds, BudgetedMoneyEntryEndTest, ::testing::Values("plain", "debt", "goal"),
                         [](auto const& kind) { return std::string(kind.param); });
}

TEST_F(BudgetedMoneyEntryFocusTest, TabLeadsThroughARow)
{
    auto const row = make("plain");

    EXPECT_THAT(tabsOf(*row),
                ElementsAre("sourceLndt", "codeCmbbx", "amountLndt", "periodCmbbx", "nextOccurOnDtdt", "removeChckbx"));
}

TEST_F(BudgetedMoneyEntryFocusTest, TabLeadsThroughWhatADebtAdds)
{
    auto const row = make("debt");

    EXPECT_THAT(tabsOf(*row), ElementsAre("sourceLndt", "codeCmbbx", "amountLndt", "periodCmbbx", "nextOccurOnDtdt",
                                          "amountLndt", "", "bankCmbbx", "typeCmbbx", "removeChckbx"));
}

TEST_F(BudgetedMoneyEntryFocusTest, TabLeadsThroughWhatAGoalAdds)
{
    auto const row = make("goal");

    EXPECT_THAT(tabsOf(*row), ElementsAre("sourceLndt", "codeCmbbx", "amountLndt", "periodCmbbx", "nextOccurOnDtdt",
                                          "amountLndt", "bankCmbbx", "accountCmbbx", "", "removeChckbx"));
}

TEST_F(BudgetedMoneyEntryFocusTest, MnemonicsLeadToTheSourceAndTheDate)
{
    auto const row = make("plain");

    EXPECT_EQ(child<QLabel>(*row, "sourceLbl").buddy(), &PlanningRow(*row).source());
    EXPECT_EQ(child<QLabel>(*row, "nextOccurOnLbl").buddy(), &PlanningRow(*row).dueNext());
}

TEST_P(BudgetedMoneyEntryEndTest, AssistiveToolsAreToldWhatEachEntryIs)
{
    auto const row = make(GetParam());

    for (auto* const entry : row->findChildren<QWidget*>()) {
        auto const takesKeys = entry->focusPolicy() != Qt::NoFocus && entry->focusProxy() == nullptr;
        if (takesKeys && entry->window() == row.get()) {
            auto const* const spoken = QAccessible::queryAccessibleInterface(entry);
            EXPECT_NE(spoken->text(QAccessible::Name), "") << entry->objectName().toStdString();
        }
    }
}

TEST_P(BudgetedMoneyEntryEndTest, TheWheelChangesNoFieldThatItComesBy)
{
    auto const row = make(GetParam());
    auto& source = PlanningRow(*row).source();
    for (auto* const percentage : row->findChildren<QDoubleSpinBox*>()) {
        percentage->setValue(50.0);
    }
    hear(*row);
    showIn(*row, source);

    auto const turning = eventsOf([&] {
        for (auto* const field : row->findChildren<QWidget*>()) {
            turnWheelOver(*field);
        }
    });

    EXPECT_THAT(turning, IsEmpty());
    EXPECT_TRUE(source.hasFocus());
}

TEST_P(BudgetedMoneyEntryEndTest, TheWheelChangesTheFieldThatHasTheFocus)
{
    auto const row = make(GetParam());
    auto& date = PlanningRow(*row).dueNext();
    auto const before = date.date();
    hear(*row);
    showIn(*row, date);

    auto const turning = eventsOf([&] { turnWheelOver(date); });

    EXPECT_THAT(turning, ElementsAre("dirty"));
    EXPECT_NE(date.date(), before);
}

/// A field that loses the focus because its row ends tells that its editing ends.
TEST_P(BudgetedMoneyEntryEndTest, EndsWithTheFocusInAnyEntryWithoutAWord)
{
    auto const count = make(GetParam())->findChildren<QWidget*>().size();
    for (auto index = 0; index < count; ++index) {
        auto row = make(GetParam());
        auto* const entry = row->findChildren<QWidget*>().at(index);
        if (entry->focusPolicy() == Qt::NoFocus || !entry->isEnabled()) {
            continue;
        }
        hear(*row);
        showIn(*row, *entry);
        type(*entry, "1");

        auto const ending = eventsOf([&] { row.reset(); });

        EXPECT_THAT(ending, IsEmpty()) << index;
    }
}

TEST_P(BudgetedMoneyEntryEndTest, EndsWithinAViewThatStays)
{
    QWidget view;
    view.setLayout(new QVBoxLayout);
    auto* const row = make(GetParam()).release();
    view.layout()->addWidget(row);
    showActive(view);
    PlanningRow(*row).amount().setFocus();
    hear(*row);

    auto const ending = eventsOf([&] { delete row; });

    EXPECT_THAT(ending, IsEmpty());
}
