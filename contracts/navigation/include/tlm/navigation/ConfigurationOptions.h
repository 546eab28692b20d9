#pragma once

namespace tlm::navigation {

/// Which of its two wordings the interface speaks. Chosen once, when the main window is made.
struct ConfigurationOptions
{
    bool isAccounting = false;      ///< accounts and ledgers; false: planning and journalling
    bool usesEverydayTerms = false; ///< everyday captions of a transaction's two sides, even in the accounting wording

    friend bool operator==(ConfigurationOptions const&, ConfigurationOptions const&) = default;
};
}
