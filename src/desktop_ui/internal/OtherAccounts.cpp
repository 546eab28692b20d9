#include "internal/OtherAccounts.h"

#include <QApplication>
#include <QFontMetrics>

#include <algorithm>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;

OtherAccounts::OtherAccounts(std::vector<AccountCode> accounts, AccountCode const& ledger) : codes_(std::move(accounts))
{
    std::ranges::sort(codes_);
    QFontMetrics const metrics(QApplication::font("QComboBox"));
    auto widest = 0;
    for (auto const& code : codes_) {
        // The number alone tells the ledger: its code may have lost its parent.
        if (code.number() != ledger.number()) {
            auto const text = presentationText(code);
            rows_.emplace(text, static_cast<int>(texts_.size()));
            texts_.append(text);
            if (auto const width = metrics.horizontalAdvance(text); width > widest) {
                widest = width;
                widestText_ = text;
            }
        }
    }
}

int OtherAccounts::rowOf(AccountCode const& account) const
{
    return rows_.value(presentationText(account), 0);
}
}
