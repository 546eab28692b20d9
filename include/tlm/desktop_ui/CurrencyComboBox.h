#pragma once

#include <fiscora/Currency.h>
#include <tlm/desktop_ui/Export.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QComboBox>

#include <memory>
#include <set>

namespace tlm::desktop_ui {

/// Lets a person pick one of the usable currencies, or none by the blank item on top.
class TLM_DESKTOP_UI_EXPORT CurrencyComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// Makes an empty list; no currency is usable yet.
    explicit CurrencyComboBox(foundation::QtPtr<QWidget> const& parent);

    /// Offers a blank item and \a usable in ascending order, in place of what was offered.
    ///
    /// The blank item becomes the current one, but a lone currency is selected at once. The box tells its changes of index
    /// on the way.
    void populateUsableCurrencies(std::set<fiscora::Currency> const& usable,
                                  navigation::CurrencyDisplayOptions const& displayAs);

    /// \return the selected currency, 999 on the blank item and in an empty list
    /// \throws DataEntryError when the current text is none of a usable currency
    fiscora::Currency currentCode() const;

    /// \return what the list offers, without the blank item; may be empty
    std::set<fiscora::Currency> currencies() const;

    QSize sizeHint() const override;

    /// Opens the list wide enough for its longest text.
    void showPopup() override;

public slots:
    /// Selects \a code, or the blank item for 999. A currency that isn't on offer leaves the selection as it was.
    void setCurrentCode(fiscora::Currency code);

private:
    struct Offer;

    std::shared_ptr<Offer const> offer_; ///< shared by all lists that offer the same
};
}
