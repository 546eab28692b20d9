#pragma once

#include <QApplication>

namespace tallymere::program {

/// The application object, which lets no exception end the program.
///
/// What leaves a slot is logged and shown in a message box; changes are stored whole or not at all, so the open budget
/// stays as it was before the slot ran.
class Application : public QApplication
{
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    static void tell(QString const& what);
};
}
