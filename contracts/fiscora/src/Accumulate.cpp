#include <fiscora/Accumulate.h>
