#include <tlm/desktop_ui/MoneyAmountValidator.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/LocaleForScope.h>
#include <support/MessageLog.h>

namespace tlm::desktop_ui::details {

using fiscora::Currency;
using ::testing::ElementsAre;
using tlm::testing::LocaleForScope;
using tlm::testing::MessageLog;

namespace {

constexpr auto invalid = QValidator::Invalid;
constexpr auto intermediate = QValidator::Intermediate;
constexpr auto acceptable = QValidator::Acceptable;

struct InputCase
{
    char const* locale;
    QString input;
    int pos;
    QValidator::State state;
    QString left; ///< what stands in the field then
};

std::ostream& operator<<(std::ostream& out, InputCase const& c)
{
    return out << c.locale << " \"" << c.input.left(20).toStdString() << "\" at " << c.pos;
}

QString const manyDigits(1000, '9');
}

class MoneyAmountValidatorTest : public ::testing::Test
{
protected:
    LocaleForScope const locale{QLocale("en_US")};
    MoneyAmountValidator validator{Currency::USD, nullptr};
};

class MoneyAmountInputTest : public ::testing::TestWithParam<InputCase>
{};

INSTANTIATE_TEST_SUITE_P(
    Point, MoneyAmountInputTest,
    ::testing::Values(InputCase{"en_US", "", 0, intermediate, ""}, InputCase{"en_US", "1", 1, acceptable, "1"},
                      InputCase{"en_US", "1.50", 4, acceptable, "1.50"},
                      InputCase{"en_US", "-1.50", 5, acceptable, "-1.50"}, InputCase{"en_US", "-", 1, acceptable, "-"},
                      InputCase{"en_US", "1-2", 3, acceptable, "1-2"}, InputCase{"en_US", "--", 2, acceptable, "--"},
                      InputCase{"en_US", manyDigits, 1000, acceptable, manyDigits},
                      InputCase{"en_US", "0.123456789", 11, acceptable, "0.123456789"},
                      InputCase{"en_US", "٣४", 2, acceptable, "٣४"}));

INSTANTIATE_TEST_SUITE_P(
    PointTypedLast, MoneyAmountInputTest,
    ::testing::Values(InputCase{"en_US", ".", 1, intermediate, "."}, InputCase{"en_US", "1.", 2, intermediate, "1."},
                      InputCase{"en_US", "1.5", 2, intermediate, "1.5"},
                      InputCase{"en_US", ".5", 0, intermediate, ".5"}, InputCase{"en_US", "1.", 1, acceptable, "1."},
                      InputCase{"en_US", "5.", 0, acceptable, "5."}, InputCase{"en_US", "x.", 2, intermediate, "x."},
                      InputCase{"en_US", "1.", 9, acceptable, "1."}));

INSTANTIATE_TEST_SUITE_P(
    Refused, MoneyAmountInputTest,
    ::testing::Values(InputCase{"en_US", "1..", 3, invalid, "1.."}, InputCase{"en_US", ".1.", 1, invalid, ".1."},
                      InputCase{"en_US", "1.2.3", 5, invalid, "1.2.3"},
                      InputCase{"en_US", "1,234.50", 8, invalid, "1,234.50"},
                      InputCase{"en_US", "1 234", 5, invalid, "1 234"}, InputCase{"en_US", "+1", 2, invalid, "+1"},
                      InputCase{"en_US", "1e5", 3, invalid, "1e5"}, InputCase{"en_US", "$5", 2, invalid, "$5"},
                      InputCase{"en_US", "½", 1, invalid, "½"}, InputCase{"en_US", "²", 1, invalid, "²"},
                      InputCase{"en_US", "−5", 2, invalid, "−5"}));

INSTANTIATE_TEST_SUITE_P(Comma, MoneyAmountInputTest,
                         ::testing::Values(InputCase{"de_DE", "1.5", 3, acceptable, "1,5"},
                                           InputCase{"de_DE", "1,5", 3, acceptable, "1,5"},
                                           InputCase{"de_DE", "1.", 2, intermediate, "1,"},
                                           InputCase{"de_DE", ",", 1, intermediate, ","},
                                           InputCase{"de_DE", "1,.", 3, invalid, "1,,"},
                                           InputCase{"de_DE", "1.234,50", 8, invalid, "1,234,50"},
                                           InputCase{"de_DE", "-0,50", 5, acceptable, "-0,50"},
                                           InputCase{"sv_SE", "−0,50", 5, acceptable, "−0,50"},
                                           InputCase{"sv_SE", "-0,50", 5, invalid, "-0,50"}));

INSTANTIATE_TEST_SUITE_P(OtherScripts, MoneyAmountInputTest,
                         ::testing::Values(InputCase{"ar_EG", "1.5", 3, acceptable, "1٫5"},
                                           InputCase{"ar_EG", "٣٫٥", 3, acceptable, "٣٫٥"},
                                           InputCase{"ar_EG", "٣٫", 2, intermediate, "٣٫"},
                                           InputCase{"ar_EG", "-1", 2, invalid, "-1"}, // its minus is two characters
                                           InputCase{"ar_EG", "\u061C1", 2, invalid, "\u061C1"},
                                           InputCase{"fa_IR", "۱٫۵", 3, acceptable, "۱٫۵"},
                                           InputCase{"fa_IR", "۱٬۲۰۰", 5, invalid, "۱٬۲۰۰"},
                                           InputCase{"hi_IN", "१.५", 3, acceptable, "१.५"},
                                           InputCase{"ff_Adlm", "5.5", 3, acceptable, "5.5"},
                                           InputCase{"ff_Adlm", "𞥕", 2, invalid,
                                                     "𞥕"})); // digits beyond sixteen bits are no digits here

TEST_P(MoneyAmountInputTest, IsJudgedByTheLocale)
{
    LocaleForScope const locale{QLocale(GetParam().locale)};
    MoneyAmountValidator const validator(Currency::USD, nullptr);
    auto input = GetParam().input;
    auto pos = GetParam().pos;

    auto const state = validator.validate(input, pos);

    EXPECT_EQ(state, GetParam().state);
    EXPECT_EQ(input, GetParam().left);
    EXPECT_EQ(pos, GetParam().pos);
}

TEST_F(MoneyAmountValidatorTest, TakesTheLocaleAfreshEachTime)
{
    QString input("1.5");
    auto pos = 3;
    validator.validate(input, pos);
    LocaleForScope const german{QLocale("de_DE")};

    auto const state = validator.validate(input, pos);

    EXPECT_EQ(state, acceptable);
    EXPECT_EQ(input, "1,5");
}

TEST_F(MoneyAmountValidatorTest, DoesNotCountTheDecimalsOfACurrency)
{
    MoneyAmountValidator const ofYen(Currency::JPY, nullptr);
    QString input("1.2345");
    auto pos = 6;

    EXPECT_EQ(ofYen.validate(input, pos), acceptable);
}

TEST_F(MoneyAmountValidatorTest, LogsWhatItJudges)
{
    QString input("1.5");
    auto pos = 2;

    validator.validate(input, pos);

    EXPECT_THAT(MessageLog::texts(QtDebugMsg), ElementsAre("Validating \"1.5\" at 2"));
}

TEST_F(MoneyAmountValidatorTest, BelongsToItsParent)
{
    QObject parent;
    QPointer<MoneyAmountValidator> const child(new MoneyAmountValidator(Currency::USD, &parent));

    EXPECT_EQ(child->parent(), &parent);
}
}
