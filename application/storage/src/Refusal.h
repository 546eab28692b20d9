#pragma once

#include <QString>

namespace tallymere::storage {

/// What was being done when something failed.
enum class Deed : unsigned char
{
    Begin,  ///< a new budget
    Open,   ///< a file
    Change, ///< the content
    Read,   ///< the content
    Save,   ///< a file
    Recover ///< unsaved work
};

/// Tells why \a deed failed; call it while the exception that tells so is being handled.
/// \param filePathName of the file concerned, empty for none
/// \param backups the folder in which saves of that file lie, empty for none
/// \throws DocumentError always, unless the exception tells of something else than storage, which then goes on
[[noreturn]] void refuse(Deed deed, QString const& filePathName = {}, QString const& backups = {});

/// \return what \a action gives
/// \throws DocumentError for a failure of storage in it
template <typename Action>
auto orRefuse(Deed deed, QString const& filePathName, Action const& action)
{
    try {
        return action();
    } catch (...) {
        refuse(deed, filePathName);
    }
}
}
