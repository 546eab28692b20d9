#pragma once

#include <QByteArray>

#include <SQLiteCpp/Database.h>
#include <functional>

/// How this program reaches SQLite. Failures throw SQLite::Exception.
namespace tallymere::storage::connection {

enum class Access : unsigned char
{
    Read,
    Write
};

/// Opens the database at \a path, which must exist, and trusts nothing in it: no view, no trigger and no function of the
/// file's own runs, cells are checked when they are read, and lengths are limited. One thread alone may use it.
SQLite::Database open(QByteArray const& path, Access access);

/// Has each transaction keep a rollback journal and return only when it will outlast a power cut.
void makeDurable(SQLite::Database& database);

/// Runs \a changes as one transaction, all of them or none.
/// \throws whatever \a changes throws
void transact(SQLite::Database& database, std::function<void()> const& changes);

/// Does so while nobody sees to it that rows refer to others, for \a changes that put everything back in its place.
void transactFreely(SQLite::Database& database, std::function<void()> const& changes);
}
