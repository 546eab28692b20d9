#include "engine/BudgetContent.h"

#include <QLocale>

#include <stdexcept>

using fiscora::Currency;
using fiscora::FloatingPoint;
using tlm::foundation::Percentage;
using tlm::navigation::CurrencyDisplayOptions;

namespace tallymere::engine {

namespace {

/// \return the currency of the locale's country, `XXX` when it has none
Currency currencyOf(QLocale const& locale)
{
    try {
        return fiscora::toCurrency(locale.currencySymbol(QLocale::CurrencyIsoCode).toStdString());
    } catch (std::invalid_argument const&) {
        return Currency::XXX; // a language without a country
    }
}
}

BudgetContent emptyContent(QLocale const& locale)
{
    auto const local = currencyOf(locale);
    auto const preferred = local == Currency::XXX ? Currency::USD : local;
    BudgetContent content;
    content.settings = {.preferred = preferred,
                        .usable = {preferred},
                        .displayAs = CurrencyDisplayOptions::SymbolAndCode,
                        .balanceWindow = Percentage(1.0, 2),
                        .dueWithin = std::chrono::days(14),
                        .workingWeek = {}};
    content.rates.updateConversion(preferred, preferred, FloatingPoint(1.0), {});
    return content;
}
}
