#include <fiscora/Currency.h>
