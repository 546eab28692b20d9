#include "storage/Document.h"

#include "BudgetFile.h"
#include "Refusal.h"
#include "WorkingCopy.h"

#include <QDebug>
#include <QFile>
#include <QFileInfo>

#include <limits>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

using tallymere::engine::BookAccount;
using tallymere::engine::BudgetContent;
using tallymere::engine::PlannedItem;
using tallymere::engine::Posting;
using tallymere::engine::PostingId;
using tallymere::engine::Settings;
using tlm::accounting::AccountNumber;
using tlm::banking::Bank;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::conversion::ConversionMap;

namespace tallymere::storage {

namespace {

QByteArray workingCopies(Places const& places)
{
    return QFile::encodeName(places.workingCopies);
}

QString backupsOf(Places const& places, QString const& filePathName)
{
    try {
        Backups const backups(places.backups, filesystem::resolved(filePathName));
        return backups.exist() ? QFile::decodeName(backups.folder()) : QString();
    } catch (std::system_error const& failure) {
        qInfo() << "Failed to look for backups:" << failure.what();
        return {};
    }
}

/// \return nothing when its folder has gone, with a disk that was unplugged perhaps: the work then needs a new name
std::unique_ptr<BudgetFile> fileIfReachable(Places const& places, QString const& filePathName)
{
    try {
        return std::make_unique<BudgetFile>(places, filePathName);
    } catch (std::system_error const& failure) {
        qInfo() << "Failed to reach the file of unsaved work:" << failure.what();
        return nullptr;
    }
}

Orphan orphanOf(WorkingFiles const& files)
{
    auto const path = QFile::decodeName(files.database());
    return {path, files.origin().filePathName, QFileInfo(path).lastModified()};
}

/// Removes a copy that holds nothing but what was saved.
/// \return whether it held more, as far as anyone can tell
bool holdsUnsavedWork(Places const& places, WorkingFiles files)
{
    try {
        auto const copy = WorkingCopy::ofOrphan(std::move(files));
        auto const origin = copy->origin();
        auto const digest = copy->digest();
        auto const isSaved =
            digest == origin.digest ||
            (!origin.filePathName.isEmpty() && digest == digestOfFile(workingCopies(places), origin.filePathName));
        if (isSaved) {
            copy->claim();
        }
        return !isSaved;
    } catch (std::exception const& failure) {
        qInfo() << "Failed to look into a working copy:" << failure.what();
        return true; // recovering it tells the person why not
    }
}

std::optional<Orphan> inspect(Places const& places, QByteArray const& database)
{
    auto files = WorkingFiles::take(database);
    if (!files.isComplete()) {
        files.remove();
        return std::nullopt;
    }
    auto const orphan = orphanOf(files);
    return holdsUnsavedWork(places, std::move(files)) ? std::optional(orphan) : std::nullopt;
}
}

Document::Document(Places places, std::unique_ptr<BudgetFile> file, std::unique_ptr<WorkingCopy> copy)
    : places_(std::move(places)), file_(std::move(file)), copy_(std::move(copy)), savedDigest_(copy_->origin().digest)
{}

Document::~Document() = default;

std::unique_ptr<Document> Document::create(Places const& places, BudgetContent const& content,
                                           std::vector<Posting> const& postings)
{
    return orRefuse(Deed::Begin, {}, [&] {
        auto copy = WorkingCopy::ofContent(workingCopies(places), content, postings);
        copy->write(Origin{{}, copy->digest()});
        return std::unique_ptr<Document>(new Document(places, nullptr, std::move(copy)));
    });
}

std::unique_ptr<Document> Document::open(Places const& places, QString const& filePathName)
{
    try {
        auto file = std::make_unique<BudgetFile>(places, filePathName);
        auto copy = file->read();
        copy->write(Origin{file->filePathName(), copy->digest()});
        return std::unique_ptr<Document>(new Document(places, std::move(file), std::move(copy)));
    } catch (...) {
        refuse(Deed::Open, filePathName, backupsOf(places, filePathName));
    }
}

std::unique_ptr<Document> Document::recover(Places const& places, Orphan const& orphan,
                                            std::function<void(Document&)> const& examine)
{
    return orRefuse(Deed::Recover, orphan.filePathName, [&] {
        auto copy = WorkingCopy::ofOrphan(WorkingFiles::take(QFile::encodeName(orphan.workingCopy)));
        auto file = orphan.filePathName.isEmpty() ? nullptr : fileIfReachable(places, orphan.filePathName);
        std::unique_ptr<Document> document(new Document(places, std::move(file), std::move(copy)));
        document->isRecovered_ = true;
        examine(*document);
        document->copy_->claim(); // last, since whatever fails before leaves the work where it is
        return document;
    });
}

std::vector<Orphan> Document::orphans(Places const& places)
{
    std::vector<Orphan> found;
    for (auto const& database : WorkingFiles::databasesIn(workingCopies(places))) {
        try {
            if (auto const orphan = inspect(places, database)) {
                found.push_back(*orphan);
            }
        } catch (FileLock::Held const&) {
            continue; // its program still runs
        } catch (std::system_error const& failure) {
            qWarning() << "Failed to look for unsaved work:" << failure.what();
        }
    }
    return found;
}

void Document::discard(Orphan const& orphan)
{
    try {
        WorkingFiles::take(QFile::encodeName(orphan.workingCopy)).remove();
    } catch (FileLock::Held const&) {
        qInfo() << "Another program has recovered the work that was to be discarded.";
    } catch (std::system_error const& failure) {
        qWarning() << "Failed to discard unsaved work:" << failure.what();
    }
}

BudgetContent Document::content() const
{
    return orRefuse(Deed::Read, {}, [this] { return copy_->content(); });
}

QString Document::filePathName() const
{
    return file_ ? file_->filePathName() : QString();
}

bool Document::isDirty() const
{
    return orRefuse(Deed::Read, {}, [this] {
        return isRecovered_ || (file_ ? !file_->holds(*copy_) : !copy_->hasDigest(savedDigest_));
    });
}

void Document::save()
{
    if (!file_) {
        throw DocumentError(tr("The budget has no file yet. Choose a name for it with Save As."));
    }
    orRefuse(Deed::Save, file_->filePathName(), [this] {
        file_->replace(*copy_);
        settle();
    });
}

void Document::saveAs(QString const& filePathName)
{
    orRefuse(Deed::Save, filePathName, [&] {
        if (file_ && filesystem::resolved(filePathName) == file_->path()) {
            file_->replace(*copy_);
        } else {
            moveTo(std::make_unique<BudgetFile>(places_, filePathName));
        }
        settle();
    });
}

void Document::moveTo(std::unique_ptr<BudgetFile> file)
{
    // Should the program crash before the file stands, the work is offered under the name that it was meant to get.
    copy_->write(Origin{file->filePathName(), savedDigest_});
    try {
        file->replace(*copy_);
    } catch (...) {
        writeOrigin();
        throw;
    }
    file_ = std::move(file);
}

void Document::settle()
{
    isRecovered_ = false;
    savedDigest_ = copy_->digest();
    writeOrigin();
}

/// Without it, a crash leaves work that is compared with the file itself, so that nothing is lost.
void Document::writeOrigin() const
{
    try {
        copy_->write(Origin{filePathName(), savedDigest_});
    } catch (std::system_error const& failure) {
        qWarning() << "Failed to note where a working copy belongs:" << failure.what();
    }
}

void Document::reload(std::function<void(BudgetContent const&)> const& examine)
{
    if (!file_) {
        throw std::logic_error("A budget without a file can't be read again.");
    }
    try {
        auto copy = file_->read();
        copy->write(Origin{file_->filePathName(), copy->digest()});
        examine(copy->content());
        copy_ = std::move(copy);
        savedDigest_ = copy_->digest();
        isRecovered_ = false;
    } catch (...) {
        refuse(Deed::Open, filePathName(), backupsOf(places_, filePathName()));
    }
}

void Document::transact(std::function<void()> const& changes)
{
    if (copy_->isInTransaction()) {
        throw std::logic_error("A transaction can't begin within another.");
    }
    orRefuse(Deed::Change, {}, [this] { copy_->begin(); });
    try {
        changes();
        orRefuse(Deed::Change, {}, [this] { copy_->commit(); });
    } catch (...) {
        copy_->rollBack();
        throw;
    }
}

void Document::requireTransaction() const
{
    if (!copy_->isInTransaction()) {
        throw std::logic_error("A change needs a transaction.");
    }
}

template <typename Change>
void Document::keep(Change const& change)
{
    requireTransaction();
    orRefuse(Deed::Change, {}, [&] { change(copy_->writer()); });
}

template <typename Change>
auto Document::keepPosting(Change const& change)
{
    requireTransaction();
    return orRefuse(Deed::Change, {}, [&] { return change(copy_->postingsWriter()); });
}

void Document::write(Settings const& settings)
{
    keep([&](ContentWriter& writer) { writer.write(settings); });
}

void Document::write(ConversionMap const& rates)
{
    keep([&](ContentWriter& writer) { writer.write(rates); });
}

void Document::add(PlannedItem const& item)
{
    keep([&](ContentWriter& writer) { writer.add(item); });
}

void Document::change(BudgetItemIdentifier const& original, PlannedItem const& item)
{
    keep([&](ContentWriter& writer) { writer.change(original, item); });
}

void Document::remove(BudgetItemIdentifier const& identifier)
{
    keep([&](ContentWriter& writer) { writer.remove(identifier); });
}

void Document::add(BookAccount const& account)
{
    keep([&](ContentWriter& writer) { writer.books().add(account); });
}

void Document::change(AccountNumber const& original, BookAccount const& account)
{
    keep([&](ContentWriter& writer) { writer.books().change(original, account); });
}

void Document::remove(AccountNumber const& number)
{
    keep([&](ContentWriter& writer) { writer.books().remove(number); });
}

void Document::add(Bank const& bank)
{
    keep([&](ContentWriter& writer) { writer.books().add(bank); });
}

void Document::change(BankName const& original, Bank const& bank)
{
    keep([&](ContentWriter& writer) { writer.books().change(original, bank); });
}

void Document::remove(BankName const& name)
{
    keep([&](ContentWriter& writer) { writer.books().remove(name); });
}

PostingId Document::post(Posting const& posting)
{
    return keepPosting([&](PostingsWriter& writer) { return writer.post(posting); });
}

void Document::change(PostingId const& id, Posting const& posting)
{
    keepPosting([&](PostingsWriter& writer) { writer.change(id, posting); });
}

void Document::remove(PostingId const& id)
{
    keepPosting([&](PostingsWriter& writer) { writer.remove(id); });
}

std::optional<Posting> Document::posting(PostingId const& id) const
{
    return orRefuse(Deed::Read, {}, [&] { return copy_->posting(id); });
}

std::map<PostingId, Posting> Document::postingsOf(AccountNumber const& number) const
{
    return latestPostingsOf(number, std::numeric_limits<std::size_t>::max());
}

std::map<PostingId, Posting> Document::latestPostingsOf(AccountNumber const& number, std::size_t most) const
{
    return orRefuse(Deed::Read, {}, [&] { return copy_->latestPostingsOf(number, most); });
}
}
