#pragma once

#include <storage/Places.h>

#include <QDate>
#include <QString>

namespace tallymere::program {

/// Makes the file of a sample household whose dates lie around \a today, in \a folder, which is made if need be.
///
/// A sample made on the same day is left as it is, so that what a person saved in it stays.
/// \return path of the file
/// \throws storage::DocumentError when it can't be written
QString sampleFile(storage::Places const& places, QString const& folder, QDate const& today);
}
