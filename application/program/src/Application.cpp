#include <program/Application.h>
#include <program/Style.h>

#include <QDebug>
#include <QKeyEvent>
#include <QMessageBox>

namespace tallymere::program {

namespace {

/// On X11 a field empties itself at Ctrl+U, and would claim that key before the menu's entry of the same key.
bool isClaimToEmptyField(QEvent const& event)
{
    return event.type() == QEvent::ShortcutOverride &&
           static_cast<QKeyEvent const&>(event).matches(QKeySequence::DeleteCompleteLine);
}
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    setStyle(new Style); // which the application owns from here on
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    if (isClaimToEmptyField(*event)) {
        return false;
    }
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
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
}
