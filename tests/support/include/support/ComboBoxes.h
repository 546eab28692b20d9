#pragma once

#include <QComboBox>
#include <QStringList>

namespace tlm::testing {

/// \return the texts of all items, in their order
inline QStringList itemTexts(QComboBox const& box)
{
    QStringList texts;
    for (auto item = 0; item < box.count(); ++item) {
        texts.append(box.itemText(item));
    }
    return texts;
}
}
