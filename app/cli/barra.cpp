#include "cli/barra.h"

#include <algorithm>
#include <cstdio>
#include <string>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace tk07::cli {

namespace {

bool SuTerminale() {
#ifdef _WIN32
    return false;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace

Barra::Barra(std::size_t totale) : totale_(totale), attiva_(totale > 1 && SuTerminale()) {}

void Barra::Segna(std::size_t fatti) {
    if (!attiva_) return;
    const std::size_t mille = fatti * 1000 / totale_;
    if (mille == mostrato_) return;
    mostrato_ = mille;
    constexpr std::size_t kLarghezza = 30;
    const std::size_t pieni = std::min(fatti * kLarghezza / totale_, kLarghezza);
    std::fprintf(stderr, "\r[%s%s] %zu/%zu", std::string(pieni, '#').c_str(),
                 std::string(kLarghezza - pieni, '.').c_str(), fatti, totale_);
}

void Barra::Cancella() {
    if (attiva_) std::fputs("\r\033[K", stderr);
}

}  // namespace tk07::cli
