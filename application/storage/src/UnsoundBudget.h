#pragma once

#include <stdexcept>
#include <string>

namespace tallymere::storage {

/// A file doesn't hold a budget that this program can read. The text is for the log; people are told the reason.
class UnsoundBudget : public std::runtime_error
{
public:
    enum class Reason : unsigned char
    {
        Empty,   ///< there is nothing in the file
        Foreign, ///< it never was a budget file
        Newer,   ///< a later version of the program wrote it
        Damaged, ///< a budget file that breaks a rule of its format
        TooLarge ///< far beyond any household's budget
    };

    UnsoundBudget(Reason reason, std::string const& detail) : std::runtime_error(detail), reason_(reason) {}

    Reason reason() const { return reason_; }

private:
    Reason reason_;
};
}
