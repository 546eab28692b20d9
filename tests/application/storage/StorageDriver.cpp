/// Does to a budget what the tests need another process for, and tells on its standard output how far it got.
///
///     storage-driver hold DATA FILE          opens FILE, or a new budget, adds a bill, and waits for its input to end
///     storage-driver look DATA FILE          opens FILE, and waits for its input to end
///     storage-driver change DATA FILE        adds bills and saves until it is killed
///     storage-driver die DATA FILE CALL      adds a bill, and saves until the call of that number
///     storage-driver fault DATA FILE TASK ERROR   has each call of a TASK fail once

#include "Budgets.h"

#include <storage/Document.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdlib>
#include <dlfcn.h>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>

namespace tallymere::storage {

namespace {

using namespace testing;

void tell(std::string const& line)
{
    std::cout << line << std::endl;
}

void require(bool isMet, std::string const& what)
{
    if (!isMet) {
        throw std::runtime_error(what);
    }
}

template <typename Function>
Function shim(char const* name)
{
    auto* const found = ::dlsym(RTLD_DEFAULT, name);
    require(found != nullptr, "the shim isn't preloaded");
    return reinterpret_cast<Function>(found);
}

void arm(long call, int error)
{
    shim<void (*)(long, int)>("armFault")(call, error);
}

bool disarm()
{
    return shim<bool (*)()>("disarmFault")();
}

int count(Document const& document)
{
    return static_cast<int>(document.content().items.size());
}

void waitForInputToEnd()
{
    tell("ready");
    std::cin.ignore(std::numeric_limits<std::streamsize>::max());
}

void look(Places const& places, QString const& file)
{
    auto const document = Document::open(places, file);
    waitForInputToEnd();
}

void hold(Places const& places, QString const& file)
{
    auto const document = file.isEmpty() ? Document::create(places, billsOnly(0)) : Document::open(places, file);
    plan(*document, count(*document));
    waitForInputToEnd();
}

void changeAndSave(Places const& places, QString const& file)
{
    auto const document = Document::open(places, file);
    tell("ready");
    for (auto number = count(*document);; ++number) {
        plan(*document, number);
        tell(std::to_string(number + 1));
        if (number % 3 == 0) {
            document->save();
        }
    }
}

void die(Places const& places, QString const& file, long call)
{
    auto const document = Document::open(places, file);
    auto const number = count(*document);
    plan(*document, number);
    tell(std::to_string(number + 1));
    arm(call, 0);
    document->save();
    disarm();
}

/// One round of a task, one of whose calls fails.
class FaultyTask
{
public:
    FaultyTask(QString const& data, QString const& file, QString task)
        : places_{data + "/working-copies", data + "/backups"},
          other_{data + "/elsewhere/working-copies", data + "/elsewhere/backups"},
          file_(file),
          task_(std::move(task))
    {
        QFile::remove(file_);
        QFile::remove(target());
        Document::create(places_, billsOnly(1), payments(1))->saveAs(file_);
    }

    /// \return whether the task has as many calls
    bool run(long call, int error)
    {
        auto const document = Document::open(places_, file_);
        if (task_ != "change") {
            plan(*document, 1);
        }
        arm(call, error);
        auto const isDone = attempt(*document);
        auto const isReached = disarm();
        check(*document, isDone);
        require(attempt(*document), "it doesn't work the next time");
        check(*document, true);
        return isReached;
    }

private:
    QString target() const { return task_ == "saveAs" ? file_ + ".new" : file_; }

    bool attempt(Document& document) const
    {
        try {
            if (task_ == "change" && count(document) == 1) {
                plan(document, 1);
            } else if (task_ == "save") {
                document.save();
            } else if (task_ == "saveAs") {
                document.saveAs(target());
            }
            return true;
        } catch (DocumentError const&) {
            return false;
        }
    }

    /// What was accepted is there, and counts as saved only if it is on the disk.
    void check(Document const& document, bool isDone) const
    {
        auto const accepted = billsOnly(task_ == "change" && !isDone ? 1 : 2);
        require(document.content() == accepted, "a change is lost");
        auto const isOld = onDisk(file_) == billsOnly(1);
        require(isOld || onDisk(file_) == billsOnly(2), "the file isn't whole");
        if (task_ == "change") {
            require(document.isDirty() == isDone, "a refused change leaves its mark");
            return;
        }
        require(document.isDirty() != isDone, isDone ? "it is dirty though it was saved" : "it counts as saved");
        require(!isDone || onDisk(target()) == accepted, "it isn't on the disk though it was saved");
    }

    engine::BudgetContent onDisk(QString const& path) const
    {
        auto const copy = path + ".copy";
        QFile::remove(copy);
        require(QFile::copy(path, copy), "the file is gone");
        return Document::open(other_, copy)->content();
    }

    Places places_;
    Places other_;
    QString file_;
    QString task_;
};

/// Opens a budget, or recovers what a crash left of it, while one of the calls fails.
class FaultyReading
{
public:
    FaultyReading(QString const& data, QString const& file, QString const& task)
        : places_{data + "/working-copies", data + "/backups"},
          left_{data + "/left/working-copies", data + "/left/backups"},
          file_(file),
          isRecovery_(task == "recover")
    {
        QFile::remove(file_);
        QDir(left_.workingCopies).removeRecursively();
        Document::create(places_, billsOnly(1), payments(1))->saveAs(file_);
        if (isRecovery_) {
            leaveBehind();
        }
    }

    /// \return whether the reading has as many calls
    bool run(long call, int error)
    {
        arm(call, error);
        auto const isDone = attempt();
        auto const isReached = disarm();
        require(isReached || isDone, "it is refused without a fault");
        require(isDone || attempt(), "it doesn't work the next time");
        require(Document::open(places_, file_)->content() == billsOnly(1), "the file has changed");
        require(Document::orphans(places_).empty(), "it leaves something behind");
        return isReached;
    }

private:
    /// Copies the working copy of a changed budget to where no program uses it.
    void leaveBehind() const
    {
        auto const document = Document::open(places_, file_);
        plan(*document, 1);
        QDir().mkpath(left_.workingCopies);
        QDir const working(places_.workingCopies);
        for (auto const& name : working.entryList({"*.budget", "*.origin"}, QDir::Files)) {
            require(QFile::copy(working.filePath(name), left_.workingCopies + '/' + name), "nothing is left behind");
        }
    }

    bool attempt() const
    {
        try {
            auto const document = isRecovery_ ? recovered() : Document::open(places_, file_);
            require(!document || document->content() == billsOnly(isRecovery_ ? 2 : 1), "it reads something else");
            return document != nullptr;
        } catch (DocumentError const&) {
            return false;
        }
    }

    std::unique_ptr<Document> recovered() const
    {
        auto const found = Document::orphans(left_);
        return found.empty() ? nullptr : Document::recover(left_, found.front());
    }

    Places places_;
    Places left_;
    QString file_;
    bool isRecovery_;
};

template <typename Task>
void failEachCall(QString const& data, QString const& file, QString const& task, int error)
{
    auto isReached = true;
    for (auto call = 1L; isReached; ++call) {
        try {
            isReached = Task(data, file, task).run(call, error);
        } catch (std::exception const& failure) {
            throw std::runtime_error("call " + std::to_string(call) + ": " + failure.what());
        }
        tell(std::to_string(call));
    }
}

void run(QStringList const& arguments)
{
    auto const data = arguments.value(2);
    Places const places{data + "/working-copies", data + "/backups"};
    auto const task = arguments.value(1);
    auto const file = arguments.value(3);
    if (task == "hold") {
        hold(places, file);
    } else if (task == "look") {
        look(places, file);
    } else if (task == "change") {
        changeAndSave(places, file);
    } else if (task == "die") {
        die(places, file, arguments.value(4).toLong());
    } else {
        auto const faulty = arguments.value(4);
        auto const isReading = faulty == "open" || faulty == "recover";
        auto const failEach = isReading ? failEachCall<FaultyReading> : failEachCall<FaultyTask>;
        failEach(data, file, faulty, arguments.value(5).toInt());
    }
}
}
}

int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    try {
        tallymere::storage::run(QCoreApplication::arguments());
    } catch (std::exception const& failure) {
        std::cerr << failure.what() << std::endl;
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
