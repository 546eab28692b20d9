#include "internal/CentralView.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tlm::desktop_ui::internal {
namespace {

/// A window in front that shows one view after the other.
class CentralViewTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        view = newView();
    }

    template <typename Part>
    static Part* add(QWidget& view)
    {
        auto* const part = new Part(&view);
        view.layout()->addWidget(part);
        return part;
    }

    QWidget* newView()
    {
        auto* const made = new QWidget(&window);
        new QVBoxLayout(made);
        return made;
    }

    /// Lets the program come to rest, as it does before it takes a key.
    void show(QWidget& next)
    {
        showCentral(window, next);
        QTest::qWait(0);
    }

    QMainWindow window;
    QWidget* view = nullptr;
};

TEST_F(CentralViewTest, TheFocusIsWhereTheTabKeysRoundBegins)
{
    add<QDialogButtonBox>(*view)->addButton(QDialogButtonBox::Save);
    auto const* const list = add<QListWidget>(*view);
    add<QLineEdit>(*view);

    show(*view);

    EXPECT_EQ(window.centralWidget(), view);
    EXPECT_TRUE(list->hasFocus());
}

TEST_F(CentralViewTest, WhatCannotTakeTheFocusIsPassedOver)
{
    add<QLineEdit>(*view)->setEnabled(false);
    add<QLineEdit>(*view)->hide();
    auto const* const list = add<QListWidget>(*view);

    show(*view);

    EXPECT_TRUE(list->hasFocus());
}

TEST_F(CentralViewTest, TheFocusFollowsToEachViewShown)
{
    add<QListWidget>(*view);
    auto* const next = newView();
    auto const* const list = add<QListWidget>(*next);
    show(*view);

    show(*next);

    EXPECT_TRUE(list->hasFocus());
}

TEST_F(CentralViewTest, WhatIsTypedAtOnceComesIntoAnEmptyField)
{
    add<QDialogButtonBox>(*view)->addButton(QDialogButtonBox::Save);
    auto const* const field = add<QLineEdit>(*view);

    show(*view);
    QTest::keyClicks(QApplication::focusWidget(), "Rent");

    EXPECT_EQ(field->text(), "Rent");
}

TEST_F(CentralViewTest, ATextThatStandsThereIsNotTypedOver)
{
    auto& buttons = *add<QDialogButtonBox>(*view);
    buttons.addButton(QDialogButtonBox::Discard);
    auto const* const adds = buttons.addButton("Add", QDialogButtonBox::ActionRole);
    add<QLineEdit>(*view)->setText("Rent");

    show(*view);

    EXPECT_TRUE(adds->hasFocus());
}

TEST_F(CentralViewTest, AFieldWithATextHasTheFocusWhereNothingCanBeAdded)
{
    add<QDialogButtonBox>(*view)->addButton(QDialogButtonBox::Discard);
    auto* const field = add<QLineEdit>(*view);
    field->setText("Rent");

    show(*view);

    EXPECT_TRUE(field->hasFocus());
}

TEST_F(CentralViewTest, AViewWithNothingToFocusIsShownAllTheSame)
{
    show(*view);

    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
}
}
}
