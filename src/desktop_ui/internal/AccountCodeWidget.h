#pragma once

#include "ui_AccountCodeWidget.h"

#include <tlm/accounting/AccountCode.h>
#include <tlm/foundation/QtPtr.h>

#include <QString>
#include <QWidget>

#include <memory>
#include <optional>
#include <set>

namespace tlm::desktop_ui::internal {

/// Lets a person pick the code of a ledger account, or none.
class AccountCodeWidget : public QWidget, private Ui::AccountCodeWidget
{
    Q_OBJECT

public:
    explicit AccountCodeWidget(foundation::QtPtr<QWidget> const& parent);

    /// Offers a blank item and \a codes in their order, in place of what was offered. The blank one is selected.
    void populate(std::set<accounting::AccountCode> const& codes);

    /// \throws foundation::Error when \a code isn't on offer; the selection stays as it was
    void selectCode(accounting::AccountCode const& code);

    /// \return the selected code, without its parent, which the list doesn't tell; none on the blank item
    std::optional<accounting::AccountCode> code() const;

    void setLabel(QString const& text);
    void setReadOnly(bool isReadOnly);

private:
    struct Offer;

    std::shared_ptr<Offer const> offer_; ///< shared by all lists that offer the same
};
}
