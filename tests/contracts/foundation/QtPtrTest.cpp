#include <tlm/foundation/QtPtr.h>

#include <QLabel>
#include <QListWidgetItem>
#include <QSignalSpy>
#include <QTreeWidgetItem>

#include <gtest/gtest.h>
#include <memory>
#include <optional>

using tlm::foundation::QtPtr;

class NeverDefined;

static_assert(std::is_convertible_v<QLabel*, QtPtr<QLabel>>);
static_assert(std::is_convertible_v<QLabel*, QtPtr<QWidget>>);
static_assert(std::is_convertible_v<QtPtr<QLabel>, QtPtr<QWidget>>);
static_assert(!std::is_convertible_v<QtPtr<QWidget>, QtPtr<QLabel>>);
static_assert(!std::is_convertible_v<QtPtr<QWidget>, bool>);
static_assert(sizeof(QtPtr<NeverDefined>) == sizeof(void*) + sizeof(QMetaObject::Connection));

namespace {

class QtPtrTest : public ::testing::Test
{
protected:
    std::unique_ptr<QLabel> label = std::make_unique<QLabel>("Rent");
    std::unique_ptr<QLabel> other = std::make_unique<QLabel>("Food");
};
}

TEST_F(QtPtrTest, GivesWhatItWasGiven)
{
    QtPtr<QLabel> const guard = label.get();

    EXPECT_TRUE(guard);
    EXPECT_EQ(guard.get(), label.get());
    EXPECT_EQ(guard->text(), "Rent");
    EXPECT_EQ((*guard).text(), "Rent");
}

TEST_F(QtPtrTest, IsNullByDefaultAndFromNull)
{
    QLabel* const none = nullptr;

    EXPECT_FALSE(QtPtr<QLabel>());
    EXPECT_EQ(QtPtr<QLabel>(nullptr), nullptr);
    EXPECT_EQ(QtPtr<QLabel>(none), nullptr);
    EXPECT_EQ(QtPtr<QWidget>(QtPtr<QLabel>()), nullptr);
}

TEST_F(QtPtrTest, TurnsNullWhenThePointeeDies)
{
    QtPtr<QLabel> const guard = label.get();

    label.reset();

    EXPECT_FALSE(guard);
    EXPECT_EQ(guard.get(), nullptr);
}

TEST_F(QtPtrTest, MayDieBeforeThePointee)
{
    constexpr auto laterUse = std::byte{0xAB};
    alignas(QtPtr<QLabel>) std::array<std::byte, sizeof(QtPtr<QLabel>)> memory{};
    std::destroy_at(new (memory.data()) QtPtr<QLabel>(label.get()));
    memory.fill(laterUse);

    label.reset(); // a join left behind would write into the dead guard's memory

    EXPECT_THAT(memory, ::testing::Each(laterUse));
}

TEST_F(QtPtrTest, NeverDeletesThePointee)
{
    QSignalSpy const deaths(label.get(), &QObject::destroyed);

    std::optional<QtPtr<QLabel>> guard(label.get());
    guard.reset();

    EXPECT_EQ(deaths.count(), 0);
}

TEST_F(QtPtrTest, ACopyGuardsOnItsOwn)
{
    std::optional<QtPtr<QLabel>> original(label.get());
    QtPtr<QLabel> const copy = *original;
    original.reset();

    label.reset();

    EXPECT_EQ(copy, nullptr);
}

TEST_F(QtPtrTest, AnOriginalOutlivesItsCopies)
{
    QtPtr<QLabel> const original = label.get();
    std::optional<QtPtr<QLabel>> copy(original);
    copy.reset();

    label.reset();

    EXPECT_EQ(original, nullptr);
}

TEST_F(QtPtrTest, AGuardOfTheBaseGuardsOnItsOwn)
{
    std::optional<QtPtr<QLabel>> derived(label.get());
    QtPtr<QWidget> const base = *derived;
    derived.reset();
    EXPECT_EQ(base, label.get());

    label.reset();

    EXPECT_EQ(base, nullptr);
}

TEST_F(QtPtrTest, MovingHandsThePointeeOver)
{
    QtPtr<QLabel> source = label.get();
    QtPtr<QLabel> const moved = std::move(source);
    EXPECT_EQ(source, nullptr); // NOLINT(bugprone-use-after-move): the state is promised
    EXPECT_EQ(moved, label.get());

    label.reset();

    EXPECT_EQ(moved, nullptr);
}

TEST_F(QtPtrTest, AssigningOverALiveGuardLetsGoOfTheFormerPointee)
{
    QtPtr<QLabel> guard = label.get();
    QtPtr<QLabel> const second = other.get();

    guard = second;
    label.reset();
    EXPECT_EQ(guard, other.get());

    other.reset();
    EXPECT_EQ(guard, nullptr);
}

TEST_F(QtPtrTest, MoveAssigningOverALiveGuardLetsGoOfTheFormerPointee)
{
    QtPtr<QLabel> guard = label.get();
    QtPtr<QLabel> source = other.get();

    guard = std::move(source);
    label.reset();

    EXPECT_EQ(guard, other.get());
    EXPECT_EQ(source, nullptr); // NOLINT(bugprone-use-after-move): the state is promised
}

TEST_F(QtPtrTest, AssigningARawPointerGuardsIt)
{
    QtPtr<QLabel> guard = label.get();

    guard = other.get();
    EXPECT_EQ(guard, other.get());
    other.reset();

    EXPECT_EQ(guard, nullptr);
}

TEST_F(QtPtrTest, AssigningNullEndsTheGuard)
{
    QtPtr<QLabel> guard = label.get();

    guard = nullptr;
    label.reset();

    EXPECT_EQ(guard, nullptr);
}

TEST_F(QtPtrTest, SelfAssignmentChangesNothing)
{
    QtPtr<QLabel> guard = label.get();
    auto& same = guard;

    guard = same;
    guard = std::move(same);
    EXPECT_EQ(guard, label.get());
    label.reset();

    EXPECT_EQ(guard, nullptr);
}

TEST_F(QtPtrTest, ManyGuardsOfOnePointeeAllTurnNull)
{
    std::vector<QtPtr<QObject>> guards;
    for (auto count = 0; count < 100; ++count) {
        guards.emplace_back(label.get()); // the vector moves them about as it grows
    }

    label.reset();

    EXPECT_TRUE(std::all_of(guards.begin(), guards.end(), [](auto const& guard) { return guard == nullptr; }));
}

TEST_F(QtPtrTest, AGuardMayEndWhileThePointeeDies)
{
    auto guard = std::make_unique<QtPtr<QLabel>>(label.get());
    QObject::connect(label.get(), &QObject::destroyed, [&guard] { guard.reset(); });
    QtPtr<QLabel> const later = label.get();

    label.reset();

    EXPECT_EQ(later, nullptr);
}

TEST_F(QtPtrTest, ChildrenTurnNullWithTheirParent)
{
    auto parent = std::make_unique<QWidget>();
    QtPtr<QLabel> const child = new QLabel(parent.get());

    parent.reset();

    EXPECT_EQ(child, nullptr);
}

TEST_F(QtPtrTest, ComparesByPointee)
{
    QtPtr<QLabel> const guard = label.get();
    QtPtr<QWidget> const base = label.get();

    EXPECT_EQ(guard, base);
    EXPECT_NE(guard, QtPtr<QLabel>(other.get()));
    EXPECT_NE(guard, nullptr);
    EXPECT_EQ(label.get(), guard);
}

TEST(QtPtrOfItemsTest, ItemsThatAreNoObjectsArePlainPointers)
{
    QListWidgetItem entry("Rent");
    QTreeWidgetItem row({"Food"});

    QtPtr<QListWidgetItem> const entryPointer = &entry;
    QtPtr<QTreeWidgetItem> rowPointer = &row;
    auto const copy = rowPointer;
    rowPointer = nullptr;

    EXPECT_EQ(entryPointer->text(), "Rent");
    EXPECT_EQ(copy->text(0), "Food");
    EXPECT_FALSE(rowPointer);
}

TEST(QtPtrOfItemsTest, AnIncompleteTypeCanBeNamed)
{
    QtPtr<NeverDefined> const none = nullptr;

    EXPECT_EQ(none.get(), nullptr);
}
