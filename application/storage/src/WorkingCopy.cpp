#include "WorkingCopy.h"

#include "BooksReader.h"
#include "Connection.h"
#include "ContentDigest.h"
#include "ContentReader.h"
#include "Migration.h"
#include "Schema.h"

#include <QDebug>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <exception>
#include <utility>

using tallymere::engine::Posting;
using tallymere::engine::PostingId;
using tlm::accounting::AccountNumber;

namespace tallymere::storage {

namespace {

void checkHeader(DurableFile const& file)
{
    schema::checkHeader(file.read(0, schema::headerSize), file.status().st_size);
}

struct Checked
{
    engine::BudgetContent content;
    bool hasAllCurrencies = false;
};

/// Checks all that makes a budget of \a version sound, changing nothing.
Checked check(SQLite::Database& database, unsigned int version)
{
    database.exec("PRAGMA query_only = ON");
    Checked checked;
    {
        SQLite::Transaction const once(database); // else each query looks for others' changes first
        checked.hasAllCurrencies = schema::check(database, version);
        checked.content = version == schema::presentVersion ? readContent(database) : readContentOfVersion1(database);
    }
    database.exec("PRAGMA query_only = OFF");
    return checked;
}
}

std::unique_ptr<WorkingCopy> WorkingCopy::ofContent(QByteArray const& folder, engine::BudgetContent const& content,
                                                    std::vector<engine::Posting> const& postings)
{
    std::unique_ptr<WorkingCopy> copy(new WorkingCopy(WorkingFiles::make(folder)));
    DurableFile::create(copy->files_.database()).close();
    copy->open();
    connection::makeDurable(*copy->database_);
    connection::transact(*copy->database_, [&] {
        schema::create(*copy->database_);
        ContentWriter(*copy->database_).write(content, postings);
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
    raw.close(); // before the database opens it: closing a file lets go of every lock that the process has on it
    copy->open();
    copy->prepare();
    return copy;
}

std::unique_ptr<WorkingCopy> WorkingCopy::ofOrphan(WorkingFiles files)
{
    std::unique_ptr<WorkingCopy> copy(new WorkingCopy(std::move(files)));
    copy->isKept_ = true;
    copy->isLasting_ = true;
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
    auto const version = schema::versionOf(*database_);
    auto checked = check(*database_, version);
    content_ = std::move(checked.content);
    connection::makeDurable(*database_);
    if (version != schema::presentVersion) {
        migrate();
    }
    if (!checked.hasAllCurrencies) {
        connection::transact(*database_, [this] { schema::addCurrencies(*database_); });
    }
    writer_.emplace(*database_);
}

void WorkingCopy::migrate()
{
    auto const before = digestOfVersion1(*database_);
    connection::transact(*database_, [this] { content_ = migrateVersion1(*database_, *content_); });
    if (files_.isComplete()) {
        keepOrigin(before);
    }
}

/// A copy that hadn't changed since it was made of something doesn't count as changed once it is migrated.
void WorkingCopy::keepOrigin(QByteArray const& digestBefore)
{
    if (auto const origin = files_.origin(); origin.digest == digestBefore) {
        write(Origin{origin.filePathName, digest()});
    }
}

engine::BudgetContent WorkingCopy::content() const
{
    auto content = content_ ? std::move(*content_) : readContent(*database_);
    content_.reset();
    return content;
}

std::map<PostingId, Posting> WorkingCopy::postingsOf(AccountNumber const& number) const
{
    return readPostings(*database_, number);
}

QByteArray const& WorkingCopy::digest() const
{
    if (!postingsDigest_) {
        postingsDigest_ = digestOfPostings(*database_);
    }
    if (!digest_) {
        digest_ = digestOf(*database_, *postingsDigest_);
    }
    return *digest_;
}

void WorkingCopy::write(Origin const& origin)
{
    if (isLasting_) {
        files_.write(origin);
    } else {
        origin_ = origin;
    }
}

/// Opening a budget would take the longer for it, and most are only looked at.
void WorkingCopy::makeLasting()
{
    if (isLasting_) {
        return;
    }
    auto database =
        DurableFile::open(files_.database()); // closing it lets go of locks, but none is held between changes
    database.sync();
    database.close();
    files_.write(origin_);
    isLasting_ = true;
}

void WorkingCopy::begin()
{
    makeLasting();
    database_->exec("BEGIN IMMEDIATE");
    isInTransaction_ = true;
    content_.reset();
}

void WorkingCopy::commit()
{
    database_->exec("COMMIT");
    isInTransaction_ = false;
    digest_.reset();
    auto const change = writer_->books().takePostingsChange();
    if (change.haveOtherAccounts) {
        postingsDigest_.reset();
    } else if (postingsDigest_) {
        postingsDigest_->add(change.digest);
    }
}

void WorkingCopy::rollBack() noexcept
{
    isInTransaction_ = false;
    digest_.reset();
    writer_->books().takePostingsChange();
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
    check(database, schema::presentVersion);
    return digestOf(database, digestOfPostings(database));
}
}
