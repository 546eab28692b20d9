#pragma once

#include <tlm/foundation/Error.h>

#include <QCoreApplication>
#include <QString>

#include <stdexcept>

namespace tallymere::engine {

/// \throws foundation::Error always, with \a sentence for the person
[[noreturn]] inline void refuse(QString const& sentence)
{
    throw tlm::foundation::Error(sentence);
}

/// Runs \a sum, which counts money.
/// \throws foundation::Error instead of std::overflow_error
template <typename Sum>
auto counted(Sum sum)
{
    try {
        return sum();
    } catch (std::overflow_error const& overflow) {
        throw tlm::foundation::Error(
            QCoreApplication::translate("Household", "The budget's amounts add up to more than can be counted. "
                                                     "Plan smaller ones, or correct the exchange rates."),
            overflow);
    }
}
}
