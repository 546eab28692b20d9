#include "support/MessageLog.h"

#include <QMutex>
#include <QRegularExpression>

#include <cstdio>

namespace tlm::testing {

namespace {

struct Announcement
{
    QtMsgType type;
    QRegularExpression pattern;
    bool met = false;
};

QMutex mutex;
QList<MessageLog::Line> heard;
QList<Announcement> announced;

void hear(QtMsgType type, QMessageLogContext const& /*context*/, QString const& text)
{
    {
        QMutexLocker const lock(&mutex);
        heard.append({type, text});
    }
    if (type == QtFatalMsg) {
        // Death tests match what stands on standard error.
        std::fprintf(stderr, "%s\n", qPrintable(text));
        std::fflush(stderr);
    }
}

bool isComplaint(MessageLog::Line const& line)
{
    // A platform without a screen says so whenever a dialog is placed on it.
    return (line.type == QtWarningMsg || line.type == QtCriticalMsg) &&
           !line.text.startsWith(QStringLiteral("This plugin does not support "));
}

bool meetsAnnouncement(MessageLog::Line const& line)
{
    auto met = false;
    for (auto& announcement : announced) {
        if (announcement.type == line.type && announcement.pattern.match(line.text).hasMatch()) {
            announcement.met = true;
            met = true;
        }
    }
    return met;
}
}

void MessageLog::listen()
{
    qInstallMessageHandler(hear);
}

void MessageLog::clear()
{
    QMutexLocker const lock(&mutex);
    heard.clear();
    announced.clear();
}

QList<MessageLog::Line> MessageLog::lines()
{
    QMutexLocker const lock(&mutex);
    return heard;
}

QStringList MessageLog::texts(QtMsgType type)
{
    QStringList found;
    for (auto const& line : lines()) {
        if (line.type == type) {
            found.append(line.text);
        }
    }
    return found;
}

QStringList MessageLog::complaints()
{
    QMutexLocker const lock(&mutex);
    QStringList found;
    for (auto const& line : heard) {
        if (!meetsAnnouncement(line) && isComplaint(line)) {
            found.append(QStringLiteral("logged without announcement: ") + line.text);
        }
    }
    for (auto const& announcement : announced) {
        if (!announcement.met) {
            found.append(QStringLiteral("announced but never logged: ") + announcement.pattern.pattern());
        }
    }
    return found;
}

void MessageLog::announce(QtMsgType type, QString const& pattern)
{
    QMutexLocker const lock(&mutex);
    announced.append({type, QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption)});
}

void expectMessage(QtMsgType type, QString const& pattern)
{
    MessageLog::announce(type, pattern);
}
}
