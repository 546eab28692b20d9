#pragma once

#include <QCoreApplication>

namespace tlm::accounting {

/// Sentences of this library for people, where translators find them.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(tlm::accounting)
};
}
