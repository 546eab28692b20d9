#include "Backups.h"

#include "FileSystem.h"
#include "Replacement.h"

#include <QCryptographicHash>
#include <QDebug>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <limits>
#include <system_error>

namespace tallymere::storage {

namespace {

constexpr auto suffix = ".budget";
constexpr qsizetype mostNameLength = 50;

/// \return a folder name that tells a person which file it is for, and the program where that file lies
QByteArray folderNameOf(QByteArray const& target)
{
    auto name = QFile::decodeName(target.mid(target.lastIndexOf('/') + 1)).left(mostNameLength);
    std::ranges::replace_if(
        name, [](QChar character) { return !character.isPrint() || character.isSurrogate(); }, QLatin1Char('_'));
    auto const key = QCryptographicHash::hash(target, QCryptographicHash::Sha256).toHex().left(16);
    return QFile::encodeName(name) + '-' + key;
}
}

Backups::Backups(QString const& places, QByteArray const& target)
    : folder_(QFile::encodeName(places) + '/' + folderNameOf(target))
{}

bool Backups::exist() const
{
    return !numbers().empty();
}

void Backups::keep(DurableFile const& version) const
{
    filesystem::makeFolders(folder_);
    auto const kept = numbers();
    if (isLast(version, kept)) {
        return;
    }
    Replacement copy(pathOf(kept.empty() ? 1 : kept.back() + 1));
    copy.file().copy(version, DurableFile::ReadBack::Yes);
    copy.finish();
    copy.takePlace();
    prune();
}

std::vector<int> Backups::numbers() const
{
    std::vector<int> found;
    auto const names =
        QDir(QFile::decodeName(folder_)).entryList({QLatin1Char('*') + QLatin1String(suffix)}, QDir::Files);
    for (auto const& name : names) {
        auto const stem = name.chopped(static_cast<qsizetype>(qstrlen(suffix)));
        auto const number = stem.toInt();
        // A file called otherwise than pathOf() would, or without a number after it, is none of these.
        if (number > 0 && number < std::numeric_limits<int>::max() && stem == QString::number(number)) {
            found.push_back(number);
        }
    }
    std::ranges::sort(found);
    return found;
}

QByteArray Backups::pathOf(int number) const
{
    return folder_ + '/' + QByteArray::number(number) + suffix;
}

bool Backups::isLast(DurableFile const& version, std::vector<int> const& numbers) const
{
    if (numbers.empty()) {
        return false;
    }
    try {
        return DurableFile::open(pathOf(numbers.back())).hasSameBytes(version);
    } catch (std::system_error const& failure) {
        qInfo() << "Failed to read the last backup, so another is made:" << failure.what();
        return false;
    }
}

void Backups::prune() const
{
    auto const all = numbers();
    for (std::size_t oldest = 0; oldest + kept_ < all.size(); ++oldest) {
        filesystem::remove(pathOf(all[oldest]));
    }
}
}
