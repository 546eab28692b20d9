#include <tlm/navigation/GuiElementIdentifier.h>

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <thread>
#include <vector>

namespace tlm::navigation {

namespace {

TEST(GuiElementIdentifierTest, EachNewOneDiffers)
{
    GuiElementIdentifier const first;
    GuiElementIdentifier const second;

    EXPECT_NE(first, second);
    EXPECT_LT(first, second);
}

TEST(GuiElementIdentifierTest, ACopyNamesTheSameEntry)
{
    GuiElementIdentifier const original;
    auto const copy = original;
    GuiElementIdentifier assigned;
    assigned = original;

    EXPECT_EQ(copy, original);
    EXPECT_EQ(assigned, original);
}

TEST(GuiElementIdentifierTest, ThoseOfSeveralThreadsDifferToo)
{
    std::array<std::vector<GuiElementIdentifier>, 4> made;
    {
        std::vector<std::jthread> threads;
        for (auto& identifiers : made) {
            threads.emplace_back([&identifiers] { identifiers.resize(1000); });
        }
    }

    std::set<GuiElementIdentifier> all;
    for (auto const& identifiers : made) {
        all.insert(identifiers.begin(), identifiers.end());
    }
    EXPECT_EQ(all.size(), 4000U);
}

TEST(GuiElementIdentifierTest, IsToldApartInTheLog)
{
    GuiElementIdentifier const identifier;
    QString first;
    QString second;

    QDebug(&first) << identifier;
    QDebug(&second) << GuiElementIdentifier();

    EXPECT_TRUE(first.startsWith(QStringLiteral("GuiElementIdentifier("))) << first.toStdString();
    EXPECT_NE(first, second);
}
}
}
