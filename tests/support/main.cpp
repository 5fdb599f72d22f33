#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <iostream>
#include <locale>

// With QZ_TEST_LOCALE set, the whole program runs under that C locale and under a C++ global locale with a
// decimal comma and grouped digits: every text must come out the same.

namespace {

struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
    std::string do_truename() const override { return "wahr"; }
    std::string do_falsename() const override { return "falsch"; }
};

bool UseLocale(char const* name) {
    if (std::setlocale(LC_ALL, name) == nullptr || *std::localeconv()->decimal_point != ',') {
        std::cerr << "locale " << name << " is not there, or has no decimal comma\n";
        return false;
    }
    std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    return true;
}

} // namespace

int main(int argc, char** argv) {
    char const* const name = std::getenv("QZ_TEST_LOCALE");
    if (name != nullptr && !UseLocale(name))
        return EXIT_FAILURE;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

// For the leak checker: what interpreters keep until the process ends.
extern "C" __attribute__((visibility("default"))) char const* __lsan_default_suppressions() {
    return "leak:libpython\nleak:libtcl\nleak:OutputCapture::DefineStream\n";
}
