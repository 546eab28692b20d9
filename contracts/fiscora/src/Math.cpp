#include <fiscora/Math.h>

namespace fiscora::math {

Money absoluteValue(Money const& money)
{
    return money < 0 ? -money : money;
}
}
