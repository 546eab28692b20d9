#include "PostingWords.h"

#include "Walk.h"

namespace tallymere::storage {

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
}
