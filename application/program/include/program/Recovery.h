#pragma once

class QWidget;

namespace tallymere::presenter {
class Session;
}

namespace tallymere::program {

/// Offers the unsaved work of a program that ended without closing its budget, the latest first.
///
/// Waits for the person. Work that was neither recovered nor discarded is offered again at the next start.
/// \return whether one was recovered, which then is the open budget
bool offerRecovery(QWidget& window, presenter::Session& session);
}
