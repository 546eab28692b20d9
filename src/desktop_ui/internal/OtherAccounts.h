#pragma once

#include <tlm/accounting/AccountCode.h>

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace tlm::desktop_ui::internal {

/// What the transactions of one ledger may name as their other account.
///
/// Made once for all forms of a ledger, so that one more of them costs the same whatever the number of accounts.
class OtherAccounts
{
public:
    /// \param accounts in any order, that of the ledger too
    OtherAccounts(std::vector<accounting::AccountCode> accounts, accounting::AccountCode const& ledger);

    /// \return all accounts in ascending order, that of the ledger too
    std::vector<accounting::AccountCode> const& codes() const noexcept { return codes_; }

    /// \return the rows of a box: a blank one, and one for each account but the ledger
    QStringList const& texts() const noexcept { return texts_; }

    /// \return the one of texts() that takes the most room
    QString const& widestText() const noexcept { return widestText_; }

    /// \return where the account stands in texts(), the blank row when it isn't among them
    int rowOf(accounting::AccountCode const& account) const;

private:
    std::vector<accounting::AccountCode> codes_;
    QStringList texts_{QString()};
    QString widestText_;
    QHash<QString, int> rows_;
};
}
