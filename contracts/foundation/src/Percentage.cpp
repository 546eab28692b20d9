#include <tlm/foundation/Percentage.h>
