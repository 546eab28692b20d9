#include <presenter/Messages.h>
#include <program/Icons.h>
#include <program/Program.h>
#include <program/Recovery.h>
#include <program/SampleFile.h>

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace tallymere::program {

namespace {

tlm::navigation::ConfigurationOptions wordingOf(StartOptions const& options, services::Preferences const& preferences)
{
    tlm::navigation::ConfigurationOptions wording{};
    wording.isAccounting = options.isAccounting.value_or(preferences.isAccounting());
    return wording;
}

QString sampleFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/samples");
}
}

Program::Program(StartOptions const& options)
    : options_(options),
      wording_(wordingOf(options, preferences_)),
      session_(storage::Places::ofUser()),
      window_(wording_),
      title_(window_, session_),
      dashboard_(window_, session_),
      planning_(window_, session_),
      accounts_(window_, session_),
      ledgers_(window_, session_),
      banks_(window_, session_),
      budgetFile_(window_, session_),
      unanswered_(window_)
{
    preferences_.setAccounting(wording_.isAccounting);
    dress(window_);
    window_.restoreGeometry(preferences_.windowGeometry());
    QObject::connect(&session_, &presenter::Session::replaced, &window_, [this] { rememberOpenedFile(); });
    QObject::connect(&session_, &presenter::Session::saved, &window_, [this] { rememberFile(); });
}

Program::~Program()
{
    preferences_.setWindowGeometry(window_.saveGeometry());
}

void Program::start()
{
    auto const failure = openFirst();
    window_.show();
    if (!failure.isEmpty()) {
        presenter::tellFailure(window_, QCoreApplication::translate("Program", "Open Budget"), failure);
    }
}

/// \return why the budget that was asked for can't be opened, empty when it is open
QString Program::openFirst()
{
    if (offerRecovery(window_, session_)) {
        return {};
    }
    QString reason;
    try {
        if (auto const first = firstFile(); !first.isEmpty()) {
            session_.open(first);
            return {};
        }
    } catch (std::exception const& failure) {
        reason = QString::fromUtf8(failure.what());
    }
    session_.beginEmpty();
    return reason;
}

QString Program::firstFile() const
{
    if (options_.isSample) {
        return sampleFile(session_.places(), sampleFolder(), QDate::currentDate());
    }
    if (!options_.filePathName.isEmpty()) {
        return QFileInfo(options_.filePathName).absoluteFilePath();
    }
    return preferences_.lastFile();
}

/// A sample is to look around in: the budget opened last stays that, unless work on the sample is saved.
void Program::rememberOpenedFile()
{
    if (QFileInfo(session_.document().filePathName()).dir() != QDir(sampleFolder())) {
        rememberFile();
    }
}

void Program::rememberFile()
{
    if (auto const current = session_.document().filePathName(); !current.isEmpty()) {
        preferences_.setLastFile(current);
    }
}
}
