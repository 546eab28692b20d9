#include "HandbookBrowser.h"

#include <QDebug>
#include <QEvent>
#include <QFile>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>

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

std::vector<QTextTable*> tablesOf(QTextDocument const& document)
{
    std::vector<QTextTable*> tables;
    for (auto* const frame : document.rootFrame()->childFrames()) {
        if (auto* const table = qobject_cast<QTextTable*>(frame)) {
            tables.push_back(table);
        }
    }
    return tables;
}
}

HandbookBrowser::HandbookBrowser(QWidget* parent) : QTextBrowser(parent)
{
    setOpenExternalLinks(true);
    document()->setDocumentMargin(2.0 * fontMetrics().averageCharWidth());
    connect(this, &QTextBrowser::sourceChanged, this, &HandbookBrowser::space);
    connect(this, &QTextBrowser::sourceChanged, this, &HandbookBrowser::colour);
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
        colour();
    }
}

/// Markdown tells nothing of margins, and Qt leaves hardly any around headings and tables.
void HandbookBrowser::space()
{
    auto const line = static_cast<double>(fontMetrics().height());
    for (auto block = document()->begin().next(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0) {
            QTextBlockFormat format;
            format.setTopMargin(1.2 * line);
            QTextCursor(block).mergeBlockFormat(format);
        }
    }
    for (auto* const table : tablesOf(*document())) {
        auto format = table->format();
        format.setBorderCollapse(true);
        format.setBorder(1.0);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setCellSpacing(0.0);
        format.setCellPadding(0.25 * line);
        format.setTopMargin(0.4 * line);
        format.setBottomMargin(0.6 * line);
        table->setFormat(format);
    }
}

/// A page is laid out with the colours of the moment, and keeps them when the palette changes.
void HandbookBrowser::colour()
{
    QTextCharFormat format;
    format.setForeground(palette().link());
    for (auto& link : linksOf(document())) {
        link.mergeCharFormat(format);
    }
    auto faint = palette().color(QPalette::Text);
    faint.setAlphaF(0.3F);
    for (auto* const table : tablesOf(*document())) {
        auto lined = table->format();
        lined.setBorderBrush(faint);
        table->setFormat(lined);
    }
}
}
