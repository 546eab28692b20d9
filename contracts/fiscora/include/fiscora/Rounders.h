#pragma once

namespace fiscora::rounders::currency {

/// Rounds towards minus infinity, so that a range's lower end never lies above what it has to hold.
/// \param amount in stored units
/// \param storedDigits decimal digits of \a amount after the point
/// \param keptDigits how many of them to keep; as many as stored, or more, change nothing
/// \throws std::overflow_error when the rounded amount leaves 64 bits
long long down(long long const& amount, unsigned char const& storedDigits, unsigned char const& keptDigits);

/// Rounds towards plus infinity; otherwise like down().
long long up(long long const& amount, unsigned char const& storedDigits, unsigned char const& keptDigits);

/// Rounds to the nearest, halves away from zero; otherwise like down().
long long nearest(long long const& amount, unsigned char const& storedDigits, unsigned char const& keptDigits);
}
