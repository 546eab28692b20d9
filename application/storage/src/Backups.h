#pragma once

#include "DurableFile.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace tallymere::storage {

/// The last versions of one file, numbered from the oldest on, in a folder of their own.
class Backups
{
public:
    /// How many versions of a file are kept.
    static constexpr std::size_t kept_ = 5;

    /// \param places the folder in which every file's backups have their folder
    /// \param target the file, which need not exist
    Backups(QString const& places, QByteArray const& target);

    QByteArray const& folder() const { return folder_; }

    /// \return whether there are any
    bool exist() const;

    /// Keeps a copy of \a version, compared with it byte by byte, unless the last one kept is the same. The oldest go.
    /// \throws std::system_error
    void keep(DurableFile const& version) const;

private:
    std::vector<int> numbers() const;
    QByteArray pathOf(int number) const;
    bool isLast(DurableFile const& version, std::vector<int> const& numbers) const;
    void prune() const;

    QByteArray folder_;
};
}
