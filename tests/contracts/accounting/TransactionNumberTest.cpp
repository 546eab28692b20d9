#include <tlm/accounting/TransactionNumber.h>
#include <tlm/foundation/Error.h>

#include <array>
#include <support/Properties.h>
#include <support/Translation.h>

using namespace tlm::accounting;

namespace {

static_assert(!std::is_convertible_v<unsigned short, TransactionNumber>);
static_assert(sizeof(TransactionNumber) == 2);
static_assert(std::is_nothrow_move_constructible_v<TransactionNumber>);

class CaptionTest : public ::testing::TestWithParam<QString>
{};

class TextWithoutNumberTest : public ::testing::TestWithParam<QString>
{};
}

TEST(TransactionNumberTest, AnyNumberReadsBackFromTheCaption)
{
    tlm::testing::expectAlways([](unsigned short number) {
        auto const text = QStringLiteral("TXN %1").arg(presentationText(TransactionNumber(number)));

        RC_ASSERT(toTransactionNumber(text) == TransactionNumber(number));
    });
}

TEST(TransactionNumberTest, AnEmptyTextIsNoNumber)
{
    EXPECT_EQ(toTransactionNumber(QString()), std::nullopt);
    EXPECT_EQ(toTransactionNumber(QStringLiteral("")), std::nullopt);
}

TEST_P(CaptionTest, OfATranslationReadsBack)
{
    tlm::testing::Translation const translation({{"TXN %1", GetParam()}});

    for (auto const number : std::to_array<unsigned short>({0, 1, 2, 24, 65535})) {
        auto const text = transactionCaption().arg(presentationText(TransactionNumber(number)));
        EXPECT_EQ(toTransactionNumber(text), TransactionNumber(number)) << text.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Translations, CaptionTest,
                         ::testing::Values("%1", "Buchung %1", "%1. Buchung", "Nr. %1 (Buch)", "قيد %1",
                                           "‏‪%1‬‏", "取引%1号", "Journal 2 no. %1", "%1/24", "[%1]+",
                                           "Buch 2%1"));

TEST(TransactionNumberTest, ReadsTheOnlyNumberOfAnotherCaption)
{
    EXPECT_EQ(toTransactionNumber("Buchung 17 vom Amt"), TransactionNumber(17));
    EXPECT_EQ(toTransactionNumber("قيد 17"), TransactionNumber(17));
}

TEST_P(TextWithoutNumberTest, IsRefused)
{
    EXPECT_THROW(toTransactionNumber(GetParam()), tlm::foundation::Error);
}

INSTANTIATE_TEST_SUITE_P(Texts, TextWithoutNumberTest,
                         ::testing::Values("TXN", " ", "TXN NUM", "TXN 65536", "TXN 99999999999999999999",
                                           "Buch 2, Seite 17"));

TEST(TransactionNumberTest, OrdersByNumber)
{
    tlm::testing::expectStrongOrder([] { return TransactionNumber(*rc::gen::inRange<unsigned short>(0, 4)); });
    EXPECT_LT(TransactionNumber(9), TransactionNumber(10));
}

TEST(TransactionNumberTest, IsLoggedWithItsType)
{
    QString log;

    QDebug(&log) << TransactionNumber(7);

    EXPECT_EQ(log.trimmed(), "TransactionNumber(7)");
}
