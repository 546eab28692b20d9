#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <sys/stat.h>

/// The system's calls on files, each of them checked. Paths are bytes as the system takes them; every failure throws a
/// std::system_error that carries the system's own number.
namespace tallymere::storage::filesystem {

/// Names one version of a file: writing it, replacing it or changing its permissions gives another.
struct FileStamp
{
    dev_t device{};
    ino_t inode{};
    off_t size{};
    long long modified{}; ///< nanoseconds since the Unix epoch, as the next
    long long changed{};

    friend bool operator==(FileStamp const&, FileStamp const&) = default;
};

/// \throws std::system_error of \a call with the present errno
[[noreturn]] void fail(char const* call);

/// \return \a result, unless it is negative
template <typename Result>
Result checked(Result result, char const* call)
{
    if (result < 0) {
        fail(call);
    }
    return result;
}

/// \return \a path, with the current directory before it when it is relative
QString absolute(QString const& path);

/// \return \a path as the system takes it, absolute and with every symbolic link followed; what the last one names
///         need not exist
/// \throws std::system_error when \a path is empty, holds what no file name can, or its folder isn't there
QByteArray resolved(QString const& path);

/// \return the folder of \a path, without a trailing slash unless it is the root
QByteArray folderOf(QByteArray const& path);

/// \return a path beside \a path with a short hidden name of its own that ends in \a suffix: the same one each time, so
///         that what a crash leaves behind is found again
QByteArray companionOf(QByteArray const& path, char const* suffix);

/// \return what the system tells of \a path, nothing when there is no such file
std::optional<struct stat> status(QByteArray const& path);

FileStamp stamp(struct stat const& status);

/// \throws std::system_error when \a status isn't that of a regular file, told apart by EISDIR and ENODEV
void requireRegular(struct stat const& status);

/// \throws std::system_error when this process may not write to \a path
void requireWritable(QByteArray const& path);

/// Makes \a folder and those above it that are missing, private to the owner.
void makeFolders(QByteArray const& folder);

void rename(QByteArray const& from, QByteArray const& to);

/// Makes names that were added, replaced or removed in \a folder last.
void syncFolder(QByteArray const& folder);

/// Removes \a path; it's no failure when there is nothing to remove.
void remove(QByteArray const& path);
}
