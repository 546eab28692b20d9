#pragma once

namespace tallymere::storage {

/// Selects postings with the numbers of their accounts: id, day, debited, credited, amount, currency, description, status,
/// and what each was made from. A condition may follow.
inline constexpr char const* postingRows =
    "SELECT postings.id, occurred_on, d.number, c.number, amount, postings.currency, description, status, m.number "
    "FROM postings CROSS JOIN accounts AS d ON d.id = debiting CROSS JOIN accounts AS c ON c.id = crediting "
    "LEFT JOIN accounts AS m ON m.id = made_from";
}
