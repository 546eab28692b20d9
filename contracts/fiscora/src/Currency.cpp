#include "CurrencyTable.h"
#include "Texts.h"

#include <fiscora/Currency.h>

#include <algorithm>
#include <stdexcept>

namespace fiscora {

namespace {

[[noreturn]] void raiseUnknownCurrency()
{
    throw std::invalid_argument(Texts::tr("This currency isn't known. Choose one of the list.").toStdString());
}

CurrencyEntry const& entryOf(Currency code)
{
    // Numbers have three digits, so that a table of all of them is small; amounts look up their digits all the time.
    static auto const byNumber = [] {
        std::array<CurrencyEntry const*, 1000> entries{};
        for (auto const& entry : currencyTable) {
            entries.at(static_cast<unsigned short>(entry.currency)) = &entry;
        }
        return entries;
    }();
    auto const number = static_cast<unsigned short>(code);
    if (number >= byNumber.size() || byNumber[number] == nullptr) {
        raiseUnknownCurrency();
    }
    return *byNumber[number];
}
}

unsigned char minorUnitDigits(Currency const& code)
{
    return entryOf(code).minorDigits;
}

std::string currencyName(Currency const& code)
{
    return std::string(entryOf(code).name);
}

std::optional<std::string> currencySymbol(Currency const& code)
{
    auto const symbol = entryOf(code).symbol;
    return symbol.empty() ? std::nullopt : std::optional<std::string>(symbol);
}

std::string toStdString(Currency const& code)
{
    return std::string(entryOf(code).code);
}

Currency toCurrency(std::string const& code)
{
    auto const found = std::ranges::find(currencyTable, std::string_view(code), &CurrencyEntry::code);
    if (found == currencyTable.end()) {
        raiseUnknownCurrency();
    }
    return found->currency;
}
}
