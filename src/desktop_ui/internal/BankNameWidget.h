#pragma once

#include "ui_BankNameWdgt.h"

#include <tlm/banking/BankName.h>
#include <tlm/foundation/QtPtr.h>

#include <QString>
#include <QWidget>

#include <optional>

namespace tlm::desktop_ui::internal {

/// Edits the name of a bank.
class BankNameWidget : public QWidget, private Ui::BankNameWdgt
{
    Q_OBJECT

public:
    /// Starts without a name.
    explicit BankNameWidget(foundation::QtPtr<QWidget> const& parent);

    /// \return what stands for the name of a bank that has none yet, in the language at its first use
    static QString const& newBankText();

    void setBankName(banking::BankName const& name);

    /// \return the name as typed, blanks included; none when nothing is typed
    std::optional<banking::BankName> tryBankName() const;

    /// \return the name as typed, blanks included
    /// \throws DataEntryError when nothing is typed
    banking::BankName bankName() const;

signals:
    /// The person has finished typing the name.
    void editingFinished();
};
}
