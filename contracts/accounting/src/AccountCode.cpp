#include "Texts.h"

#include <tlm/accounting/AccountCode.h>
#include <tlm/foundation/Error.h>

#include <algorithm>
#include <utility>

namespace tlm::accounting {

namespace {

bool isUnreadable(QChar sign)
{
    return sign.category() == QChar::Other_Control || sign.category() == QChar::Separator_Line ||
           sign.category() == QChar::Separator_Paragraph;
}

/// Refusing the separator's blank, and not only the whole separator, keeps a name from making up a second one with the
/// separator before it. The dot stays free: some languages write words with it.
void check(QString const& name)
{
    if (name.trimmed().isEmpty()) {
        throw foundation::Error(Texts::tr("The account has no name. Type one, such as \"Groceries\"."));
    }
    if (std::ranges::any_of(name, isUnreadable) || !name.isValidUtf16()) {
        throw foundation::Error(
            Texts::tr("The account's name holds signs that can't be shown, such as a line break. Type the name anew."));
    }
    if (name.contains(AccountCode::separator_.front())) {
        throw foundation::Error(
            Texts::tr("The account's name holds a blank of unusual width, which parts numbers from names in "
                      "lists. Type an ordinary blank in its place."));
    }
}
}

AccountCode::AccountCode(AccountNumber number, QString name, std::optional<AccountNumber> parent)
    : number_(number), name_(std::move(name)), parent_(parent)
{
    check(name_);
}

AccountCode::AccountCode(QString name, std::optional<AccountNumber> parent)
    : AccountCode(AccountNumber(), std::move(name), parent)
{}

QString presentationText(AccountCode const& code)
{
    return presentationText(code.number()) + AccountCode::separator_ + code.name();
}

AccountCode toAccountCode(QString const& text)
{
    if (text == presentationText(AccountCode())) {
        return {};
    }
    auto const end = text.indexOf(AccountCode::separator_);
    auto isNumber = false;
    AccountNumber const number(text.left(std::max(end, qsizetype(0))).toUInt(&isNumber));
    if (!isNumber) {
        throw foundation::Error(Texts::tr("\"%1\" isn't the number and name of an account.").arg(text));
    }
    return {number, text.mid(end + AccountCode::separator_.size()), std::nullopt};
}

std::optional<AccountCode> find(AccountNumber const& number, std::set<AccountCode> const& codes)
{
    AccountCode first; // a code without a name comes before those with one
    first.number_ = number;
    auto const found = codes.lower_bound(first);
    return found == codes.end() || *found != number ? std::nullopt : std::optional(*found);
}

QDebug operator<<(QDebug debug, AccountCode const& code)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "AccountCode(" << code.number().integer() << ", " << code.name();
    if (code.parent()) {
        debug << ", parent " << code.parent()->integer();
    }
    debug << ')';
    return debug;
}
}
