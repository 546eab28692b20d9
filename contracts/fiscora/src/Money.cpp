#include <fiscora/Money.h>
