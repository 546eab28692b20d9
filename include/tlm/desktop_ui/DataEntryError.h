#pragma once

#include <tlm/desktop_ui/Export.h>
#include <tlm/foundation/Error.h>

#include <QString>

namespace tlm::desktop_ui {

/// Which entry of a form holds a value that can't be used, and why, in one sentence for the person who typed it.
struct TLM_DESKTOP_UI_EXPORT DataEntryError : public foundation::Error
{
    /// \param field the entry's name, as the person knows it
    /// \param value as it was typed; stands in the message to the letter
    /// \param reason a whole sentence
    /// \param cause what led to this error, a plain `std::exception` if nothing did
    DataEntryError(QString const& field, QString const& value, QString const& reason, std::exception const& cause);
};
}
