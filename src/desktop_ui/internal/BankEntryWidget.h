#pragma once

#include "ui_BankEntryWdgt.h"

#include <tlm/accounting/AccountNumber.h>
#include <tlm/banking/Bank.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/banking/BankName.h>
#include <tlm/foundation/QtPtr.h>

#include <QString>
#include <QWidget>

#include <map>
#include <optional>

namespace tlm::desktop_ui::internal {

/// The form of one bank.
class BankEntryWidget : public QWidget, private Ui::BankEntryWdgt
{
    Q_OBJECT

public:
    /// \param bank as it was saved; none for a new bank
    BankEntryWidget(std::optional<banking::Bank> bank, foundation::QtPtr<QWidget> const& parent);

    bool isDirty() const noexcept { return isDirty_; }

    /// \return the bank as it was last saved; none for one that never was
    std::optional<banking::Bank> const& bank() const noexcept { return bank_; }

    bool isClosed() const;

    /// \return whether the person wants the bank removed
    bool isRemoved() const;

    /// \return the name as typed; none when nothing is typed
    std::optional<banking::BankName> tryBankName() const;

    /// \return the name as typed
    /// \throws DataEntryError when nothing is typed
    banking::BankName bankName() const;

    /// Takes what the form shows for the saved bank, with \a accounts, and is clean.
    ///
    /// \throws DataEntryError when the form has no name; nothing changes then
    void saved(std::map<accounting::AccountNumber, banking::BankAccountTypes> accounts);

    /// Shows why the bank could not be saved, and stays dirty.
    void showError(QString const& message);

    /// Is clean from here on, whatever is typed.
    void resetDirty();

public slots:
    void markDirty();

private:
    std::optional<banking::Bank> bank_;
    bool isDirty_ = false;
};
}
