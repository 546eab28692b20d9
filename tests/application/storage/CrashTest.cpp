#include "StorageTest.h"

#include <QProcess>
#include <QThread>

#include <cerrno>
#include <random>
#include <tuple>

namespace tallymere::storage {

using namespace testing;

namespace {

QProcessEnvironment underShim()
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", FAULT_SHIM);
    // The sanitizers want to come first of all libraries; the shim only passes calls on to them.
    environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0");
    return environment;
}

/// \return how many of numberedBill() from 0 on \a content plans; each must be paid, and it must hold nothing else
int billsIn(engine::BudgetContent const& content)
{
    auto const count = static_cast<int>(content.items.size());
    EXPECT_EQ(content.items, billsOnly(count).items);
    EXPECT_EQ(content.books, billsOnly(count).books);
    return count;
}
}

/// What stands on the disk when the program, or a call to the system, fails at any moment.
class CrashTest : public StorageTest
{
protected:
    /// Recovers what is offered, if anything is, and saves it.
    /// \return how many bills there are then
    int recovered()
    {
        auto const orphans = Document::orphans(places);
        EXPECT_LE(orphans.size(), 1U);
        if (orphans.empty()) {
            return billsIn(Document::open(places, at("home.budget"))->content());
        }
        auto const document = Document::recover(places, orphans[0]);
        document->save();
        return billsIn(document->content());
    }

    /// \return the last number that the driver has told since it was ready, \a before when none
    static int lastTold(QProcess& driver, int before)
    {
        auto told = before;
        for (auto const& line : driver.readAllStandardOutput().split('\n')) {
            auto isNumber = false;
            auto const number = line.toInt(&isNumber);
            told = isNumber ? number : told;
        }
        return told;
    }
};

TEST_F(CrashTest, NoMomentOfChangeAndSaveLosesAnAcceptedChange)
{
    auto const seed = std::random_device{}();
    std::mt19937 random(seed);
    save(at("home.budget"), billsOnly(0));
    auto accepted = 0;
    for (auto round = 0; round < 300; ++round) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed << ", round " << round);
        QProcess driver;
        driver.start(STORAGE_DRIVER, {"change", folder.filePath("data"), at("home.budget")});
        ASSERT_TRUE(driver.waitForReadyRead(30'000)) << driver.readAllStandardError().toStdString();
        QThread::usleep(random() % 30'000);
        driver.kill();
        ASSERT_TRUE(driver.waitForFinished());
        accepted = lastTold(driver, accepted);

        ASSERT_NO_THROW(billsIn(contentOf(at("home.budget"))));
        auto const found = recovered();

        ASSERT_GE(found, accepted);
        ASSERT_FALSE(HasFailure());
        accepted = found;
        if (found > 100) {
            QFile::remove(at("home.budget"));
            save(at("home.budget"), billsOnly(0));
            accepted = 0;
        }
    }
}

TEST_F(CrashTest, EveryCallOfASaveMayBeTheLast)
{
    save(at("home.budget"), billsOnly(0));
    auto hasFinished = false;
    auto calls = 0;
    for (; !hasFinished && !HasFailure(); ++calls) {
        SCOPED_TRACE(::testing::Message() << "call " << calls + 1);
        auto const before = recovered();
        QProcess driver;
        driver.setProcessEnvironment(underShim());
        driver.start(STORAGE_DRIVER, {"die", folder.filePath("data"), at("home.budget"), QString::number(calls + 1)});
        ASSERT_TRUE(driver.waitForFinished(60'000));
        hasFinished = driver.exitStatus() == QProcess::NormalExit && driver.exitCode() == 0;

        EXPECT_EQ(lastTold(driver, before), before + 1) << driver.readAllStandardError().toStdString();
        EXPECT_GE(billsIn(contentOf(at("home.budget"))), before);
        EXPECT_EQ(recovered(), before + 1);
    }
    EXPECT_GT(calls, 50);
}

class FaultTest : public CrashTest, public ::testing::WithParamInterface<std::tuple<std::string, int>>
{};

TEST_P(FaultTest, ACallThatFailsOnceLosesNothing)
{
    auto const [task, error] = GetParam();
    QProcess driver;
    driver.setProcessEnvironment(underShim());
    driver.start(STORAGE_DRIVER, {"fault", folder.filePath("data"), at("home.budget"), QString::fromStdString(task),
                                  QString::number(error)});
    ASSERT_TRUE(driver.waitForFinished(100'000));

    EXPECT_EQ(driver.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(driver.exitCode(), 0) << driver.readAllStandardError().toStdString();
    EXPECT_GT(lastTold(driver, 0), 8); // calls failed, one after the other
}

INSTANTIATE_TEST_SUITE_P(Calls, FaultTest,
                         ::testing::Combine(::testing::Values(std::string("change"), std::string("save"),
                                                              std::string("saveAs"), std::string("open"),
                                                              std::string("recover")),
                                            ::testing::Values(ENOSPC, EIO)));
}
