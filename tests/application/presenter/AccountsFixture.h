#pragma once

#include "BooksFixture.h"

#include <presenter/AccountsPresenter.h>

namespace tallymere::presenter {

/// The books with their chart of accounts, and the presenter under test. Changes reach it as the window tells them; its
/// answers are kept in `answers`.
class AccountsTest : public BooksTest
{
protected:
    AccountsTest()
    {
        QObject::connect(&window, &MainWindow::accountSaveSucceeded, &window, [this](auto const& saved) {
            answers.push_back({{}, {}, saved});
        });
        QObject::connect(&window, &MainWindow::accountSaveFailed, &window,
                         [this](auto const& original, auto const& message, auto const& displayed) {
                             answers.push_back({message, original, displayed});
                         });
    }

    static Account expense(unsigned number, QString const& name, Money const& balance = dollars(0))
    {
        return {AccountTypes::Expense, AccountCode(AccountNumber(number), name, std::nullopt), balance, false};
    }

    /// \return \a number under the name \a name, without a parent, as the view tells it
    static AccountCode typed(AccountNumber const& number, QString const& name) { return {number, name, std::nullopt}; }

    /// Expects that the last change was accepted, answered once, and told to whoever follows the budget.
    void expectAccepted(AccountCode const& displayed)
    {
        ASSERT_EQ(answers.size(), 1U);
        EXPECT_EQ(answers.front().refusal, std::nullopt) << answers.front().refusal->toStdString();
        EXPECT_EQ(answers.front().displayed, displayed);
        EXPECT_EQ(changes.count(), 1);
    }

    /// Expects that \a attempt is refused, answered once with the sentence of the household, and changes nothing.
    /// \param same asks the household itself for the same change
    void expectRefused(std::function<void()> const& attempt, std::function<void(Household&)> const& same,
                       std::optional<AccountCode> const& original, AccountCode const& displayed)
    {
        auto const sentence = sentenceOf(same);
        auto const before = content();
        forget();

        attempt();

        ASSERT_EQ(answers.size(), 1U) << sentence.toStdString();
        EXPECT_EQ(answers.front().refusal, sentence);
        EXPECT_EQ(answers.front().original, original);
        EXPECT_EQ(answers.front().displayed, displayed);
        EXPECT_EQ(content(), before);
        EXPECT_EQ(changes.count(), 0);
        rest();
    }

    /// Forgets what was answered so far.
    void forget()
    {
        answers.clear();
        changes.clear();
    }

    AccountsPresenter presenter{window, session};
    std::vector<Answered<AccountCode>> answers;
};
}
