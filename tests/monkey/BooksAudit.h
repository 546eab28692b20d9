#pragma once

#include <QStringList>

namespace tallymere::presenter {
class Session;
}

namespace tallymere {

/// Looks into the books of an open budget: that they balance in each currency, that the postings come to what the books say,
/// and that disk and memory agree.
/// \return what is wrong, nothing when all is well
QStringList complaintsAboutBooks(presenter::Session const& session);

/// Saves the open budget and opens a copy of its file as \a copyPath: that file must hold the same again, and sound.
/// \return as above
QStringList complaintsAboutFile(presenter::Session& session, QString const& copyPath);
}
