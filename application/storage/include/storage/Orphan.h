#pragma once

#include <QDateTime>
#include <QString>

namespace tallymere::storage {

/// Unsaved work that a program left behind when it ended without closing its document.
struct Orphan
{
    QString workingCopy;  ///< where the work lies
    QString filePathName; ///< the file that it was meant for, empty when it never had one
    QDateTime changedOn;  ///< when it was changed last
};
}
