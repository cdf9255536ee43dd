#pragma once

// A fuzz target is a routine that takes any bytes: a reader must refuse them or take them, and what
// it took must read the same after being written. All targets are in one program (motore.cpp).

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "aiuti/prova.h"
#include "base/errore.h"

namespace tk07::fuzz {

using Semi = std::vector<std::string>;

struct Bersaglio {
    std::string nome;
    void (*prova)(std::string_view dati);
    // Inputs to begin with, beside the files of fuzz/semi/<nome>.
    Semi (*semi)();
};
std::vector<Bersaglio>& Bersagli();

// Ends the run with the reason: the input that did it is kept by the engine.
void Pretendi(bool vero, const std::string& cosa);
// The two texts are the same; told from the first byte that differs.
void PretendiUguali(const std::string& a, const std::string& b, const std::string& cosa);
// The files of the shipped tree that match "lavori/*/*.tk7": one star stands for a whole name or
// for its beginning.
Semi Forniti(const std::string& direttorio, const std::string& fine);
// The bytes as a file of the scratch directory; its path.
std::string ComeFile(std::string_view dati, const std::string& nome = "dati");
// What the routine does, unless the input is a fatal fault.
bool SenzaFatale(const std::function<void()>& cosa);
// A started session on a tree in the scratch directory. To be copied, never changed.
const prova::SessioneDiProva& Base();

struct Iscritto {
    Iscritto(const char* nome, void (*prova)(std::string_view), Semi (*semi)()) {
        Bersagli().push_back({nome, prova, semi});
    }
};
#define BERSAGLIO(nome, ...)                                                                     \
    static void Prova_##nome(std::string_view dati);                                             \
    static const ::tk07::fuzz::Iscritto iscritto_##nome{#nome, Prova_##nome,                     \
                                                        []() -> ::tk07::fuzz::Semi __VA_ARGS__}; \
    static void Prova_##nome(std::string_view dati)

}  // namespace tk07::fuzz
