#include <tlm/foundation/ScopeExecutor.h>
