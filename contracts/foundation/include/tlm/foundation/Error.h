#pragma once

#include <QString>

#include <stdexcept>

namespace tlm::foundation {

/// What went wrong, in words for the person who sees it.
class Error : public std::runtime_error
{
public:
    explicit Error(QString const& message);

    /// \param cause what led to this error. Its text goes to the debug log, as it speaks of inner matters.
    Error(QString const& message, std::exception const& cause);

    Error(Error const&) noexcept = default;
    Error(Error&&) noexcept = default;
    Error& operator=(Error const&) noexcept = default;
    Error& operator=(Error&&) noexcept = default;
    ~Error() override;

    /// \return the message; what() gives the same in UTF-8
    QString const& message() const noexcept { return message_; }

private:
    QString message_;
};
}
