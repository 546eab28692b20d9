#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tallymere::storage {

/// What a working copy was made from.
struct Origin
{
    QString filePathName; ///< the document's file, empty when it never had one
    QByteArray digest;    ///< of the content when it was opened, saved or created last

    /// \throws std::system_error
    void write(QByteArray const& path) const;

    /// \return nothing when there is no origin at \a path, or it can't be read
    static std::optional<Origin> read(QByteArray const& path);
};
}
