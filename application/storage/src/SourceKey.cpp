#include "SourceKey.h"

#include <QList>

#include <algorithm>

namespace tallymere::storage {

QString sourceKey(QString const& source)
{
    // One character for one, as the household compares names: "ß" and "ss" are different names.
    auto characters = source.trimmed().normalized(QString::NormalizationForm_C).toUcs4();
    std::ranges::transform(characters, characters.begin(),
                           [](uint character) { return QChar::toCaseFolded(character); });
    return QString::fromUcs4(reinterpret_cast<char32_t const*>(characters.constData()), characters.size());
}
}
