#include <fiscora/Rounders.h>
