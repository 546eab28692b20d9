#include "BudgetedMoniesFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QScrollArea>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

namespace {

/// Makes rows of bills, and keeps what it was asked for.
struct RowsAskedFor : tlm::desktop_ui::internal::BudgetedMoneyCreator
{
    using Row = tlm::desktop_ui::internal::BudgetedMoneyEntryWidget;
    using Money = std::unique_ptr<tlm::budgeting::BudgetedMoney>;
    using Currencies = std::set<fiscora::Currency>;
    using DisplayAs = tlm::navigation::CurrencyDisplayOptions;
    using Parent = tlm::foundation::QtPtr<QWidget>;
    using Asked = std::tuple<Currencies, DisplayAs, QWidget*>;

    explicit RowsAskedFor(std::vector<Asked>& all) : asked(all) {}

    std::unique_ptr<Row> makeEntryWidget(Currencies const& usable, DisplayAs const& displayAs, Parent parent) override
    {
        asked.emplace_back(usable, displayAs, parent.get());
        return BudgetedMoneyCreator::makeEntryWidget(usable, displayAs, parent);
    }
    Money makeBudgetedMoney(Row const& /*entry*/) override { return makeEmptyBudgetedMoney(); }
    Money makeEmptyBudgetedMoney() override { return std::make_unique<tlm::budgeting::Bill>(); }

    std::vector<Asked>& asked;
};
}

class BudgetedMoniesWidgetTest : public tlm::testing::BudgetedMoniesFixture
{
protected:
    /// \return what stands in the list, from top to bottom
    QStringList shownSources() const
    {
        auto const* const list = child<QWidget>(*view, "budgetedMoneyEntriesWdgt").layout();
        QStringList sources;
        for (auto place = 0; place < list->count(); ++place) {
            if (auto* const row = qobject_cast<Row*>(list->itemAt(place)->widget())) {
                sources.append(child<QLineEdit>(*row, "sourceLndt").text());
            }
        }
        return sources;
    }

    bool isAnyRowDirty() const
    {
        auto const all = rows();
        return std::any_of(all.begin(), all.end(), [](Row const* row) { return row->isDirty(); });
    }
};

TEST_F(BudgetedMoniesWidgetTest, ShowsItsHeadingAndAReadOnlyTotal)
{
    make();

    EXPECT_EQ(MessageLog::texts(QtInfoMsg).constFirst(), "Displaying the \"Budgeted Bills:\"");
    EXPECT_EQ(view->windowTitle(), "Budgeted Monies");
    EXPECT_EQ(child<QLabel>(*view, "displayingLbl").text(), "Budgeted Bills:");
    auto const& entry = child<tlm::desktop_ui::MoneyEntryWidget>(*view, "totalMnyntr");
    EXPECT_EQ(child<QLabel>(entry, "amountLbl").text(), "Monthly Total Amount:");
    EXPECT_TRUE(entry.isReadOnly());
    EXPECT_THAT(entry.currencies(), ElementsAre(Currency::USD, Currency::EUR));
    EXPECT_EQ(total(), euros(0));
    EXPECT_EQ(addButton().text(), "&Add");
    EXPECT_TRUE(view->testAttribute(Qt::WA_DeleteOnClose));
}

TEST_F(BudgetedMoniesWidgetTest, NoItemsGiveOneEmptyRowAndATotalOfZero)
{
    load({});

    EXPECT_THAT(shownSources(), ElementsAre(""));
    EXPECT_EQ(rows().front()->originalSource(), std::nullopt);
    EXPECT_FALSE(isAnyRowDirty());
    EXPECT_EQ(total(), euros(0));
}

TEST_F(BudgetedMoniesWidgetTest, EachRowIsMadeByTheCreatorForTheView)
{
    std::vector<RowsAskedFor::Asked> asked;
    std::set const usable{Currency::EUR, Currency::USD};
    auto const asSymbol = tlm::navigation::CurrencyDisplayOptions{1};
    view = new View("Budgeted Bills:", std::make_unique<RowsAskedFor>(asked), Currency::EUR, usable, asSymbol, nullptr);

    view->load(tlm::budgeting::BillMap());
    addButton().click();

    EXPECT_THAT(asked,
                ElementsAre(RowsAskedFor::Asked(usable, asSymbol, view), RowsAskedFor::Asked(usable, asSymbol, view)));
    EXPECT_EQ(rows().size(), 2);
}

TEST_F(BudgetedMoniesWidgetTest, ItemsStandInTheOrderOfTheirSourcesAndAreClean)
{
    load({bill("Water"), bill("Gas"), bill("Rent")});

    EXPECT_THAT(shownSources(), ElementsAre("Gas", "Rent", "Water"));
    EXPECT_FALSE(isAnyRowDirty());
    EXPECT_EQ(row("Rent").originalSource(), Source("Rent"));
    EXPECT_EQ(total(), euros(30));
}

TEST_F(BudgetedMoniesWidgetTest, LoadingLogsEachItemAndAddsUpOnce)
{
    make();
    MessageLog::clear();

    view->load(tlm::budgeting::BillMap{{Source("Gas"), bill("Gas")}, {Source("Rent"), bill("Rent")}});

    auto const log = MessageLog::texts(QtInfoMsg);
    EXPECT_EQ(log.count("Adding budgeted money entry: \"Gas\" isNew false"), 1);
    EXPECT_EQ(log.count("Adding budgeted money entry: \"Rent\" isNew false"), 1);
    EXPECT_EQ(log.count("Updating budgeted monies total"), 1);
    EXPECT_EQ(log.constLast(), "Updating budgeted monies total");
}

TEST_F(BudgetedMoniesWidgetTest, AddPutsACleanRowOnTopThatWalksLast)
{
    load({bill("Gas"), bill("Rent")});

    addButton().click();
    rename(*rows().constLast(), "Water");
    addButton().click();

    EXPECT_THAT(shownSources(), ElementsAre("", "Water", "Gas", "Rent"));
    EXPECT_EQ(child<QLineEdit>(*rows().constLast(), "sourceLndt").text(), "");
    EXPECT_FALSE(rows().constLast()->isDirty());
    EXPECT_EQ(rows().constLast()->nextOccurOn(), QDate::currentDate());
    EXPECT_EQ(total(), euros(20));
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BudgetedMoniesWidgetTest, AddLogsWhatItDoesAndAddsNothingUp)
{
    load({bill("Gas")});

    addButton().click();

    auto const log = MessageLog::texts(QtInfoMsg);
    EXPECT_EQ(log.constFirst(), "Handling budgeted money entries button clicked \"&Add\"");
    EXPECT_EQ(log.at(1), "Adding empty money entry.");
    EXPECT_EQ(log.at(2), "Adding budgeted money entry: \"\" isNew true");
    EXPECT_THAT(log, Not(Contains("Updating budgeted monies total")));
}

TEST_F(BudgetedMoniesWidgetTest, TheTotalFollowsWhatIsTypedAndPicked)
{
    load({bill("Gas"), bill("Rent", euros(100))});

    typeAmount(row("Gas"), "20.50");
    EXPECT_EQ(total(), Money(Currency::EUR, 120, 50, 0));

    child<QComboBox>(row("Rent"), "periodCmbbx").setCurrentText(presentationText(Frequency::Quarterly));
    EXPECT_EQ(total(), Money(Currency::EUR, 53, 83, 0));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Updating budgeted monies total"));
}

TEST_F(BudgetedMoniesWidgetTest, ARowWithoutFrequencyOrCurrencyAddsNothing)
{
    load({bill("Gas"), bill("Rent", euros(100), Frequency::None), bill("Water", Money())});

    EXPECT_EQ(total(), euros(10));
}

TEST_F(BudgetedMoniesWidgetTest, ARowMarkedForRemovalLeavesTheTotalAtOnceAndComesBack)
{
    load({bill("Gas"), bill("Rent", euros(100))});

    markForRemoval(row("Rent"));
    EXPECT_EQ(total(), euros(10));

    markForRemoval(row("Rent"));
    EXPECT_EQ(total(), euros(110));
}

TEST_F(BudgetedMoniesWidgetTest, CurrenciesAddUpInThePreferredOne)
{
    fiscora::registerConversion(Currency::USD, Currency::EUR, fiscora::FloatingPoint(0.5));
    Money const dollars(Currency::USD, 100, 0, 0);

    load({bill("Gas"), bill("Rent", euros(5)), bill("Phone", dollars), bill("Water", dollars)});

    EXPECT_EQ(total(), euros(115));
}

TEST_F(BudgetedMoniesWidgetTest, AnAmountThatCannotBeReadIsLeftOutOfTheTotal)
{
    load({bill("Gas"), bill("Rent", euros(100)), bill("Water")});
    expectMessage(QtWarningMsg, "^The total leaves out an amount that can't be read: BudgetSource\\(\"Rent\"\\)$");
    expectMessage(QtWarningMsg, "The changed money value does not create a valid money type");
    auto& amount = child<QLineEdit>(row("Rent"), "amountLndt");
    amount.setText("12.3.4");

    emit amount.editingFinished();

    EXPECT_EQ(total(), euros(20));
}

TEST_F(BudgetedMoniesWidgetTest, ASumTooLargeToBeMoneyShowsNoTotalUntilItFits)
{
    auto const huge = euros(900'000'000'000'000);
    expectMessage(QtWarningMsg, "^The budgeted monies can't be added up, so that no total is shown\\.");
    load({bill("Gas", huge), bill("Rent", huge)});
    EXPECT_EQ(totalText(), "");

    markForRemoval(row("Rent"));

    EXPECT_EQ(total(), huge);
}

TEST_F(BudgetedMoniesWidgetTest, AMonthTooLargeToBeMoneyShowsNoTotal)
{
    expectMessage(QtWarningMsg, "^The budgeted monies can't be added up, so that no total is shown\\.");

    load({bill("Gas", euros(900'000'000'000'000), Frequency::Hourly), bill("Rent")});

    EXPECT_EQ(totalText(), "");
}

TEST_F(BudgetedMoniesWidgetTest, DiscardClosesWithoutAQuestionWhateverIsDirty)
{
    load({bill("Gas")});
    rename(row("Gas"), "Heating");
    MessageLog::clear();

    discard();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Handling budgeted money entries button clicked \"" +
                                buttons().button(QDialogButtonBox::Discard)->text() + "\"",
                            "The budgeted monies widget is about to close."));
    EXPECT_FALSE(view.isNull());
    turnEventLoop();
    EXPECT_TRUE(view.isNull());
}

TEST_F(BudgetedMoniesWidgetTest, AnUnknownButtonIsAFaultAndLeavesTheButtonsEnabled)
{
    load({bill("Gas")});
    auto* const unknown = buttons().addButton("Print", QDialogButtonBox::ActionRole);

    try {
        emit buttons().clicked(unknown);
        FAIL() << "the button was taken for another";
    } catch (std::logic_error const& fault) {
        EXPECT_STREQ(fault.what(), "Unknown button pressed, Print.");
    }

    EXPECT_TRUE(buttons().isEnabled());
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BudgetedMoniesWidgetTest, RowsAreDisabledFromASecondClickOnlyWhileOneIsHandled)
{
    load({bill("Gas")});
    rename(row("Gas"), "Heating");
    auto wasEnabled = true;
    answer = [&](Id const& /*id*/, Source const& /*source*/) {
        wasEnabled = buttons().isEnabled();
        save();
    };

    save();

    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(buttons().isEnabled());
    EXPECT_THAT(sent, ElementsAre("renamed Gas to Heating", "updated Heating 10.00 EUR"));
}
