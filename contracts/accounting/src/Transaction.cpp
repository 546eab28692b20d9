#include "Texts.h"

#include <tlm/accounting/Transaction.h>
#include <tlm/foundation/Error.h>
#include <tlm/foundation/PresentationText.h>

#include <algorithm>
#include <utility>

namespace tlm::accounting {

namespace {

void require(bool condition, QString const& refusal)
{
    if (!condition) {
        throw foundation::Error(refusal);
    }
}

/// Names tell accounts apart that have no number yet.
bool areSame(AccountCode const& left, AccountCode const& right)
{
    return left.number() == right.number() && (left.number() != AccountNumber() || left.name() == right.name());
}
}

Transaction::Transaction(QDate const& occurredOn, AccountCode const& debiting, AccountCode const& crediting,
                         fiscora::Money const& amount, std::optional<QString> description,
                         std::optional<TransactionNumber> number, TransactionStatuses const& status)
    : occurredOn_(occurredOn),
      number_(number),
      debiting_(debiting),
      crediting_(crediting),
      amount_(amount),
      description_(std::move(description)),
      status_(status)
{
    require(occurredOn_.isValid(), Texts::tr("The transaction has no date. Pick the day it happened on."));
    require(!areSame(debiting_, crediting_),
            Texts::tr("The money comes from the account that it goes to. Choose two different accounts."));
    require(amount_.code() != fiscora::Currency::XXX, Texts::tr("The amount has no currency. Choose one."));
    require(amount_ > 0, Texts::tr("The amount isn't above zero. Type how much it was, and swap the accounts if the "
                                   "money went the other way."));
}

void Transaction::markCleared() noexcept
{
    status_ = std::max(status_, TransactionStatuses::Cleared);
}

void Transaction::markReconciled() noexcept
{
    status_ = TransactionStatuses::Reconciled;
}

QDebug operator<<(QDebug debug, Transaction const& transaction)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "Transaction(" << transaction.occurredOn() << ", debiting " << transaction.debiting()
                    << ", crediting " << transaction.crediting() << ", " << transaction.amount() << ", "
                    << transaction.description().value_or(QString()) << ", ";
    if (transaction.number()) {
        debug << *transaction.number() << ", ";
    }
    debug << transaction.status() << ')';
    return debug;
}
}
