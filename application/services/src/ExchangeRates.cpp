#include <fiscora/Conversions.h>
#include <services/ExchangeRates.h>

namespace tallymere::services {

void registerExchangeRates(tlm::conversion::ConversionMap const& rates)
{
    fiscora::clearConversions();
    for (auto const& [from, targets] : rates.rates()) {
        for (auto const& [to, rate] : targets) {
            fiscora::registerConversion(from, to, rate);
        }
    }
}
} // namespace tallymere::services
