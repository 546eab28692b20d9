#include <tlm/surveying/MappingSurvey.h>

#include <utility>

namespace tlm::surveying {

MappingSurvey::MappingSurvey(banking::ReconciledBankAccount reconciled, QDate const& calculatedFrom,
                             fiscora::Money const& expectedBalance,
                             std::optional<fiscora::Money> const& remainingExpenses, BudgetItemChanges used,
                             AccountChanges additional, Distributable distributable)
    : reconciled_(std::move(reconciled)),
      calculatedFrom_(calculatedFrom),
      expectedBalance_(expectedBalance),
      remainingExpenses_(remainingExpenses),
      used_(std::move(used)),
      additional_(std::move(additional)),
      distributable_(std::move(distributable))
{}
}
