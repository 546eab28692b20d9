#pragma once

#include <fiscora/CurrencyCodes.h>

#include <optional>
#include <string>

namespace fiscora {

/// \return number of decimal digits in which amounts of \a code are usually written: 0 for the yen, 2 for the euro
/// \throws std::invalid_argument when \a code isn't one of allCurrencies, as all functions here
unsigned char minorUnitDigits(Currency const& code);

/// \return English name, unique among all currencies, without parentheses or brackets
std::string currencyName(Currency const& code);

/// \return symbol as people of that currency write it among themselves ("$" for each dollar) in UTF-8, empty without
/// one
std::optional<std::string> currencySymbol(Currency const& code);

/// \return three capital letters ("EUR"), which toCurrency() reads back; meant for keys and files
std::string toStdString(Currency const& code);

/// \throws std::invalid_argument when \a code isn't the code of a known currency, in capital letters
Currency toCurrency(std::string const& code);
}
