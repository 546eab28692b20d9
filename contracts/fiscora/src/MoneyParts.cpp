#include <fiscora/MoneyParts.h>
