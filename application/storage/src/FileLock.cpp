#include "FileLock.h"

#include "FileSystem.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tallymere::storage {

using filesystem::checked;
using filesystem::fail;

namespace {

constexpr auto mostAttempts = 10;
constexpr auto mostBytes = 4096;

FileLock::Owner self()
{
    return {QCoreApplication::applicationPid(), QCoreApplication::applicationName(), QSysInfo::machineHostName(),
            QString::fromLatin1(QSysInfo::machineUniqueId())};
}

QByteArray written(FileLock::Owner const& owner)
{
    return QJsonDocument(QJsonObject{{"process", owner.process},
                                     {"program", owner.program},
                                     {"host", owner.host},
                                     {"machine", owner.machine}})
        .toJson(QJsonDocument::Compact);
}

/// \return the owner that the lock's file tells, an unknown one while it is being written
FileLock::Owner readOwner(int descriptor)
{
    QByteArray bytes(mostBytes, '\0');
    bytes.truncate(std::max<ssize_t>(::pread(descriptor, bytes.data(), mostBytes, 0), 0));
    auto const told = QJsonDocument::fromJson(bytes).object();
    return {told["process"].toInteger(), told["program"].toString(), told["host"].toString(),
            told["machine"].toString()};
}

bool isThisMachine(FileLock::Owner const& owner)
{
    auto const here = self();
    if (!owner.machine.isEmpty() && !here.machine.isEmpty()) {
        return owner.machine == here.machine;
    }
    return owner.host.isEmpty() || owner.host == here.host;
}

bool isAt(QByteArray const& path, int descriptor)
{
    struct stat opened
    {};
    checked(::fstat(descriptor, &opened), "fstat");
    auto const named = filesystem::status(path);
    return named && named->st_dev == opened.st_dev && named->st_ino == opened.st_ino;
}

/// \return an open lock file, for reading only where it belongs to someone else of a shared folder
int openLock(QByteArray const& path)
{
    auto const flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    auto descriptor = ::open(path.constData(), O_RDWR | O_CREAT | flags, 0644);
    if (descriptor < 0 && (errno == EACCES || errno == EPERM)) {
        descriptor = ::open(path.constData(), O_RDONLY | flags);
    }
    return checked(descriptor, "open");
}

bool isWritable(int descriptor)
{
    return (checked(::fcntl(descriptor, F_GETFL), "fcntl") & O_ACCMODE) == O_RDWR;
}

/// The lock is held whether or not its file can tell by whom, so a full disk is no reason to go without.
void writeOwner(int descriptor)
{
    auto const bytes = written(self());
    if (::ftruncate(descriptor, 0) < 0 ||
        ::pwrite(descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()), 0) != bytes.size()) {
        qInfo() << "Failed to tell who holds a lock:" << qt_error_string(errno);
    }
}
}

FileLock::Held::Held(Owner owner, QByteArray path)
    : std::runtime_error("The lock is held."), owner_(std::move(owner)), path_(std::move(path))
{}

FileLock::FileLock(QByteArray path) : path_(std::move(path))
{
    for (auto attempt = 0; attempt < mostAttempts; ++attempt) {
        auto const descriptor = openLock(path_);
        try {
            if (takes(descriptor)) {
                descriptor_ = descriptor;
                return;
            }
        } catch (...) {
            ::close(descriptor);
            throw;
        }
        ::close(descriptor);
    }
    errno = EAGAIN;
    fail("flock");
}

/// \return whether the lock is taken; false means that its file was replaced meanwhile
bool FileLock::takes(int descriptor)
{
    if (::flock(descriptor, LOCK_EX | LOCK_NB) < 0) {
        if (errno == EWOULDBLOCK) {
            throw Held(readOwner(descriptor), path_);
        }
        fail("flock");
    }
    if (!isAt(path_, descriptor)) {
        return false; // its holder removed it just before letting go
    }
    if (auto const owner = readOwner(descriptor); !isThisMachine(owner)) {
        throw Held(owner, path_);
    }
    if (!isWritable(descriptor)) {
        filesystem::remove(path_); // left behind by a crash of someone else's program
        return false;
    }
    writeOwner(descriptor);
    return true;
}

FileLock::~FileLock()
{
    // Remove first: whoever opens the file between the two calls sees that it is no longer at its path.
    try {
        removeOwn();
    } catch (std::system_error const& failure) {
        qInfo() << "Failed to remove a lock that is no longer held:" << failure.what();
    }
    ::close(descriptor_);
}

/// A person may have removed the file, and another program taken the lock since: what stands there then is that one's.
void FileLock::removeOwn() const
{
    if (isAt(path_, descriptor_)) {
        filesystem::remove(path_);
    }
}
}
