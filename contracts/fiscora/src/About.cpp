#include <fiscora/About.h>
