#include "tlm/desktop_ui/MoneyAmountValidator.h"

#include <tlm/foundation/PresentationText.h>

#include <QDebug>
#include <QLocale>

#include <algorithm>

namespace tlm::desktop_ui::details {

namespace {

/// \return whether \a text is the one character \a sign; some locales write a sign with several
bool is(QString const& text, QChar sign)
{
    return text.size() == 1 && text.front() == sign;
}

QChar lastTyped(QString const& input, int pos)
{
    auto const place = std::max(pos - 1, 0);
    return place < input.size() ? input.at(place) : QChar();
}

QValidator::State judge(QString const& input, int pos, QString const& decimalPoint, QString const& negativeSign)
{
    auto const points = input.count(decimalPoint);
    if (points == 1 && is(decimalPoint, lastTyped(input, pos))) {
        return QValidator::Intermediate;
    }
    auto const isAllowed = [&](QChar sign) {
        return sign.isDigit() || is(decimalPoint, sign) || is(negativeSign, sign);
    };
    return points < 2 && std::ranges::all_of(input, isAllowed) ? QValidator::Acceptable : QValidator::Invalid;
}
}

MoneyAmountValidator::MoneyAmountValidator(fiscora::Currency const& code, foundation::QtPtr<QObject> parent)
    : QValidator(parent.get()), code_(code)
{}

QValidator::State MoneyAmountValidator::validate(QString& input, int& pos) const
{
    try {
        qDebug() << "Validating" << input << "at" << pos;
        if (input.isEmpty()) {
            return Intermediate;
        }
        QLocale const locale;
        auto const decimalPoint = locale.decimalPoint();
        input.replace('.', decimalPoint);
        return judge(input, pos, decimalPoint, locale.negativeSign());
    } catch (std::exception const& failure) {
        qWarning() << "Failure while validating input:" << input << foundation::presentationText(code_) << '\n'
                   << failure.what();
        input.remove(pos - 1, 1);
        --pos;
        return Invalid;
    }
}
}
