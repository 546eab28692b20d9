#pragma once

#include <QStringList>

namespace tallymere::engine {
class Household;
}

namespace tallymere {

/// \return what people type by accident or on purpose: odd texts, odd numbers, and the names and numbers that \a household
///         has in use already
QStringList words(engine::Household const& household);
}
