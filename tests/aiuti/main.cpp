#include <gtest/gtest.h>

#include <clocale>

// The tests run under the user's locale, as a desktop program does: a decimal comma there must not
// reach any number.
int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
