#include "Texts.h"

#include <tlm/budgeting/WorkingWeek.h>
#include <tlm/foundation/Error.h>

namespace tlm::budgeting {

namespace {

constinit WorkingWeek current;
}

void setWorkingWeek(WorkingWeek const& week)
{
    using namespace std::chrono_literals;
    using std::chrono::days;
    if (week.hours < 1h || week.hours > 168h || week.days < days(1) || week.days > days(7)) {
        throw foundation::Error(
            Texts::tr("A working week has from 1 to 168 hours, on 1 to 7 days. Give both within these bounds."));
    }
    current = week;
}

WorkingWeek const& workingWeek() noexcept
{
    return current;
}
}
