#pragma once

#include <QFormLayout>
#include <QWidget>

/// What the forms of single entries have in common.
namespace tlm::desktop_ui::internal {

/// Lines the fields of a form up at any width: labels that stand beside them, each in a layout of its own, would shift them.
inline void putLabelsAbove(QWidget const& form)
{
    for (auto* const layout : form.findChildren<QFormLayout*>()) {
        layout->setRowWrapPolicy(QFormLayout::WrapAllRows);
    }
}

/// Keeps an entry that ends from hearing its fields: its base hides what ends on screen, and a field that loses the focus by
/// this tells that its editing ends.
inline void stopListening(QWidget const& ending)
{
    for (auto const* const field : ending.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        field->disconnect(&ending);
    }
}
}
