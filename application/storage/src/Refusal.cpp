#include "Refusal.h"

#include "FileLock.h"
#include "UnsoundBudget.h"
#include "WorkingFiles.h"

#include <storage/DocumentError.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <SQLiteCpp/Exception.h>
#include <algorithm>
#include <cerrno>
#include <sqlite3.h>
#include <string_view>
#include <system_error>

namespace tallymere::storage {

namespace {

/// Why something failed, and what to do about it where that isn't up to the deed.
struct Reason
{
    QString why;
    QString remedy = {};
};

QString tr(char const* text)
{
    return QCoreApplication::translate("Refusal", text);
}

/// \return the file's name for a sentence, in which a line break would tear it apart
QString shown(QString const& filePathName)
{
    auto name = QFileInfo(filePathName).fileName();
    if (name.isEmpty()) {
        name = filePathName;
    }
    std::ranges::replace_if(
        name, [](QChar character) { return character.category() == QChar::Other_Control; }, QLatin1Char(' '));
    return name;
}

QString whatFailed(Deed deed, QString const& filePathName)
{
    switch (deed) {
    case Deed::Begin:
        return tr("A new budget can't be begun");
    case Deed::Open:
        return tr("'%1' can't be opened").arg(shown(filePathName));
    case Deed::Change:
        return tr("The change can't be kept");
    case Deed::Read:
        return tr("The budget can't be read");
    case Deed::Save:
        return tr("'%1' can't be saved").arg(shown(filePathName));
    case Deed::Recover:
        break;
    }
    return filePathName.isEmpty() ? tr("The unsaved budget can't be recovered")
                                  : tr("The unsaved changes to '%1' can't be recovered").arg(shown(filePathName));
}

QString remedyFor(Deed deed)
{
    switch (deed) {
    case Deed::Open:
        return tr("Choose another file.");
    case Deed::Save:
        return tr("Nothing is lost: choose another name or folder with Save As.");
    case Deed::Recover:
        return tr("Nothing was removed: try again later.");
    case Deed::Begin:
    case Deed::Change:
    case Deed::Read:
        break;
    }
    return tr("Save the budget under another name, or start Tallymere again.");
}

Reason diskIsFull()
{
    return {tr("the disk is full"), tr("Nothing is lost: make some room on it, then try again.")};
}

Reason inUse()
{
    return {tr("another program is writing to it"), tr("Close that program, then try again.")};
}

Reason damaged(QString const& backups)
{
    return {tr("it is damaged"), backups.isEmpty() ? tr("Go back to a copy of it, if you have one.")
                                                   : tr("Its last saves are kept in the folder '%1'.").arg(backups)};
}

Reason forbidden(Deed deed)
{
    return {deed == Deed::Open ? tr("you aren't allowed to read it")
                               : tr("you aren't allowed to write to it or to its folder")};
}

Reason missing(Deed deed)
{
    return deed == Deed::Open ? Reason{tr("it isn't there"), tr("See whether it was moved, renamed or deleted.")}
                              : Reason{tr("its folder isn't there")};
}

Reason reasonOf(int error, Deed deed)
{
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return diskIsFull();
    case EIO:
        return {tr("the disk reported a fault")};
    case EACCES:
    case EPERM:
        return forbidden(deed);
    case EROFS:
        return {tr("its disk can only be read")};
    case ENOENT:
        return missing(deed);
    case EISDIR:
        return {tr("it is a folder")};
    case ENODEV:
        return {tr("it is a device, a pipe or the like and not a file")};
    case ENOTDIR:
    case ELOOP:
        return {tr("its path leads nowhere")};
    case ENAMETOOLONG:
        return {tr("its name is too long")};
    case EILSEQ:
        return {tr("its name holds a character that no file name can have")};
    case EFBIG:
        return {tr("what is there is far larger than any budget")};
    case EBUSY:
        return inUse();
    default:
        return {qt_error_string(error)};
    }
}

Reason brokenRule()
{
    return {tr("it breaks a rule of budget files"), tr("Enter other values.")};
}

/// The database names the columns whose values must differ.
Reason takenTwice(SQLite::Exception const& failure)
{
    auto const isAbout = [what = std::string_view(failure.what())](char const* column) {
        return what.find(column) != std::string_view::npos;
    };
    if (isAbout("items.source_key")) {
        return {tr("an item of that name is planned already"), tr("Change that one, or give this one another name.")};
    }
    if (isAbout("accounts.number")) {
        return {tr("an account of that number is in the books already"), tr("Choose another number.")};
    }
    if (isAbout("banks.name_key")) {
        return {tr("there is a bank of that name already"), tr("Choose another name.")};
    }
    return brokenRule();
}

Reason reasonOf(SQLite::Exception const& failure, Deed deed, QString const& backups)
{
    if (failure.getExtendedErrorCode() == SQLITE_CONSTRAINT_UNIQUE) {
        return takenTwice(failure);
    }
    switch (failure.getErrorCode()) {
    case SQLITE_FULL:
        return diskIsFull();
    case SQLITE_IOERR:
        return reasonOf(EIO, deed);
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
        return {tr("the database can't be written")};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return inUse();
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
        return brokenRule();
    case SQLITE_TOOBIG:
        return deed == Deed::Change ? Reason{tr("a text in it is too long"), tr("Shorten that text.")}
                                    : damaged(backups);
    case SQLITE_NOMEM:
        return {tr("there is too little memory"), tr("Close other programs, then try again.")};
    default:
        return damaged(backups);
    }
}

Reason reasonOf(UnsoundBudget const& unsound, QString const& backups)
{
    switch (unsound.reason()) {
    case UnsoundBudget::Reason::Empty:
        return {tr("there is nothing in it")};
    case UnsoundBudget::Reason::Foreign:
        return {tr("it is no budget file")};
    case UnsoundBudget::Reason::Newer:
        return {tr("a newer Tallymere saved it"), tr("Update Tallymere, then open it again.")};
    case UnsoundBudget::Reason::TooLarge:
        return {tr("it is far larger than any budget")};
    case UnsoundBudget::Reason::Damaged:
        break;
    }
    return damaged(backups);
}

Reason reasonOf(FileLock::Held const& held)
{
    auto const& owner = held.owner();
    if (owner.process == QCoreApplication::applicationPid()) {
        return {tr("it is open here already"), tr("Close it first.")};
    }
    if (owner.process == 0) {
        return {tr("it is open in another program"), tr("Close it there first.")};
    }
    return {tr("it is open in %1 (process %2) on the computer '%3'")
                .arg(owner.program.isEmpty() ? tr("another program") : owner.program)
                .arg(owner.process)
                .arg(owner.host),
            tr("Close it there first. If that computer no longer has it open, remove the file '%1'.")
                .arg(QFile::decodeName(held.path()))};
}

/// What is wrong there is wrong with the program's own folder and not with the file.
Reason reasonOf(NoWorkingFolder const& failure)
{
    return {tr("the folder '%1', where unsaved work is kept, can't be used, since %2")
                .arg(QFile::decodeName(failure.folder()), reasonOf(failure.code().value(), Deed::Change).why),
            tr("See to that folder, then try again.")};
}

/// \return why the exception that is being handled was thrown; one that storage doesn't throw goes on
Reason presentReason(Deed deed, QString const& backups)
{
    try {
        throw;
    } catch (SQLite::Exception const& failure) {
        return reasonOf(failure, deed, backups);
    } catch (UnsoundBudget const& unsound) {
        return reasonOf(unsound, backups);
    } catch (FileLock::Held const& held) {
        return reasonOf(held);
    } catch (NoWorkingFolder const& failure) {
        return reasonOf(failure);
    } catch (std::system_error const& failure) {
        return reasonOf(failure.code().value(), deed);
    }
}
}

void refuse(Deed deed, QString const& filePathName, QString const& backups)
{
    try {
        throw;
    } catch (tlm::foundation::Error const&) {
        throw; // a sentence already
    } catch (std::exception const& cause) {
        auto const reason = presentReason(deed, backups);
        auto const remedy = reason.remedy.isEmpty() ? remedyFor(deed) : reason.remedy;
        throw DocumentError(tr("%1: %2. %3").arg(whatFailed(deed, filePathName), reason.why, remedy), cause);
    }
}
}
