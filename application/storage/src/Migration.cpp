#include "Migration.h"

#include "ContentWriter.h"
#include "Schema.h"
#include "UnsoundBudget.h"

#include <engine/OpenBooks.h>
#include <tlm/foundation/Error.h>

#include <SQLiteCpp/Database.h>

namespace tallymere::storage {

namespace {

/// \return the postings with which the books of \a content open
std::vector<engine::Posting> opened(engine::BudgetContent& content)
{
    try {
        return engine::openBooks(content);
    } catch (tlm::foundation::Error const& refusal) {
        throw UnsoundBudget(UnsoundBudget::Reason::TooLarge, refusal.what());
    }
}
}

engine::BudgetContent migrateVersion1(SQLite::Database& database, engine::BudgetContent content)
{
    auto const postings = opened(content);
    schema::replaceVersion1(database);
    ContentWriter(database).writePlan(content, postings);
    return content;
}
}
