#pragma once

#include <fiscora/Money.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/accounting/TransactionStatuses.h>

#include <QDate>
#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

namespace tallymere::engine {

/// Names a posting for as long as its budget exists. The store counts them from 1.
struct PostingId
{
    std::int64_t value = 0;

    friend auto operator<=>(PostingId const&, PostingId const&) = default;
};

/// One amount that goes to the debited account and comes from the credited one.
struct Posting
{
    QDate occurredOn; ///< from the year 1 to 9999
    tlm::accounting::AccountNumber debiting;
    tlm::accounting::AccountNumber crediting; ///< another one than `debiting`
    fiscora::Money amount;                    ///< above zero, in the currency of both accounts
    QString description;
    tlm::accounting::TransactionStatuses status = tlm::accounting::TransactionStatuses::NotCleared;
    std::optional<tlm::accounting::AccountNumber> madeFrom; ///< one of both, where it is the own account of the
                                                            ///< budget item that the posting was made from

    friend bool operator==(Posting const&, Posting const&) = default;
};
}
