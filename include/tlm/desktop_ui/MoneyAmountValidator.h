#pragma once

#include <fiscora/Currency.h>
#include <tlm/desktop_ui/Export.h>
#include <tlm/foundation/QtPtr.h>

#include <QValidator>

namespace tlm::desktop_ui::details {

/// Keeps signs out of an amount field that can't be part of an amount in the default locale.
///
/// Whether the text is an amount of its currency is for `fiscora::split` to say.
class TLM_DESKTOP_UI_EXPORT MoneyAmountValidator : public QValidator
{
    Q_OBJECT

public:
    /// \param code the currency of the amount, for the log alone
    MoneyAmountValidator(fiscora::Currency const& code, foundation::QtPtr<QObject> parent);

    /// Makes each full stop in \a input the locale's decimal point, so that either may be typed.
    ///
    /// \return `Acceptable` for digits, minus signs and at most one decimal point; `Intermediate` while that point is the
    ///         sign typed last, and for no text; else `Invalid`
    State validate(QString& input, int& pos) const override;

private:
    fiscora::Currency code_;
};
}
