#include "Checked.h"

#include "Text.h"

namespace fiscora::checked {

void raiseOverflow()
{
    throw std::overflow_error(sentence(QT_TRANSLATE_NOOP("fiscora", "This amount is too large to be kept.")));
}
}
