#pragma once

#include <QLocale>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>

namespace tlm::testing {

/// Runs \a body in a process of its own, in which \a locale is the default one, and expects its assertions to hold.
///
/// For what a process takes from its locale once. The test's fixture is made there, too, so it must not take it first.
inline void inOwnProcess(QLocale const& locale, std::function<void()> const& body)
{
    auto const run = [&] {
        QLocale::setDefault(locale);
        body();
        auto const& result = *::testing::UnitTest::GetInstance()->current_test_info()->result();
        for (auto i = 0; i < result.total_part_count(); ++i) {
            auto const& part = result.GetTestPartResult(i);
            std::fprintf(stderr, "%s:%d: %s\n", part.file_name(), part.line_number(), part.summary());
        }
        std::fflush(stderr);
        std::_Exit(::testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
    };
    EXPECT_EXIT(run(), ::testing::ExitedWithCode(EXIT_SUCCESS), "") << locale.name().toStdString();
}
}
