#include "WorkingFiles.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <array>
#include <set>
#include <system_error>
#include <utility>

namespace tallymere::storage {

namespace {

constexpr char const* databaseSuffix = ".budget";
constexpr char const* lockSuffix = ".lock";

QByteArray replaceSuffix(QByteArray const& path, char const* from, char const* to)
{
    return path.chopped(static_cast<qsizetype>(qstrlen(from))) + to;
}

std::unique_ptr<FileLock> lockOf(QByteArray const& database)
{
    return std::make_unique<FileLock>(replaceSuffix(database, databaseSuffix, lockSuffix));
}
}

WorkingFiles WorkingFiles::make(QByteArray const& folder)
{
    auto const name = QByteArray::number(QRandomGenerator::system()->generate64(), 16).rightJustified(16, '0');
    auto const database = folder + '/' + name + databaseSuffix;
    return inWorkingFolder(folder, [&database] { return WorkingFiles(database, lockOf(database)); });
}

WorkingFiles WorkingFiles::take(QByteArray const& database)
{
    return {database, lockOf(database)};
}

std::vector<QByteArray> WorkingFiles::databasesIn(QByteArray const& folder)
{
    std::set<QByteArray> found;
    for (auto const* const suffix : {databaseSuffix, lockSuffix}) {
        auto const names =
            QDir(QFile::decodeName(folder)).entryList({QLatin1Char('*') + QLatin1String(suffix)}, QDir::Files);
        for (auto const& name : names) {
            found.insert(folder + '/' + replaceSuffix(QFile::encodeName(name), suffix, databaseSuffix));
        }
    }
    return {found.begin(), found.end()};
}

bool WorkingFiles::isComplete() const
{
    return filesystem::status(database_) && filesystem::status(originPath());
}

Origin WorkingFiles::origin() const
{
    return Origin::read(originPath()).value_or(Origin());
}

void WorkingFiles::write(Origin const& origin) const
{
    origin.write(originPath());
}

void WorkingFiles::remove() const
{
    // The origin goes first: without it, what a crash leaves of the rest is known to be of no use.
    filesystem::remove(originPath());
    for (auto const* const suffix : {"-journal", "-wal", "-shm", ""}) {
        filesystem::remove(database_ + suffix);
    }
}

WorkingFiles::WorkingFiles(QByteArray database, std::unique_ptr<FileLock> lock)
    : database_(std::move(database)), lock_(std::move(lock))
{}

QByteArray WorkingFiles::originPath() const
{
    return replaceSuffix(database_, databaseSuffix, ".origin");
}
}
