#pragma once

#include "BooksView.h"
#include "LedgersFixture.h"

#include <QTreeWidget>

namespace tallymere::presenter {

/// The view of ledgers.
class LedgersViewTest : public BooksView<LedgersTest>
{
protected:
    void show(AccountNumber const& ledger)
    {
        emit window.prepareShowLedgers();
        rest();
        select(ledger);
    }

    void select(AccountNumber const& ledger)
    {
        auto& tree = tlm::testing::child<QTreeWidget>(view(), "ledgersTrwdgt");
        auto const rows =
            tree.findItems(tlm::accounting::presentationText(code(ledger)), Qt::MatchExactly | Qt::MatchRecursive);
        if (rows.size() != 1) {
            throw std::runtime_error("no one row of the ledger");
        }
        tree.setCurrentItem(rows.front());
    }

    /// \return the form of the transaction \a number on screen, of the new one without
    QWidget& form(Number const& number = {})
    {
        auto const caption =
            number ? tlm::accounting::transactionCaption().arg(tlm::accounting::presentationText(*number)) : QString();
        for (auto* const each : view().findChildren<QWidget*>("TransactionWdgt")) {
            if (each->isVisible() && tlm::testing::child<QLabel>(*each, "numberLbl").text() == caption) {
                return *each;
            }
        }
        throw std::runtime_error("no form of " + caption.toStdString());
    }

    /// \return the number of \a id, which is small
    static TransactionNumber numberOf(PostingId const& id)
    {
        return TransactionNumber(static_cast<unsigned short>(id.value));
    }

    static void choosePayer(QWidget const& transaction, AccountCode const& code)
    {
        choose(transaction, "accountCmbbx", tlm::accounting::presentationText(code));
    }
};
}
