#pragma once

#include "BooksFixture.h"

#include <presenter/LedgersPresenter.h>
#include <tlm/accounting/LedgerAccount.h>

namespace tallymere::presenter {

using tlm::accounting::LedgerAccount;
using tlm::accounting::Transaction;
using tlm::accounting::TransactionNumber;
using tlm::accounting::TransactionStatuses;

/// The books with their ledgers, and the presenter under test. Changes reach it as the window tells them; its answers are
/// kept in `answers`, the number posted among them in `posted`.
class LedgersTest : public BooksTest
{
protected:
    using Number = std::optional<TransactionNumber>;

    LedgersTest()
    {
        QObject::connect(&window, &MainWindow::transactionSaveSucceeded, &window,
                         [this](auto const& displayed, auto const& number) {
                             answers.push_back({{}, {}, displayed});
                             posted = number;
                         });
        QObject::connect(&window, &MainWindow::transactionSaveFailed, &window,
                         [this](auto const& number, auto const& message) {
                             answers.push_back({message, {}, number});
                         });
        QObject::connect(&window, &MainWindow::showLedger, &window,
                         [this](auto const& ledger) { ledgers.push_back(ledger); });
    }

    /// Has the view ask for the ledger of \a number. \return the transactions that it is shown, in the order of their numbers
    std::map<TransactionNumber, Transaction> load(AccountNumber const& number)
    {
        ledgers.clear();
        emit window.selectedLedger(code(number));
        return ledgers.empty() ? std::map<TransactionNumber, Transaction>() : ledgers.front().transactions;
    }

    /// Opens the ledgers anew, and leaves them for the dashboard, so that no view hears the answers to come.
    void showAnew()
    {
        rest();
        emit window.prepareShowLedgers();
        emit window.prepareShowDashboard();
        rest();
    }

    /// Posts an amount of \a units for food, from \a day. \return its number once the ledger of food is loaded
    TransactionNumber postAndLoad(long long units, QDate const& day = QDate(2026, 3, 1))
    {
        auto const id = post(food, everyday, dollars(units), day);
        load(food);
        forget();
        return TransactionNumber(static_cast<unsigned short>(id.value));
    }

    Transaction record(Money const& amount, TransactionStatuses status = TransactionStatuses::NotCleared) const
    {
        return {QDate(2026, 4, 2), code(food), code(everyday), amount, "Bread", std::nullopt, status};
    }

    /// \return what was posted to food under \a number
    Posting posting(TransactionNumber const& number) const
    {
        return session.household().latestPostingsOf(food, 99).at({number.integer()});
    }

    void expectAccepted(Number const& displayed, Number const& expected)
    {
        ASSERT_EQ(answers.size(), 1U);
        EXPECT_EQ(answers.front().refusal, std::nullopt) << answers.front().refusal->toStdString();
        EXPECT_EQ(answers.front().displayed, displayed);
        EXPECT_EQ(posted, expected);
        EXPECT_EQ(changes.count(), 1);
    }

    /// Expects that \a attempt is refused with \a sentence, answered once, and changes nothing.
    void expectRefused(std::function<void()> const& attempt, QString const& sentence, Number const& displayed)
    {
        auto const before = content();
        auto const postings = session.household().latestPostingsOf(food, 99);
        forget();

        attempt();

        ASSERT_EQ(answers.size(), 1U) << sentence.toStdString();
        EXPECT_EQ(answers.front().refusal, sentence);
        EXPECT_EQ(answers.front().displayed, displayed);
        EXPECT_EQ(content(), before);
        EXPECT_EQ(session.household().latestPostingsOf(food, 99), postings);
        EXPECT_EQ(changes.count(), 0);
    }

    /// Forgets what was answered so far.
    void forget()
    {
        answers.clear();
        posted.reset();
        changes.clear();
    }

    LedgersPresenter presenter{window, session};
    std::vector<Answered<TransactionNumber>> answers;
    Number posted;
    std::vector<LedgerAccount> ledgers;
};
}
