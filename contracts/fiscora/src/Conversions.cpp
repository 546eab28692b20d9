#include <fiscora/Conversions.h>
