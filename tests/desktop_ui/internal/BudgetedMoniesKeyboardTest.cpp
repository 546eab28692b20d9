#include "BudgetedMoniesFixture.h"
#include "ShowActive.h"
#include "support/Wheel.h"

#include <QComboBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QWindow>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using tlm::testing::child;
using tlm::testing::showActive;
using tlm::testing::turnWheelOver;

/// A view on screen and the way of the keyboard through it.
class BudgetedMoniesKeyboardTest : public tlm::testing::BudgetedMoniesFixture
{
protected:
    static constexpr QSize smallScreen{1'024, 576};

    void loadOnScreen(std::vector<tlm::budgeting::Bill> const& bills)
    {
        load(bills);
        view->resize(smallScreen);
        showActive(*view);
    }

    void loadManyOnScreen()
    {
        std::vector<tlm::budgeting::Bill> bills;
        for (auto letter = 'A'; letter <= 'P'; ++letter) {
            bills.push_back(bill(QString(QLatin1Char(letter))));
        }
        loadOnScreen(bills);
    }

    /// \return the part of the view that has the focus: a row by its source, "total", or the text of a button
    QString focusedPart() const
    {
        auto* const focused = QApplication::focusWidget();
        if (auto const* const button = qobject_cast<QPushButton*>(focused)) {
            return button->text();
        }
        for (auto* const row : rows()) {
            if (row->isAncestorOf(focused)) {
                return child<QLineEdit>(*row, "sourceLndt").text();
            }
        }
        return child<QWidget>(*view, "totalMnyntr").isAncestorOf(focused) ? "total" : focused->objectName();
    }

    /// \return the parts in the order in which the Tab key comes to them, until it comes round to \a first
    QStringList tabOrderOfParts(QWidget& first) const
    {
        constexpr auto mostStops = 100;
        first.setFocus(Qt::TabFocusReason);
        QStringList parts{focusedPart()};
        for (auto stop = 0; stop < mostStops; ++stop) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            if (QApplication::focusWidget() == &first) {
                return parts;
            }
            if (focusedPart() != parts.constLast()) {
                parts.append(focusedPart());
            }
        }
        throw std::runtime_error("Tab never came round");
    }

    /// \return the texts of the buttons from left to right
    QStringList buttonTexts() const
    {
        auto all = buttons().findChildren<QPushButton*>();
        std::sort(all.begin(), all.end(), [](auto const* left, auto const* right) { return left->x() < right->x(); });
        QStringList texts;
        for (auto const* const button : all) {
            texts.append(button->text());
        }
        return texts;
    }

    QLineEdit& source(QString const& name) const { return child<QLineEdit>(row(name), "sourceLndt"); }
    QScrollArea& scroller() const { return child<QScrollArea>(*view, "budgetedMoniesScrllr"); }

    bool isWhollyOnScreen(QWidget const& part) const
    {
        auto const& viewport = *scroller().viewport();
        return viewport.rect().contains(QRect(part.mapTo(&viewport, QPoint()), part.size()));
    }
};

TEST_F(BudgetedMoniesKeyboardTest, TabGoesThroughTheRowsThenTheTotalThenTheButtons)
{
    loadOnScreen({bill("Gas"), bill("Rent"), bill("Water")});

    EXPECT_THAT(tabOrderOfParts(source("Gas")),
                ElementsAreArray(QStringList{"Gas", "Rent", "Water", "total"} + buttonTexts()));
}

TEST_F(BudgetedMoniesKeyboardTest, TheCursorStandsInTheFirstRowAtTheStart)
{
    loadOnScreen({bill("Gas"), bill("Rent")});

    EXPECT_EQ(QApplication::focusWidget(), &source("Gas"));
}

TEST_F(BudgetedMoniesKeyboardTest, TabComesToNewRowsOnTopFirst)
{
    loadOnScreen({bill("Gas"), bill("Rent")});
    addButton().click();
    rename(*rows().constLast(), "Attic");
    addButton().click();

    EXPECT_THAT(tabOrderOfParts(source("")),
                ElementsAreArray(QStringList{"", "Attic", "Gas", "Rent", "total"} + buttonTexts()));
}

TEST_F(BudgetedMoniesKeyboardTest, TabGoesOnFromALoneEmptyRow)
{
    loadOnScreen({});
    EXPECT_EQ(QApplication::focusWidget(), &source(""));

    EXPECT_THAT(tabOrderOfParts(source("")), ElementsAreArray(QStringList{"", "total"} + buttonTexts()));
}

TEST_F(BudgetedMoniesKeyboardTest, AddPutsTheCursorIntoTheNewRowAndScrollsToIt)
{
    loadManyOnScreen();
    source("P").setFocus(Qt::TabFocusReason);
    ASSERT_GT(scroller().verticalScrollBar()->value(), 0);
    addButton().setFocus();

    QTest::keyClick(&addButton(), Qt::Key_Space);

    EXPECT_EQ(QApplication::focusWidget(), &child<QLineEdit>(*rows().constLast(), "sourceLndt"));
    EXPECT_TRUE(isWhollyOnScreen(*rows().constLast()));
    QTest::keyClicks(QApplication::focusWidget(), "Gas");
    EXPECT_EQ(rows().constLast()->source(), Source("Gas"));
}

TEST_F(BudgetedMoniesKeyboardTest, AClickOnAddPutsTheCursorIntoTheNewRow)
{
    loadManyOnScreen();

    QTest::mouseClick(&addButton(), Qt::LeftButton);

    EXPECT_EQ(QApplication::focusWidget(), &child<QLineEdit>(*rows().constLast(), "sourceLndt"));
    EXPECT_TRUE(isWhollyOnScreen(*rows().constLast()));
}

TEST_F(BudgetedMoniesKeyboardTest, TheMnemonicAddsARow)
{
    loadOnScreen({bill("Gas")});

    QTest::keyClick(view, Qt::Key_A, Qt::AltModifier);

    EXPECT_TRUE(QTest::qWaitFor([this] { return rows().size() == 2; }, 1'000)); // it is shown pressed for a moment
}

TEST_F(BudgetedMoniesKeyboardTest, EveryRowThatTabComesToIsWhollyOnScreen)
{
    loadManyOnScreen();
    source("A").setFocus(Qt::TabFocusReason);

    for (auto letter = 'B'; letter <= 'P'; ++letter) {
        while (focusedPart() != QString(QLatin1Char(letter))) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_TRUE(isWhollyOnScreen(row(QString(QLatin1Char(letter))))) << letter;
    }
}

TEST_F(BudgetedMoniesKeyboardTest, GoingBackFromTheTotalScrollsToTheLastRow)
{
    loadManyOnScreen();
    child<QLineEdit>(child<QWidget>(*view, "totalMnyntr"), "amountLndt").setFocus(Qt::TabFocusReason);
    ASSERT_FALSE(isWhollyOnScreen(row("P")));

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);

    EXPECT_EQ(focusedPart(), "P");
    EXPECT_TRUE(isWhollyOnScreen(row("P")));
}

TEST_F(BudgetedMoniesKeyboardTest, AClickOnARowThatIsPartlyHiddenDoesNotMoveIt)
{
    loadManyOnScreen();
    auto& bar = *scroller().verticalScrollBar();
    auto& field = source("A");
    bar.setValue(field.mapTo(&row("A"), QPoint()).y());
    auto const scrolled = bar.value();
    ASSERT_GT(scrolled, 0);
    auto* const window = view->windowHandle();
    auto const place = field.mapTo(view, field.rect().center());

    QTest::mousePress(window, Qt::LeftButton, {}, place);

    EXPECT_EQ(QApplication::focusWidget(), &field);
    EXPECT_EQ(bar.value(), scrolled);
    QTest::mouseRelease(window, Qt::LeftButton, {}, place);
}

TEST_F(BudgetedMoniesKeyboardTest, TheWheelScrollsTheRowsWhateverFieldItIsOver)
{
    loadManyOnScreen();
    auto const& bar = *scroller().verticalScrollBar();

    for (auto* const field : {&child<QWidget>(row("A"), "periodCmbbx"), &child<QWidget>(row("A"), "nextOccurOnDtdt"),
                              &child<QWidget>(row("A"), "codeCmbbx")}) {
        auto const before = bar.value();
        turnWheelOver(*field);
        EXPECT_GT(bar.value(), before) << field->objectName().toStdString();
    }

    EXPECT_FALSE(row("A").isDirty());
}

TEST_F(BudgetedMoniesKeyboardTest, ARefusedSaveLeavesTheFocusOnItsButton)
{
    loadOnScreen({bill("Gas")});
    rename(row("Gas"), "Heating");
    auto& button = *buttons().button(QDialogButtonBox::Save);
    button.setFocus();

    QTest::keyClick(&button, Qt::Key_Space);

    EXPECT_EQ(QApplication::focusWidget(), &button);
}

TEST_F(BudgetedMoniesKeyboardTest, EndingOnScreenAsksNothingOfARowThatIsBeingEdited)
{
    loadOnScreen({bill("Gas")});
    auto& amount = child<QLineEdit>(row("Gas"), "amountLndt");
    amount.setFocus();
    QTest::keyClicks(&amount, "5");

    delete view.data();

    EXPECT_TRUE(view.isNull());
}

TEST_F(BudgetedMoniesKeyboardTest, EverythingFitsASmallScreen)
{
    loadManyOnScreen();

    EXPECT_EQ(view->size(), smallScreen);
    EXPECT_EQ(scroller().horizontalScrollBar()->maximum(), 0);
    for (auto const* const part : view->findChildren<QWidget*>()) {
        if (part->isVisible() && part->window() == view && !scroller().isAncestorOf(part)) {
            EXPECT_GE(part->width(), part->minimumSizeHint().width()) << part->objectName().toStdString();
            EXPECT_GE(part->height(), part->minimumSizeHint().height()) << part->objectName().toStdString();
        }
    }
}
