#pragma once

#include <tlm/banking/Bank.h>
#include <tlm/banking/BankName.h>

#include <map>

namespace tlm::banking {

/// Banks in the order of their names, each under its own name.
struct BankMap : std::map<BankName, Bank>
{
    using std::map<BankName, Bank>::map;
};
}
