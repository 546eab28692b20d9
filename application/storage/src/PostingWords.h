#pragma once

#include <cstdint>
#include <string_view>

namespace tallymere::storage {

class Walk;

/// A posting in the words of the file, but for the accounts, which it tells by their numbers: those mean the same in
/// every file.
struct PostingWords
{
    std::string_view day;
    std::int64_t debiting = 0;
    std::int64_t crediting = 0;
    std::int64_t amount = 0;
    std::string_view currency;
    std::string_view description;
    std::string_view status;
    std::int64_t madeFrom = 0; ///< 0 for none
};

/// Selects postings for wordsOf(). A condition may follow.
inline constexpr char const* postingRows =
    "SELECT postings.id, occurred_on, d.number, c.number, amount, postings.currency, description, status, m.number "
    "FROM postings CROSS JOIN accounts AS d ON d.id = debiting CROSS JOIN accounts AS c ON c.id = crediting "
    "LEFT JOIN accounts AS m ON m.id = made_from";

/// \return the present one of `postingRows`, until the next step
PostingWords wordsOf(Walk const& row);
}
