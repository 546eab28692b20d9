#include "tlm/desktop_ui/CurrencyComboBox.h"

#include "internal/ComboBoxes.h"
#include "internal/Shared.h"
#include "internal/TextListModel.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tuple>
#include <utility>

namespace tlm::desktop_ui {

using fiscora::Currency;
using navigation::CurrencyDisplayOptions;

namespace {

constexpr int blankRow = 0;
}

/// Which currencies a list offers, and their texts from the blank one on.
struct CurrencyComboBox::Offer
{
    using Key = std::pair<std::set<Currency>, CurrencyDisplayOptions>;

    explicit Offer(Key const& key) : usable(key.first), displayAs(key.second)
    {
        texts.append(QString());
        for (auto const code : usable) {
            texts.append(toDisplayable(code, displayAs));
        }
    }

    Currency read(QString const& text) const { return toCurrencyFromDisplayable(text, usable, displayAs); }

    /// To measure a box is to measure each of its texts, so a box like the one that was measured last isn't measured again.
    template <typename Measure>
    QSize sizeOf(CurrencyComboBox const& box, Measure const& measure) const
    {
        auto const look = std::tuple(box.font(), box.style(), box.count(), box.minimumContentsLength(), box.iconSize(),
                                     box.hasFrame(), box.sizeAdjustPolicy());
        if (look != measuredLook) {
            measuredSize = measure();
            measuredLook = look;
        }
        return measuredSize;
    }

    std::set<Currency> usable;
    CurrencyDisplayOptions displayAs;
    QStringList texts;

private:
    mutable std::tuple<QFont, QStyle const*, int, int, QSize, bool, SizeAdjustPolicy> measuredLook;
    mutable QSize measuredSize;
};

CurrencyComboBox::CurrencyComboBox(foundation::QtPtr<QWidget> const& parent)
    : QComboBox(parent.get()), offer_(internal::shared<Offer>(Offer::Key()))
{}

void CurrencyComboBox::populateUsableCurrencies(std::set<Currency> const& usable,
                                                CurrencyDisplayOptions const& displayAs)
{
    clear();
    offer_ = internal::shared<Offer>(Offer::Key(usable, displayAs));
    internal::appendTexts(*this, offer_->texts);
    if (usable.size() == 1) {
        setCurrentIndex(blankRow + 1);
    }
}

Currency CurrencyComboBox::currentCode() const
{
    try {
        return offer_->read(currentText());
    } catch (std::exception const& cause) {
        throw DataEntryError(tr("currency"), currentText(), tr("The country code is not supported or known."), cause);
    }
}

std::set<Currency> CurrencyComboBox::currencies() const
{
    std::set<Currency> offered;
    for (auto row = 0; row < count(); ++row) {
        if (auto const text = itemText(row); !text.isEmpty()) {
            offered.insert(offer_->read(text));
        }
    }
    return offered;
}

QSize CurrencyComboBox::sizeHint() const
{
    return offer_->sizeOf(*this, [this] { return QComboBox::sizeHint(); });
}

void CurrencyComboBox::showPopup()
{
    internal::makeRoomForItems(*this);
    QComboBox::showPopup();
}

void CurrencyComboBox::setCurrentCode(Currency code)
{
    if (code == Currency::XXX) {
        setCurrentIndex(blankRow);
    } else {
        setCurrentText(toDisplayable(code, offer_->displayAs));
    }
}
}
