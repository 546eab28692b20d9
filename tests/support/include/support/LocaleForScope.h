#pragma once

#include <QLocale>

namespace tlm::testing {

/// Makes a locale the default one for a scope.
class LocaleForScope
{
public:
    explicit LocaleForScope(QLocale const& locale) { QLocale::setDefault(locale); }
    LocaleForScope(LocaleForScope const&) = delete;
    LocaleForScope& operator=(LocaleForScope const&) = delete;
    ~LocaleForScope() { QLocale::setDefault(before_); }

private:
    QLocale before_;
};
}
