#include <tlm/foundation/PresentationText.h>

#include <QLocale>
#include <QRegularExpression>

namespace tlm::foundation {

namespace {

constexpr QChar symbolPlace(0xE000); // for private use, so that no locale's pattern has it

bool isEmpty(fiscora::Money const& money)
{
    return money == fiscora::Money();
}

/// \return \a digits, which are ASCII, in the digits of \a locale
QString localDigits(QLocale const& locale, QStringView digits)
{
    auto const zero = locale.zeroDigit().toUcs4().constFirst();
    QString local;
    for (auto const digit : digits) {
        auto const sign = static_cast<char32_t>(zero + static_cast<uint>(digit.digitValue()));
        local += QString::fromUcs4(&sign, 1);
    }
    return local;
}

/// An amount of money in its pieces, in the signs of a locale, but without any sign of its own.
struct Pieces
{
    bool isNegative;
    QString whole;
    QString fraction; ///< empty, or with its decimal point
};

Pieces takeApart(QLocale const& locale, fiscora::Money const& money, bool inGroups)
{
    auto const isNegative = money < 0;
    auto const decimal = QString::fromStdString(fiscora::toDecimal(money)).mid(isNegative ? 1 : 0);
    auto const point = decimal.indexOf('.');
    auto const whole = point < 0 ? decimal : decimal.left(point);
    auto const fraction = point < 0 ? QString() : locale.decimalPoint() + localDigits(locale, decimal.mid(point + 1));
    return {isNegative, inGroups ? locale.toString(whole.toULongLong()) : localDigits(locale, whole), fraction};
}

/// \return the symbol as it stands in \a pattern beside \a one, parted from the number when it ends in a letter there
QString spaced(QString const& symbol, QString const& pattern, QString const& one)
{
    auto const place = pattern.indexOf(symbolPlace);
    auto const isInFront = place < pattern.indexOf(one);
    auto const towardsNumber = isInFront ? symbol.back() : symbol.front();
    auto const neighbour = pattern.at(isInFront ? place + 1 : place - 1);
    if (!towardsNumber.isLetter() || neighbour.isSpace()) {
        return symbol;
    }
    return isInFront ? symbol + QChar::Nbsp : QChar::Nbsp + symbol;
}
}

QString presentationText(fiscora::Money const& money)
{
    if (isEmpty(money)) {
        return {};
    }
    QLocale const locale;
    auto const [isNegative, whole, fraction] = takeApart(locale, money, false);
    return (isNegative ? locale.negativeSign() : QString()) + whole + fraction;
}

QString presentationText(fiscora::Money const& money, WithCurrency const& /*tag*/)
{
    return isEmpty(money) ? QString() : presentationText(money) + ' ' + presentationText(money.code());
}

QString presentationText(fiscora::Money const& money, LocaleAware const& /*tag*/, WithCurrency const& /*tag*/)
{
    if (isEmpty(money)) {
        return {};
    }
    QLocale const locale;
    auto const [isNegative, whole, fraction] = takeApart(locale, money, true);
    auto const symbol =
        QString::fromStdString(fiscora::currencySymbol(money.code()).value_or(fiscora::toStdString(money.code())));
    // QLocale formats amounts from double alone, so it only lends the pattern: where sign and symbol stand by a one.
    auto const one = locale.toString(1);
    auto pattern = locale.toCurrencyString(isNegative ? -1 : 1, symbolPlace);
    auto const shownSymbol = spaced(symbol, pattern, one);
    return pattern.replace(one, whole + fraction).replace(symbolPlace, shownSymbol);
}

QString presentationText(fiscora::Currency const& code)
{
    return QString::fromStdString(fiscora::toStdString(code));
}

QString presentationText(QDate const& date)
{
    static QRegularExpression const twoDigitYear("(?<!y)yy(?!y)");
    QLocale const locale;
    return locale.toString(date, locale.dateFormat(QLocale::ShortFormat).replace(twoDigitYear, "yyyy"));
}
}

namespace fiscora {

QDebug operator<<(QDebug debug, Currency const& code)
{
    QDebugStateSaver const saver(debug);
    debug.noquote() << QString::fromStdString(toStdString(code));
    return debug;
}

QDebug operator<<(QDebug debug, Money const& money)
{
    QDebugStateSaver const saver(debug);
    debug.noquote() << QString::fromStdString(toStdString(money));
    return debug;
}
}
