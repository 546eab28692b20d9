#include "TransactionsFixture.h"

#include <QVBoxLayout>

using ::testing::ElementsAre;
using tlm::testing::child;
using tlm::testing::showActive;

/// The way of the keyboard through the list, which stands between two buttons.
class TransactionsKeyboardTest : public tlm::testing::TransactionsFixture
{
protected:
    TransactionsKeyboardTest()
    {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(&before);
        layout->addWidget(view);
        layout->addWidget(&after);
        before.setObjectName("before");
        after.setObjectName("after");
        window.resize(1'024, 576);
    }
    ~TransactionsKeyboardTest() override { delete view.data(); }

    void showWindow()
    {
        showActive(window);
        QApplication::processEvents();
    }

    /// \return the number of the entry that has the focus, or the name of what else has it
    QString focusedPart() const
    {
        auto const* const focused = QApplication::focusWidget();
        for (auto const* part = focused; part != nullptr; part = part->parentWidget()) {
            if (auto const* const row = qobject_cast<Row const*>(part)) {
                return QString::number(row->number()->integer());
            }
        }
        return focused == nullptr ? "nothing" : focused->objectName();
    }

    /// Presses \a key until another part has the focus. \return that part
    QString goOn(Qt::Key key) const
    {
        constexpr auto mostStops = 20;
        auto const from = focusedPart();
        for (auto stop = 0; stop < mostStops && focusedPart() == from; ++stop) {
            QTest::keyClick(QApplication::focusWidget(), key);
        }
        return focusedPart();
    }

    bool isOnScreen(Row const& row) const { return scroller().viewport()->rect().contains(placeOf(row)); }

    QLineEdit& description(int number) const { return child<QLineEdit>(row(number), "descriptionLndt"); }

    QWidget window;
    QLineEdit before;
    QLineEdit after;
};

TEST_F(TransactionsKeyboardTest, TabWalksThroughARow)
{
    view->setSelectionMode(1);
    view->add(cash, {posting(1), posting(2)});
    showWindow();
    child<QDateEdit>(row(1), "occurredOnDtdt").setFocus(Qt::TabFocusReason);
    QStringList names;

    while (focusedPart() == "1") {
        names.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }

    names.removeDuplicates(); // a date has three parts
    EXPECT_EQ(names.join(' '), "occurredOnDtdt descriptionLndt debitRdbttn accountCmbbx codeCmbbx amountLndt "
                               "selectedChckbx reconciledChckbx removeChckbx");
    EXPECT_EQ(focusedPart(), "2");
}

TEST_F(TransactionsKeyboardTest, TabWalksThroughALongListInOrderAndScrollsAlong)
{
    view->add(cash, postings(1'000));
    showWindow();
    view->showLedger(cash);
    bar().setValue(0);
    description(1).setFocus(Qt::TabFocusReason);

    for (auto each = 2; each <= 40; ++each) {
        ASSERT_EQ(goOn(Qt::Key_Tab), QString::number(each));
        EXPECT_TRUE(isOnScreen(row(each))) << each;
    }
    for (auto each = 39; each >= 1; --each) {
        ASSERT_EQ(goOn(Qt::Key_Backtab), QString::number(each));
        EXPECT_TRUE(isOnScreen(row(each))) << each;
    }
}

TEST_F(TransactionsKeyboardTest, TabComesIntoALongListAtItsFirstEntryAndBackAtItsLast)
{
    view->add(cash, postings(1'000));
    showWindow();
    view->showLedger(cash);
    bar().setValue(bar().maximum() / 2);
    after.setFocus(Qt::TabFocusReason);

    EXPECT_EQ(goOn(Qt::Key_Tab), "1");
    EXPECT_TRUE(isOnScreen(row(1)));
    EXPECT_EQ(goOn(Qt::Key_Backtab), "after");

    before.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(goOn(Qt::Key_Backtab), "1000");
    EXPECT_TRUE(isOnScreen(row(1'000)));
    EXPECT_EQ(goOn(Qt::Key_Backtab), "999");
    EXPECT_EQ(goOn(Qt::Key_Tab), "1000");
    EXPECT_EQ(goOn(Qt::Key_Tab), "before");
}

TEST_F(TransactionsKeyboardTest, TheFocusStaysInAnEntryThatIsScrolledAway)
{
    view->add(cash, postings(2'000));
    showWindow();
    view->showLedger(cash);
    bar().setValue(0);
    description(3).setFocus(Qt::TabFocusReason);
    QTest::keyClicks(QApplication::focusWidget(), "ab");

    for (auto value = 0; value < bar().maximum(); value += 1'500) {
        bar().setValue(value);
        turnEventLoop();
    }
    QTest::keyClicks(QApplication::focusWidget(), "c");

    EXPECT_EQ(focusedPart(), "3");
    EXPECT_EQ(row(3).description(), "abc");
    EXPECT_EQ(goOn(Qt::Key_Tab), "4");
    EXPECT_TRUE(isOnScreen(row(4)));
    EXPECT_TRUE(row(3).isDirty());
}

TEST_F(TransactionsKeyboardTest, TabSkipsAHiddenLedger)
{
    view->add(cash, {posting(1)});
    view->add(bank, {posting(2)});
    view->add(cash, {posting(3)});
    showWindow();
    view->hideLedger(bank);
    description(1).setFocus(Qt::TabFocusReason);

    EXPECT_EQ(goOn(Qt::Key_Tab), "3");
}

TEST_F(TransactionsKeyboardTest, AnEntryThatIsAnsweredLateJoinsTheWalkInItsPlace)
{
    view->add(cash, postings(1'000));
    showWindow();
    view->showLedger(cash);
    view->saveSucceeded(number(500), {});
    view->saveSucceeded(number(499), {});
    view->saveSucceeded(number(501), {});
    description(499).setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(isOnScreen(row(499)));

    EXPECT_EQ(goOn(Qt::Key_Tab), "500");
    EXPECT_EQ(goOn(Qt::Key_Tab), "501");
    EXPECT_EQ(goOn(Qt::Key_Tab), "502");
}

TEST_F(TransactionsKeyboardTest, AClickOnARowThatIsPartlyHiddenDoesNotMoveIt)
{
    view->add(cash, postings(20));
    showWindow();
    auto& field = description(3);
    bar().setValue(field.mapTo(&row(3), QPoint()).y() + row(3).y());
    auto const scrolled = bar().value();
    ASSERT_GT(scrolled, 0);
    auto const place = field.mapTo(&window, field.rect().center());

    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, place);

    EXPECT_EQ(QApplication::focusWidget(), &field);
    EXPECT_EQ(bar().value(), scrolled);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, place);
}

TEST_F(TransactionsKeyboardTest, EndingOnScreenAsksNothingOfAnEntryThatIsBeingEdited)
{
    view->add(cash, postings(1'000));
    showWindow();
    view->showLedger(cash);
    description(1'000).setFocus();
    QTest::keyClicks(QApplication::focusWidget(), "5");

    delete view.data();

    EXPECT_TRUE(view.isNull());
    EXPECT_THAT(sent, ElementsAre());
}
