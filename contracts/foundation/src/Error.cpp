#include <tlm/foundation/Error.h>

#include <QDebug>

#include <typeinfo>

namespace tlm::foundation {

Error::Error(QString const& message) : std::runtime_error(message.toStdString()), message_(message) {}

Error::Error(QString const& message, std::exception const& cause) : Error(message)
{
    // A plain std::exception says that nothing caused the error.
    if (typeid(cause) != typeid(std::exception)) {
        qDebug().noquote() << message << "Caused by:" << cause.what();
    }
}

Error::~Error() = default;
}
