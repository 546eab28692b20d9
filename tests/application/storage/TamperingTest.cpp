#include "RefusalTest.h"

#include <tuple>

namespace tallymere::storage {

using namespace testing;
using ::testing::HasSubstr;

/// Budgets that another program has changed.
class TamperedTest : public RefusalTest, public ::testing::WithParamInterface<char const*>
{};

TEST_P(TamperedTest, IsRefused)
{
    EXPECT_THAT(refusedAfter(GetParam(), bookkeeping(), postings()), HasSubstr("it is damaged"));
}

INSTANTIATE_TEST_SUITE_P(
    Budgets, TamperedTest,
    ::testing::Values(
        "CREATE VIEW seen AS SELECT * FROM items", "CREATE TABLE more (a)", "CREATE INDEX i ON items (amount)",
        "CREATE TRIGGER t AFTER UPDATE ON items BEGIN DELETE FROM items; END", "DROP TABLE rates",
        "ALTER TABLE items ADD COLUMN note TEXT", "DELETE FROM settings",
        "UPDATE currencies SET is_usable = 0 WHERE code = 'EUR'",
        "UPDATE currencies SET is_usable = 0 WHERE code = 'JPY'", "UPDATE currencies SET unit = 100 WHERE code = 'EUR'",
        "UPDATE items SET source_key = 'Rent'",
        "PRAGMA ignore_check_constraints = ON; UPDATE items SET source = '', source_key = '' WHERE kind = 'wage'",
        "PRAGMA foreign_keys = OFF; UPDATE items SET currency = 'EEK' WHERE kind = 'bill'",
        "PRAGMA foreign_keys = OFF; INSERT INTO currencies VALUES ('QQQ', 1, 1); UPDATE items SET currency = 'QQQ'",
        "PRAGMA ignore_check_constraints = ON; UPDATE items SET amount = -1",
        "PRAGMA ignore_check_constraints = ON; UPDATE items SET period = 'now and then'",
        "PRAGMA ignore_check_constraints = ON; UPDATE items SET kind = 'gift' WHERE kind = 'wage'",
        "PRAGMA ignore_check_constraints = ON; UPDATE items SET next_occur_on = '2026-02-30'",
        "PRAGMA ignore_check_constraints = ON; UPDATE items SET borrowed = NULL WHERE kind = 'debt'",
        "PRAGMA ignore_check_constraints = ON; UPDATE rates SET rate = -1"));

// What breaks no rule of the tables is made with keys that are sure to be others' or nobody's.
INSTANTIATE_TEST_SUITE_P(
    Books, TamperedTest,
    ::testing::Values(
        "DROP INDEX postings_debiting", "DROP TABLE bank_accounts",
        "DROP INDEX postings_made_from; CREATE INDEX postings_made_from ON postings (made_from)",
        "PRAGMA foreign_keys = OFF; UPDATE accounts SET parent = 999 WHERE number = 5000",
        "PRAGMA foreign_keys = OFF; DELETE FROM accounts WHERE number = 3001",
        "PRAGMA foreign_keys = OFF; UPDATE accounts SET currency = 'JPY' WHERE number = 1001",
        "PRAGMA foreign_keys = OFF; UPDATE accounts SET currency = 'EEK' WHERE number = 2002",
        "PRAGMA foreign_keys = OFF; UPDATE postings SET currency = 'JPY' WHERE amount = 120000000",
        "PRAGMA foreign_keys = OFF; UPDATE postings SET debiting = 999 WHERE amount = 1",
        "PRAGMA foreign_keys = OFF; UPDATE postings SET made_from = 999 WHERE made_from IS NOT NULL",
        "PRAGMA foreign_keys = OFF; UPDATE items SET account = 999 WHERE kind = 'bill'",
        "PRAGMA foreign_keys = OFF; UPDATE bank_accounts SET bank = 999 WHERE kind = 'savings'",
        "PRAGMA foreign_keys = OFF; UPDATE bank_accounts SET account = 999 WHERE kind = 'savings'",
        "PRAGMA ignore_check_constraints = ON; UPDATE accounts SET parent = id WHERE number = 5000",
        "PRAGMA ignore_check_constraints = ON; UPDATE accounts SET number = 0 WHERE number = 5000",
        "PRAGMA ignore_check_constraints = ON; UPDATE accounts SET number = 4294967296 WHERE number = 5000",
        "PRAGMA ignore_check_constraints = ON; UPDATE accounts SET name = '' WHERE number = 5000",
        "UPDATE accounts SET name = ' ' WHERE number = 5000",
        "UPDATE accounts SET name = 'two' || char(10) || 'lines' WHERE number = 5000",
        "PRAGMA ignore_check_constraints = ON; UPDATE accounts SET type = 'Asset' WHERE number = 1002",
        "PRAGMA ignore_check_constraints = ON; UPDATE accounts SET purpose = 'slush fund' WHERE number = 1002",
        "PRAGMA ignore_check_constraints = ON; UPDATE accounts SET purpose = 'opening balances' WHERE number = 1002",
        "PRAGMA ignore_check_constraints = ON; UPDATE accounts SET purpose = 'exchange' WHERE number = 1002",
        "PRAGMA ignore_check_constraints = ON; UPDATE accounts SET is_closed = 2 WHERE number = 1002",
        "UPDATE banks SET name_key = 'elsewhere' WHERE name = 'Gone'",
        "PRAGMA ignore_check_constraints = ON; UPDATE banks SET name = ' ', name_key = '' WHERE name = 'Gone'",
        "PRAGMA ignore_check_constraints = ON; UPDATE bank_accounts SET kind = 'SAVINGS' WHERE kind = 'savings'",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET crediting = debiting WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET amount = 0 WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET amount = -5 WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET status = 'Cleared' WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET occurred_on = '2026-02-29' WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET occurred_on = '0000-12-31' WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET occurred_on = '2025-2-03' WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET occurred_on = '2026-02-03 ' WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET occurred_on = '2026-13-01' WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET occurred_on = '1900-02-29' WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET occurred_on = '2026-04-31' WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET occurred_on = '2026/04/30' WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET id = 0 WHERE amount = 1",
        "PRAGMA ignore_check_constraints = ON; UPDATE postings SET status = '' WHERE amount = 1",
        "PRAGMA foreign_keys = OFF; UPDATE postings SET crediting = 999 WHERE amount = 1",
        "UPDATE postings SET amount = 9223372036854775807 WHERE currency = 'EUR' AND status <> 'cleared'; "
        "INSERT INTO postings (occurred_on, debiting, crediting, amount, currency, description, status) "
        "SELECT occurred_on, debiting, crediting, amount, currency, description, status FROM postings "
        "WHERE currency = 'EUR' AND status = 'reconciled'",
        // A sum that fits, while its counterpart, which the account's balance is, doesn't.
        "INSERT INTO accounts VALUES (901, 9001, 'Owed', NULL, 'liability', 'EUR', 0, 'household'), "
        "(902, 9002, 'One half', NULL, 'asset', 'EUR', 0, 'household'), "
        "(903, 9003, 'Other half', NULL, 'asset', 'EUR', 0, 'household'); "
        "INSERT INTO postings (occurred_on, debiting, crediting, amount, currency, description, status) "
        "SELECT '2026-02-03', id, 901, 4611686018427387904, 'EUR', '', 'cleared' FROM accounts WHERE id IN (902, 903)",
        "UPDATE sqlite_sequence SET seq = 9223372036854775807 WHERE name = 'postings'",
        "UPDATE postings SET id = 9223372036854775807 WHERE amount = 1"));

// This program reads each of them back as another text, so that it would no longer find what is called so.
INSTANTIATE_TEST_SUITE_P(
    Texts, TamperedTest,
    ::testing::Values(
        "UPDATE items SET source = 'a' || char(0), source_key = 'a' || char(0) WHERE kind = 'wage'",
        "UPDATE items SET source = CAST(x'61FF' AS TEXT), source_key = CAST(x'61FF' AS TEXT) WHERE kind = 'wage'",
        "UPDATE items SET source = CAST(x'EDA080' AS TEXT), source_key = CAST(x'EDA080' AS TEXT) WHERE kind = 'wage'",
        "UPDATE items SET source = char(65279) || 'a', source_key = char(65279) || 'a' WHERE kind = 'wage'",
        "UPDATE banks SET name = 'a' || char(0), name_key = 'a' || char(0) WHERE name = 'Gone'",
        "UPDATE banks SET name = CAST(x'61FF' AS TEXT), name_key = CAST(x'61FF' AS TEXT) WHERE name = 'Gone'",
        "UPDATE accounts SET name = CAST(x'61FF' AS TEXT) WHERE number = 2002",
        "UPDATE postings SET description = 'a' || char(0) WHERE amount = 1",
        "UPDATE postings SET description = CAST(x'61FF' AS TEXT) WHERE amount = 1"));

namespace {

/// Does \a change while the database doesn't know of the index \a index, which then lists what was there before.
std::string unlisted(std::string const& index, std::string const& change)
{
    return "PRAGMA writable_schema = ON; CREATE TEMP TABLE kept AS SELECT * FROM sqlite_schema WHERE name = '" + index +
           "'; DELETE FROM sqlite_schema WHERE name = '" + index + "'; PRAGMA writable_schema = RESET; " + change +
           "; PRAGMA writable_schema = ON; INSERT INTO sqlite_schema SELECT * FROM kept";
}
}

class MislistedTest : public RefusalTest, public ::testing::WithParamInterface<std::tuple<char const*, char const*>>
{};

TEST_P(MislistedTest, PostingsThatAnIndexTellsOtherwiseAreRefused)
{
    auto const [index, change] = GetParam();

    EXPECT_THAT(refusedAfter(unlisted(index, change).c_str(), bookkeeping(), postings()), HasSubstr("it is damaged"));
}

INSTANTIATE_TEST_SUITE_P(
    Sides, MislistedTest,
    ::testing::Combine(::testing::Values("postings_debiting", "postings_crediting"),
                       ::testing::Values("UPDATE postings SET occurred_on = '2026-02-04' WHERE amount = 1",
                                         "UPDATE postings SET debiting = crediting, crediting = debiting WHERE id = 1",
                                         "UPDATE postings SET id = 77 WHERE id = 1",
                                         "DELETE FROM postings WHERE id = 2",
                                         "INSERT INTO postings SELECT 99, occurred_on, debiting, crediting, amount, "
                                         "currency, description, status, made_from FROM postings WHERE id = 2")));
INSTANTIATE_TEST_SUITE_P(Origins, MislistedTest,
                         ::testing::Combine(::testing::Values("postings_made_from"),
                                            ::testing::Values("UPDATE postings SET made_from = NULL WHERE id = 3",
                                                              "UPDATE postings SET made_from = 1 WHERE id = 1",
                                                              "UPDATE postings SET made_from = 1 WHERE id = 3")));

TEST_F(RefusalTest, IndexesInEachOthersPlaceAreRefused)
{
    EXPECT_THAT(refusedAfter("PRAGMA writable_schema = ON; UPDATE sqlite_schema SET rootpage = "
                             "(SELECT sum(rootpage) FROM sqlite_schema WHERE name IN ('postings_debiting', "
                             "'postings_crediting')) - rootpage "
                             "WHERE name IN ('postings_debiting', 'postings_crediting')",
                             bookkeeping(), postings()),
                HasSubstr("it is damaged"));
}

class TamperedFirstReleaseTest : public RefusalTest, public ::testing::WithParamInterface<char const*>
{};

TEST_P(TamperedFirstReleaseTest, IsRefused)
{
    ASSERT_TRUE(QFile::copy(RELEASED_BUDGETS "/released-1.budget", at("old.budget")));
    run(at("old.budget"), GetParam());

    EXPECT_THAT(refused(at("old.budget")), HasSubstr("it is damaged"));
}

INSTANTIATE_TEST_SUITE_P(
    Budgets, TamperedFirstReleaseTest,
    ::testing::Values("CREATE TABLE accounts (id)", "DROP TABLE rates", "PRAGMA user_version = 2",
                      "PRAGMA ignore_check_constraints = ON; UPDATE items SET amount = -1",
                      "UPDATE items SET source_key = 'Rent'",
                      "PRAGMA foreign_keys = OFF; UPDATE items SET currency = 'EEK' WHERE kind = 'bill'"));

TEST_F(RefusalTest, ABudgetOfTheFirstReleaseWhoseSumsCannotBeCountedIsRefused)
{
    ASSERT_TRUE(QFile::copy(RELEASED_BUDGETS "/released-1.budget", at("old.budget")));
    run(at("old.budget"), "UPDATE items SET borrowed = 9223372036854775807 WHERE kind = 'debt'; "
                          "INSERT INTO items SELECT 99, kind, 'Boat', 'boat', currency, amount, period, anchored_on, "
                          "next_occur_on, borrowed, interest, interest_decimals, goal_total FROM items "
                          "WHERE kind = 'debt'");

    EXPECT_THAT(refused(at("old.budget")), HasSubstr("far larger than any budget"));
}
}
