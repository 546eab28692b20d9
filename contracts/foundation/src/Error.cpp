#include <tlm/foundation/Error.h>
