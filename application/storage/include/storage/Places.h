#pragma once

#include <QString>

namespace tallymere::storage {

/// The folders in which documents keep what must outlive a crash. Both are made when they are first needed.
struct Places
{
    QString workingCopies; ///< one working copy for each open document, and those that a crash left behind
    QString backups;       ///< one folder for each file that was saved, with its last saves

    /// \return folders in the data directory of the person who runs the program
    static Places ofUser();
};
}
