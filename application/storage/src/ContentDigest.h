#pragma once

#include <QByteArray>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

/// \return a digest that is the same for databases with the same content, whatever the order in which it was written
QByteArray digestOf(SQLite::Database const& database);
}
