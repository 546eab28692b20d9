#pragma once

#include "HouseholdFixture.h"
#include "support/LocaleForScope.h"

#include <tlm/foundation/Error.h>

namespace tallymere::engine {

/// Looks at what a household says when it refuses.
class HouseholdRefusalTest : public HouseholdTest
{
protected:
    /// Expects that \a attempt is refused with \a sentence.
    template <typename Attempt>
    static void expectSentence(Attempt attempt, QString const& sentence)
    {
        try {
            attempt();
            ADD_FAILURE() << "accepted in spite of: " << sentence.toStdString();
        } catch (tlm::foundation::Error const& refusal) {
            EXPECT_EQ(refusal.message().toStdString(), sentence.toStdString());
        }
    }

    /// Expects that \a change is refused with \a sentence, and that nothing has moved then.
    template <typename Change>
    void expectRefused(Change change, QString const& sentence)
    {
        auto const before = household.content();
        auto const kept = store.kept();
        auto const postings = store.postings();
        auto const transactions = store.transactions();
        expectSentence(change, sentence);
        EXPECT_EQ(household.content(), before);
        EXPECT_EQ(store.kept(), kept);
        EXPECT_EQ(store.postings(), postings);
        EXPECT_EQ(store.transactions(), transactions);
    }

    void expectDamaged(BudgetContent const& content, QString const& sentence)
    {
        expectSentence([&] { Household(content, store); }, sentence);
    }

private:
    tlm::testing::LocaleForScope const english_{QLocale(QLocale::English, QLocale::UnitedStates)};
};
}
