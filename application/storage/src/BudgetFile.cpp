#include "BudgetFile.h"

#include "DurableFile.h"
#include "Replacement.h"
#include "Schema.h"
#include "UnsoundBudget.h"
#include "WorkingCopy.h"

#include <QCryptographicHash>
#include <QDebug>
#include <QFile>

#include <cerrno>
#include <exception>
#include <system_error>

namespace tallymere::storage {

namespace {

[[noreturn]] void fail(int error, char const* call)
{
    errno = error;
    filesystem::fail(call);
}

QByteArray lockable(QString const& filePathName)
{
    auto path = filesystem::resolved(filePathName);
    if (auto const status = filesystem::status(path)) {
        filesystem::requireRegular(*status);
    }
    return path;
}

/// Locks beside the file, where other people and machines see it, or else in the person's own folder.
std::unique_ptr<FileLock> lock(QByteArray const& path, QByteArray const& workingCopies)
{
    try {
        return std::make_unique<FileLock>(filesystem::companionOf(path, ".lock"));
    } catch (std::system_error const& failure) {
        qInfo() << "Failed to lock a budget beside its file:" << failure.what();
    }
    auto const folder = workingCopies + "/locks";
    auto const name = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex() + ".lock";
    return inWorkingFolder(folder, [&] { return std::make_unique<FileLock>(folder + '/' + name); });
}

/// Refuses a file beside which a program of the database's own is in the middle of a change, or crashed there: neither
/// what the file holds nor what replaced it would be whole once that program went on.
void requireSettled(QByteArray const& path)
{
    for (auto const* const suffix : {"-journal", "-wal"}) {
        struct stat found
        {};
        if (::stat((path + suffix).constData(), &found) == 0 && found.st_size > 0) {
            fail(EBUSY, "stat");
        }
    }
}

/// \return what the system tells of \a path, nothing when nobody can tell
std::optional<struct stat> reachable(QByteArray const& path)
{
    try {
        return filesystem::status(path);
    } catch (std::system_error const& failure) {
        qInfo() << "Failed to look at a budget's file:" << failure.what();
        return std::nullopt;
    }
}

void requireModest(struct stat const& status)
{
    if (status.st_size > schema::mostBytes) {
        fail(EFBIG, "stat");
    }
}

/// Reads a new file back and compares.
void verify(QByteArray const& path, QByteArray const& digest)
{
    try {
        if (digestOfSound(path) == digest) {
            return;
        }
    } catch (UnsoundBudget const& unsound) {
        qWarning() << "Failed to read a new file back:" << unsound.what();
    }
    fail(EIO, "pread");
}
}

BudgetFile::BudgetFile(Places const& places, QString const& filePathName)
    : filePathName_(filesystem::absolute(filePathName)),
      path_(lockable(filePathName)),
      workingCopies_(QFile::encodeName(places.workingCopies)),
      backups_(places.backups, path_),
      lock_(lock(path_, workingCopies_))
{}

std::unique_ptr<WorkingCopy> BudgetFile::read()
{
    auto const file = DurableFile::open(path_);
    requireSettled(path_);
    auto const stamp = filesystem::stamp(file.status());
    auto copy = WorkingCopy::ofFile(workingCopies_, file);
    stamp_ = stamp;
    digest_ = copy->digest();
    isInDoubt_ = false;
    Replacement::tidy(path_);
    return copy;
}

void BudgetFile::replace(WorkingCopy const& copy)
{
    requireReplaceable();
    Replacement fresh(path_);
    copy.copyTo(fresh.path());
    if (auto const old = filesystem::status(path_)) {
        fresh.file().takeAccess(*old);
    }
    fresh.finish();
    verify(fresh.path(), copy.digest());
    keepBackups(DurableFile::open(fresh.path()));
    isInDoubt_ = true;
    fresh.takePlace();
    stamp_ = filesystem::stamp(DurableFile::open(path_).status());
    keptStamp_ = stamp_;
    digest_ = copy.digest();
    isInDoubt_ = false;
}

bool BudgetFile::holds(WorkingCopy const& copy) const
{
    auto const status = reachable(path_);
    if (isInDoubt_ || !status) {
        return false;
    }
    if (auto const stamp = filesystem::stamp(*status); stamp != stamp_) {
        digest_ = digestOfFile(workingCopies_, filePathName_);
        stamp_ = stamp;
    }
    return digest_ && copy.hasDigest(*digest_);
}

void BudgetFile::requireReplaceable() const
{
    if (auto const status = filesystem::status(path_)) {
        filesystem::requireRegular(*status);
        filesystem::requireWritable(path_);
        requireModest(*status);
    }
    filesystem::requireWritable(filesystem::folderOf(path_));
    requireSettled(path_);
}

void BudgetFile::keepBackups(DurableFile const& fresh) const
{
    // What stands there was kept already, unless another program wrote it or it was never saved here.
    if (auto const status = filesystem::status(path_); status && filesystem::stamp(*status) != keptStamp_) {
        backups_.keep(DurableFile::open(path_));
    }
    backups_.keep(fresh);
}

std::optional<QByteArray> digestOfFile(QByteArray const& workingCopies, QString const& path)
{
    try {
        auto const target = filesystem::resolved(path);
        requireSettled(target);
        return WorkingCopy::ofFile(workingCopies, DurableFile::open(target))->digest();
    } catch (std::exception const& failure) {
        qInfo() << "Failed to compare with a budget's file:" << failure.what();
        return std::nullopt;
    }
}
}
