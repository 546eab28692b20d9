#pragma once

#include <QLatin1StringView>

/// What the product says about itself, the same in every language.
namespace tlm::desktop_ui::internal {

inline constexpr QLatin1StringView ProductName("Tallymere");
inline constexpr QLatin1StringView ProductShortName("TLM");
inline constexpr QLatin1StringView ProductVersion("1.0.0");
inline constexpr QLatin1StringView HomePage("https://tallymere.example/");
}
