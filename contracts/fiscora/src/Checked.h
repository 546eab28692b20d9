#pragma once

#include <stdexcept>

/// 64-bit arithmetic that raises where the machine's would wrap. The texts reach people.
namespace fiscora::checked {

[[noreturn]] void raiseOverflow();

inline long long add(long long left, long long right)
{
    long long sum = 0;
    if (__builtin_add_overflow(left, right, &sum)) {
        raiseOverflow();
    }
    return sum;
}

inline long long subtract(long long left, long long right)
{
    long long difference = 0;
    if (__builtin_sub_overflow(left, right, &difference)) {
        raiseOverflow();
    }
    return difference;
}

inline long long multiply(long long left, long long right)
{
    long long product = 0;
    if (__builtin_mul_overflow(left, right, &product)) {
        raiseOverflow();
    }
    return product;
}

inline long long powerOfTen(unsigned int exponent)
{
    long long power = 1;
    for (; exponent > 0; --exponent) {
        power = multiply(power, 10);
    }
    return power;
}
}
