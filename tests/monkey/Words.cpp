#include "Words.h"

#include <engine/Household.h>
#include <tlm/accounting/AccountCode.h>

#include <QLocale>

namespace tallymere {

namespace {

QStringList oddTexts()
{
    auto const& separator = tlm::accounting::AccountCode::separator_;
    return {QString(),
            QStringLiteral(" "),
            QStringLiteral("a"),
            QStringLiteral("New Account"),
            QStringLiteral("New Bank"),
            QStringLiteral("No Parent"),
            QStringLiteral("  two  blanks  "),
            QStringLiteral("#< & > \"quoted\" %1 %2 \\n"),
            QStringLiteral("<b>bold</b>"),
            QStringLiteral("';--"),
            QStringLiteral("TXN 1"),
            QStringLiteral("two\nlines\tand a tab"),
            QStringLiteral(u"caf\u00E9"),
            QStringLiteral(u"cafe\u0301"),
            QStringLiteral(u"\U0001F3E6 money \U0001F4B6"),
            QStringLiteral(u"\u0628\u0646\u0643 \u0627\u0644\u0642\u062F\u0633"),
            QStringLiteral(u"\u05D7\u05E9\u05D1\u05D5\u05DF 12"),
            QStringLiteral(u"\u202Eright to left"),
            QStringLiteral(u"\u2002"),
            QStringLiteral(u"\u00B7"),
            separator,
            QStringLiteral("0") + separator + QStringLiteral("New Account"),
            QStringLiteral("1000") + separator + QStringLiteral("Cash"),
            separator + QStringLiteral("Cash"),
            QString(QChar(0xD800)),
            QStringLiteral(u"nothing\u0000behind"),
            QString(300, u'x'),
            QString(5'000, u'9')};
}

QStringList oddNumbers()
{
    auto const point = QLocale().decimalPoint();
    return {QStringLiteral("0"),
            QStringLiteral("1"),
            QStringLiteral("-1"),
            QStringLiteral("007"),
            QStringLiteral("25"),
            QStringLiteral("100"),
            QStringLiteral("1000"),
            QStringLiteral("12") + point + QStringLiteral("50"),
            QStringLiteral("-12") + point + QStringLiteral("50"),
            QStringLiteral("0") + point + QStringLiteral("004"),
            QStringLiteral("1,234.56"),
            QStringLiteral("1e9"),
            QStringLiteral("4294967295"),
            QStringLiteral("4294967296"),
            QStringLiteral("4294968296"), // 1000, if its upper bits get lost
            QStringLiteral("922337203685477"),
            QStringLiteral("9223372036854775807"),
            QStringLiteral("18446744073709551616"),
            QStringLiteral("99999999999999999999999")};
}

/// \return names and numbers in use, and names that differ from them in capitals and blanks alone
QStringList namesInUse(engine::Household const& household)
{
    QStringList names;
    auto const& content = household.content();
    for (auto const& [number, account] : content.books.accounts) {
        names << account.code.name() << presentationText(number) << presentationText(account.code);
    }
    for (auto const& [name, bank] : content.books.banks) {
        names << name.institution() << name.institution().toUpper();
    }
    for (auto const& [identifier, item] : content.items) {
        names << identifier.source.name() << QLatin1Char(' ') + identifier.source.name().toLower();
    }
    return names;
}
}

QStringList words(engine::Household const& household)
{
    return oddTexts() + oddNumbers() + namesInUse(household);
}
}
