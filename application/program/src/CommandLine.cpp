#include <program/CommandLine.h>

#include <QCommandLineParser>
#include <QCoreApplication>

namespace tallymere::program {

namespace {

constexpr auto wrongArgument = 2;

QString translated(char const* text)
{
    return QCoreApplication::translate("CommandLine", text);
}

Answer refuse(QString const& sentence)
{
    return {translated("tallymere: %1").arg(sentence), wrongArgument};
}

StartOptions optionsOf(QCommandLineParser const& parser)
{
    StartOptions options;
    options.isSample = parser.isSet(QStringLiteral("sample"));
    if (parser.isSet(QStringLiteral("accounting")) || parser.isSet(QStringLiteral("planning"))) {
        options.isAccounting = parser.isSet(QStringLiteral("accounting"));
    }
    if (auto const files = parser.positionalArguments(); !files.isEmpty()) {
        options.filePathName = files.constFirst();
    }
    return options;
}

/// \return what is wrong with arguments that are each well formed, empty if nothing is
QString contradiction(QCommandLineParser const& parser)
{
    if (parser.positionalArguments().size() > 1) {
        return translated("Only one budget file can be opened at a time.");
    }
    if (parser.isSet(QStringLiteral("sample")) && !parser.positionalArguments().isEmpty()) {
        return translated("Give either --sample or a budget file, not both.");
    }
    if (parser.isSet(QStringLiteral("accounting")) && parser.isSet(QStringLiteral("planning"))) {
        return translated("Give either --accounting or --planning, not both.");
    }
    return {};
}
}

std::variant<StartOptions, Answer> readCommandLine(QStringList const& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(translated("Plans a household budget and keeps its books."));
    // Qt's own help option comes with one for Qt's options, none of which this program takes.
    QCommandLineOption const help({QStringLiteral("h"), QStringLiteral("help")}, translated("Show this help."));
    parser.addOption(help);
    auto const version = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("file"), translated("The budget file to open."),
                                 QStringLiteral("[FILE.budget]"));
    parser.addOptions({
        {QStringLiteral("sample"), translated("Open a sample household to look around in.")},
        {QStringLiteral("accounting"), translated("Use the accounting wording: accounts and ledgers.")},
        {QStringLiteral("planning"), translated("Use the planning wording: transfers and refunds.")},
    });
    if (!parser.parse(arguments)) {
        return refuse(parser.errorText());
    }
    if (parser.isSet(help)) {
        return Answer{parser.helpText(), 0};
    }
    if (parser.isSet(version)) {
        return Answer{QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion(),
                      0};
    }
    if (auto const wrong = contradiction(parser); !wrong.isEmpty()) {
        return refuse(wrong);
    }
    return optionsOf(parser);
}
}
