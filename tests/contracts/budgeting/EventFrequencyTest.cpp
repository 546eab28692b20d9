#include <tlm/budgeting/EventFrequency.h>
#include <tlm/foundation/Error.h>

#include <gtest/gtest.h>
#include <support/Translation.h>

using namespace tlm::budgeting;

namespace {

static_assert(sizeof(EventFrequency) == 1);
static_assert(static_cast<int>(EventFrequency::None) == 0);
static_assert(static_cast<int>(EventFrequency::Monthly) == 6);

class EventFrequencyTest : public ::testing::TestWithParam<int>
{
protected:
    EventFrequency const frequency = static_cast<EventFrequency>(GetParam());
};

INSTANTIATE_TEST_SUITE_P(AllOnOffer, EventFrequencyTest, ::testing::Range(1, 22));
}

TEST_P(EventFrequencyTest, ReadsBack)
{
    EXPECT_FALSE(presentationText(frequency).isEmpty());
    EXPECT_EQ(toEventFrequency(presentationText(frequency)), frequency);
}

TEST_P(EventFrequencyTest, ReadsBackInAnotherLanguage)
{
    tlm::testing::Translation const german({{"", "Kopf der Datei"}, {"Monthly", "Monatlich"}, {"Weekly", "täglich?"}});

    EXPECT_EQ(toEventFrequency(presentationText(frequency)), frequency);
}

TEST(EventFrequencyTextTest, ABlankIsNoneInEveryLanguage)
{
    tlm::testing::Translation const german({{"", "Kopf der Datei"}});

    EXPECT_EQ(toEventFrequency(QStringLiteral("")), EventFrequency::None);
    EXPECT_EQ(toEventFrequency(QString()), EventFrequency::None);
    EXPECT_EQ(presentationText(EventFrequency::None), QString());
}

TEST(EventFrequencyTextTest, OfNoFrequencyIsRefusedByItsText)
{
    try {
        toEventFrequency("Now and %1 then");
        FAIL() << "the text was accepted";
    } catch (tlm::foundation::Error const& refusal) {
        EXPECT_TRUE(refusal.message().contains("\"Now and %1 then\"")) << refusal.what();
    }
}

TEST(EventFrequencyTextTest, IsLoggedUntranslated)
{
    tlm::testing::Translation const german({{"Monthly", "Monatlich"}});
    QString log;

    QDebug(&log) << EventFrequency::Monthly;

    EXPECT_EQ(log.trimmed(), "EventFrequency(Monthly)");
}
