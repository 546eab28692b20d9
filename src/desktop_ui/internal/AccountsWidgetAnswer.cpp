#include "internal/AccountEntryWidget.h"
#include "internal/AccountReplies.h"
#include "internal/AccountsWidget.h"

#include <QDebug>

#include <algorithm>
#include <memory>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using foundation::QtPtr;

void AccountsWidget::logRefusal(std::optional<AccountCode> const& original, std::optional<AccountCode> const& displayed,
                                QString const& errorMessage)
{
    qWarning() << "Failed to save an account entry, Original Code" << presentationText(original.value_or(AccountCode()))
               << "Displayed Code" << presentationText(displayed.value_or(AccountCode())) << errorMessage;
}

/// \return the form that is being sent if it is near at all, else AccountRows::nearest()
template <typename Distance>
auto AccountsWidget::locate(Distance const& distanceOf) const -> Form
{
    auto const& sent = sending_.form;
    auto const isMeant = rows_.contains(sent.get()) && distanceOf(*sent).has_value();
    return isMeant ? sent : Form(rows_.nearest(distanceOf));
}

void AccountsWidget::onSaveSucceeded(AccountCode const& ac)
{
    auto const code = ac; // which may be the form's own
    qInfo() << "Succeeded to save" << presentationText(code);
    auto const form = locate([&](auto const& sentOrShown) { return distance(sentOrShown, code); });
    if (!form) {
        qFatal("Failed to locate the account that succeeded to be saved.");
    }
    auto const change = rows_.answer(*form, true).value_or(AccountChange::Remove);
    form->saved(code);
    if (form == sending_.form && sending_.refusal) {
        form->showError(*sending_.refusal); // for what is accepted later doesn't make up for it
    }
    if (form->isRemoved() && change == AccountChange::Remove) {
        rows_.leave(*form);
    }
    removeOnceAnswered(form);
    qInfo() << "Checking if everything is saved.";
    if (!anyAccountDirty()) {
        close();
    }
}

void AccountsWidget::onSaveFailed(std::optional<AccountCode> const& original, QString const& errorMessage,
                                  std::optional<AccountCode> const& displayed)
{
    logRefusal(original, displayed, errorMessage);
    auto form = locate([&](auto const& sentOrShown) { return distance(sentOrShown, original, displayed); });
    auto const namesNothing = !original && displayed.value_or(AccountCode()) == AccountCode();
    if (namesNothing && rows_.contains(sending_.form.get()) && !sending_.form->code()) {
        form = sending_.form; // a new account that made no code
    }
    if (!form) {
        qFatal("Failed to located the widget entry which had the error.");
    }
    rows_.answer(*form, false);
    if (rows_.isLeaving(*form)) {
        removeOnceAnswered(form);
        return;
    }
    if (form == sending_.form) {
        sending_.refusal = errorMessage;
    }
    refuse(form, errorMessage);
}

void AccountsWidget::refuse(Form const& form, QString const& errorMessage)
{
    form->showError(errorMessage);
    accountCodesLstwdgt->setCurrentItem(rows_.itemOf(form.get()));
}

/// A form whose account is gone stays as long as answers to it are to come.
void AccountsWidget::removeOnceAnswered(Form const& form)
{
    if (rows_.isLeaving(*form) && rows_.countAwaited(*form) == 0) {
        removeEntry(form);
    }
}

void AccountsWidget::removeEntry(Form const& form)
{
    auto const& list = *accountCodesLstwdgt;
    QtPtr<QListWidgetItem> const item = rows_.itemOf(form.get());
    auto const wasCurrent = item == list.currentItem();
    auto const row = list.row(item.get());
    removeRow(item);
    rows_.remove(*form);
    form->hide();
    form->deleteLater();
    if (wasCurrent) {
        accountCodesLstwdgt->setCurrentRow(std::min(row, list.count() - 1));
    }
}

void AccountsWidget::removeRow(QtPtr<QListWidgetItem> const& item)
{
    if (item == accountCodesLstwdgt->currentItem()) {
        // Ahead of taking it: what was typed into its form may move it in the list.
        accountCodesLstwdgt->setCurrentRow(-1);
    }
    std::unique_ptr<QListWidgetItem> const taken(accountCodesLstwdgt->takeItem(accountCodesLstwdgt->row(item.get())));
    if (!taken) {
        qFatal("Failed to locate the account code to remove.");
    }
    qInfo() << "Removing" << taken->text() << "from the account list.";
}
}
