#pragma once

#include <QByteArray>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

class PostingsDigest;

/// \param postings of the same database
/// \return a digest that is the same for databases with the same content, whatever the order in which it was written
QByteArray digestOf(SQLite::Database const& database, PostingsDigest const& postings);

/// \return the digest that the program took of budgets of version 1
QByteArray digestOfVersion1(SQLite::Database const& database);
}
