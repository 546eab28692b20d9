#pragma once

#include <tlm/adjutor/HelpWidget.h>

#include <QAction>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

#include <support/Widgets.h>

namespace tlm::adjutor {

inline QTextBrowser& browser(HelpWidget const& help)
{
    return testing::child<QTextBrowser>(help, QStringLiteral("handbookTxtbrwsr"));
}

inline QAction& action(HelpWidget const& help, char const* name)
{
    return testing::child<QAction>(help, QString::fromLatin1(name));
}

/// \return the page's first line, its heading
inline QString heading(HelpWidget const& help)
{
    return browser(help).document()->firstBlock().text();
}

inline QList<QTextFragment> fragments(QTextDocument const& document)
{
    QList<QTextFragment> found;
    for (auto block = document.begin(); block.isValid(); block = block.next()) {
        for (auto each = block.begin(); !each.atEnd(); ++each) {
            found.append(each.fragment());
        }
    }
    return found;
}

/// \return addresses that the page links to, in order, as they are written
inline QStringList links(QTextDocument const& document)
{
    QStringList found;
    for (auto const& fragment : fragments(document)) {
        if (fragment.charFormat().isAnchor()) {
            found.append(fragment.charFormat().anchorHref());
        }
    }
    return found;
}
}
