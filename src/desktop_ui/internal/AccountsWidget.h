#pragma once

#include "internal/AccountRows.h"
#include "internal/ParentNumbers.h"
#include "ui_AccountsWdgt.h"

#include <fiscora/Currency.h>
#include <tlm/accounting/Account.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/foundation/ScopeExecutor.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QString>
#include <QWidget>

#include <map>
#include <optional>
#include <set>
#include <vector>

class QAbstractButton;
class QListWidgetItem;
class QPushButton;

namespace tlm::desktop_ui::internal {

/// Edits the chart of accounts: a sorted list of codes, and the form of the one that is chosen there.
///
/// Save sends each changed form on its own, and each is answered on its own, within the emission or later. The view closes
/// once nothing is left to save. Whatever a receiver does meanwhile, even to end the view at once, is fine.
class AccountsWidget : public QWidget, private Ui::AccountsWdgt
{
    Q_OBJECT

public:
    /// \param accounts each has a form, or one blank form stands for none
    /// \param usable currencies that a balance may be entered in
    AccountsWidget(std::set<accounting::Account> const& accounts, std::set<fiscora::Currency> usable,
                   navigation::CurrencyDisplayOptions const& displayAs, foundation::QtPtr<QWidget> const& parent);
    ~AccountsWidget() override;

signals:
    void closing();
    void removed(tlm::accounting::AccountCode const& ac);
    void added(tlm::accounting::Account const& a);
    void closed(tlm::accounting::AccountCode const& ac);
    void opened(tlm::accounting::AccountCode const& ac);
    /// \param changed differs in number, name or parent
    void recoded(tlm::accounting::AccountCode const& current, tlm::accounting::AccountCode const& changed);

public slots:
    void accountSelectionChanged(tlm::foundation::QtPtr<QListWidgetItem> const& current,
                                 tlm::foundation::QtPtr<QListWidgetItem> const& previous);

    /// Tells that it closes, and ends. It hides QWidget::close().
    bool close();

    /// An account that no form shows ends the program.
    void onSaveSucceeded(tlm::accounting::AccountCode const& ac);

    /// \param errorMessage is shown in the form. An account that no form shows ends the program.
    void onSaveFailed(std::optional<tlm::accounting::AccountCode> const& original, QString const& errorMessage,
                      std::optional<tlm::accounting::AccountCode> const& displayed);

private slots:
    void onClicked(tlm::foundation::QtPtr<QAbstractButton> const& button);

private:
    using Form = foundation::QtPtr<AccountEntryWidget>;

    /// The form that is being sent, which answers inside the emission are about, most likely.
    struct Sending
    {
        Form form;
        bool isUnderWay = false; ///< more of it is to be sent yet
        std::optional<QString> refusal;
    };

    struct Shown;

    Form addEntry(std::optional<accounting::Account> const& account, ParentNumbers const& numbers);
    void addNewEntry();
    void leadTabFromListToForms();

    void displayAccount(foundation::QtPtr<QListWidgetItem> const& item);
    Form displayed() const;
    void followTyping(Form const& form);
    void offerParent(accounting::AccountNumber const& number);

    bool anyAccountDirty() const;
    foundation::ScopeExecutor holdLayout();
    void finishEditing();
    void save();
    bool trySave(Form const& form);
    void save(Form const& form, Shown const& shown);
    void takeBack(Form const& form, Shown const& shown);
    std::vector<AccountChange> changesOf(Form const& form, Shown const& shown) const;
    void send(Form const& form, Shown const& shown, AccountChange change);
    template <typename... Records>
    void tell(Form const& form, Shown const& shown, AccountChange change,
              void (AccountsWidget::*signal)(Records const&...), Records const&... records);

    template <typename Distance>
    Form locate(Distance const& distanceOf) const;
    static void logRefusal(std::optional<accounting::AccountCode> const& original,
                           std::optional<accounting::AccountCode> const& displayed, QString const& errorMessage);
    void refuse(Form const& form, QString const& errorMessage);
    void removeOnceAnswered(Form const& form);
    void removeEntry(Form const& form);
    void removeRow(foundation::QtPtr<QListWidgetItem> const& item);

    std::set<accounting::AccountNumber> numbers_;
    std::set<fiscora::Currency> usable_;
    navigation::CurrencyDisplayOptions displayAs_;
    foundation::QtPtr<QPushButton> addBttn_;
    AccountRows rows_;
    Form shown_;                                                      ///< where displayed() looks first
    std::map<accounting::AccountNumber, std::vector<Form>> withheld_; ///< whose own a known number is
    Sending sending_;
};
}
