#pragma once

#include <QTextBrowser>

namespace tlm::adjutor {

/// Shows the handbook's pages in the colours of its palette.
class HandbookBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HandbookBrowser(QWidget* parent);

    /// \return address of a page of the handbook, \a page being its name without suffix
    static QUrl address(QString const& page);

    /// Gives a page that says so where there is none, instead of leaving the reader where they were.
    QVariant loadResource(int type, QUrl const& name) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void space();
    void colour();
};
}
