#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>

// The tests run under the user's locale, as a desktop program does: a decimal comma there must not
// reach any number.
int main(int argc, char** argv) {
    if (std::setlocale(LC_ALL, "") == nullptr) {
        std::fputs("the locale asked for is not on this machine: see tests/CMakeLists.txt\n",
                   stderr);
        return 1;
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
