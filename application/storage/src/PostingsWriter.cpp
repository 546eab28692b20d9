#include "PostingsWriter.h"

#include "BooksWriter.h"
#include "Names.h"
#include "PostingWords.h"
#include "Stored.h"

#include <storage/DocumentError.h>
#include <tlm/foundation/ScopeExecutor.h>

#include <QCoreApplication>

#include <SQLiteCpp/Database.h>
#include <string>

using tallymere::engine::Posting;
using tallymere::engine::PostingId;
using tlm::foundation::ScopeExecutor;

namespace tallymere::storage {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("PostingsWriter", text);
}
}

PostingsWriter::PostingsWriter(SQLite::Database& database, BooksWriter& books)
    : database_(database),
      books_(books),
      post_(database, "INSERT INTO postings (occurred_on, debiting, crediting, amount, currency, description, status, "
                      "made_from) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
      update_(database, "UPDATE postings SET occurred_on = ?, debiting = ?, crediting = ?, amount = ?, currency = ?, "
                        "description = ?, status = ?, made_from = ? WHERE id = ?"),
      remove_(database, "DELETE FROM postings WHERE id = ?"),
      posted_(database, std::string(postingRows) + " WHERE postings.id = ?1")
{}

PostingId PostingsWriter::post(Posting const& posting)
{
    auto const made = bind(post_.get(), posting);
    post_.run();
    change_.add(made);
    return {database_.getLastInsertRowid()};
}

void PostingsWriter::change(PostingId const& id, Posting const& posting)
{
    auto changed = without(id, tr("The posting isn't in the books any more, so it can't be changed."));
    auto& row = update_.get();
    changed.add(bind(row, posting));
    row.bind(9, id.value);
    update_.run();
    change_.add(changed);
}

void PostingsWriter::remove(PostingId const& id)
{
    auto const changed = without(id, tr("The posting isn't in the books any more, so it can't be removed."));
    remove_.get().bind(1, id.value);
    remove_.run();
    change_.add(changed);
}

/// \return what a digest loses with the posting of \a id
PostingsDigest PostingsWriter::without(PostingId const& id, QString const& missing)
{
    ScopeExecutor const ready([this] { posted_.end(); });
    posted_.begin({id.value});
    if (!posted_.next()) {
        throw DocumentError(missing);
    }
    PostingsDigest lost;
    lost.remove(wordsOf(posted_));
    return lost;
}

/// \return what a digest gains with \a posting
PostingsDigest PostingsWriter::bind(SQLite::Statement& row, Posting const& posting)
{
    auto const day = stored(posting.occurredOn);
    auto const currency = fiscora::toStdString(posting.amount.code());
    auto const description = stored(posting.description);
    auto const status = names::toName(posting.status);
    row.clearBindings();
    row.bind(1, day);
    row.bind(2, books_.accountId(posting.debiting));
    row.bind(3, books_.accountId(posting.crediting));
    row.bind(4, integer(posting.amount.amount()));
    row.bind(5, currency);
    row.bind(6, description);
    row.bind(7, status);
    if (posting.madeFrom) {
        row.bind(8, books_.accountId(*posting.madeFrom));
    }
    PostingsDigest gained;
    gained.add({.day = day,
                .debiting = posting.debiting.integer(),
                .crediting = posting.crediting.integer(),
                .amount = posting.amount.amount(),
                .currency = currency,
                .description = description,
                .status = status,
                .madeFrom = posting.madeFrom ? posting.madeFrom->integer() : 0});
    return gained;
}
}
