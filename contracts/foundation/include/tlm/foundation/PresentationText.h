#pragma once

#include <fiscora/Money.h>

#include <QDate>
#include <QDebug>
#include <QString>

namespace tlm::foundation {

/// Asks for the amount with its currency.
struct WithCurrency
{};

/// Asks for the notation of the user's locale: groups of digits, and the currency where the locale puts it.
struct LocaleAware
{};

/// The amount without its currency as a person types it: the default locale's digits, minus and decimal point, no
/// groups.
///
/// Always has all of the currency's minor digits, and those below only where they aren't zero. Nothing is rounded: with
/// the currency's text appended, `fiscora::split` reads the same money again.
/// \return empty for the empty money
QString presentationText(fiscora::Money const& money);

/// \return the amount, a blank and the currency's code; empty for the empty money
QString presentationText(fiscora::Money const& money, WithCurrency const&);

/// \return the amount in groups with the currency's symbol, or its code if it has none; empty for the empty money
QString presentationText(fiscora::Money const& money, LocaleAware const&, WithCurrency const&);

/// \return the currency's code, as `fiscora::split` expects it at the end of a text
QString presentationText(fiscora::Currency const& code);

/// \return the default locale's short date with all four digits of the year; empty for an invalid date
QString presentationText(QDate const& date);
}

namespace fiscora {

QDebug operator<<(QDebug debug, Currency const& code);
QDebug operator<<(QDebug debug, Money const& money);
}
