#include "WorkingCopy.h"

#include "Connection.h"
#include "ContentDigest.h"
#include "ContentReader.h"
#include "FileSystem.h"
#include "Schema.h"

#include <QDebug>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <exception>
#include <utility>

namespace tallymere::storage {

namespace {

void checkHeader(DurableFile const& file)
{
    schema::checkHeader(file.read(0, schema::headerSize), file.status().st_size);
}

/// Checks all that makes a budget sound, changing nothing.
void check(SQLite::Database& database)
{
    database.exec("PRAGMA query_only = ON");
    {
        SQLite::Transaction const once(database); // else each query looks for others' changes first
        schema::check(database);
        readContent(database);
    }
    database.exec("PRAGMA query_only = OFF");
}
}

std::unique_ptr<WorkingCopy> WorkingCopy::ofContent(QByteArray const& folder, engine::BudgetContent const& content)
{
    std::unique_ptr<WorkingCopy> copy(new WorkingCopy(WorkingFiles::make(folder)));
    DurableFile::create(copy->files_.database()).close();
    copy->open();
    connection::makeDurable(*copy->database_);
    connection::transact(*copy->database_, [&] {
        schema::create(*copy->database_);
        ContentWriter(*copy->database_).write(content);
    });
    copy->writer_.emplace(*copy->database_);
    return copy;
}

std::unique_ptr<WorkingCopy> WorkingCopy::ofFile(QByteArray const& folder, DurableFile const& file)
{
    checkHeader(file);
    std::unique_ptr<WorkingCopy> copy(new WorkingCopy(WorkingFiles::make(folder)));
    auto raw = DurableFile::create(copy->files_.database());
    raw.copy(file);
    raw.sync();
    raw.close(); // before the database opens it: closing a file lets go of every lock that the process has on it
    filesystem::syncFolder(folder);
    copy->open();
    copy->prepare();
    return copy;
}

std::unique_ptr<WorkingCopy> WorkingCopy::ofOrphan(WorkingFiles files)
{
    std::unique_ptr<WorkingCopy> copy(new WorkingCopy(std::move(files)));
    copy->isKept_ = true;
    checkHeader(DurableFile::open(copy->files_.database()));
    copy->open();
    copy->prepare();
    return copy;
}

WorkingCopy::WorkingCopy(WorkingFiles files) : files_(std::move(files)) {}

WorkingCopy::~WorkingCopy()
{
    writer_.reset();
    database_.reset();
    if (isKept_) {
        return;
    }
    try {
        files_.remove();
    } catch (std::exception const& failure) {
        qWarning() << "Failed to remove a working copy that is no longer needed:" << failure.what();
    }
}

void WorkingCopy::open()
{
    database_.emplace(connection::open(files_.database(), connection::Access::Write));
}

void WorkingCopy::prepare()
{
    check(*database_);
    connection::makeDurable(*database_);
    connection::transact(*database_, [this] { schema::addCurrencies(*database_); });
    writer_.emplace(*database_);
}

engine::BudgetContent WorkingCopy::content() const
{
    return readContent(*database_);
}

QByteArray const& WorkingCopy::digest() const
{
    if (!digest_) {
        digest_ = digestOf(*database_);
    }
    return *digest_;
}

void WorkingCopy::begin()
{
    database_->exec("BEGIN IMMEDIATE");
    isInTransaction_ = true;
}

void WorkingCopy::commit()
{
    database_->exec("COMMIT");
    isInTransaction_ = false;
    digest_.reset();
}

void WorkingCopy::rollBack() noexcept
{
    isInTransaction_ = false;
    digest_.reset();
    database_->tryExec("ROLLBACK"); // fails where the database has rolled back by itself already
}

void WorkingCopy::copyTo(QByteArray const& path) const
{
    SQLite::Statement vacuum(*database_, "VACUUM INTO ?");
    vacuum.bind(1, path.toStdString());
    vacuum.exec();
}

QByteArray digestOfSound(QByteArray const& path)
{
    checkHeader(DurableFile::open(path));
    auto database = connection::open(path, connection::Access::Read);
    check(database);
    return digestOf(database);
}
}
