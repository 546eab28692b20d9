#pragma once

#include <tlm/updating/SemanticVersion.h>

#include <QDateTime>
#include <QString>

#include <compare>

namespace tlm::updating {

/// What is told of one release.
struct ReleaseInformation
{
    SemanticVersion version;
    QDateTime releasedOn;
    QString notes; ///< as Markdown
};

/// Orders by version, then by the moment of release (an unknown one first), then by the notes.
std::strong_ordering operator<=>(ReleaseInformation const& left, ReleaseInformation const& right);
bool operator==(ReleaseInformation const& left, ReleaseInformation const& right);
}
