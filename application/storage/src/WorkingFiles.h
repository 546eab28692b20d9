#pragma once

#include "FileLock.h"
#include "FileSystem.h"
#include "Origin.h"

#include <QByteArray>

#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace tallymere::storage {

/// The folder in which working copies are kept can't be used.
class NoWorkingFolder : public std::system_error
{
public:
    NoWorkingFolder(std::system_error const& cause, QByteArray folder)
        : std::system_error(cause), folder_(std::move(folder))
    {}

    QByteArray const& folder() const { return folder_; }

private:
    QByteArray folder_;
};

/// Makes \a folder, where it is missing, and something in it.
/// \return what \a action gives
/// \throws NoWorkingFolder when either fails
template <typename Action>
auto inWorkingFolder(QByteArray const& folder, Action const& action)
{
    try {
        filesystem::makeFolders(folder);
        return action();
    } catch (std::system_error const& failure) {
        throw NoWorkingFolder(failure, folder);
    }
}

/// The files of one working copy, which lie side by side: the database, its origin, and the lock that tells whether a
/// program still uses them. As long as this object lives, nobody else does.
///
/// The lock is made first and removed last, and a copy has no origin until it is complete, so that a crash at any moment
/// leaves either work that can be recovered or files that can be tidied away.
class WorkingFiles
{
public:
    /// Takes new names in \a folder, which is made when it is missing. No database is made yet.
    /// \throws NoWorkingFolder when that fails
    static WorkingFiles make(QByteArray const& folder);

    /// Takes over files that a program left behind.
    /// \throws FileLock::Held when a program still uses them
    static WorkingFiles take(QByteArray const& database);

    /// \return the databases of all working copies in \a folder, used or not, those included of which only parts exist
    static std::vector<QByteArray> databasesIn(QByteArray const& folder);

    QByteArray const& database() const { return database_; }

    bool isComplete() const;

    /// \return an origin without a file when it can't be read
    Origin origin() const;
    void write(Origin const& origin) const;

    /// Removes all files but the lock, which goes with this object.
    void remove() const;

private:
    WorkingFiles(QByteArray database, std::unique_ptr<FileLock> lock);

    QByteArray originPath() const;

    QByteArray database_;
    std::unique_ptr<FileLock> lock_;
};
}
