#include "FileSystem.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <system_error>
#include <unistd.h>

namespace tallymere::storage::filesystem {

namespace {

constexpr int mostLinks = 40;

/// \return the bytes of a path that mean the same when they are read back
QByteArray encoded(QString const& path)
{
    auto const bytes = QFile::encodeName(path);
    if (bytes.isEmpty() || bytes.contains('\0') || QFile::decodeName(bytes) != path) {
        errno = bytes.isEmpty() ? ENOENT : EILSEQ;
        fail("encodeName");
    }
    return QFile::encodeName(absolute(path));
}

std::optional<QByteArray> realPath(QByteArray const& path)
{
    std::unique_ptr<char, decltype(&std::free)> const real(::realpath(path.constData(), nullptr), &std::free);
    if (!real && errno != ENOENT) {
        fail("realpath");
    }
    return real ? std::optional(QByteArray(real.get())) : std::nullopt;
}

/// \return what the symbolic link at \a path names, nothing when there is no link
std::optional<QByteArray> linkTarget(QByteArray const& path)
{
    QByteArray target(PATH_MAX, '\0');
    auto const length = ::readlink(path.constData(), target.data(), static_cast<std::size_t>(target.size()));
    if (length < 0) {
        return std::nullopt;
    }
    target.truncate(length);
    return target.startsWith('/') ? target : folderOf(path) + '/' + target;
}

QByteArray inFolder(QByteArray const& folder, QByteArray const& name)
{
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}
}

void fail(char const* call)
{
    throw std::system_error(errno, std::generic_category(), call);
}

QString absolute(QString const& path)
{
    return path.startsWith(QLatin1Char('/')) ? path : QDir::currentPath() + QLatin1Char('/') + path;
}

QByteArray resolved(QString const& path)
{
    auto named = encoded(path);
    for (auto links = 0; links < mostLinks; ++links) {
        if (auto const real = realPath(named)) {
            return *real;
        }
        auto const target = linkTarget(named);
        if (!target) {
            auto const folder = realPath(folderOf(named));
            return folder ? inFolder(*folder, named.mid(named.lastIndexOf('/') + 1)) : (fail("realpath"), QByteArray());
        }
        named = *target;
    }
    errno = ELOOP;
    fail("readlink");
}

QByteArray folderOf(QByteArray const& path)
{
    return path.left(std::max<qsizetype>(path.lastIndexOf('/'), 1));
}

QByteArray companionOf(QByteArray const& path, char const* suffix)
{
    auto const name = path.mid(path.lastIndexOf('/') + 1);
    auto const key = QCryptographicHash::hash(name, QCryptographicHash::Sha256).toHex().left(16);
    return inFolder(folderOf(path), ".tallymere-" + key + suffix);
}

std::optional<struct stat> status(QByteArray const& path)
{
    struct stat found
    {};
    if (::stat(path.constData(), &found) == 0) {
        return found;
    }
    if (errno != ENOENT) {
        fail("stat");
    }
    return std::nullopt;
}

FileStamp stamp(struct stat const& status)
{
    auto const nanoseconds = [](timespec const& time) { return time.tv_sec * 1'000'000'000LL + time.tv_nsec; };
    return {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
}

void requireRegular(struct stat const& status)
{
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : ENODEV;
        fail("open");
    }
}

void requireWritable(QByteArray const& path)
{
    checked(::faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS), "faccessat");
}

void makeFolders(QByteArray const& folder)
{
    auto isMade = ::mkdir(folder.constData(), 0700) == 0;
    if (!isMade && errno == ENOENT && folderOf(folder) != folder) {
        makeFolders(folderOf(folder));
        isMade = ::mkdir(folder.constData(), 0700) == 0; // once: below a link that leads nowhere nothing is ever made
    }
    if (isMade) {
        syncFolder(folderOf(folder));
    } else if (errno != EEXIST) {
        fail("mkdir");
    }
}

void rename(QByteArray const& from, QByteArray const& to)
{
    checked(::rename(from.constData(), to.constData()), "rename");
}

void syncFolder(QByteArray const& folder)
{
    auto const descriptor = checked(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), "open");
    auto const result = ::fsync(descriptor);
    auto const error = errno;
    ::close(descriptor);
    errno = error;
    // Some network file systems write folders through and have nothing to sync.
    if (result < 0 && error != EINVAL && error != ENOTSUP) {
        fail("fsync");
    }
}

void remove(QByteArray const& path)
{
    if (::unlink(path.constData()) < 0 && errno != ENOENT) {
        fail("unlink");
    }
}
}
