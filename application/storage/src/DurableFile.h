#pragma once

#include "FileSystem.h"

#include <QByteArray>

namespace tallymere::storage {

/// A regular file that stands open and checks each of its calls; failures throw a std::system_error.
class DurableFile
{
public:
    enum class ReadBack : bool
    {
        No,
        Yes
    };

    /// Opens for reading what must be a regular file, without waiting on anything else that \a path may name.
    static DurableFile open(QByteArray const& path);

    /// Makes a new, empty file that only its owner may read and write.
    static DurableFile create(QByteArray const& path);

    DurableFile(DurableFile&& other) noexcept;
    DurableFile& operator=(DurableFile&&) = delete;
    ~DurableFile();

    struct stat status() const;

    /// \return up to \a most bytes from \a offset on, fewer only at the end of the file
    QByteArray read(qint64 offset, qint64 most) const;

    /// Adds to the end of the file.
    void write(QByteArray const& bytes);

    /// Adds all of \a source, which must not change meanwhile, to a file that is still empty.
    /// \param isReadBack tells whether each part is read again and compared once it is written
    void copy(DurableFile const& source, ReadBack isReadBack = ReadBack::No);

    bool hasSameBytes(DurableFile const& other) const;

    /// Lets the same people in as a file of \a status does, as far as the system allows; never anyone else.
    void takeAccess(struct stat const& status);

    /// Returns once everything written will outlast a power cut.
    void sync();

    /// For a written file, since closing may be the last to tell of a fault.
    void close();

private:
    explicit DurableFile(int descriptor) : descriptor_(descriptor) {}

    int descriptor_;
};
}
