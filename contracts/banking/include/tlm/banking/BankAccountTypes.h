#pragma once

#include <tlm/accounting/AccountTypes.h>

#include <QDebug>
#include <QString>

namespace tlm::banking {

/// Kinds of accounts that banks keep.
enum class BankAccountTypes : unsigned int
{
    Unspecified = 0, ///< no kind has been chosen
    Checking = 1,
    CreditCard = 2,
    Loan = 3,
    Savings = 4,
    Goal = 5 ///< money set aside within a bank for a goal; never has a parent account
};

/// \return the type's translated name
QString presentationText(BankAccountTypes const& type);

/// Reads back what presentationText() gives. The empty text is an empty choice, `Unspecified`.
/// \throws foundation::Error when \a text names no type
BankAccountTypes toBankAccountTypes(QString const& text);

/// \return what the ledger keeps such an account as: what the bank owes to the household is an asset, what the
///         household owes to the bank a liability, and an unspecified account waits among the suspense accounts
accounting::AccountTypes toAccountTypes(BankAccountTypes const& type);

bool isAssetAccount(BankAccountTypes type);

QDebug operator<<(QDebug debug, BankAccountTypes const& type);
}
