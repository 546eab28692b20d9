#pragma once

#include "DurableFile.h"

#include <QByteArray>

namespace tallymere::storage {

/// A new file beside the one whose place it takes once it is complete. Until then it has a name of its own, and it goes
/// with this object.
class Replacement
{
public:
    /// \param target need not exist. Nothing else may be replacing it meanwhile.
    explicit Replacement(QByteArray target);
    Replacement(Replacement const&) = delete;
    Replacement& operator=(Replacement const&) = delete;
    ~Replacement();

    QByteArray const& path() const { return path_; }
    DurableFile& file() { return file_; }

    /// Syncs and closes the file, after which it can be checked. Call it once.
    void finish();

    /// Gives the finished file the target's name, for good once it returns.
    void takePlace();

    /// Removes what a crash left of an earlier replacement; logs what can't be removed.
    static void tidy(QByteArray const& target);

private:
    QByteArray target_;
    QByteArray path_;
    DurableFile file_;
    bool isInPlace_ = false;
};

/// Puts \a bytes in the place of what \a target holds, all of them or none.
void replaceBytes(QByteArray const& target, QByteArray const& bytes);
}
