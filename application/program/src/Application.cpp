#include <program/Application.h>
#include <program/Style.h>

#include <QDebug>
#include <QMessageBox>

namespace tallymere::program {

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    setStyle(new Style); // which the application owns from here on
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (std::exception const& failure) {
        tell(QString::fromUtf8(failure.what()));
    } catch (...) {
        tell(tr("The cause isn't known."));
    }
    return false;
}

void Application::tell(QString const& what)
{
    qCritical().noquote() << "Something went wrong and was undone:" << what;
    auto* const box = new QMessageBox(QMessageBox::Critical, tr("Something Went Wrong"),
                                      tr("That didn't work, and your budget is as it was before.\n\n%1").arg(what),
                                      QMessageBox::Ok, activeWindow());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
}
