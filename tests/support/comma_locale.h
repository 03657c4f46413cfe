#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

namespace quillon {

/// Sets a locale with a decimal comma for a test's time, one of the build's own or one of the machine. Where there is
/// none, IsSet() says so and the test skips.
class CommaLocale {
public:
    CommaLocale() : before(std::setlocale(LC_ALL, nullptr)) {
        ::setenv("LOCPATH", QUILLON_TEST_LOCALES, 1);
        const bool own = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
        ::unsetenv("LOCPATH");
        if (own) return;
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nb_NO.UTF-8", "nl_NL.UTF-8"}) {
            if (std::setlocale(LC_ALL, name)) break;
        }
    }
    ~CommaLocale() { std::setlocale(LC_ALL, before.c_str()); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    static bool IsSet() { return std::localeconv()->decimal_point[0] == ','; }

private:
    std::string before;
};

}  // namespace quillon
