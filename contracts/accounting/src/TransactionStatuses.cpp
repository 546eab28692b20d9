#include <tlm/accounting/TransactionStatuses.h>
#include <tlm/foundation/NamedValues.h>

namespace tlm::accounting {

namespace {

// For the log alone, so there is nothing to translate.
constexpr foundation::NamedValues<TransactionStatuses, 3> names("",
                                                                {{{TransactionStatuses::NotCleared, "NotCleared"},
                                                                  {TransactionStatuses::Cleared, "Cleared"},
                                                                  {TransactionStatuses::Reconciled, "Reconciled"}}});
}

QDebug operator<<(QDebug debug, TransactionStatuses const& status)
{
    return names.log(debug, "TransactionStatuses", status);
}
}
