#include "Texts.h"

#include <tlm/accounting/TransactionNumber.h>
#include <tlm/foundation/Error.h>

#include <QRegularExpression>

#include <algorithm>

namespace tlm::accounting {

namespace {

bool isDigit(QChar sign)
{
    return sign >= QLatin1Char('0') && sign <= QLatin1Char('9');
}

/// \return what stands in \a text where transactionCaption() has its number, empty when it isn't that caption
QString filledIn(QString const& text)
{
    auto const caption = transactionCaption();
    auto const place = caption.indexOf(QStringLiteral("%1"));
    auto const before = QStringView(caption).left(place);
    auto const after = QStringView(caption).mid(place + 2);
    if (place < 0 || text.size() <= before.size() + after.size() || !text.startsWith(before) || !text.endsWith(after)) {
        return {};
    }
    auto const number = text.mid(before.size(), text.size() - before.size() - after.size());
    return std::ranges::all_of(number, isDigit) ? number : QString();
}

/// \return the only digits of \a text, empty when there are none, or several groups of them
QString onlyDigits(QString const& text)
{
    static QRegularExpression const lonely(QStringLiteral("^[^0-9]*([0-9]+)[^0-9]*$"));
    return lonely.match(text).captured(1);
}
}

QString presentationText(TransactionNumber const& number)
{
    return QString::number(number.integer());
}

QString transactionCaption()
{
    return Texts::tr("TXN %1");
}

std::optional<TransactionNumber> toTransactionNumber(QString const& text)
{
    if (text.isEmpty()) {
        return std::nullopt;
    }
    // A translation may have digits of its own, which only the caption itself can tell from the number.
    auto const captioned = filledIn(text);
    auto isNumber = false;
    TransactionNumber const number((captioned.isEmpty() ? onlyDigits(text) : captioned).toUShort(&isNumber));
    if (!isNumber) {
        throw foundation::Error(Texts::tr("\"%1\" tells no transaction's number.").arg(text));
    }
    return number;
}

QDebug operator<<(QDebug debug, TransactionNumber const& number)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "TransactionNumber(" << number.integer() << ')';
    return debug;
}
}
