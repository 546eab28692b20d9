#include "Replacement.h"

#include <QDebug>

#include <system_error>
#include <utility>

namespace tallymere::storage {

namespace {

QByteArray pathFor(QByteArray const& target)
{
    return filesystem::companionOf(target, ".new");
}

void removeOrLog(QByteArray const& path)
{
    try {
        filesystem::remove(path);
    } catch (std::system_error const& failure) {
        qInfo() << "Failed to remove an unfinished file:" << failure.what();
    }
}

DurableFile createAfresh(QByteArray const& path)
{
    filesystem::remove(path);
    return DurableFile::create(path);
}
}

Replacement::Replacement(QByteArray target)
    : target_(std::move(target)), path_(pathFor(target_)), file_(createAfresh(path_))
{}

Replacement::~Replacement()
{
    if (!isInPlace_) {
        removeOrLog(path_);
    }
}

void Replacement::finish()
{
    file_.sync();
    file_.close();
}

void Replacement::takePlace()
{
    filesystem::rename(path_, target_);
    isInPlace_ = true;
    filesystem::syncFolder(filesystem::folderOf(target_));
}

void Replacement::tidy(QByteArray const& target)
{
    removeOrLog(pathFor(target));
}

void replaceBytes(QByteArray const& target, QByteArray const& bytes)
{
    Replacement replacement(target);
    replacement.file().write(bytes);
    replacement.finish();
    replacement.takePlace();
}
}
