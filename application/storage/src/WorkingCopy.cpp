#include "WorkingCopy.h"

#include "Connection.h"
#include "ContentDigest.h"
#include "ContentReader.h"
#include "Migration.h"
#include "PostingsTally.h"
#include "Schema.h"

#include <QDebug>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <exception>
#include <system_error>
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

/// Has \a folder remember that the journal of a change has gone, with which a power cut could otherwise undo the change. The
/// change stands all the same, so that a fault is no reason to refuse it: most that come once don't come again.
void syncOrLog(QByteArray const& folder)
{
    for (auto const isLast : {false, true}) {
        try {
            filesystem::syncFolder(folder);
            return;
        } catch (std::system_error const& failure) {
            if (isLast) {
                qWarning() << "Failed to make a change outlast a power cut:" << failure.what();
            }
        }
    }
}

struct Checked
{
    engine::BudgetContent content;
    std::optional<PostingsDigest> postings; ///< none of version 1, which has none
    bool hasAllCurrencies = false;
};

void readInto(Checked& checked, SQLite::Database const& database, unsigned int version)
{
    if (version == 1) {
        checked.content = readContentOfVersion1(database);
        return;
    }
    PostingsTally const postings(database);
    if (version == schema::presentVersion) {
        postings.requireIndexed();
    }
    checked.content = readContent(database, postings);
    checked.postings = postings.digest();
}

/// Checks all that makes a budget of \a version sound, changing nothing.
Checked check(SQLite::Database& database, unsigned int version)
{
    database.exec("PRAGMA query_only = ON");
    Checked checked;
    {
        SQLite::Transaction const once(database); // else each query looks for others' changes first
        checked.hasAllCurrencies = schema::check(database, version);
        readInto(checked, database, version);
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
    copy->reader_.emplace(*copy->database_);
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
    reader_.reset();
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
    postingsDigest_ = std::move(checked.postings);
    connection::makeDurable(*database_);
    if (version != schema::presentVersion) {
        migrate(version);
    }
    if (!checked.hasAllCurrencies) {
        connection::transact(*database_, [this] { schema::addCurrencies(*database_); });
    }
    writer_.emplace(*database_);
    reader_.emplace(*database_);
}

void WorkingCopy::migrate(unsigned int version)
{
    auto const before = !files_.isComplete() ? QByteArray()
                        : version == 1       ? digestOfVersion1(*database_)
                                             : digestOfVersion2(*database_);
    if (version == 1) {
        connection::transact(*database_, [this] { content_ = migrateVersion1(*database_, *content_); });
    } else {
        connection::transactFreely(*database_, [this] { schema::replaceVersion2(*database_); });
    }
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
    auto content = content_ ? std::move(*content_) : readContent(*database_, PostingsTally(*database_));
    content_.reset();
    return content;
}

std::optional<Posting> WorkingCopy::posting(PostingId const& id) const
{
    return reader_->posting(id);
}

std::map<PostingId, Posting> WorkingCopy::latestPostingsOf(AccountNumber const& number, std::size_t most) const
{
    return reader_->latest(number, most);
}

QByteArray const& WorkingCopy::planDigest() const
{
    if (!planDigest_) {
        planDigest_ = digestOfPlan(*database_);
    }
    return *planDigest_;
}

PostingsDigest const& WorkingCopy::postingsDigest() const
{
    if (!postingsDigest_) {
        postingsDigest_ = PostingsTally(*database_).digest();
    }
    return *postingsDigest_;
}

QByteArray WorkingCopy::digest() const
{
    return digestOf(planDigest(), postingsDigest());
}

// An account with another number tells that before all of its postings are read again.
bool WorkingCopy::hasDigest(QByteArray const& digest) const
{
    return digest.startsWith(planDigest()) && digest == this->digest();
}

ContentWriter& WorkingCopy::writer()
{
    planDigest_.reset();
    return *writer_;
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
    syncOrLog(filesystem::folderOf(files_.database()));
    auto const change = writer_->postings().takeChange();
    if (writer_->books().takeRenumbering()) {
        postingsDigest_.reset();
    } else if (postingsDigest_) {
        postingsDigest_->add(change);
    }
}

void WorkingCopy::rollBack() noexcept
{
    isInTransaction_ = false;
    planDigest_.reset();
    writer_->postings().takeChange();
    writer_->books().takeRenumbering();
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
    auto const checked = check(database, schema::presentVersion);
    return digestOf(digestOfPlan(database), *checked.postings);
}
}
