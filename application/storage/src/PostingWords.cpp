#include "PostingWords.h"

#include "Walk.h"

namespace tallymere::storage {

namespace {

void tellNumber(std::string& told, std::int64_t number)
{
    told.append(reinterpret_cast<char const*>(&number), sizeof number);
}

void tellText(std::string& told, std::string_view text)
{
    tellNumber(told, static_cast<std::int64_t>(text.size()));
    told.append(text);
}
}

PostingWords wordsOf(Walk const& row)
{
    return {.day = row.text(1),
            .debiting = row.integer(2),
            .crediting = row.integer(3),
            .amount = row.integer(4),
            .currency = row.text(5),
            .description = row.text(6),
            .status = row.text(7),
            .madeFrom = row.integer(8)};
}

void tell(std::string& told, PostingWords const& words)
{
    tellText(told, words.day);
    tellNumber(told, words.debiting);
    tellNumber(told, words.crediting);
    tellNumber(told, words.amount);
    tellText(told, words.currency);
    tellText(told, words.description);
    tellText(told, words.status);
    tellNumber(told, words.madeFrom);
}
}
