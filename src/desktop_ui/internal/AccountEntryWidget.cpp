#include "internal/AccountEntryWidget.h"

#include "internal/ComboBoxes.h"
#include "internal/EntryForms.h"
#include "internal/ParentNumbersModel.h"

#include <QDebug>
#include <QFormLayout>
#include <QIntValidator>

#include <limits>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::AccountNumber;
using accounting::AccountTypes;
using banking::BankAccountTypes;
using fiscora::Currency;
using foundation::QtPtr;
using navigation::CurrencyDisplayOptions;

namespace {

QString const& newAccountText()
{
    static auto const text = AccountEntryWidget::tr("New Account");
    return text;
}

QString const& noNumberText()
{
    static auto const text = presentationText(AccountNumber());
    return text;
}

AccountNumber numberOf(std::optional<AccountCode> const& code)
{
    return code.value_or(AccountCode()).number();
}

/// Lets a person type what number() reads: neither groups of digits nor digits of another script.
QLocale plainDigits()
{
    auto locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return locale;
}
}

AccountEntryWidget::AccountEntryWidget(ParentNumbers const& numbers, std::optional<AccountCode> code, bool closed,
                                       std::optional<AccountTypes> type, fiscora::Money const& balance,
                                       std::set<Currency> const& usable, CurrencyDisplayOptions const& displayAs,
                                       std::optional<BankAccountTypes> bankType, QtPtr<QWidget> const& parent)
    : QWidget(parent.get()),
      code_(std::move(code)),
      wasClosed_(closed),
      parents_(new ParentNumbersModel(numbers, numberOf(code_), this))
{
    setupUi(this);
    putLabelsAbove(*this);
    offerTypes();
    offerParents();
    restrictNumber();
    showTypes(type, bankType);
    setUsableCurrencies(usable, displayAs);
    balanceMnyntrywdgt->setAmount(balance);
    closedChckbx->setChecked(closed);
    if (code_) {
        showCode();
        fixWhatIsKnown();
    } else {
        balanceMnyntrywdgt->setLabel(tr("Opening Balance:"));
    }
    join();
}

AccountEntryWidget::AccountEntryWidget(std::optional<AccountCode> code, bool closed, std::optional<AccountTypes> type,
                                       fiscora::Money const& balance, std::set<AccountNumber> const& numbers,
                                       std::set<Currency> const& usable, CurrencyDisplayOptions const& displayAs,
                                       std::optional<BankAccountTypes> bankType, QtPtr<QWidget> const& parent)
    : AccountEntryWidget(ParentNumbers(numbers), std::move(code), closed, type, balance, usable, displayAs, bankType,
                         parent)
{}

AccountEntryWidget::AccountEntryWidget(std::optional<AccountCode> code, bool closed, AccountTypes type,
                                       fiscora::Money const& balance, std::set<AccountNumber> const& numbers,
                                       std::set<Currency> const& usable, CurrencyDisplayOptions const& displayAs,
                                       QtPtr<QWidget> const& parent)
    : AccountEntryWidget(std::move(code), closed, std::optional(type), balance, numbers, usable, displayAs,
                         std::nullopt, parent)
{}

AccountEntryWidget::AccountEntryWidget(QtPtr<QWidget> const& parent)
    : AccountEntryWidget(std::nullopt, false, AccountTypes{}, fiscora::Money(), {}, {},
                         CurrencyDisplayOptions::NameAndCode, BankAccountTypes{}, parent)
{}

AccountEntryWidget::~AccountEntryWidget()
{
    stopListening(*this);
}

void AccountEntryWidget::offerTypes()
{
    for (auto const value : {0, 1, 5, 2, 3, 4}) {
        bankTypeCmbbx->addItem(presentationText(static_cast<BankAccountTypes>(value)));
    }
    for (auto const value : {0, 1, 2, 3, 4, 5}) {
        ledgerTypeCmbbx->addItem(presentationText(static_cast<AccountTypes>(value)));
    }
}

void AccountEntryWidget::offerParents()
{
    settleSize(*parentCmbbx, ParentNumbersModel::noParentText());
    parentCmbbx->setModel(parents_.get());
}

void AccountEntryWidget::restrictNumber()
{
    auto* const validator = new QIntValidator(this);
    validator->setBottom(0);
    validator->setLocale(plainDigits());
    numberLndt->setValidator(validator);
}

void AccountEntryWidget::showTypes(std::optional<AccountTypes> const& type,
                                   std::optional<BankAccountTypes> const& bankType)
{
    if (type) {
        ledgerTypeCmbbx->setCurrentText(presentationText(*type));
    }
    ledgerTypeLbl->setVisible(type.has_value());
    ledgerTypeCmbbx->setVisible(type.has_value());
    if (bankType) {
        bankTypeCmbbx->setCurrentText(presentationText(*bankType));
    }
    for (auto* const part : std::initializer_list<QWidget*>{bankTypeLbl, bankTypeCmbbx}) {
        part->setVisible(bankType.has_value());
    }
    for (auto* const part : std::initializer_list<QWidget*>{numberLbl, numberLndt, parentLbl, parentCmbbx}) {
        part->setVisible(!bankType);
    }
}

void AccountEntryWidget::showCode()
{
    if (code_->parent()) {
        parentCmbbx->setCurrentIndex(parents_->rowOf(*code_->parent()));
    }
    numberLndt->setText(presentationText(code_->number()));
    nameLndt->setText(code_->name());
}

/// What the ledger knows of an account can't be given to it anew.
void AccountEntryWidget::fixWhatIsKnown()
{
    numberLndt->setReadOnly(true);
    balanceMnyntrywdgt->setLabel(tr("Running Balance:"));
    balanceMnyntrywdgt->setReadOnly(true);
    ledgerTypeCmbbx->setEnabled(false);
    bankTypeCmbbx->setEnabled(false);
}

void AccountEntryWidget::join()
{
    for (auto* const box : {ledgerTypeCmbbx, bankTypeCmbbx, parentCmbbx}) {
        connect(box, &QComboBox::currentIndexChanged, this, &AccountEntryWidget::markDirty);
    }
    for (auto* const field : {numberLndt, nameLndt}) {
        connect(field, &QLineEdit::editingFinished, this, &AccountEntryWidget::markDirty);
    }
    // A number that is too long is kept to itself by its field.
    connect(numberLndt, &QLineEdit::textEdited, this, [this] {
        if (numberErrorMessage()) {
            markDirty();
        }
    });
    connect(balanceMnyntrywdgt, &MoneyEntryWidget::editingFinished, this, &AccountEntryWidget::markDirty);
    connect(balanceMnyntrywdgt, &MoneyEntryWidget::currentIndexChanged, this, &AccountEntryWidget::markDirty);
    for (auto* const box : {closedChckbx, removeChckbx}) {
        connect(box, &QCheckBox::stateChanged, this, &AccountEntryWidget::markDirty);
    }
}

QString const& AccountEntryWidget::newEntryText()
{
    static auto const text = noNumberText() + AccountCode::separator_ + newAccountText();
    return text;
}

unsigned int AccountEntryWidget::number() const
{
    constexpr auto base = 10;
    auto isNumber = false;
    auto const typed = numberLndt->text().toULongLong(&isNumber, base);
    return isNumber ? static_cast<unsigned int>(typed) : AccountNumber::invalid_;
}

std::optional<QString> AccountEntryWidget::numberErrorMessage() const
{
    constexpr auto base = 10;
    auto const text = numberLndt->text();
    auto isNumber = false;
    auto const typed = text.toULongLong(&isNumber, base);
    if (text.isEmpty() || (isNumber && typed <= std::numeric_limits<unsigned int>::max())) {
        return std::nullopt;
    }
    return tr("An account can't have the number %1. Type one of at most nine digits.").arg(text);
}

QString AccountEntryWidget::name() const
{
    return nameLndt->text();
}

std::optional<unsigned int> AccountEntryWidget::parent() const
{
    constexpr auto base = 10;
    auto const text = parentCmbbx->currentText();
    if (text == ParentNumbersModel::noParentText()) {
        return std::nullopt;
    }
    auto isNumber = false;
    auto const number = text.toUInt(&isNumber, base);
    return isNumber ? number : AccountNumber::invalid_;
}

fiscora::Money AccountEntryWidget::balance() const
{
    return balanceMnyntrywdgt->amount();
}

void AccountEntryWidget::setUsableCurrencies(std::set<Currency> const& usable, CurrencyDisplayOptions const& displayAs)
{
    balanceMnyntrywdgt->setUsableCurrencies(usable, displayAs);
}

QString AccountEntryWidget::ledgerType() const
{
    return ledgerTypeCmbbx->currentText();
}

std::optional<BankAccountTypes> AccountEntryWidget::bankType() const
{
    auto const type = banking::toBankAccountTypes(bankTypeCmbbx->currentText());
    return type == BankAccountTypes::Unspecified ? std::nullopt : std::optional(type);
}

bool AccountEntryWidget::isClosed() const
{
    return closedChckbx->isChecked();
}

bool AccountEntryWidget::isRemoved() const
{
    return removeChckbx->isChecked();
}

bool AccountEntryWidget::isEmpty() const
{
    return numberLndt->text().isEmpty() && nameLndt->text().isEmpty();
}

QString AccountEntryWidget::displayText() const
{
    auto const typed = name();
    return presentationText(AccountNumber(number())) + AccountCode::separator_ +
           (typed.isEmpty() ? newAccountText() : typed);
}

void AccountEntryWidget::addParentNumber(AccountNumber const& n)
{
    // A view tells every form each number again and again, so what is cheap to see comes first.
    if (offersParent(n)) {
        return;
    }
    auto const isOwn = (code_ && *code_ == n) || n.integer() == number();
    if (!isOwn) {
        parents_->add(n);
    }
}

bool AccountEntryWidget::offersParent(AccountNumber const& n) const
{
    return parents_->rowOf(n) != ParentNumbersModel::noParentRow;
}

void AccountEntryWidget::hideClosed()
{
    closedChckbx->hide();
}

void AccountEntryWidget::hideRemove()
{
    removeChckbx->hide();
}

void AccountEntryWidget::setEditable(bool isEditable)
{
    for (auto* const part :
         std::initializer_list<QWidget*>{ledgerTypeCmbbx, bankTypeCmbbx, parentCmbbx, closedChckbx, removeChckbx}) {
        part->setEnabled(isEditable);
    }
    numberLndt->setReadOnly(!isEditable);
    nameLndt->setReadOnly(!isEditable);
    balanceMnyntrywdgt->setReadOnly(!isEditable);
    isEditable_ = isEditable;
}

void AccountEntryWidget::saved(AccountCode code)
{
    code_ = std::move(code);
    numberLndt->setText(presentationText(code_->number()));
    fixWhatIsKnown();
    errorWdgt->showMessage(std::nullopt);
    resetDirty();
}

void AccountEntryWidget::showError(QString const& message)
{
    errorWdgt->showMessage(message);
    markDirty();
}

void AccountEntryWidget::resetDirty()
{
    qInfo() << "Resetting the dirty flag for" << name();
    isDirty_ = false;
}

void AccountEntryWidget::markDirty()
{
    if (isEditable_ && !isDirty_) {
        qInfo() << "Marking as dirty account entry #" << numberOf(code_).integer();
        isDirty_ = true;
    }
}
}
