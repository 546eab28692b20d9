#pragma once

#include "Backups.h"
#include "FileLock.h"
#include "FileSystem.h"

#include <storage/Places.h>

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace tallymere::storage {

class WorkingCopy;

/// The file of an open document, which is locked as long as this object lives.
///
/// Failures throw std::system_error, SQLite::Exception, UnsoundBudget or FileLock::Held.
class BudgetFile
{
public:
    /// Locks what \a filePathName leads to through any symbolic links, whether or not it exists.
    BudgetFile(Places const& places, QString const& filePathName);

    /// \return the path as it was given, made absolute
    QString const& filePathName() const { return filePathName_; }

    /// \return where it really lies
    QByteArray const& path() const { return path_; }

    /// \return a checked copy of what the file holds
    std::unique_ptr<WorkingCopy> read();

    /// Has the file hold what \a copy holds, for good once it returns. Until then it holds all of what it held before.
    void replace(WorkingCopy const& copy);

    /// \return whether the file is there, sound, and holds what \a copy holds. It is read only when it has changed.
    bool holds(WorkingCopy const& copy) const;

private:
    void requireReplaceable() const;
    void keepBackups(DurableFile const& fresh) const;

    QString filePathName_;
    QByteArray path_;
    QByteArray workingCopies_;
    Backups backups_;
    std::unique_ptr<FileLock> lock_;
    bool isInDoubt_ = false;                             ///< it was replaced, but not surely for good
    std::optional<filesystem::FileStamp> keptStamp_;     ///< of the version that was kept among the backups last
    mutable std::optional<filesystem::FileStamp> stamp_; ///< of the version whose digest is known
    mutable std::optional<QByteArray> digest_;           ///< nothing when that version holds no sound budget
};

/// \return a digest of the content of the file that \a path leads to, nothing when it isn't there or isn't sound
std::optional<QByteArray> digestOfFile(QByteArray const& workingCopies, QString const& path);
}
