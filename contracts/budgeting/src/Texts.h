#pragma once

#include <QCoreApplication>

namespace tlm::budgeting {

/// Sentences of this library for people, where translators find them.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(tlm::budgeting)
};
}
