#include "internal/Product.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <fiscora/About.h>
#include <tlm/updating/SemanticVersion.h>

#include <QDebug>
#include <QMessageBox>

namespace tlm::desktop_ui {

using internal::HomePage;
using internal::ProductName;
using internal::ProductShortName;
using internal::ProductVersion;

void MainWindow::onShowAbout()
{
    qInfo() << "Showing about information.";
    auto const text = tr("%1 %2\n"
                         "Written by the %1 authors.\n"
                         "More Information: %3\n\n"
                         "This program comes with no warranty. You may redistribute it under the %4.\n\n"
                         "%5 %6: %7\n"
                         "%8\n"
                         "%9\n"
                         "More Information: %10");
    QMessageBox::about(this, tr("About %1").arg(ProductShortName),
                       text.arg(ProductName, ProductVersion, HomePage, tr("Apache License, Version 2.0"),
                                QStringLiteral("fiscora"), QString::fromStdString(fiscora::version()),
                                QString::fromStdString(fiscora::description()),
                                QString::fromStdString(fiscora::copyright()),
                                QString::fromStdString(fiscora::licence()), QString::fromStdString(fiscora::url())));
}

void MainWindow::onShowAboutQt()
{
    qInfo() << "Showing about Qt information.";
    QMessageBox::aboutQt(this, tr("%1 Qt Information").arg(ProductShortName));
}

void MainWindow::onUpdateReleased(updating::SemanticVersion const& latest)
{
    auto const text =
        tr("A new version, %1, is available. For more information, check the release notes under the Help "
           "menu. The update can be downloaded from:\n\t%2");
    QMessageBox::information(this, tr("Update Available"), text.arg(updating::toString(latest), HomePage),
                             QMessageBox::Ok);
    emit updateAvailableAcknowledged();
}
}
