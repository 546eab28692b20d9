#pragma once

#include <QString>

namespace tallymere::services {

/// \return the file to which the user's log goes: `tallymere/tallymere.log` in `XDG_STATE_HOME`, else in
/// `~/.local/state`
QString logFilePathName();

/// Writes what is logged from now on to \a filePathName too, beside what Qt does with it.
///
/// A file that grows beyond a megabyte is put aside, and three of those are kept. The file is private to its owner.
/// When it can't be written to, a warning says so and the program goes on without it.
void startLogFile(QString const& filePathName);
}
