#include "Monkey.h"

#include "BooksAudit.h"
#include "Words.h"

#include <program/Program.h>
#include <program/SampleFile.h>

#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
#include <iostream>
#include <optional>
#include <ostream>
#include <random>
#include <support/Home.h>
#include <support/MessageLog.h>
#include <vector>

namespace tallymere {
namespace {

using tlm::testing::MessageLog;

struct View
{
    char const* name;
    char const* action; ///< object name of what opens it, empty for the dashboard
    bool isAccounting;  ///< the wording in which a person finds it
    Monkey::Manner manner = Monkey::Manner::Playful;

    friend std::ostream& operator<<(std::ostream& out, View const& view) { return out << view.name; }
};

constexpr View dashboard{"dashboard", "", false};
constexpr View bills{"bills", "billsActn", false};
constexpr View debts{"debts", "debtsActn", true};
constexpr View goals{"goals", "goalsActn", false};
constexpr View nontracks{"nontracks", "nontracksActn", true};
constexpr View wages{"wages", "wagesActn", false};
constexpr View accounts{"accounts", "accountsActn", true, Monkey::Manner::Earnest};
constexpr View ledgers{"ledgers", "ledgersActn", true};
constexpr View transfer{"transfer", "transferActn", false, Monkey::Manner::Earnest};
constexpr View banks{"banks", "banksActn", false, Monkey::Manner::Earnest};

/// A seed that found something once, so that it never comes back.
struct KeptSeed
{
    View view;
    unsigned int seed;

    friend std::ostream& operator<<(std::ostream& out, KeptSeed const& kept) { return out << kept.view << kept.seed; }
};

std::vector<KeptSeed> keptSeeds()
{
    return {{dashboard, 3'933'628'825}, {bills, 1'950'742'103}};
}

/// From one seed the monkey acts so often; every so often the books are looked into.
constexpr auto actsOfOneSeed = 500;
constexpr auto actsBetweenAudits = 100;

/// \return how often somebody wants the monkey to act in a view, none when nobody asks
std::optional<int> wantedActs()
{
    auto isGiven = false;
    auto const given = qEnvironmentVariableIntValue("TALLYMERE_MONKEY_ACTIONS", &isGiven);
    return isGiven ? std::optional(given) : std::nullopt;
}

/// \return critical lines, but for those with which a view tells that a person's input was refused
QStringList criticalLines()
{
    auto lines = MessageLog::texts(QtCriticalMsg) + MessageLog::texts(QtFatalMsg);
    lines.removeIf([](QString const& line) { return line.startsWith(QStringLiteral("Bank entry save error for")); });
    return lines;
}

/// The whole program on a copy of the sample household, and a monkey in one of its views.
class MonkeyPlay : public ::testing::Test
{
protected:
    MonkeyPlay()
    {
        QCoreApplication::setOrganizationName("Tallymere");
        QCoreApplication::setApplicationName("tallymere");
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home_.path("settings"));
        sample_ = program::sampleFile(storage::Places::ofUser(), home_.path("samples"), QDate::currentDate());
    }

    void play(View const& view, unsigned int seed)
    {
        std::cout << "[  MONKEY  ] " << view << " with seed " << seed << std::endl;
        auto const path = home_.path(QStringLiteral("%1.budget").arg(seed));
        QFile::copy(sample_, path);
        program::Program program({path, false, view.isAccounting});
        program.start();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&program.window()));
        QSignalSpy const changes(&program.session(), &presenter::Session::changed);
        Monkey monkey(program.window(), view.action, view.manner, words(program.session().household()), seed);
        for (auto acts = 1; acts <= actsOfOneSeed; ++acts) {
            monkey.act();
            if (acts % actsBetweenAudits == 0) {
                auto const complaints =
                    examine(program.session(), home_.path(QStringLiteral("%1-%2.budget").arg(seed).arg(acts)));
                ASSERT_TRUE(complaints.isEmpty()) << view << " with seed " << seed << " after " << acts << " acts:\n"
                                                  << complaints.join('\n').toStdString() << "\nthe last acts:\n"
                                                  << monkey.lastActs().join('\n').toStdString();
            }
        }
        std::cout << "[  MONKEY  ] changes that the books took: " << changes.count() << std::endl;
    }

private:
    static QStringList examine(presenter::Session& session, QString const& copyPath)
    {
        auto const complaints =
            criticalLines() + complaintsAboutBooks(session) + complaintsAboutFile(session, copyPath);
        MessageLog::clear();
        QFile::remove(copyPath);
        return complaints;
    }

    tlm::testing::Home home_;
    QString sample_;
};

class MonkeyTest : public MonkeyPlay, public ::testing::WithParamInterface<View>
{};

/// TALLYMERE_MONKEY_ACTIONS tells how many acts there are, TALLYMERE_MONKEY_SEED the only seed to play from.
TEST_P(MonkeyTest, NothingThatAPersonDoesEndsTheProgramOrUpsetsTheBooks)
{
    auto isSeeded = false;
    auto const onlySeed = qEnvironmentVariable("TALLYMERE_MONKEY_SEED").toUInt(&isSeeded);
    if (isSeeded) {
        play(GetParam(), onlySeed);
        return;
    }
    // Each change is held against the same acts, so that chance never stops one that is right; who asks for acts explores.
    constexpr auto usualActs = 1'000;
    constexpr auto usualSeed = 20'261'121U;
    auto const wanted = wantedActs();
    auto const acts = wanted.value_or(usualActs);
    auto seed = wanted ? std::random_device()() : usualSeed;
    for (auto played = 0; played < acts && !HasFatalFailure(); played += actsOfOneSeed) {
        play(GetParam(), seed++);
    }
}

INSTANTIATE_TEST_SUITE_P(EachView, MonkeyTest,
                         ::testing::Values(dashboard, bills, debts, goals, nontracks, wages, accounts, ledgers,
                                           transfer, banks),
                         [](auto const& view) { return std::string(view.param.name); });

class KeptSeedTest : public MonkeyPlay, public ::testing::WithParamInterface<KeptSeed>
{};

TEST_P(KeptSeedTest, WhatWasMendedStaysMended)
{
    play(GetParam().view, GetParam().seed);
}

INSTANTIATE_TEST_SUITE_P(Kept, KeptSeedTest, ::testing::ValuesIn(keptSeeds()), ::testing::PrintToStringParamName());
}
}
