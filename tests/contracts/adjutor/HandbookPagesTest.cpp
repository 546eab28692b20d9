#include "Handbook.h"

#include <QDir>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QTextTable>

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tlm::adjutor {

namespace {

QUrl address(QString const& file)
{
    return QUrl(QStringLiteral("qrc:/handbook/") + file);
}

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::Link, QColor(130, 180, 255));
    return palette;
}

double luminance(QColor const& colour)
{
    auto const linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// As the Web Content Accessibility Guidelines define it; 4.5 is their least for running text.
double contrast(QColor const& one, QColor const& other)
{
    auto const [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

class HandbookPagesTest : public ::testing::Test
{
protected:
    HandbookPagesTest() { help.displayStartPage(); }

    QStringList files() const { return QDir(QStringLiteral(":/handbook")).entryList({QStringLiteral("*.md")}); }
    void show(QString const& file) { browser(help).setSource(address(file)); }
    QString pageText() const { return browser(help).toPlainText(); }

    HelpWidget help{nullptr};
};

TEST_F(HandbookPagesTest, EveryPageIsReachedFromTheContents)
{
    QSet<QString> reached;
    QStringList ahead{QStringLiteral("index.md")};
    while (!ahead.isEmpty()) {
        auto const file = ahead.takeFirst();
        if (reached.contains(file)) {
            continue;
        }
        reached.insert(file);
        show(file);
        ahead += links(*browser(help).document());
    }

    auto const all = files();
    EXPECT_GE(all.size(), 6);
    EXPECT_EQ(reached, QSet<QString>(all.begin(), all.end()));
}

TEST_F(HandbookPagesTest, TheContentsNameEveryPageThemselves)
{
    auto const named = links(*browser(help).document());

    for (auto const& file : files()) {
        EXPECT_TRUE(file == QStringLiteral("index.md") || named.contains(file)) << file.toStdString();
    }
}

TEST_F(HandbookPagesTest, EveryPageHasAHeadingAndLeadsBackToTheContents)
{
    for (auto const& file : files()) {
        show(file);

        auto const& document = *browser(help).document();
        EXPECT_EQ(document.firstBlock().blockFormat().headingLevel(), 1) << file.toStdString();
        if (file != QStringLiteral("index.md")) {
            EXPECT_EQ(links(document).last(), QStringLiteral("index.md")) << file.toStdString();
        }
    }
}

TEST_F(HandbookPagesTest, EveryLinkLeadsToAPageOfTheHandbook)
{
    for (auto const& file : files()) {
        show(file);
        for (auto const& link : links(*browser(help).document())) {
            EXPECT_TRUE(files().contains(link)) << link.toStdString() << " on " << file.toStdString();
        }
    }
}

TEST_F(HandbookPagesTest, EveryImageResolves)
{
    for (auto const& file : files()) {
        show(file);
        for (auto const& fragment : fragments(*browser(help).document())) {
            if (fragment.charFormat().isImageFormat()) {
                QUrl const image(fragment.charFormat().toImageFormat().name());
                EXPECT_TRUE(browser(help).loadResource(QTextDocument::ImageResource, image).isValid())
                    << image.toString().toStdString() << " on " << file.toStdString();
            }
        }
    }
}

TEST_F(HandbookPagesTest, NoMarkOfMarkdownIsLeftInTheText)
{
    static QRegularExpression const marks(QStringLiteral(R"(\*\*|\]\(|\|--|^#|^\|)"),
                                          QRegularExpression::MultilineOption);
    for (auto const& file : files()) {
        show(file);

        EXPECT_FALSE(pageText().contains(marks)) << file.toStdString();
    }
}

TEST_F(HandbookPagesTest, EveryRowOfATableIsAsWideAsItsHeading)
{
    for (auto const& file : files()) {
        show(file);
        for (auto* const frame : browser(help).document()->rootFrame()->childFrames()) {
            auto* const table = qobject_cast<QTextTable*>(frame);
            ASSERT_NE(table, nullptr) << file.toStdString();
            for (int column = 0; column < table->columns(); ++column) {
                EXPECT_FALSE(table->cellAt(0, column).firstCursorPosition().block().text().isEmpty())
                    << file.toStdString();
            }
        }
    }
}

class HandbookColoursTest : public HandbookPagesTest, public ::testing::WithParamInterface<bool>
{};

TEST_P(HandbookColoursTest, EveryTextStandsOutFromThePage)
{
    auto const palette = GetParam() ? darkPalette() : QPalette(QColor(239, 239, 239));
    help.setPalette(palette);

    for (auto const& file : files()) {
        show(file);
        for (auto const& fragment : fragments(*browser(help).document())) {
            auto const format = fragment.charFormat();
            auto const ink = format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground().color()
                                                                              : browser(help).palette().text().color();
            auto const paper = format.hasProperty(QTextFormat::BackgroundBrush)
                                   ? format.background().color()
                                   : browser(help).palette().base().color();
            EXPECT_GE(contrast(ink, paper), 4.5) << fragment.text().toStdString() << " on " << file.toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, HandbookColoursTest, ::testing::Bool());

TEST_F(HandbookPagesTest, LinksFollowAChangeOfColoursWhileThePageStaysWhereItIs)
{
    help.resize(500, 200);
    help.show();
    show(QStringLiteral("frequencies.md"));
    auto* const scrollBar = browser(help).verticalScrollBar();
    scrollBar->setValue(scrollBar->maximum() / 2);
    auto const position = scrollBar->value();

    help.setPalette(darkPalette());

    for (auto const& fragment : fragments(*browser(help).document())) {
        if (fragment.charFormat().isAnchor()) {
            EXPECT_EQ(fragment.charFormat().foreground().color(), darkPalette().link().color());
        }
    }
    EXPECT_GT(position, 0);
    EXPECT_EQ(scrollBar->value(), position);
}
}
}
