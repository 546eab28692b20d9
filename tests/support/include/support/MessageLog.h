#pragma once

#include <QString>
#include <QStringList>

namespace tlm::testing {

/// Everything logged through Qt since the present test began, in order.
///
/// A warning or critical line that no test announced with expectMessage() fails the test that caused it.
class MessageLog
{
public:
    struct Line
    {
        QtMsgType type;
        QString text;
    };

    /// Takes over Qt's message handler for the rest of the process.
    static void listen();
    static void clear();

    static QList<Line> lines();
    /// \return texts of the lines of \a type, in order
    static QStringList texts(QtMsgType type);
    /// \return warning and critical lines that were not announced, and announcements that nothing met
    static QStringList complaints();

    static void announce(QtMsgType type, QString const& pattern);
};

/// Announces that at least one line of \a type, which matches the regular expression \a pattern somewhere, will be
/// logged by the present test. It fails when none comes.
void expectMessage(QtMsgType type, QString const& pattern);
}
