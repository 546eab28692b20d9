#pragma once

#include "BooksFixture.h"

#include <presenter/BanksPresenter.h>
#include <tlm/banking/Bank.h>

namespace tallymere::presenter {

using tlm::banking::Bank;

/// The books with their banks, and the presenter under test. Changes reach it as the window tells them; its answers are kept
/// in `answers` and `accountAnswers`.
class BanksTest : public BooksTest
{
protected:
    using Listed = std::map<AccountNumber, BankAccountTypes>;

    BanksTest()
    {
        QObject::connect(&window, &MainWindow::bankSaveSucceeded, &window, [this](auto const& saved) {
            answers.push_back({{}, {}, saved});
        });
        QObject::connect(&window, &MainWindow::bankSaveFailed, &window,
                         [this](auto const& original, auto const& message, auto const& displayed) {
                             answers.push_back({message, original, displayed});
                         });
        QObject::connect(&window, &MainWindow::bankAccountSaveSucceeded, &window, [this](auto const& saved) {
            accountAnswers.push_back({{}, {}, saved});
        });
        QObject::connect(&window, &MainWindow::bankAccountSaveFailed, &window,
                         [this](auto const& original, auto const& message, auto const& displayed) {
                             accountAnswers.push_back({message, original, displayed});
                         });
    }

    bool hasBank(QString const& name) const { return content().books.banks.contains(BankName(name)); }
    Listed const& listedAt(BankName const& name) const { return content().books.banks.at(name).accounts(); }
    bool isClosed(BankName const& name) const { return content().books.banks.at(name).isClosed(); }

    /// \return what the view tells of the bank of two accounts
    Bank updated(BankName const& name) const { return {name, listedAt(bank), false}; }

    template <typename Key>
    void expectAccepted(std::vector<Answered<Key>> const& all, Key const& displayed)
    {
        ASSERT_EQ(answers.size() + accountAnswers.size(), 1U);
        ASSERT_EQ(all.size(), 1U);
        EXPECT_EQ(all.front().refusal, std::nullopt) << all.front().refusal->toStdString();
        EXPECT_EQ(all.front().displayed, displayed);
        EXPECT_EQ(changes.count(), 1);
    }

    /// Expects that \a attempt is refused with \a sentence, answered once within \a all, and changes nothing.
    template <typename Key>
    void expectRefused(std::vector<Answered<Key>> const& all, std::function<void()> const& attempt,
                       QString const& sentence, std::optional<Key> const& original, Key const& displayed)
    {
        auto const before = content();
        forget();

        attempt();

        ASSERT_EQ(answers.size() + accountAnswers.size(), 1U) << sentence.toStdString();
        ASSERT_EQ(all.size(), 1U);
        EXPECT_EQ(all.front().refusal, sentence);
        EXPECT_EQ(all.front().original, original);
        EXPECT_EQ(all.front().displayed, displayed);
        EXPECT_EQ(content(), before);
        EXPECT_EQ(changes.count(), 0);
        rest();
    }

    /// Forgets what was answered so far.
    void forget()
    {
        answers.clear();
        accountAnswers.clear();
        changes.clear();
    }

    BanksPresenter presenter{window, session};
    std::vector<Answered<BankName>> answers;
    std::vector<Answered<AccountCode>> accountAnswers;
};
}
