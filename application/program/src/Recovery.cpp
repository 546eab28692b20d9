#include <presenter/Messages.h>
#include <presenter/Session.h>
#include <program/Recovery.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace tallymere::program {

namespace {

enum class Choice
{
    Recover,
    Discard,
    Later
};

QString translated(char const* text)
{
    return QCoreApplication::translate("Recovery", text);
}

QString nameOf(storage::Orphan const& orphan)
{
    return orphan.filePathName.isEmpty()
               ? translated("a new budget that has no file yet")
               : QLatin1Char('\'') + QFileInfo(orphan.filePathName).fileName() + QLatin1Char('\'');
}

Choice ask(QWidget& window, storage::Orphan const& orphan)
{
    QMessageBox box(QMessageBox::Question, translated("Recover Unsaved Changes"),
                    translated("Tallymere ended before the last changes to %1 were saved. They were made on %2 and can "
                               "be recovered.")
                        .arg(nameOf(orphan), QLocale().toString(orphan.changedOn, QLocale::LongFormat)),
                    QMessageBox::NoButton, &window);
    box.setTextFormat(Qt::PlainText);
    auto const* const recover = box.addButton(translated("&Recover"), QMessageBox::AcceptRole);
    auto const* const discard = box.addButton(translated("&Discard"), QMessageBox::DestructiveRole);
    auto* const later = box.addButton(translated("Ask Me &Later"), QMessageBox::RejectRole);
    box.setEscapeButton(later);
    box.exec();
    if (box.clickedButton() == recover) {
        return Choice::Recover;
    }
    return box.clickedButton() == discard ? Choice::Discard : Choice::Later;
}

bool recover(QWidget& window, presenter::Session& session, storage::Orphan const& orphan)
{
    try {
        session.recover(orphan);
    } catch (std::exception const& failure) {
        presenter::tellFailure(window, translated("Recover Unsaved Changes"), QString::fromUtf8(failure.what()));
        return false;
    }
    return true;
}
}

bool offerRecovery(QWidget& window, presenter::Session& session)
{
    auto orphans = storage::Document::orphans(session.places());
    std::ranges::sort(orphans, std::ranges::greater(), &storage::Orphan::changedOn);
    for (auto const& orphan : orphans) {
        auto const choice = ask(window, orphan);
        if (choice == Choice::Recover && recover(window, session, orphan)) {
            return true;
        }
        if (choice == Choice::Discard) {
            storage::Document::discard(orphan);
        }
    }
    return false;
}
}
