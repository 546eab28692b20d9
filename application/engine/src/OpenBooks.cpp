#include "engine/OpenBooks.h"

#include "Chart.h"
#include "HouseholdRules.h"
#include "ItemAccounts.h"

namespace tallymere::engine {

std::vector<Posting> openBooks(BudgetContent& content)
{
    Chart chart(content.books);
    std::vector<Posting> postings;
    for (auto& [identifier, item] : content.items) {
        if (item.account != tlm::accounting::AccountNumber()) {
            continue;
        }
        auto draft = chart.draft();
        item.account = draft.open(toAccountTypes(identifier.type), rules::accountName(identifier), item.amount.code());
        if (item.debt) {
            draft.postOpening(item.account, item.debt->borrowed, item.anchoredOn);
        }
        postings.insert(postings.end(), draft.posted().begin(), draft.posted().end());
        chart.take(draft);
    }
    return postings;
}
}
