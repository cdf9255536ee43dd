#pragma once

// A small model written by the tests: the structure file and result files of the analysis.

#include <bit>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "aiuti/prova.h"

namespace tk07::prova {

// Nodes 101 102 103 with the internal indices 1 5 9; members 11 (101-102), 12 (103-102), 13
// (101-103) with the sections 2, 0, -1, colours 4, 7, 4, and line types 1, none, 2; blocks of 1
// (two lines), 2, 0 and 1 lines; `condizioni` load conditions.
inline std::string Struttura(const std::string& prima = "ARGANOWIN Release 18",
                             const std::string& condizioni = "3") {
    return prima +
           "\n"
           "                   2 righe\nprima\nseconda\n"
           "3 nodi\n1 0.0 0.0\n101 x\n5 1.0 0.0\n102\n9\t2.0\n  103\n"
           "3 aste\n1 5 resto\n11 2 4 1\n9 5\n12 0 7\n1 9\n13 -1 4 2\n"
           "1\na\nb\n"
           "2\nc\nd\n0\n1\ne\n" +
           condizioni + " condizioni\n";
}

inline void Scrivi(std::string& t, std::size_t posizione, std::uint64_t x, int byte) {
    for (int k = 0; k < byte; ++k)
        t.at(posizione - 1 + static_cast<std::size_t>(k)) = static_cast<char>(x >> (8 * k));
}

// Header of a result file.
inline std::string Testata(int n, long A, long B) {
    std::string t(56, '\0');
    Scrivi(t, 1, static_cast<std::uint64_t>(n), 2);
    Scrivi(t, 5, static_cast<std::uint64_t>(A), 4);
    Scrivi(t, 9, static_cast<std::uint64_t>(B), 4);
    return t;
}

// The six values of member, station and six-set, in the order of the file.
using Valori = std::function<std::vector<double>(int asta, long stazione, long sestetto)>;

inline std::string Risultati(const std::vector<int>& aste, long A, long B, const Valori& valori) {
    std::string t = Testata(static_cast<int>(aste.size()), A, B);
    for (const int asta : aste) {
        for (long a = 0; a < A; ++a) {
            for (long s = 1; s <= B; ++s) {
                std::string r(56, '\xEE');  // what is not read must not matter
                Scrivi(r, 1, static_cast<std::uint64_t>(asta), 2);
                std::size_t posizione = 9;
                for (const double x : valori(asta, a, s)) {
                    Scrivi(r, posizione, std::bit_cast<std::uint64_t>(x), 8);
                    posizione += 8;
                }
                t += r;
            }
        }
    }
    return t;
}

}  // namespace tk07::prova
