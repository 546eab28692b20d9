#pragma once

#include <tlm/foundation/QtPtr.h>

#include <QWidget>

class QToolBar;

namespace tlm::adjutor {

class HandbookBrowser;

/// The handbook's window: pages to read, with a way back, a way forward and a way to the contents.
///
/// Making one costs next to nothing. The pages, which are part of the library, are laid out when one is first asked
/// for.
class HelpWidget : public QWidget
{
    Q_OBJECT

public:
    explicit HelpWidget(foundation::QtPtr<QWidget> const& parent);

    /// Moves to the start page, which holds the contents. The caller shows the window.
    void displayStartPage();

    /// Moves to the page on the first-time wizard. The caller shows the window.
    void displayWizardPage();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void display(QString const& page);
    void layOut();
    void fill(QToolBar* toolBar);
    void addClosing();

    HandbookBrowser* browser_ = nullptr; // a child, made when the first page is displayed
};
}
