#include "Tables.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace tallymere::storage::tables {

namespace {

char const inEveryVersion[] = R"sql(CREATE TABLE currencies (
    code TEXT NOT NULL PRIMARY KEY CHECK (code GLOB '[A-Z][A-Z][A-Z]'),
    unit INTEGER NOT NULL CHECK (unit > 0),
    is_usable INTEGER NOT NULL DEFAULT 0 CHECK (is_usable IN (0, 1))
) STRICT, WITHOUT ROWID;
CREATE TABLE settings (
    id INTEGER NOT NULL PRIMARY KEY CHECK (id = 1),
    preferred_currency TEXT NOT NULL REFERENCES currencies (code),
    display_currencies_as TEXT NOT NULL CHECK (display_currencies_as IN ('code', 'name and code', 'symbol and code')),
    balance_window REAL NOT NULL CHECK (balance_window BETWEEN 0 AND 100),
    balance_window_decimals INTEGER NOT NULL CHECK (balance_window_decimals BETWEEN 0 AND 255),
    due_within_days INTEGER NOT NULL CHECK (due_within_days BETWEEN 0 AND 60),
    working_hours_per_week INTEGER NOT NULL CHECK (working_hours_per_week BETWEEN 1 AND 168),
    working_days_per_week INTEGER NOT NULL CHECK (working_days_per_week BETWEEN 1 AND 7),
    rates_fetched INTEGER NOT NULL DEFAULT 0
) STRICT;
CREATE TABLE rates (
    from_currency TEXT NOT NULL REFERENCES currencies (code),
    to_currency TEXT NOT NULL REFERENCES currencies (code),
    rate REAL NOT NULL CHECK (rate > 0 AND rate < 9e999),
    is_looked_up INTEGER NOT NULL CHECK (is_looked_up IN (0, 1)),
    PRIMARY KEY (from_currency, to_currency)
) STRICT, WITHOUT ROWID;
)sql";

char const itemsOfVersion1[] = R"sql(CREATE TABLE items (
    id INTEGER NOT NULL PRIMARY KEY,
    kind TEXT NOT NULL CHECK (kind IN ('bill', 'debt', 'goal', 'nontrack', 'wage')),
    source TEXT NOT NULL CHECK (length(source) > 0),
    source_key TEXT NOT NULL,
    currency TEXT NOT NULL REFERENCES currencies (code),
    amount INTEGER NOT NULL CHECK (amount > 0),
    period TEXT NOT NULL CHECK (period IN (
        'once', 'hourly', 'daily', 'weekly', 'fortnightly', 'every 4 weeks', 'twice monthly', 'monthly',
        'every 2 months', 'every 3 months', 'every 4 months', 'every 5 months', 'every 6 months', 'every 8 months',
        'every 9 months', 'yearly', 'every 18 months', 'every 2 years', 'every 3 years', 'every 4 years',
        'every 5 years', 'every 10 years')),
    anchored_on TEXT NOT NULL CHECK (anchored_on IS date(anchored_on) AND anchored_on >= '0001-01-01'),
    next_occur_on TEXT NOT NULL CHECK (next_occur_on IS date(next_occur_on) AND next_occur_on >= anchored_on),
    borrowed INTEGER CHECK (borrowed > 0),
    interest REAL CHECK (interest BETWEEN 0 AND 100),
    interest_decimals INTEGER CHECK (interest_decimals BETWEEN 0 AND 255),
    goal_total INTEGER CHECK (goal_total > 0),
    UNIQUE (kind, source_key),
    CHECK ((kind = 'debt') = (borrowed IS NOT NULL)),
    CHECK ((kind = 'debt') = (interest IS NOT NULL)),
    CHECK ((kind = 'debt') = (interest_decimals IS NOT NULL)),
    CHECK ((kind = 'goal') = (goal_total IS NOT NULL))
) STRICT;
)sql";

/// \param purposes a condition that tells the words for purposes
std::string accountsWith(char const* purposes)
{
    return std::string(R"sql(CREATE TABLE accounts (
    id INTEGER NOT NULL PRIMARY KEY,
    number INTEGER NOT NULL UNIQUE CHECK (number BETWEEN 1 AND 4294967295),
    name TEXT NOT NULL CHECK (length(name) > 0),
    parent INTEGER REFERENCES accounts (id) CHECK (parent <> id),
    type TEXT NOT NULL CHECK (
        type = 'asset' OR type = 'equity' OR type = 'expense' OR type = 'income' OR type = 'liability' OR
        type = 'suspense'),
    currency TEXT NOT NULL REFERENCES currencies (code),
    is_closed INTEGER NOT NULL CHECK (is_closed IN (0, 1)),
    purpose TEXT NOT NULL CHECK ()sql") +
           purposes +
           R"sql(),
    UNIQUE (id, currency),
    CHECK (purpose = 'household' OR type = 'equity')
) STRICT;
CREATE INDEX accounts_parent ON accounts (parent) WHERE parent IS NOT NULL;
)sql";
}

std::string accountsOfVersion2()
{
    return accountsWith("purpose IN ('household', 'opening balances')");
}

// Words are compared one by one: of a longer list, the database makes a table for each row that it checks.
std::string accounts()
{
    return accountsWith("purpose = 'household' OR purpose = 'opening balances' OR purpose = 'exchange'");
}

// A posting refers to its accounts together with their currency, so that the three can't differ. Days move by none,
// which carries a 30 February over into March.
char const sinceVersion2[] = R"sql(CREATE TABLE banks (
    id INTEGER NOT NULL PRIMARY KEY,
    name TEXT NOT NULL CHECK (length(name) > 0),
    name_key TEXT NOT NULL UNIQUE CHECK (length(name_key) > 0),
    is_closed INTEGER NOT NULL CHECK (is_closed IN (0, 1))
) STRICT;
CREATE TABLE bank_accounts (
    account INTEGER NOT NULL PRIMARY KEY REFERENCES accounts (id),
    bank INTEGER NOT NULL REFERENCES banks (id),
    kind TEXT NOT NULL CHECK (
        kind = 'checking' OR kind = 'credit card' OR kind = 'goal' OR kind = 'loan' OR kind = 'savings' OR
        kind = 'unspecified')
) STRICT;
CREATE INDEX bank_accounts_bank ON bank_accounts (bank);
CREATE TABLE postings (
    id INTEGER NOT NULL PRIMARY KEY AUTOINCREMENT CHECK (id > 0),
    occurred_on TEXT NOT NULL CHECK (occurred_on IS date(occurred_on, '+0 days') AND occurred_on >= '0001-01-01'),
    debiting INTEGER NOT NULL,
    crediting INTEGER NOT NULL CHECK (crediting <> debiting),
    amount INTEGER NOT NULL CHECK (amount > 0),
    currency TEXT NOT NULL,
    description TEXT NOT NULL,
    status TEXT NOT NULL CHECK (
        status = 'not cleared' OR status = 'cleared' OR status = 'reconciled'),
    made_from INTEGER REFERENCES accounts (id),
    FOREIGN KEY (debiting, currency) REFERENCES accounts (id, currency),
    FOREIGN KEY (crediting, currency) REFERENCES accounts (id, currency)
) STRICT;
CREATE INDEX postings_made_from ON postings (made_from) WHERE made_from IS NOT NULL;
CREATE TABLE items (
    id INTEGER NOT NULL PRIMARY KEY,
    kind TEXT NOT NULL CHECK (
        kind = 'bill' OR kind = 'debt' OR kind = 'goal' OR kind = 'nontrack' OR kind = 'wage'),
    source TEXT NOT NULL CHECK (length(source) > 0),
    source_key TEXT NOT NULL CHECK (length(source_key) > 0),
    account INTEGER NOT NULL UNIQUE REFERENCES accounts (id),
    currency TEXT NOT NULL REFERENCES currencies (code),
    amount INTEGER NOT NULL CHECK (amount > 0),
    period TEXT NOT NULL CHECK (
        period = 'once' OR period = 'hourly' OR period = 'daily' OR period = 'weekly' OR period = 'fortnightly' OR
        period = 'every 4 weeks' OR period = 'twice monthly' OR period = 'monthly' OR period = 'every 2 months' OR
        period = 'every 3 months' OR period = 'every 4 months' OR period = 'every 5 months' OR
        period = 'every 6 months' OR period = 'every 8 months' OR period = 'every 9 months' OR period = 'yearly' OR
        period = 'every 18 months' OR period = 'every 2 years' OR period = 'every 3 years' OR
        period = 'every 4 years' OR period = 'every 5 years' OR period = 'every 10 years'),
    anchored_on TEXT NOT NULL CHECK (anchored_on IS date(anchored_on, '+0 days') AND anchored_on >= '0001-01-01'),
    next_occur_on TEXT NOT NULL CHECK (next_occur_on IS date(next_occur_on, '+0 days')),
    borrowed INTEGER CHECK (borrowed > 0),
    interest REAL CHECK (interest BETWEEN 0 AND 100),
    interest_decimals INTEGER CHECK (interest_decimals BETWEEN 0 AND 255),
    goal_total INTEGER CHECK (goal_total > 0),
    UNIQUE (kind, source_key),
    CHECK (next_occur_on >= anchored_on),
    CHECK ((kind = 'debt') = (borrowed IS NOT NULL)),
    CHECK ((kind = 'debt') = (interest IS NOT NULL)),
    CHECK ((kind = 'debt') = (interest_decimals IS NOT NULL)),
    CHECK ((kind = 'goal') = (goal_total IS NOT NULL))
) STRICT;
)sql";

char const indexesOfVersion2[] = R"sql(CREATE INDEX postings_debiting ON postings (debiting, currency, amount);
CREATE INDEX postings_crediting ON postings (crediting, currency, amount);
)sql";

// They have the latest postings of an account at their end, so that a long ledger isn't read whole. Their rows are small:
// every save writes them all.
char const indexes[] = R"sql(CREATE INDEX postings_debiting ON postings (debiting, occurred_on);
CREATE INDEX postings_crediting ON postings (crediting, occurred_on);
)sql";

// Indexes that the database makes for UNIQUE, and its table for the last number of AUTOINCREMENT.
constexpr std::array<std::string_view, 1> madeBesideVersion1{"index sqlite_autoindex_items_1 items "};
constexpr std::array<std::string_view, 6> madeBeside{
    "index sqlite_autoindex_accounts_1 accounts ",
    "index sqlite_autoindex_accounts_2 accounts ",
    "index sqlite_autoindex_banks_1 banks ",
    "index sqlite_autoindex_items_1 items ",
    "index sqlite_autoindex_items_2 items ",
    "table sqlite_sequence sqlite_sequence CREATE TABLE sqlite_sequence(name,seq)"};

std::span<std::string_view const> madeBesideOf(unsigned int version)
{
    return version == 1 ? std::span<std::string_view const>(madeBesideVersion1) : madeBeside;
}

/// \return the first word of \a text, which is cut off there with the blank that follows
std::string_view takeWord(std::string_view& text)
{
    auto const word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size() + 1);
    return word;
}

/// \param statement "CREATE TABLE name (..." or "CREATE INDEX name ON table ..."
std::string listed(std::string_view statement)
{
    auto rest = statement;
    takeWord(rest);
    auto const isTable = takeWord(rest) == "TABLE";
    auto const name = takeWord(rest);
    takeWord(rest);
    auto const table = isTable ? name : takeWord(rest);
    return std::string(isTable ? "table " : "index ")
        .append(name)
        .append(" ")
        .append(table)
        .append(" ")
        .append(statement);
}
}

std::string ofVersion(unsigned int version)
{
    switch (version) {
    case 1:
        return std::string(inEveryVersion) + itemsOfVersion1;
    case 2:
        return inEveryVersion + accountsOfVersion2() + sinceVersion2 + indexesOfVersion2;
    default:
        return inEveryVersion + newSinceVersion1();
    }
}

std::vector<std::string> listOf(unsigned int version)
{
    constexpr std::string_view end = ";\n";
    auto const beside = madeBesideOf(version);
    std::vector<std::string> list(beside.begin(), beside.end());
    auto const words = ofVersion(version);
    for (std::string_view rest = words; !rest.empty();) {
        auto const length = rest.find(end);
        list.push_back(listed(rest.substr(0, length)));
        rest.remove_prefix(length + end.size());
    }
    std::ranges::sort(list);
    return list;
}

std::string newSinceVersion1()
{
    return accounts() + sinceVersion2 + indexes;
}

std::string replacingVersion2()
{
    return std::string("CREATE TEMP TABLE kept AS SELECT * FROM accounts;\nDROP TABLE accounts;\n") + accounts() +
           "INSERT INTO accounts SELECT * FROM kept;\nDROP TABLE kept;\n"
           "DROP INDEX postings_debiting;\nDROP INDEX postings_crediting;\n" +
           indexes;
}
}
