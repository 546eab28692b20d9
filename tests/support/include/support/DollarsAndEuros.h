#pragma once

#include <engine/Household.h>
#include <fiscora/Money.h>

/// Budgets that are kept in dollars and know euros too.
namespace tallymere {

inline fiscora::Money dollars(long long units, unsigned short cents = 0)
{
    return {fiscora::Currency::USD, units, cents, 0};
}

inline fiscora::Money euros(long long units, unsigned short cents = 0)
{
    return {fiscora::Currency::EUR, units, cents, 0};
}

/// What one unit of a currency is worth in the other; the two may tell different things.
struct Rates
{
    double dollarsAnEuro;
    double eurosADollar;
};

/// Has \a household total in dollars, use euros as well, convert by \a rates, and show currencies by their codes.
inline void keepInDollarsAndEuros(engine::Household& household, Rates const& rates)
{
    using fiscora::Currency;
    auto settings = household.content().settings;
    settings.preferred = Currency::USD;
    settings.usable = {Currency::USD, Currency::EUR};
    settings.displayAs = tlm::navigation::CurrencyDisplayOptions::Code;
    household.configure(settings);
    tlm::conversion::ConversionMap conversions;
    conversions.updateConversion(Currency::EUR, Currency::USD, fiscora::FloatingPoint(rates.dollarsAnEuro), {});
    conversions.updateConversion(Currency::USD, Currency::EUR, fiscora::FloatingPoint(rates.eurosADollar), {});
    household.setRates(conversions);
}
}
