#pragma once

#include <fiscora/Currency.h>

#include <QDebug>
#include <QString>

#include <set>

namespace tlm::navigation {

/// How a currency is shown in a list. The values are stored in budget files.
enum class CurrencyDisplayOptions : unsigned int
{
    Code = 0,          ///< "USD"
    SymbolAndCode = 1, ///< "USD $", since several currencies share a symbol; the code alone where there is no symbol
    NameAndCode = 2    ///< "USD – US Dollar"
};

/// \return the option's name in a list of options
/// \throws std::logic_error for a value that is none of the three
QString presentationText(CurrencyDisplayOptions const& option);

/// Reads what presentationText() gives.
///
/// \throws foundation::Error for any other text
CurrencyDisplayOptions toCurrencyDisplayOptions(QString const& text);

/// \return the text of \a code in a list, different for each currency; empty for no currency, the blank entry
QString toDisplayable(fiscora::Currency const& code, CurrencyDisplayOptions option);

/// Reads what toDisplayable() gives for a currency of \a usable under the same \a option.
///
/// \return the currency, no currency for the empty text, whatever is usable
/// \throws foundation::Error when no currency of \a usable is shown so
fiscora::Currency toCurrencyFromDisplayable(QString const& text, std::set<fiscora::Currency> const& usable,
                                            CurrencyDisplayOptions option);

QDebug operator<<(QDebug debug, CurrencyDisplayOptions option);
}
