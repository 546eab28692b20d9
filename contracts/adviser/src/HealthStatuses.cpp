#include <tlm/adviser/HealthStatuses.h>

#include <QCoreApplication>

#include <stdexcept>
#include <string>

namespace tlm::adviser {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(tlm::adviser::HealthStatuses)
};
}

QString presentationText(HealthStatuses const& status)
{
    switch (status) {
    case HealthStatuses::Healthy:
        return Texts::tr("Healthy");
    case HealthStatuses::Cautious:
        return Texts::tr("Cautious");
    case HealthStatuses::Unhealthy:
        return Texts::tr("Unhealthy");
    }
    throw std::logic_error("There is no health status " + std::to_string(static_cast<unsigned int>(status)) + ".");
}

QDebug operator<<(QDebug debug, HealthStatuses const& status)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "HealthStatuses(" << static_cast<unsigned int>(status) << ')';
    return debug;
}
}
