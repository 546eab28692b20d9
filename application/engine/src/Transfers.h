#pragma once

#include "BooksDraft.h"
#include "Chart.h"
#include "Plan.h"

#include <tlm/conversion/ConversionMap.h>

#include <QDate>
#include <QString>

namespace tallymere::engine {

/// What a person asks for who moves money.
struct Transfer
{
    tlm::accounting::AccountNumber from;
    tlm::accounting::AccountNumber to;
    fiscora::Money amount; ///< in the currency of the account that it comes from
    QString reason;        ///< may be empty
    QDate transferredOn;
};

/// Drafts transfers from one account to another.
///
/// What is refused throws a foundation::Error that says what, why and what to do.
class Transfers
{
public:
    /// All outlive this.
    Transfers(Chart const& chart, Plan const& /*plan*/, BooksDraft& draft) : chart_(chart), draft_(draft) {}

    /// Posts the amount as it leaves first, and as it arrives where the currencies of both accounts differ.
    void add(Transfer const& transfer, tlm::conversion::ConversionMap const& rates);

private:
    void postAcross(Transfer const& transfer, fiscora::Currency to, tlm::conversion::ConversionMap const& rates);
    tlm::accounting::AccountNumber exchange(fiscora::Currency currency);

    Chart const& chart_;
    BooksDraft& draft_;
};
}
