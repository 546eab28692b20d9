#include <presenter/Session.h>
#include <presenter/WindowTitle.h>

#include <QFileInfo>
#include <QWidget>

namespace tallymere::presenter {

WindowTitle::WindowTitle(QWidget& window, Session& session)
    : window_(window), session_(session), product_(window.windowTitle())
{
    connect(&session_, &Session::replaced, this, &WindowTitle::tell);
    connect(&session_, &Session::saved, this, &WindowTitle::tell);
    connect(&session_, &Session::changed, &atRest_, qOverload<>(&QTimer::start));
    connect(&atRest_, &QTimer::timeout, this, &WindowTitle::markUnsaved);
    atRest_.setSingleShot(true);
}

void WindowTitle::tell()
{
    auto const filePathName = session_.document().filePathName();
    auto const name = filePathName.isEmpty() ? tr("New budget") : QFileInfo(filePathName).fileName();
    // A "[*]" in a file's own name would be taken for the mark of unsaved changes.
    auto const plain = QString(name).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    window_.setWindowFilePath(filePathName);
    window_.setWindowTitle(QStringLiteral("%1[*] - %2").arg(plain, product_));
    markUnsaved();
}

void WindowTitle::markUnsaved()
{
    atRest_.stop();
    window_.setWindowModified(session_.isDirty());
}
}
