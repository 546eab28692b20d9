#pragma once

#include <QString>

class QWidget;

namespace tallymere::presenter {

/// Shows \a sentence in a message box on \a window and logs it, without waiting for the person.
void tellFailure(QWidget& window, QString const& title, QString const& sentence);
}
