#pragma once

#include <QCoreApplication>
#include <QString>

#include <string>

namespace fiscora {

/// Translates a sentence for a person into UTF-8 that an exception can carry.
inline std::string sentence(char const* source)
{
    return QCoreApplication::translate("fiscora", source).toStdString();
}
}
