#include <services/Log.h>

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/spdlog.h>

namespace tallymere::services {

namespace {

constexpr std::size_t mostBytes = 1 << 20; // a mebibyte
constexpr std::size_t mostOldFiles = 3;

QtMessageHandler handlerBefore = nullptr;

spdlog::level::level_enum levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return spdlog::level::debug;
    case QtInfoMsg:
        return spdlog::level::info;
    case QtWarningMsg:
        return spdlog::level::warn;
    case QtCriticalMsg:
        return spdlog::level::err;
    case QtFatalMsg:
        return spdlog::level::critical;
    }
    return spdlog::level::err;
}

/// Each file of the log is the person's alone, those that begin when one is full among them.
spdlog::file_event_handlers keepPrivate()
{
    spdlog::file_event_handlers handlers;
    handlers.after_open = [](spdlog::filename_t const& name, std::FILE* /*opened*/) {
        QFile::setPermissions(QFile::decodeName(name.c_str()), QFile::ReadOwner | QFile::WriteOwner);
    };
    return handlers;
}

void logToFileToo(QtMsgType type, QMessageLogContext const& context, QString const& text)
{
    spdlog::default_logger_raw()->log(levelOf(type), text.toStdString());
    handlerBefore(type, context, text);
}
}

QString logFilePathName()
{
    auto const state = qEnvironmentVariable("XDG_STATE_HOME");
    auto const home = QDir::isAbsolutePath(state) ? state : QDir::homePath() + QStringLiteral("/.local/state");
    return home + QStringLiteral("/tallymere/tallymere.log");
}

void startLogFile(QString const& filePathName)
{
    try {
        QDir().mkpath(QFileInfo(filePathName).absolutePath());
        auto const name = QFile::encodeName(filePathName).toStdString();
        auto sink =
            std::make_shared<spdlog::sinks::rotating_file_sink_mt>(name, mostBytes, mostOldFiles, false, keepPrivate());
        auto logger = std::make_shared<spdlog::logger>("tallymere", std::move(sink));
        logger->set_level(spdlog::level::info);
        logger->flush_on(spdlog::level::warn);
        spdlog::set_default_logger(std::move(logger));
    } catch (spdlog::spdlog_ex const& failure) {
        qWarning() << "Failed to open the log file:" << failure.what();
        return;
    }
    handlerBefore = qInstallMessageHandler(logToFileToo);
}
}
