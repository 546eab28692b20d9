#include "Checked.h"
#include "Texts.h"

#include <fiscora/Money.h>
#include <fiscora/MoneyParts.h>

#include <stdexcept>
#include <vector>

namespace fiscora {

namespace {

constexpr char32_t arabicDecimalSeparator = U'\u066B';
constexpr std::size_t codeLength = 3;

[[noreturn]] void refuse(QString const& sentence)
{
    throw std::invalid_argument(sentence.toStdString());
}

/// Marks that locales put beside a minus so that it stands on the right side; they mean nothing here.
bool isDirectionMark(char32_t sign)
{
    return sign == U'\u061C' || sign == U'\u200E' || sign == U'\u200F';
}

bool isMinus(char32_t sign)
{
    return sign == U'-' || sign == U'\u2212';
}

bool isDigit(char32_t sign)
{
    return QChar::category(sign) == QChar::Number_DecimalDigit;
}

/// A point outside of ASCII reaches us as 0, or as what stands for the unknown.
char32_t pointOrDefault(char decimalPoint)
{
    auto const point = static_cast<unsigned char>(decimalPoint);
    return point == 0 || point == '?' || point >= 0x80 ? U'.' : point;
}

/// Reads the signs of an amount one after the other.
class AmountReader
{
public:
    AmountReader(std::string const& text, char decimalPoint) : point_(pointOrDefault(decimalPoint))
    {
        for (auto const sign : QString::fromStdString(text).toUcs4()) {
            if (!isDirectionMark(sign)) {
                signs_.push_back(sign);
            }
        }
    }

    bool isAtEnd() const { return next_ == signs_.size(); }

    bool takeMinus() { return takeIf(isMinus); }

    bool takePoint()
    {
        return takeIf([this](char32_t sign) { return sign == point_ || sign == arabicDecimalSeparator; });
    }

    /// \return the values of all digits up to the next other sign
    std::vector<int> takeDigits()
    {
        std::vector<int> digits;
        while (takeIf(isDigit)) {
            digits.push_back(QChar::digitValue(signs_[next_ - 1]));
        }
        return digits;
    }

private:
    template <typename Predicate>
    bool takeIf(Predicate accepts)
    {
        auto const isTaken = !isAtEnd() && accepts(signs_[next_]);
        next_ += isTaken ? 1 : 0;
        return isTaken;
    }

    char32_t point_;
    std::vector<char32_t> signs_;
    std::size_t next_ = 0;
};

Currency codeAtEnd(std::string const& text)
{
    return toCurrency(text.size() < codeLength ? text : text.substr(text.size() - codeLength));
}

long long number(std::vector<int> const& digits, bool isNegative)
{
    // Each digit goes the sign's way, since the least whole number has no positive counterpart.
    long long value = 0;
    for (auto const digit : digits) {
        value = checked::add(checked::multiply(value, 10), isNegative ? -digit : digit);
    }
    return value;
}

MoneyParts makeParts(Currency code, bool isNegative, std::vector<int> const& whole, std::vector<int> fraction)
{
    if (fraction.size() > storedDigits(code)) {
        refuse(Texts::tr("There are too many digits after the decimal point. Leave out the last ones."));
    }
    auto const hasMinor = !fraction.empty() && minorUnitDigits(code) > 0;
    fraction.resize(storedDigits(code));
    auto const subMinorBegin = fraction.begin() + minorUnitDigits(code);
    auto const minor = static_cast<unsigned short>(number({fraction.begin(), subMinorBegin}, false));
    auto subMinor = static_cast<unsigned short>(number({subMinorBegin, fraction.end()}, false));
    auto const major = number(whole, isNegative);
    if (isNegative && major == 0 && (minor != 0 || subMinor != 0)) {
        subMinor |= MoneyParts::minusFlag_;
    }
    return {code, major, hasMinor ? std::optional(minor) : std::nullopt, subMinor};
}
}

MoneyParts split(std::string const& text, char decimalPoint)
{
    auto const code = codeAtEnd(text);
    AmountReader reader(text.substr(0, text.size() - codeLength), decimalPoint);
    if (code == Currency::XXX) {
        if (!reader.isAtEnd()) {
            refuse(Texts::tr("This amount has no currency. Choose one."));
        }
        return {code, 0, std::nullopt, 0};
    }
    if (reader.isAtEnd()) {
        refuse(Texts::tr("There is no amount. Enter one, or a zero."));
    }
    auto const isNegative = reader.takeMinus();
    auto const whole = reader.takeDigits();
    auto const fraction = reader.takePoint() ? reader.takeDigits() : std::vector<int>();
    if (!reader.isAtEnd() || (whole.empty() && fraction.empty())) {
        refuse(Texts::tr("This isn't an amount. Enter digits with at most one decimal point, and a minus "
                         "only in front."));
    }
    return makeParts(code, isNegative, whole, fraction);
}
}
