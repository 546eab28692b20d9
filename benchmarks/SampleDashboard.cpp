#include "UntilShown.h"

#include <program/Application.h>
#include <program/Program.h>
#include <services/Log.h>

/// The program from its start until the dashboard of the sample household has been painted.
int main(int argc, char** argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Tallymere"));
    QCoreApplication::setApplicationName(QStringLiteral("tallymere"));
    tallymere::program::Application const application(argc, argv);
    tallymere::services::startLogFile(tallymere::services::logFilePathName());
    tallymere::program::Program program({{}, true, {}});
    UntilShown const untilShown(program.window());
    program.start();
    return QApplication::exec();
}
