#include "tlm/desktop_ui/DataEntryError.h"

#include <QCoreApplication>

namespace tlm::desktop_ui {

namespace {

QString sentence(QString const& field, QString const& value, QString const& reason)
{
    auto const text = QCoreApplication::translate("tlm::desktop_ui::DataEntryError",
                                                  "The value, %1, is not valid for the \"%2\" entry. %3");
    // In one pass, since a place marker in what was typed is no place marker.
    return text.arg(value, field, reason);
}
}

DataEntryError::DataEntryError(QString const& field, QString const& value, QString const& reason,
                               std::exception const& cause)
    : foundation::Error(sentence(field, value, reason), cause)
{}
}
