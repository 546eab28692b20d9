#include "Sweep.h"

#include "Prepared.h"

#include <SQLiteCpp/Database.h>
#include <exception>
#include <sqlite3.h>

namespace tallymere::storage {

namespace {

struct Sweeper
{
    std::function<void(SweptRow const&)> const& visit;
    std::exception_ptr failure = nullptr;
};

/// No exception may pass through the database, so it is kept until the query has stopped.
void step(sqlite3_context* context, int /*count*/, sqlite3_value** values)
{
    auto* const sweeper = static_cast<Sweeper*>(sqlite3_user_data(context));
    try {
        sweeper->visit(SweptRow(values));
    } catch (...) {
        sweeper->failure = std::current_exception();
        sqlite3_result_error(context, "stopped", -1);
    }
}

void finish(sqlite3_context* /*context*/) {}

/// The function through which the database calls a sweeper.
class Function
{
public:
    Function(SQLite::Database const& database, Sweeper& sweeper) : database_(database)
    {
        auto const result = define(&sweeper, step, finish);
        if (result != SQLITE_OK) {
            throw SQLite::Exception(database_.getHandle(), result);
        }
    }
    Function(Function const&) = delete;
    Function& operator=(Function const&) = delete;
    ~Function() { define(nullptr, nullptr, nullptr); }

private:
    int define(Sweeper* sweeper, decltype(&step) each, decltype(&finish) last) const
    {
        return sqlite3_create_function_v2(database_.getHandle(), "swept", -1, SQLITE_UTF8 | SQLITE_DIRECTONLY, sweeper,
                                          nullptr, each, last, nullptr);
    }

    SQLite::Database const& database_;
};
}

void sweep(SQLite::Database const& database, std::string const& columns, std::string const& source,
           std::function<void(SweptRow const&)> const& visit)
{
    Sweeper sweeper{visit};
    Function const function(database, sweeper);
    auto const query = prepare(database, "SELECT swept(" + columns + ") " + source);
    auto const result = sqlite3_step(query.get());
    if (sweeper.failure) {
        std::rethrow_exception(sweeper.failure);
    }
    if (result != SQLITE_ROW) {
        throw SQLite::Exception(database.getHandle(), result);
    }
}
}
