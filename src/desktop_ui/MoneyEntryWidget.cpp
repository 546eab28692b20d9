#include "tlm/desktop_ui/MoneyEntryWidget.h"

#include "tlm/desktop_ui/DataEntryError.h"
#include "tlm/desktop_ui/MoneyAmountValidator.h"

#include <fiscora/MoneyParts.h>
#include <tlm/foundation/PresentationText.h>

#include <QDebug>
#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLocale>

namespace tlm::desktop_ui {

using fiscora::Currency;
using fiscora::Money;

namespace {

char decimalPoint()
{
    static auto const point = QLocale().decimalPoint().front().toLatin1();
    return point;
}

/// The currency reaches the parser as letters behind the amount.
Money toMoney(QString const& text, Currency const& code)
{
    auto const amount = text + foundation::presentationText(code);
    auto const parts = fiscora::split(amount.toStdString(), decimalPoint());
    return {parts.code(), parts.major(), parts.minorOnly().value_or(0), parts.subMinor()};
}

/// \return whether \a event would change the currency
bool isPick(QEvent const& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

/// \return whether \a event, sent to a line edit, tells that the person is done with it
bool isEnd(QEvent const& event)
{
    if (event.type() == QEvent::FocusOut) {
        return static_cast<QFocusEvent const&>(event).reason() != Qt::PopupFocusReason;
    }
    if (event.type() == QEvent::KeyPress) {
        auto const key = static_cast<QKeyEvent const&>(event).key();
        return key == Qt::Key_Return || key == Qt::Key_Enter;
    }
    return false;
}
}

MoneyEntryWidget::MoneyEntryWidget(foundation::QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setupUi(this);
    setUsableCurrencies({}, navigation::CurrencyDisplayOptions{});
    setAmount(Money());
    setAmountValidator();
    codeCmbbx->installEventFilter(this);
    amountLndt->installEventFilter(this);
    // In this order: listeners know that the person is done before they hear of the new money, which is told once the
    // validator is that of the new currency.
    connect(amountLndt, &QLineEdit::editingFinished, this, &MoneyEntryWidget::editingFinished);
    connect(amountLndt, &QLineEdit::editingFinished, this, &MoneyEntryWidget::tellChangedAmount);
    connect(codeCmbbx, &QComboBox::currentIndexChanged, this, &MoneyEntryWidget::currentIndexChanged);
    connect(codeCmbbx, &QComboBox::currentIndexChanged, this, &MoneyEntryWidget::setAmountValidator);
    connect(codeCmbbx, &QComboBox::currentIndexChanged, this, &MoneyEntryWidget::tellChangedCurrency);
}

MoneyEntryWidget::~MoneyEntryWidget()
{
    // The base hides what ends on screen, and a field that loses the focus by this tells that its editing ends.
    amountLndt->disconnect(this);
}

Money MoneyEntryWidget::amount() const
{
    try {
        auto const currency = codeCmbbx->currentCode();
        return toMoney(amountLndt->text(), currency);
    } catch (std::exception const& cause) {
        throw DataEntryError(tr("currency"), amountLndt->text(), tr("The amount or issued code is not valid."), cause);
    }
}

std::optional<Money> MoneyEntryWidget::tryAmount() const
{
    try {
        return amount();
    } catch (std::exception const&) {
        return std::nullopt;
    }
}

std::optional<QString> MoneyEntryWidget::amountErrorMessage() const
{
    try {
        amount();
        return std::nullopt;
    } catch (std::exception const& failure) {
        return QString(failure.what());
    }
}

QString MoneyEntryWidget::textAmount() const
{
    return amountLndt->text();
}

void MoneyEntryWidget::setAmount(Money const& m)
{
    qDebug() << "Setting money:" << m;
    amountLndt->setText(foundation::presentationText(m));
    amountLndt->setCursorPosition(0);
    codeCmbbx->setCurrentCode(m.code());
    emit moneyChanged(m);
}

void MoneyEntryWidget::clear()
{
    setAmount(Money());
}

Currency MoneyEntryWidget::code() const
{
    return codeCmbbx->currentCode();
}

std::set<Currency> MoneyEntryWidget::currencies() const
{
    return codeCmbbx->currencies();
}

void MoneyEntryWidget::setUsableCurrencies(std::set<Currency> const& usable,
                                           navigation::CurrencyDisplayOptions const& displayAs)
{
    codeCmbbx->populateUsableCurrencies(usable, displayAs);
}

void MoneyEntryWidget::setUsableCurrency(Currency const& code, navigation::CurrencyDisplayOptions const& displayAs)
{
    setUsableCurrencies({code}, displayAs);
}

void MoneyEntryWidget::showCodes()
{
    codeCmbbx->setVisible(true);
}

void MoneyEntryWidget::hideCodes()
{
    codeCmbbx->setVisible(false);
}

void MoneyEntryWidget::enableCurrencySelection()
{
    codeCmbbx->setEnabled(true);
}

void MoneyEntryWidget::disableCurrencySelection()
{
    codeCmbbx->setEnabled(false);
}

void MoneyEntryWidget::setReadOnly(bool isReadOnly)
{
    isReadOnlyEntry_ = isReadOnly;
    amountLndt->setReadOnly(isReadOnly);
    codeCmbbx->setEnabled(!isReadOnly);
}

bool MoneyEntryWidget::isReadOnly() const
{
    return isReadOnlyEntry_;
}

void MoneyEntryWidget::setLabel(QString const& text)
{
    amountLbl->setText(text);
}

void MoneyEntryWidget::showLabel(bool isShown)
{
    amountLbl->setVisible(isShown);
}

void MoneyEntryWidget::setCurrentIndex(int index)
{
    if (index >= codeCmbbx->count()) {
        throw foundation::Error(tr("The currency code index exceeds the number of available codes."));
    }
    codeCmbbx->setCurrentIndex(index);
}

void MoneyEntryWidget::setAmountValidator()
{
    qInfo() << "Adding new money amount validator." << codeCmbbx->currentText();
    amountLndt->setValidator(new details::MoneyAmountValidator(codeCmbbx->currentCode(), this));
}

bool MoneyEntryWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (isReadOnlyEntry_ && watched == codeCmbbx && isPick(*event)) {
        return true;
    }
    if (watched == amountLndt && isUnheardEnd(*event)) {
        amountLndt->setModified(false);
        emit amountLndt->editingFinished();
    }
    return QObject::eventFilter(watched, event);
}

/// A line edit keeps the end of its editing to itself while its text is intermediate. A form would go on counting the
/// amount that stood there before, although the field is empty, or ends in its decimal point.
bool MoneyEntryWidget::isUnheardEnd(QEvent const& event) const
{
    return isEnd(event) && amountLndt->isModified() && !amountLndt->hasAcceptableInput();
}

void MoneyEntryWidget::tellChangedAmount()
{
    auto const text = amountLndt->text();
    if (text.isEmpty()) {
        qInfo() << "The changed money value results in an empty amount.";
        emit moneyChanged(Money());
        return;
    }
    tell([&] { return toMoney(text, codeCmbbx->currentCode()); },
         "The changed money value does not create a valid money type.");
}

void MoneyEntryWidget::tellChangedCurrency()
{
    auto const read = [this] {
        auto const text = amountLndt->text();
        auto const currency = codeCmbbx->currentCode();
        if (currency == Currency::XXX || text.isEmpty()) {
            qInfo() << "The changed currency index results in an empty money amount.";
            return Money();
        }
        return toMoney(text, currency);
    };
    tell(read, "The changed currency index does not create a valid money type.");
}

template <typename Read>
void MoneyEntryWidget::tell(Read const& read, char const* failure)
{
    try {
        emit moneyChanged(read());
    } catch (std::exception const& cause) {
        qWarning() << failure << cause.what();
        emit moneyChanged(Money());
    }
}
}
