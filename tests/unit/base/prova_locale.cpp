#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/testo.h"
#include "textnum/formatta.h"

namespace tk07 {
namespace {

TEST(Locale, NumbersKeepThePointUnderADecimalComma) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.1f", 1.5);
    const char* voluto = std::getenv("LC_ALL");
    if (voluto != nullptr && std::string(voluto).rfind("it_IT", 0) == 0) {
        EXPECT_STREQ(buf, "1,5") << "the Italian locale is not in force";
    }
    EXPECT_EQ(TestoReale(1234.5), "1234.5");
    EXPECT_EQ(TestoNumero(0.5), ".5");
    EXPECT_EQ(ValoreIniziale("2.75 mm"), 2.75);
    EXPECT_EQ(ValoreStretto(" 2,75 "), std::nullopt);
    EXPECT_EQ(Formatta(12.5, "(dv_02)(np_1)", 0.01, PiattaformaMuta()), ".125");
}

}  // namespace
}  // namespace tk07
