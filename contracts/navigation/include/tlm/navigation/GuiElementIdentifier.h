#pragma once

#include <QDebug>

#include <compare>

namespace tlm::navigation {

/// Names one entry of a view while a change of it is on its way.
///
/// Copies name the same entry. Identifiers order by age; they mean nothing beyond this run of the program.
class GuiElementIdentifier
{
public:
    /// Makes an identifier that differs from every other one made by this process, on whatever thread.
    GuiElementIdentifier();

    friend auto operator<=>(GuiElementIdentifier const&, GuiElementIdentifier const&) noexcept = default;
    friend QDebug operator<<(QDebug debug, GuiElementIdentifier const& identifier);

private:
    unsigned long long number_;
};

QDebug operator<<(QDebug debug, GuiElementIdentifier const& identifier);
}
