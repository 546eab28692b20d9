#include <tlm/conversion/ConversionMap.h>
#include <tlm/foundation/Error.h>

#include <QCoreApplication>

#include <cmath>

namespace tlm::conversion {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(tlm::conversion::ConversionMap)
};

/// \return whether \a fetched lies within the time for which rates last. A clock that was wrong may tell any time.
bool isFresh(ConversionMap::TimePoint const& fetched)
{
    auto const now = std::chrono::time_point_cast<ConversionMap::TimePoint::duration>(std::chrono::system_clock::now());
    return now - ConversionMap::lookedUpRatesLast_ <= fetched && fetched <= now;
}

QString codeOf(fiscora::Currency const& currency)
{
    return QString::fromStdString(fiscora::toStdString(currency));
}
}

bool ConversionMap::hasConversion(fiscora::Currency const& from, fiscora::Currency const& to,
                                  AllowExpiredConversion const& allowExpired) const
{
    auto const row = rates_.find(from);
    if (row == rates_.end() || !row->second.contains(to)) {
        return false;
    }
    return allowExpired.value || !isLookedUp(from, to) || isFresh(lastFetched_);
}

fiscora::FloatingPoint const& ConversionMap::conversion(fiscora::Currency const& from,
                                                        fiscora::Currency const& to) const
{
    if (!hasConversion(from, to, AllowExpiredConversion{true})) {
        throw foundation::Error(Texts::tr("There is no exchange rate from %1 to %2. Enter one with the exchange rates.")
                                    .arg(codeOf(from), codeOf(to)));
    }
    return rates_.at(from).at(to);
}

void ConversionMap::updateConversion(fiscora::Currency const& from, fiscora::Currency const& to,
                                     fiscora::FloatingPoint rate, RateLookedUp const& lookedUp)
{
    if (!std::isfinite(rate.underlying()) || rate.underlying() <= 0) {
        throw foundation::Error(
            Texts::tr("The exchange rate from %1 to %2 must be a number above zero.").arg(codeOf(from), codeOf(to)));
    }
    rates_[from].insert_or_assign(to, rate);
    if (lookedUp.value) {
        lookedUp_.emplace(from, to);
        lastFetched_ = std::chrono::time_point_cast<TimePoint::duration>(std::chrono::system_clock::now());
    } else {
        lookedUp_.erase({from, to});
    }
}

bool ConversionMap::isLookedUp(fiscora::Currency const& from, fiscora::Currency const& to) const
{
    auto const row = rates_.find(from);
    return row != rates_.end() && row->second.contains(to) && lookedUp_.contains({from, to});
}

bool operator==(ConversionMap const& left, ConversionMap const& right)
{
    return left.lastFetched_ == right.lastFetched_ && left.rates_ == right.rates_ &&
           left.lookedUpDirections() == right.lookedUpDirections();
}

std::set<ConversionMap::Direction> ConversionMap::lookedUpDirections() const
{
    auto directions = lookedUp_;
    std::erase_if(directions, [this](Direction const& each) { return !isLookedUp(each.first, each.second); });
    return directions;
}
}
