#pragma once

#include <tlm/budgeting/WorkingWeek.h>

namespace tlm::testing {

/// Puts back the working week that was there before a test.
class WorkingWeekForScope
{
public:
    WorkingWeekForScope() = default;
    WorkingWeekForScope(WorkingWeekForScope const&) = delete;
    WorkingWeekForScope& operator=(WorkingWeekForScope const&) = delete;
    ~WorkingWeekForScope() { budgeting::setWorkingWeek(before_); }

private:
    budgeting::WorkingWeek before_ = budgeting::workingWeek();
};
}
