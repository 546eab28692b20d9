#include "internal/DisableSignalsTemporarily.h"

#include <QComboBox>
#include <QSignalSpy>

#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>
#include <type_traits>

using tlm::desktop_ui::internal::DisableSignalsTemporarily;
using tlm::foundation::QtPtr;

namespace {

using Silence = DisableSignalsTemporarily<QComboBox>;

static_assert(std::is_base_of_v<tlm::foundation::ScopeExecutor, Silence>);
static_assert(!std::is_copy_constructible_v<Silence> && !std::is_copy_assignable_v<Silence>);
static_assert(!std::is_move_constructible_v<Silence> && !std::is_move_assignable_v<Silence>);

class DisableSignalsTemporarilyTest : public ::testing::Test
{
protected:
    DisableSignalsTemporarilyTest() { box.addItems({"one", "two", "three"}); }

    QComboBox box;
    QSignalSpy changed{&box, &QComboBox::currentIndexChanged};
};
}

TEST_F(DisableSignalsTemporarilyTest, AChangeWithinItsScopeTellsNothing)
{
    changed.clear();

    {
        Silence const silence(&box);
        box.setCurrentIndex(1);
    }

    EXPECT_EQ(box.currentIndex(), 1);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(DisableSignalsTemporarilyTest, AChangeAfterItsScopeIsTold)
{
    changed.clear();
    {
        Silence const silence(&box);
    }

    box.setCurrentIndex(1);

    EXPECT_EQ(changed.count(), 1);
}

TEST_F(DisableSignalsTemporarilyTest, TheWidgetStaysSilentUntilTheOutermostEnds)
{
    std::optional<Silence> outer(std::in_place, &box);
    std::optional<Silence> inner(std::in_place, &box);

    inner.reset();
    auto const afterInner = box.signalsBlocked();
    outer.reset();

    EXPECT_TRUE(afterInner);
    EXPECT_FALSE(box.signalsBlocked());
}

TEST_F(DisableSignalsTemporarilyTest, AWidgetThatWasSilentStaysSilent)
{
    box.blockSignals(true);

    {
        Silence const silence(&box);
    }

    EXPECT_TRUE(box.signalsBlocked());
}

TEST_F(DisableSignalsTemporarilyTest, AnExceptionEndsTheSilence)
{
    auto const fail = [this] {
        Silence const silence(&box);
        throw std::runtime_error("while filling");
    };

    EXPECT_THROW(fail(), std::runtime_error);

    EXPECT_FALSE(box.signalsBlocked());
}

TEST_F(DisableSignalsTemporarilyTest, WidgetsInsideStillSpeak)
{
    QWidget form;
    auto* const inner = new QComboBox(&form);
    inner->addItems({"one", "two"});
    QSignalSpy innerChanged(inner, &QComboBox::currentIndexChanged);

    DisableSignalsTemporarily<QWidget> const silence(&form);
    inner->setCurrentIndex(1);

    EXPECT_EQ(innerChanged.count(), 1);
}

TEST_F(DisableSignalsTemporarilyTest, TheGuardItWasMadeFromMayEndFirst)
{
    {
        auto target = std::make_unique<QtPtr<QComboBox>>(&box);
        Silence const silence(*target);
        target.reset();
    }

    EXPECT_FALSE(box.signalsBlocked());
}
