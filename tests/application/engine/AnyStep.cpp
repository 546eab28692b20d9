#include "AnyStep.h"

#include "Anything.h"

namespace tallymere::engine {

Step anyStep(BooksModel const& model)
{
    switch (pick(0, 8)) {
    case 0:
        return anyNewBankAccount();
    case 1:
        return anyBankChange(model);
    case 2:
    case 3:
        return anyAccountChange(model);
    case 4:
    case 5:
        return anyPostingChange(model);
    default:
        return anyPlanning(model);
    }
}
}
