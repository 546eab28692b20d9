#pragma once

#include <QSize>
#include <QString>

#include <vector>

namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere::tour {

/// A view of the sample household, with something in it to look at.
struct Stop
{
    QString name;
    QString page;                                         ///< what its picture in the handbook is called
    void (*arrange)(tlm::desktop_ui::MainWindow& window); ///< as a person who looks around would
    QSize windowForPage = {};                             ///< the smallest unless given
};

/// \return the views that a person finds in the wording, in the order of the menus
std::vector<Stop> stops(bool isAccounting);

/// Opens the view of \a stop and arranges it.
void show(Stop const& stop, tlm::desktop_ui::MainWindow& window);
}
