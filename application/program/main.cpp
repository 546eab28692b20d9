#include <program/Application.h>
#include <program/CommandLine.h>
#include <program/Program.h>
#include <services/Log.h>

#include <QDebug>
#include <QMessageBox>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace tallymere::program;

void nameProgram()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Tallymere"));
    QCoreApplication::setApplicationName(QStringLiteral("tallymere"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TALLYMERE_VERSION));
}

/// Read before the real application object exists, so that help and version need no display.
std::variant<StartOptions, Answer> readArguments(int argc, char** argv)
{
    QCoreApplication const core(argc, argv);
    return readCommandLine(QCoreApplication::arguments());
}

int print(Answer const& answer)
{
    QTextStream(answer.exitStatus == 0 ? stdout : stderr) << answer.text.trimmed() << '\n';
    return answer.exitStatus;
}

/// For what keeps the program from starting, where there is no window to tell it on.
int tellWhyNot(QString const& reason)
{
    qCritical().noquote() << "Tallymere can't start:" << reason;
    QMessageBox::critical(nullptr, QCoreApplication::translate("main", "Tallymere Can't Start"), reason);
    return EXIT_FAILURE;
}
}

int main(int argc, char** argv)
{
    nameProgram();
    auto const asked = readArguments(argc, argv);
    if (auto const* const answer = std::get_if<Answer>(&asked)) {
        return print(*answer);
    }
    Application const application(argc, argv);
    tallymere::services::startLogFile(tallymere::services::logFilePathName());
    try {
        Program program(std::get<StartOptions>(asked));
        program.start();
        return Application::exec();
    } catch (std::exception const& failure) {
        return tellWhyNot(QString::fromUtf8(failure.what()));
    }
}
