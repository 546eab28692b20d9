#include "HandbookBrowser.h"

#include <QDebug>
#include <QEvent>
#include <QFile>
#include <QTextBlock>
#include <QTextCursor>

#include <vector>

namespace tlm::adjutor {

namespace {

/// \return path of the resource that \a name addresses, empty for anything else
QString resourcePath(QUrl const& name)
{
    return name.scheme() == QStringLiteral("qrc") ? u':' + name.path() : QString();
}

std::vector<QTextCursor> linksOf(QTextDocument* document)
{
    std::vector<QTextCursor> links;
    for (auto block = document->begin(); block.isValid(); block = block.next()) {
        for (auto each = block.begin(); !each.atEnd(); ++each) {
            if (auto const fragment = each.fragment(); fragment.charFormat().isAnchor()) {
                QTextCursor& link = links.emplace_back(document);
                link.setPosition(fragment.position());
                link.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            }
        }
    }
    return links;
}
}

HandbookBrowser::HandbookBrowser(QWidget* parent) : QTextBrowser(parent)
{
    setOpenExternalLinks(true);
    document()->setDocumentMargin(2.0 * fontMetrics().averageCharWidth());
    connect(this, &QTextBrowser::sourceChanged, this, &HandbookBrowser::colourLinks);
}

QUrl HandbookBrowser::address(QString const& page)
{
    return QUrl(QStringLiteral("qrc:/handbook/%1.md").arg(page));
}

QVariant HandbookBrowser::loadResource(int type, QUrl const& name)
{
    auto const resolved = source().resolved(name);
    if (QFile::exists(resourcePath(resolved))) {
        return QTextBrowser::loadResource(type, resolved);
    }
    qWarning() << "The handbook has nothing at" << resolved.toString();
    if (type == QTextDocument::ImageResource) {
        return {};
    }
    return tr("# This page is missing\n\nThe handbook has no page at this address. The [contents](%1) list all pages.")
        .arg(address(QStringLiteral("index")).toString());
}

void HandbookBrowser::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        colourLinks();
    }
}

/// Markdown is laid out with the link colour of the moment, and keeps it when the palette changes.
void HandbookBrowser::colourLinks()
{
    QTextCharFormat format;
    format.setForeground(palette().link());
    for (auto& link : linksOf(document())) {
        link.mergeCharFormat(format);
    }
}
}
