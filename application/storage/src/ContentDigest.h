#pragma once

#include <QByteArray>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

class PostingsDigest;

/// \return a digest of all but the postings that is the same for databases with the same content, whatever the order in
///         which it was written
QByteArray digestOfPlan(SQLite::Database const& database);

/// \param plan what digestOfPlan() gives
/// \param postings of the same database
/// \return a digest of all of it, which begins with \a plan
QByteArray digestOf(QByteArray const& plan, PostingsDigest const& postings);

/// \return the digest that the program took of budgets of version 1
QByteArray digestOfVersion1(SQLite::Database const& database);

/// \return the digest that the program took of budgets of version 2
QByteArray digestOfVersion2(SQLite::Database const& database);
}
