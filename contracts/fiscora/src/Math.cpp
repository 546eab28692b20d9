#include <fiscora/Math.h>
