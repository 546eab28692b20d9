#pragma once

#include <fiscora/Money.h>

#include <QDate>
#include <QDebug>

namespace tlm::banking {

/// What an account held when it was last found to agree with its bank.
struct ReconciledBalance
{
    fiscora::Money balance;
    QDate reconciledOn;

    friend bool operator==(ReconciledBalance const&, ReconciledBalance const&) = default;
};

QDebug operator<<(QDebug debug, ReconciledBalance const& reconciled);
}
