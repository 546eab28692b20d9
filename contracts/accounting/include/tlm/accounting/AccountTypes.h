#pragma once

#include <QDebug>
#include <QString>

namespace tlm::accounting {

/// The parts of the general ledger.
enum class AccountTypes : unsigned char
{
    Suspense = 0, ///< holds what isn't sorted out yet
    Asset = 1,
    Equity = 2,
    Expense = 3,
    Liability = 4,
    Income = 5
};

/// \return the type's translated name
QString presentationText(AccountTypes const& type);

/// Reads back what presentationText() gives.
/// \throws foundation::Error when \a text names no type
AccountTypes toAccountTypes(QString const& text);

QDebug operator<<(QDebug debug, AccountTypes const& type);
}
