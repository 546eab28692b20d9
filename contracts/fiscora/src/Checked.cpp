#include "Checked.h"

#include "Texts.h"

namespace fiscora::checked {

void raiseOverflow()
{
    throw std::overflow_error(Texts::tr("This amount is too large to be kept.").toStdString());
}
}
