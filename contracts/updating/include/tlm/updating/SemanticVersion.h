#pragma once

#include <QDebug>
#include <QString>
#include <QStringList>

#include <compare>

namespace tlm::updating {

/// A version as Semantic Versioning 2.0.0 orders it: 1.0.0-alpha.2 < 1.0.0-alpha.10 < 1.0.0-beta < 1.0.0 < 1.0.1.
///
/// Build metadata tells nothing about which of two versions is newer, so it is read past and not kept.
class SemanticVersion
{
public:
    /// 0.0.0, which is older than any release.
    SemanticVersion() = default;
    SemanticVersion(unsigned int major, unsigned int minor, unsigned int patch);

    friend bool operator==(SemanticVersion const&, SemanticVersion const&) = default;
    friend std::strong_ordering operator<=>(SemanticVersion const& left, SemanticVersion const& right);

    /// \return the version as a person reads it, "1.0.0-rc.1", which toSemanticVersion() reads back
    friend QString toString(SemanticVersion const& version);

    /// Reads a whole version, with nothing around it.
    ///
    /// \throws foundation::Error when \a text isn't a semantic version, or one of its three numbers leaves 32 bits
    friend SemanticVersion toSemanticVersion(QString const& text);

private:
    unsigned int major_ = 0;
    unsigned int minor_ = 0;
    unsigned int patch_ = 0;
    QStringList preRelease_; // identifiers, empty for a release
};

QString toString(SemanticVersion const& version);
SemanticVersion toSemanticVersion(QString const& text);
QDebug operator<<(QDebug debug, SemanticVersion const& version);
}
