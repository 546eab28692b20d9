#include <tlm/foundation/Error.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace tlm::navigation {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(tlm::navigation::CurrencyDisplayOptions)
};

constexpr std::array allOptions{CurrencyDisplayOptions::Code, CurrencyDisplayOptions::SymbolAndCode,
                                CurrencyDisplayOptions::NameAndCode};

std::logic_error unknown(CurrencyDisplayOptions option)
{
    return std::logic_error("There is no currency display option " + std::to_string(static_cast<unsigned int>(option)) +
                            ".");
}
}

QString presentationText(CurrencyDisplayOptions const& option)
{
    switch (option) {
    case CurrencyDisplayOptions::Code:
        return Texts::tr("Code");
    case CurrencyDisplayOptions::SymbolAndCode:
        return Texts::tr("Symbol and code");
    case CurrencyDisplayOptions::NameAndCode:
        return Texts::tr("Name and code");
    }
    throw unknown(option);
}

CurrencyDisplayOptions toCurrencyDisplayOptions(QString const& text)
{
    auto const found = std::ranges::find(allOptions, text, &presentationText);
    if (found == allOptions.end()) {
        throw foundation::Error(Texts::tr("\"%1\" is not a way to show a currency.").arg(text));
    }
    return *found;
}

QString toDisplayable(fiscora::Currency const& code, CurrencyDisplayOptions option)
{
    if (code == fiscora::Currency::XXX) {
        return {};
    }
    // The code stands first, where a list finds it by typing. No brackets, since captions put these texts into some.
    auto text = QString::fromStdString(fiscora::toStdString(code));
    switch (option) {
    case CurrencyDisplayOptions::Code:
        return text;
    case CurrencyDisplayOptions::SymbolAndCode: {
        auto const symbol = fiscora::currencySymbol(code);
        return symbol ? QStringLiteral("%1 %2").arg(text, QString::fromStdString(*symbol)) : text;
    }
    case CurrencyDisplayOptions::NameAndCode:
        return QStringLiteral("%1 \u2013 %2").arg(text, QString::fromStdString(fiscora::currencyName(code)));
    }
    throw unknown(option);
}

fiscora::Currency toCurrencyFromDisplayable(QString const& text, std::set<fiscora::Currency> const& usable,
                                            CurrencyDisplayOptions option)
{
    if (text.isEmpty()) {
        return fiscora::Currency::XXX;
    }
    auto const found =
        std::ranges::find(usable, text, [option](fiscora::Currency code) { return toDisplayable(code, option); });
    if (found == usable.end()) {
        throw foundation::Error(Texts::tr("\"%1\" is not one of the usable currencies.").arg(text));
    }
    return *found;
}

QDebug operator<<(QDebug debug, CurrencyDisplayOptions option)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "CurrencyDisplayOptions(" << static_cast<unsigned int>(option) << ')';
    return debug;
}
}
