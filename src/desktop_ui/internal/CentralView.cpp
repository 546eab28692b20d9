#include "internal/CentralView.h"

#include "internal/TabStops.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMainWindow>

#include <algorithm>

namespace tlm::desktop_ui::internal {

namespace {

bool holdsText(QWidget const& stop)
{
    auto const* const field = qobject_cast<QLineEdit const*>(&stop);
    return field != nullptr && !field->text().isEmpty();
}

/// \return the button by which a person adds something, nullptr when there is none
QWidget* addingButton(QDialogButtonBox const& buttons)
{
    auto const all = buttons.buttons();
    auto const adds = [&](auto* button) { return buttons.buttonRole(button) == QDialogButtonBox::ActionRole; };
    auto const found = std::ranges::find_if(all, adds);
    return found == all.end() ? nullptr : *found;
}

/// The Tab key goes round in \a view, and its round begins behind the buttons.
/// \return nullptr when there is nothing that takes the focus
QWidget* firstStop(QWidget const& view)
{
    auto stops = tabStops(view);
    std::erase_if(stops, [&view](auto* stop) { return !stop->isEnabledTo(&view) || !stop->isVisibleTo(&view); });
    auto const* const buttons = view.findChild<QDialogButtonBox*>();
    if (buttons == nullptr || stops.empty()) {
        return stops.empty() ? nullptr : stops.front();
    }
    auto const isButton = [buttons](QWidget const* stop) { return buttons->isAncestorOf(stop); };
    auto const behind = std::find_if(stops.rbegin(), stops.rend(), isButton).base();
    auto* const first = behind == stops.end() ? stops.front() : *behind;
    auto* const adding = addingButton(*buttons);
    return adding != nullptr && holdsText(*first) ? adding : first;
}
}

void showCentral(QMainWindow& window, QWidget& view)
{
    window.setCentralWidget(&view);
    if (auto* const first = firstStop(view)) {
        first->setFocus(Qt::OtherFocusReason);
    }
}
}
