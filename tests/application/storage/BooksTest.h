#pragma once

#include "StorageTest.h"

namespace tallymere::storage::testing {

/// Accounts, banks and postings in a document.
class BooksTest : public StorageTest
{
protected:
    BooksTest() { document = Document::create(places, bookkeeping(), postings()); }

    void change(std::function<void()> const& changes) const { document->transact(changes); }

    /// \return the sentence by which the document refuses, which then holds what it held
    std::string refused(std::function<void()> const& changes) const
    {
        auto const before = document->content();
        auto const sentence = refusalOf([&] { change(changes); });
        EXPECT_EQ(document->content(), before);
        EXPECT_FALSE(document->isDirty());
        return sentence.toStdString();
    }

    engine::Books books() const { return document->content().books; }

    std::vector<engine::Posting> postingsOf(tlm::accounting::AccountNumber number) const
    {
        std::vector<engine::Posting> found;
        for (auto const& posted : document->postingsOf(number)) {
            found.push_back(posted.second);
        }
        return found;
    }

    std::unique_ptr<Document> document;
    tlm::accounting::AccountNumber const rent{5000};
    tlm::accounting::AccountNumber const yen{1002};
    tlm::banking::BankName const southern{"Sparkasse «Süd»"};
};
}
