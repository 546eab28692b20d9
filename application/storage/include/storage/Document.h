#pragma once

#include <engine/Store.h>
#include <storage/DocumentError.h>
#include <storage/Orphan.h>
#include <storage/Places.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace tallymere::storage {

class BudgetFile;
class WorkingCopy;

/// A budget file that stands open.
///
/// Changes go to a working copy, each as one durable transaction, and reach the file with the next save. While a
/// document stands open its file is locked. Destroying a document closes it: what wasn't saved is gone then. When the
/// program ends without that, orphans() finds the working copy at the next start.
///
/// Every failure throws a DocumentError and leaves the document, the file and the unsaved changes as they were.
class Document : public engine::Store
{
    Q_DECLARE_TR_FUNCTIONS(Document)

public:
    /// Makes a document that has no file yet.
    /// \param postings what the turnovers of \a content count
    static std::unique_ptr<Document> create(Places const& places, engine::BudgetContent const& content,
                                            std::vector<engine::Posting> const& postings = {});

    /// Opens a file after checking it whole. A refused file stays untouched, byte for byte. One of an older version counts
    /// as unchanged, and is saved as one of the present version.
    /// \param filePathName may be a symbolic link or relative to the current directory
    static std::unique_ptr<Document> open(Places const& places, QString const& filePathName);

    /// \return the unsaved work of programs that have ended, in no order. Work that turns out to be saved is tidied away.
    static std::vector<Orphan> orphans(Places const& places);

    /// Opens \a orphan as the document that it was. It counts as changed until it is saved.
    /// \param examine looks at the document; where it throws, the work stays to be recovered another time
    static std::unique_ptr<Document> recover(
        Places const& places, Orphan const& orphan,
        std::function<void(Document&)> const& examine = [](Document& /*recovered*/) {});

    /// Gives up \a orphan for good, unless another program has recovered it meanwhile. Logs what can't be removed.
    static void discard(Orphan const& orphan);

    ~Document() override;

    /// \return what the working copy holds, read from there at each call
    engine::BudgetContent content() const;

    /// \return the file's path as it was given to open() or saveAs(), made absolute; empty before the first save
    QString filePathName() const;

    /// \return whether the content differs from what is in the file now. A new document that is still as it was created
    ///         doesn't; one whose file has gone, can't be read, or that was recovered does.
    bool isDirty() const;

    /// Replaces the file by a complete new one and keeps it among the backups, with the one before.
    void save();

    /// Saves under another name, which the document then has.
    void saveAs(QString const& filePathName);

    /// Reads the file again in place of the present content, unless \a examine throws at what it holds.
    void reload(std::function<void(engine::BudgetContent const&)> const& examine);

    void transact(std::function<void()> const& changes) override;
    void write(engine::Settings const& settings) override;
    void write(tlm::conversion::ConversionMap const& rates) override;
    void add(engine::PlannedItem const& item) override;
    void change(tlm::budgeting::BudgetItemIdentifier const& original, engine::PlannedItem const& item) override;
    void remove(tlm::budgeting::BudgetItemIdentifier const& identifier) override;
    void add(engine::BookAccount const& account) override;
    void change(tlm::accounting::AccountNumber const& original, engine::BookAccount const& account) override;
    void remove(tlm::accounting::AccountNumber const& number) override;
    void add(tlm::banking::Bank const& bank) override;
    void change(tlm::banking::BankName const& original, tlm::banking::Bank const& bank) override;
    void remove(tlm::banking::BankName const& name) override;
    engine::PostingId post(engine::Posting const& posting) override;
    void change(engine::PostingId const& id, engine::Posting const& posting) override;
    void remove(engine::PostingId const& id) override;
    std::optional<engine::Posting> posting(engine::PostingId const& id) const override;
    std::map<engine::PostingId, engine::Posting>
    postingsOf(tlm::accounting::AccountNumber const& number) const override;
    std::map<engine::PostingId, engine::Posting> latestPostingsOf(tlm::accounting::AccountNumber const& number,
                                                                  std::size_t most) const override;

private:
    Document(Places places, std::unique_ptr<BudgetFile> file, std::unique_ptr<WorkingCopy> copy);

    void moveTo(std::unique_ptr<BudgetFile> file);
    void settle();
    void writeOrigin() const;
    void requireTransaction() const;
    template <typename Change>
    void keep(Change const& change);
    template <typename Change>
    auto keepPosting(Change const& change);

    Places places_;
    std::unique_ptr<BudgetFile> file_; ///< none before the first save
    std::unique_ptr<WorkingCopy> copy_;
    QByteArray savedDigest_; ///< of the content when it was created, opened or saved last
    bool isRecovered_ = false;
};
}
