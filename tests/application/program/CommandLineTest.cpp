#include <program/CommandLine.h>

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace tallymere::program {
namespace {

StartOptions read(QStringList arguments)
{
    arguments.prepend("tallymere");
    return std::get<StartOptions>(readCommandLine(arguments));
}

Answer answer(QStringList arguments)
{
    arguments.prepend("tallymere");
    return std::get<Answer>(readCommandLine(arguments));
}

TEST(CommandLineTest, NothingAskedForOpensTheLastFileInTheLastWording)
{
    EXPECT_EQ(read({}), StartOptions{});
}

TEST(CommandLineTest, AFileIsOpened)
{
    EXPECT_EQ(read({"family.budget"}).filePathName, "family.budget");
}

TEST(CommandLineTest, AFileThatLooksLikeAnOptionFollowsTwoDashes)
{
    EXPECT_EQ(read({"--", "--sample"}).filePathName, "--sample");
}

TEST(CommandLineTest, TheSampleCanBeAskedFor)
{
    EXPECT_TRUE(read({"--sample"}).isSample);
}

TEST(CommandLineTest, AWordingCanBeAskedFor)
{
    EXPECT_EQ(read({"--accounting"}).isAccounting, true);
    EXPECT_EQ(read({"--planning"}).isAccounting, false);
}

TEST(CommandLineTest, HelpNamesEveryOption)
{
    auto const help = answer({"--help"});

    EXPECT_EQ(help.exitStatus, 0);
    for (auto const* const option : {"--sample", "--accounting", "--planning", "--help", "--version", "FILE.budget"}) {
        EXPECT_TRUE(help.text.contains(option)) << option;
    }
}

TEST(CommandLineTest, EveryOptionOfTheHelpIsTaken)
{
    QRegularExpression const option("(?<![\\w-])-{1,2}[a-z][a-z-]*");

    for (auto found = option.globalMatch(answer({"--help"}).text); found.hasNext();) {
        auto const argument = found.next().captured();
        auto const asked = readCommandLine({"tallymere", argument});
        auto const* const told = std::get_if<Answer>(&asked);

        EXPECT_TRUE(told == nullptr ? std::get<StartOptions>(asked) != StartOptions{} : told->exitStatus == 0)
            << argument.toStdString();
    }
}

TEST(CommandLineTest, VersionNamesTheProgramAndItsVersion)
{
    QCoreApplication::setApplicationName("tallymere");
    QCoreApplication::setApplicationVersion("1.2.3");

    EXPECT_EQ(answer({"--version"}).text, "tallymere 1.2.3");
    EXPECT_EQ(answer({"--version"}).exitStatus, 0);
}

struct Wrong
{
    QStringList arguments;
    char const* names;
};

class WrongArgumentTest : public ::testing::TestWithParam<Wrong>
{};

TEST_P(WrongArgumentTest, GetsOneSentenceAndStatusTwo)
{
    auto const refusal = answer(GetParam().arguments);

    EXPECT_EQ(refusal.exitStatus, 2);
    EXPECT_TRUE(refusal.text.startsWith("tallymere: ")) << refusal.text.toStdString();
    EXPECT_TRUE(refusal.text.contains(GetParam().names)) << refusal.text.toStdString();
    EXPECT_FALSE(refusal.text.contains('\n'));
}

INSTANTIATE_TEST_SUITE_P(CommandLine, WrongArgumentTest,
                         ::testing::Values(Wrong{{"--colour"}, "colour"}, Wrong{{"--help-all"}, "help-all"},
                                           Wrong{{"a.budget", "b.budget"}, "one budget"},
                                           Wrong{{"--sample", "a.budget"}, "--sample"},
                                           Wrong{{"--accounting", "--planning"}, "--planning"}));
}
}
