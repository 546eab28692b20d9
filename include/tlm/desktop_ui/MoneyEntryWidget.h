#pragma once

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/desktop_ui/Export.h>
#include <tlm/desktop_ui/MoneyAmountValidator.h>
#include <tlm/desktop_ui/ui_MoneyEntryWidget.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QString>
#include <QWidget>

#include <optional>
#include <set>

namespace tlm::desktop_ui {

/// Lets a person type an amount of money and pick its currency. The one place where text becomes money.
///
/// The decimal point is that of the default locale when the process reads its first amount. A
/// details::MoneyAmountValidator keeps signs out of the field that are no part of an amount.
class TLM_DESKTOP_UI_EXPORT MoneyEntryWidget : public QWidget, private Ui::MoneyEntryWidget
{
    Q_OBJECT

public:
    /// Shows the empty money; no currency is usable yet.
    explicit MoneyEntryWidget(foundation::QtPtr<QWidget> const& parent);
    ~MoneyEntryWidget() override;

    /// \return what is entered; the empty money for an empty amount without a currency
    /// \throws DataEntryError when the entry isn't an amount of the selected currency
    fiscora::Money amount() const;

    /// \return amount(), none where that throws
    std::optional<fiscora::Money> tryAmount() const;

    /// \return why amount() throws, none where it doesn't
    std::optional<QString> amountErrorMessage() const;

    /// \return the amount to the letter as it was typed
    QString textAmount() const;

    /// Shows \a m and tells it. A currency that isn't on offer leaves the selection as it was.
    void setAmount(fiscora::Money const& m);

    /// Shows the empty money.
    void clear();

    /// Throws as CurrencyComboBox::currentCode() does.
    fiscora::Currency code() const;

    /// \return what can be selected
    std::set<fiscora::Currency> currencies() const;

    /// Offers \a usable and a blank item; a lone currency is selected at once.
    void setUsableCurrencies(std::set<fiscora::Currency> const& usable,
                             navigation::CurrencyDisplayOptions const& displayAs);

    /// Offers \a code alone, and selects it.
    void setUsableCurrency(fiscora::Currency const& code, navigation::CurrencyDisplayOptions const& displayAs);

    void showCodes();

    /// Hides the currency, which stays in force.
    void hideCodes();

    void enableCurrencySelection();
    void disableCurrencySelection();

    /// Lets the amount be selected but not changed, and the currency not be changed at all.
    ///
    /// \param isReadOnly false enables the selection of the currency, even where it was disabled before
    void setReadOnly(bool isReadOnly);
    bool isReadOnly() const;

    void setLabel(QString const& text);
    void showLabel(bool isShown);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The person is done with the amount.
    void editingFinished();

    /// The selected currency changed, to the item \a index or to none at -1.
    void currentIndexChanged(int index);

    /// \param m what is entered now, the empty money where that is no amount
    void moneyChanged(fiscora::Money m);

public slots:
    /// Selects the currency of the item \a index, none for a negative one.
    /// \throws foundation::Error when there are not as many
    void setCurrentIndex(int index);

private slots:
    void setAmountValidator();

private:
    bool isUnheardEnd(QEvent const& event) const;
    void tellChangedAmount();
    void tellChangedCurrency();

    /// Tells the money that \a read gives, the empty money where it can't, which is logged as \a failure.
    template <typename Read>
    void tell(Read const& read, char const* failure);

    bool isReadOnlyEntry_ = false;
};
}
