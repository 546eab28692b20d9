#include <presenter/Messages.h>

#include <QDebug>
#include <QMessageBox>

namespace tallymere::presenter {

void tellFailure(QWidget& window, QString const& title, QString const& sentence)
{
    qWarning().noquote() << title + QLatin1Char(':') << sentence;
    auto* const box = new QMessageBox(QMessageBox::Warning, title, sentence, QMessageBox::Ok, &window);
    box->setTextFormat(Qt::PlainText); // names in it are a file's, which may hold anything
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
}
