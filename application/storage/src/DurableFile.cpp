#include "DurableFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace tallymere::storage {

using filesystem::checked;
using filesystem::fail;

namespace {

constexpr qint64 blockSize = 1 << 16;

/// Repeats \a call while signals interrupt it.
template <typename Call>
auto uninterrupted(Call const& call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}
}

DurableFile DurableFile::open(QByteArray const& path)
{
    // Opening a device can already act on it, so look first. What changes in between doesn't make the call wait.
    struct stat named
    {};
    checked(::stat(path.constData(), &named), "stat");
    filesystem::requireRegular(named);
    auto const flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    DurableFile file(checked(uninterrupted([&] { return ::open(path.constData(), flags); }), "open"));
    filesystem::requireRegular(file.status());
    return file;
}

DurableFile DurableFile::create(QByteArray const& path)
{
    auto const flags = O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC;
    return DurableFile(checked(uninterrupted([&] { return ::open(path.constData(), flags, 0600); }), "open"));
}

DurableFile::DurableFile(DurableFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

DurableFile::~DurableFile()
{
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

struct stat DurableFile::status() const
{
    struct stat found
    {};
    checked(::fstat(descriptor_, &found), "fstat");
    return found;
}

QByteArray DurableFile::read(qint64 offset, qint64 most) const
{
    QByteArray bytes(most, Qt::Uninitialized);
    qint64 got = 0;
    while (got < most) {
        auto const room = static_cast<std::size_t>(most - got);
        auto const count = checked(
            uninterrupted([&] { return ::pread(descriptor_, bytes.data() + got, room, offset + got); }), "pread");
        if (count == 0) {
            break;
        }
        got += count;
    }
    bytes.truncate(got);
    return bytes;
}

void DurableFile::write(QByteArray const& bytes)
{
    qint64 put = 0;
    while (put < bytes.size()) {
        auto const left = static_cast<std::size_t>(bytes.size() - put);
        put += checked(uninterrupted([&] { return ::write(descriptor_, bytes.constData() + put, left); }), "write");
    }
}

void DurableFile::copy(DurableFile const& source, ReadBack isReadBack)
{
    auto const before = filesystem::stamp(source.status());
    qint64 offset = 0;
    for (auto block = source.read(offset, blockSize); !block.isEmpty(); block = source.read(offset, blockSize)) {
        write(block);
        if (isReadBack == ReadBack::Yes && read(offset, block.size()) != block) {
            errno = EIO;
            fail("pread");
        }
        offset += block.size();
    }
    if (offset != before.size || filesystem::stamp(source.status()) != before) {
        errno = EBUSY; // another program is writing to it, so the copy may hold half of a change
        fail("pread");
    }
}

bool DurableFile::hasSameBytes(DurableFile const& other) const
{
    if (status().st_size != other.status().st_size) {
        return false;
    }
    qint64 offset = 0;
    for (auto block = read(offset, blockSize); !block.isEmpty(); block = read(offset, blockSize)) {
        if (block != other.read(offset, blockSize)) {
            return false;
        }
        offset += block.size();
    }
    return true;
}

void DurableFile::takeAccess(struct stat const& status)
{
    auto mode = status.st_mode & ACCESSPERMS;
    auto const mine = this->status();
    auto const isOthers = mine.st_uid != status.st_uid || mine.st_gid != status.st_gid;
    if (isOthers && ::fchown(descriptor_, status.st_uid, status.st_gid) < 0 &&
        ::fchown(descriptor_, mine.st_uid, status.st_gid) < 0) {
        // What the old group could do, this file's group mustn't, unless everyone may.
        mode = (mode & ~static_cast<mode_t>(S_IRWXG)) | ((mode & S_IRWXO) << 3);
    }
    checked(::fchmod(descriptor_, mode), "fchmod");
}

void DurableFile::sync()
{
    checked(uninterrupted([&] { return ::fsync(descriptor_); }), "fsync");
}

void DurableFile::close()
{
    checked(::close(std::exchange(descriptor_, -1)), "close");
}
}
