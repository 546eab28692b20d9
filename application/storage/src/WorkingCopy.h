#pragma once

#include "ContentWriter.h"
#include "DurableFile.h"
#include "PostingsReader.h"
#include "WorkingFiles.h"

#include <SQLiteCpp/Database.h>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace tallymere::storage {

/// The database to which an open document's changes go, in a folder of the program's own.
///
/// Unless it is kept, it goes with this object. Failures throw std::system_error, SQLite::Exception or UnsoundBudget.
class WorkingCopy
{
public:
    /// \param postings what the turnovers of \a content count
    static std::unique_ptr<WorkingCopy> ofContent(QByteArray const& folder, engine::BudgetContent const& content,
                                                  std::vector<engine::Posting> const& postings);

    /// Copies \a file and checks the copy whole; the database never touches the file itself. A copy of an older version
    /// becomes one of the present version.
    static std::unique_ptr<WorkingCopy> ofFile(QByteArray const& folder, DurableFile const& file);

    /// Takes over \a files that a program left behind, rolls back the change that it was in the middle of, and checks the rest.
    /// They stay when this object goes, until they are claimed. An older version's copy is made one of the present version,
    /// and its origin still tells whether anything had changed in it.
    static std::unique_ptr<WorkingCopy> ofOrphan(WorkingFiles files);

    WorkingCopy(WorkingCopy const&) = delete;
    WorkingCopy& operator=(WorkingCopy const&) = delete;
    ~WorkingCopy();

    /// Has the files go with this object.
    void claim() { isKept_ = false; }

    Origin origin() const { return isLasting_ ? files_.origin() : origin_; }

    /// From its first change on, a crash leaves a copy that knows what it was made from. Until then it holds nothing that its
    /// file doesn't, so a crash leaves nothing of use.
    void write(Origin const& origin);

    engine::BudgetContent content() const;
    std::optional<engine::Posting> posting(engine::PostingId const& id) const;
    std::map<engine::PostingId, engine::Posting> latestPostingsOf(tlm::accounting::AccountNumber const& number,
                                                                  std::size_t most) const;

    /// \return a digest of the content, at no cost while it stays the same
    QByteArray digest() const;

    /// Compares no more than it takes to tell.
    /// \return whether \a digest is that of the content
    bool hasDigest(QByteArray const& digest) const;

    bool isInTransaction() const { return isInTransaction_; }

    void begin();
    /// Returns when the changes since begin() will outlast a power cut.
    void commit();
    /// Undoes the changes since begin(), as far as a failure hasn't done so already.
    void rollBack() noexcept;

    /// Only within a transaction. Writes anything.
    ContentWriter& writer();
    /// Only within a transaction. Leaves all but the postings as it is.
    PostingsWriter& postingsWriter() { return writer_->postings(); }

    /// Writes all of the content into the empty file at \a path, which isn't synced then.
    void copyTo(QByteArray const& path) const;

private:
    explicit WorkingCopy(WorkingFiles files);

    void open();
    void makeLasting();
    void prepare();
    void migrate(unsigned int version);
    void keepOrigin(QByteArray const& digestBefore);
    QByteArray const& planDigest() const;
    PostingsDigest const& postingsDigest() const;

    WorkingFiles files_;
    bool isKept_ = false;
    bool isLasting_ = false; ///< whether a power cut leaves all of it, with its origin
    Origin origin_;          ///< while it isn't lasting
    std::optional<SQLite::Database> database_;
    std::optional<ContentWriter> writer_;
    bool isInTransaction_ = false;
    mutable std::optional<engine::BudgetContent> content_; ///< as it was checked, until it is asked for or changes
    mutable std::optional<PostingsReader> reader_;
    mutable std::optional<QByteArray> planDigest_;
    mutable std::optional<PostingsDigest> postingsDigest_; ///< of the postings before the present transaction
};

/// Checks that the file at \a path, which nobody changes meanwhile, holds a sound budget.
/// \return a digest of its content
/// \throws UnsoundBudget otherwise
QByteArray digestOfSound(QByteArray const& path);
}
