#include <presenter/Refusal.h>
#include <presenter/Session.h>
#include <tlm/foundation/Error.h>

#include <QCoreApplication>
#include <QDebug>

namespace tallymere::presenter {

Refusal refusalOf(Session& session, std::function<void(engine::Household&)> const& change)
{
    try {
        session.change(change);
    } catch (tlm::foundation::Error const& refusal) {
        return refusal.message();
    } catch (std::exception const& failure) {
        qWarning() << "Failed to change the budget:" << failure.what();
        return QCoreApplication::translate("Refusal",
                                           "That didn't work, and your budget is as it was before. The cause: %1")
            .arg(QString::fromUtf8(failure.what()));
    }
    return {};
}
}
