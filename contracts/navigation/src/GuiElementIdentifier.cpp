#include <tlm/navigation/GuiElementIdentifier.h>

#include <atomic>

namespace tlm::navigation {

namespace {

unsigned long long nextNumber()
{
    static std::atomic<unsigned long long> last{0};
    return ++last;
}
}

GuiElementIdentifier::GuiElementIdentifier() : number_(nextNumber()) {}

QDebug operator<<(QDebug debug, GuiElementIdentifier const& identifier)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "GuiElementIdentifier(" << identifier.number_ << ')';
    return debug;
}
}
