#pragma once

#include "AccountsFixture.h"
#include "BooksView.h"

#include <QListWidget>

namespace tallymere::presenter {

/// The view of accounts, opened.
class AccountsViewTest : public BooksView<AccountsTest>
{
protected:
    AccountsViewTest() { show(); }

    void show()
    {
        emit window.prepareShowAccounts();
        rest();
    }

    QListWidget& list() { return tlm::testing::child<QListWidget>(view(), "accountCodesLstwdgt"); }

    /// Chooses the account called \a name. \return its form
    QWidget& form(QString const& name)
    {
        auto const rows = list().findItems(AccountCode::separator_ + name, Qt::MatchEndsWith | Qt::MatchCaseSensitive);
        if (rows.size() != 1) {
            throw std::runtime_error("no one row of " + name.toStdString());
        }
        list().setCurrentItem(rows.front());
        return shownForm("AccountEntryWdgt");
    }

    /// Fills in a new expense account. \return its form
    QWidget& add(QString const& number, QString const& name, QString const& amount)
    {
        press("&Add");
        auto& added = shownForm("AccountEntryWdgt");
        choose(added, "ledgerTypeCmbbx", presentationText(AccountTypes::Expense));
        enter(added, "numberLndt", number);
        enter(added, "nameLndt", name);
        enterDollars(added, "balanceMnyntrywdgt", amount);
        return added;
    }
};
}
