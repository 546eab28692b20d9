#pragma once

#include <fiscora/Currency.h>

#include <string_view>

namespace fiscora {

struct CurrencyEntry
{
    Currency currency;
    unsigned char minorDigits;
    std::string_view code;
    std::string_view name;
    std::string_view symbol; ///< empty when there is none
};

/// In the order of allCurrencies.
extern std::array<CurrencyEntry, allCurrencies.size()> const currencyTable;
}
