#include <tlm/foundation/Error.h>
#include <tlm/updating/SemanticVersion.h>

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace tlm::updating {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(tlm::updating::SemanticVersion)
};

/// The grammar of Semantic Versioning 2.0.0, as its authors publish it; \z, since $ also matches before a line feed.
QRegularExpression const& grammar()
{
    static QRegularExpression const expression(
        QStringLiteral(R"(\A(0|[1-9][0-9]*)\.(0|[1-9][0-9]*)\.(0|[1-9][0-9]*))"
                       R"((?:-((?:0|[1-9][0-9]*|[0-9]*[a-zA-Z-][0-9a-zA-Z-]*))"
                       R"((?:\.(?:0|[1-9][0-9]*|[0-9]*[a-zA-Z-][0-9a-zA-Z-]*))*))?)"
                       R"((?:\+[0-9a-zA-Z-]+(?:\.[0-9a-zA-Z-]+)*)?\z)"));
    return expression;
}

foundation::Error refusal(QString const& text)
{
    return foundation::Error(Texts::tr("\"%1\" is not a version such as 1.2.3 or 1.2.3-beta.1.").arg(text));
}

unsigned int number(QRegularExpressionMatch const& match, int group)
{
    auto isNumber = false;
    auto const value = match.captured(group).toUInt(&isNumber);
    if (!isNumber) {
        throw refusal(match.captured());
    }
    return value;
}

bool isNumeric(QString const& identifier)
{
    return std::ranges::all_of(identifier, [](QChar each) { return each >= u'0' && each <= u'9'; });
}

/// Numbers stand below words. They have no leading zeros and may be of any length, so the longer one is greater.
std::strong_ordering compareIdentifiers(QString const& left, QString const& right)
{
    auto const isLeftNumeric = isNumeric(left);
    if (isLeftNumeric != isNumeric(right)) {
        return isLeftNumeric ? std::strong_ordering::less : std::strong_ordering::greater;
    }
    if (isLeftNumeric && left.size() != right.size()) {
        return left.size() <=> right.size();
    }
    return left.compare(right, Qt::CaseSensitive) <=> 0;
}

std::strong_ordering comparePreReleases(QStringList const& left, QStringList const& right)
{
    if (left.isEmpty() || right.isEmpty()) {
        return left.isEmpty() <=> right.isEmpty(); // a release stands above all that led up to it
    }
    return std::lexicographical_compare_three_way(left.begin(), left.end(), right.begin(), right.end(),
                                                  compareIdentifiers);
}
}

SemanticVersion::SemanticVersion(unsigned int major, unsigned int minor, unsigned int patch)
    : major_(major), minor_(minor), patch_(patch)
{}

std::strong_ordering operator<=>(SemanticVersion const& left, SemanticVersion const& right)
{
    auto const order =
        std::tie(left.major_, left.minor_, left.patch_) <=> std::tie(right.major_, right.minor_, right.patch_);
    return order != 0 ? order : comparePreReleases(left.preRelease_, right.preRelease_);
}

QString toString(SemanticVersion const& version)
{
    auto const release = QStringLiteral("%1.%2.%3").arg(version.major_).arg(version.minor_).arg(version.patch_);
    return version.preRelease_.isEmpty() ? release : release + u'-' + version.preRelease_.join(u'.');
}

SemanticVersion toSemanticVersion(QString const& text)
{
    auto const match = grammar().match(text);
    if (!match.hasMatch()) {
        throw refusal(text);
    }
    SemanticVersion version(number(match, 1), number(match, 2), number(match, 3));
    version.preRelease_ = match.captured(4).split(u'.', Qt::SkipEmptyParts);
    return version;
}

QDebug operator<<(QDebug debug, SemanticVersion const& version)
{
    QDebugStateSaver const saver(debug);
    debug.noquote().nospace() << toString(version);
    return debug;
}
}
