#pragma once

#include <QString>

namespace tallymere::storage {

/// \return what the names of one item have in common: composed characters, no case, no surrounding blanks
QString sourceKey(QString const& source);
}
