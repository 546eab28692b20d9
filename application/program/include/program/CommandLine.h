#pragma once

#include <QStringList>

#include <optional>
#include <variant>

namespace tallymere::program {

/// How a person asked the program to start.
struct StartOptions
{
    /// The budget file to open; empty for the one opened last.
    QString filePathName;
    /// Opens a sample household, `filePathName` is empty then.
    bool isSample = false;
    /// The wording asked for; empty for the one used last.
    std::optional<bool> isAccounting;

    friend bool operator==(StartOptions const&, StartOptions const&) = default;
};

/// Something to print instead of starting.
struct Answer
{
    QString text;
    /// 0 for what was asked for, on standard output; 2 for a wrong argument, one sentence on standard error.
    int exitStatus;
};

/// Reads \a arguments, the program's name first. Needs a core application for the name and the version.
std::variant<StartOptions, Answer> readCommandLine(QStringList const& arguments);
}
