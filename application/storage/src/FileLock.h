#pragma once

#include <QByteArray>
#include <QString>

#include <stdexcept>

namespace tallymere::storage {

/// Keeps other programs, and this one, away from what is kept under a path.
///
/// The lock is the kernel's on a small file, so that it ends with its process, however that ended, and a file left behind
/// by a crash or before a restart is taken over. The file tells who holds the lock. On another machine's word alone the
/// lock counts as held, since nobody here can tell whether its process still runs.
class FileLock
{
public:
    /// Who holds a lock.
    struct Owner
    {
        qint64 process = 0; ///< 0 when nobody can tell
        QString program;
        QString host;
        QString machine; ///< a name that the machine keeps when its host name changes; may be empty
    };

    /// Somebody else holds the lock.
    class Held : public std::runtime_error
    {
    public:
        Held(Owner owner, QByteArray path);

        Owner const& owner() const { return owner_; }
        /// \return the lock's file
        QByteArray const& path() const { return path_; }

    private:
        Owner owner_;
        QByteArray path_;
    };

    /// \param path of the lock's file
    /// \throws Held when somebody else holds it
    /// \throws std::system_error when there can be no lock at \a path
    explicit FileLock(QByteArray path);
    FileLock(FileLock const&) = delete;
    FileLock& operator=(FileLock const&) = delete;
    ~FileLock();

private:
    bool takes(int descriptor);
    void removeOwn() const;

    QByteArray path_;
    int descriptor_ = -1;
};
}
