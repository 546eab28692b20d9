#include "LazyStatement.h"

#include <tlm/foundation/ScopeExecutor.h>

namespace tallymere::storage {

int LazyStatement::run()
{
    auto& statement = get();
    tlm::foundation::ScopeExecutor const ready([&statement] { statement.tryReset(); });
    return statement.exec();
}
}
