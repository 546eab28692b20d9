#include <tlm/foundation/ObserverPtr.h>

#include <QTableWidgetItem>

#include <gtest/gtest.h>

using tlm::foundation::ObserverPtr;

static_assert(std::is_convertible_v<int*, ObserverPtr<int>>);
static_assert(std::is_trivially_copyable_v<ObserverPtr<int>>);

TEST(ObserverPtrTest, PointsAtWhatItWasGiven)
{
    QTableWidgetItem item("Rent");

    ObserverPtr<QTableWidgetItem> const observer = &item;

    EXPECT_TRUE(observer);
    EXPECT_EQ(observer.get(), &item);
    EXPECT_EQ(observer->text(), "Rent");
    EXPECT_EQ((*observer).text(), "Rent");
    EXPECT_EQ(observer, &item);
}

TEST(ObserverPtrTest, IsNullByDefault)
{
    EXPECT_FALSE(ObserverPtr<int>());
    EXPECT_EQ(ObserverPtr<int>(), nullptr);
}
