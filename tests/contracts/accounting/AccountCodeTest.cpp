#include <tlm/accounting/AccountCode.h>
#include <tlm/foundation/Error.h>

#include <QStringList>

#include <support/Properties.h>

using namespace tlm::accounting;
using tlm::foundation::Error;

namespace {

static_assert(!std::is_convertible_v<QString, AccountCode>);
static_assert(!std::is_convertible_v<AccountNumber, AccountCode>);
static_assert(std::is_nothrow_move_constructible_v<AccountCode> && std::is_nothrow_move_assignable_v<AccountCode>);

// Built before main(), as the texts of entry forms may be.
QString const newEntryText =
    presentationText(AccountNumber()) + AccountCode::separator_ + QStringLiteral("New Account");

/// Names of what people type, and of signs that might upset the taking apart of a code's text.
QString anyName()
{
    static QStringList const pieces{"a", "7", " ", "·", "%1", "ß", "‏א", "日", "👪", "–", "0 · ", "-", "|"};
    auto const picks = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, int(pieces.size())));
    QString name = QStringLiteral("n");
    for (auto const pick : picks) {
        name.append(pieces.at(pick));
    }
    return name.mid(*rc::gen::inRange(0, 2)).trimmed().isEmpty() ? QStringLiteral("n") : name;
}

AccountCode anyCode()
{
    return {AccountNumber(*rc::gen::inRange(0U, 3U)), *rc::gen::element<QString>("a", "b", "A"),
            *rc::gen::element(std::optional<AccountNumber>(), std::optional(AccountNumber(1)))};
}

class RefusedNameTest : public ::testing::TestWithParam<QString>
{};

class TextOfNoCodeTest : public ::testing::TestWithParam<QString>
{};
}

TEST(AccountCodeTest, ADefaultCodeHasNoNumberNameAndParent)
{
    AccountCode const code;

    EXPECT_EQ(code.number().integer(), AccountNumber::invalid_);
    EXPECT_TRUE(code.name().isEmpty());
    EXPECT_FALSE(code.parent().has_value());
}

TEST(AccountCodeTest, ANewEntrysRowReadsWellAndSplitsIntoItsParts)
{
    EXPECT_EQ(newEntryText.split(AccountCode::separator_), QStringList({"0", "New Account"}));
    EXPECT_EQ(newEntryText.simplified(), "0 · New Account");
}

TEST(AccountCodeTest, AnyCodesTextReadsBackAsItsNumberAndName)
{
    tlm::testing::expectAlways([](unsigned int number) {
        AccountCode const code(AccountNumber(number), anyName(), AccountNumber(1));

        auto const read = toAccountCode(presentationText(code));

        RC_ASSERT(read.number() == code.number());
        RC_ASSERT(read.name() == code.name());
        RC_ASSERT(!read.parent().has_value());
    });
}

TEST(AccountCodeTest, AnyCodesTextHasTheSeparatorOnce)
{
    tlm::testing::expectAlways([](unsigned int number) {
        AccountCode const code(AccountNumber(number), anyName(), std::nullopt);

        auto const pieces = presentationText(code).split(AccountCode::separator_);

        RC_ASSERT(pieces == QStringList({presentationText(code.number()), code.name()}));
    });
}

TEST(AccountCodeTest, ARowEndsInTheSeparatorAndANameForThatNameAlone)
{
    tlm::testing::expectAlways([] {
        AccountCode const code(AccountNumber(1), anyName(), std::nullopt);
        auto const other = anyName();

        RC_ASSERT(presentationText(code).endsWith(AccountCode::separator_ + other) == (code.name() == other));
    });
}

TEST(AccountCodeTest, ADefaultCodesTextReadsBack)
{
    EXPECT_EQ(toAccountCode(presentationText(AccountCode())), AccountCode());
}

TEST_P(RefusedNameTest, IsRefusedWithASentence)
{
    try {
        AccountCode(AccountNumber(1), GetParam(), std::nullopt);
        FAIL() << "the name was accepted";
    } catch (Error const& refusal) {
        EXPECT_TRUE(refusal.message().endsWith('.'));
        EXPECT_EQ(refusal.message(), QString(refusal.what()));
    }
    EXPECT_THROW(AccountCode(GetParam(), std::nullopt), Error);
}

INSTANTIATE_TEST_SUITE_P(Names, RefusedNameTest,
                         ::testing::Values(QString(), " ", "\u00A0\u2003", "Rent\nFood", "Rent\tFood",
                                           QString("Rent").append(QChar(0)), "Rent\u2028Food", "Rent\u0085Food",
                                           QString("Rent").append(QChar(0xD800)), AccountCode::separator_,
                                           "Rent" + AccountCode::separator_ + "Food", "·\u2002Rent", "Rent\u2002·",
                                           "Rent\u2002Food"));

TEST(AccountCodeTest, NamesMayHoldTheDotWithoutItsBlanks)
{
    EXPECT_EQ(AccountCode("Col·legi · Barcelona", std::nullopt).name(), "Col·legi · Barcelona");
}

TEST_P(TextOfNoCodeTest, IsRefused)
{
    EXPECT_THROW(toAccountCode(GetParam()), Error);
}

INSTANTIATE_TEST_SUITE_P(Texts, TextOfNoCodeTest,
                         ::testing::Values(QString(), "Asset", "17 Rent", AccountCode::separator_,
                                           AccountCode::separator_ + "Rent", "x" + AccountCode::separator_ + "Rent",
                                           "4294967296" + AccountCode::separator_ + "Rent",
                                           "1" + AccountCode::separator_));

TEST(AccountCodeTest, EqualsANumberByTheNumberAlone)
{
    AccountCode const code(AccountNumber(5), "Rent", AccountNumber(6));

    EXPECT_TRUE(code == AccountNumber(5));
    EXPECT_TRUE(AccountNumber(5) == code);
    EXPECT_FALSE(code == AccountNumber(6));
}

TEST(AccountCodeTest, OrdersByNumberThenNameThenParent)
{
    tlm::testing::expectStrongOrder(anyCode);
    EXPECT_LT(AccountCode(AccountNumber(2), "b", {}), AccountCode(AccountNumber(10), "a", {}));
    EXPECT_LT(AccountCode(AccountNumber(1), "a", AccountNumber(9)), AccountCode(AccountNumber(1), "b", {}));
    EXPECT_LT(AccountCode(AccountNumber(1), "a", {}), AccountCode(AccountNumber(1), "a", AccountNumber(0)));
}

TEST(AccountCodeTest, IsFoundByItsNumber)
{
    std::set<AccountCode> const codes{{AccountNumber(1), "Cash", {}}, {AccountNumber(2), "Rent", {}}};

    EXPECT_EQ(find(AccountNumber(2), codes), AccountCode(AccountNumber(2), "Rent", {}));
    EXPECT_EQ(find(AccountNumber(3), codes), std::nullopt);
}

TEST(AccountCodeTest, IsLoggedWithItsParent)
{
    QString log;

    QDebug(&log) << AccountCode(AccountNumber(2), "Rent", AccountNumber(1));

    EXPECT_EQ(log.trimmed(), "AccountCode(2, \"Rent\", parent 1)");
}
