// Runs the targets. With libFuzzer: TK07_BERSAGLIO names the target, TK07_CORPUS a directory that
// gets its seeds. Without: every target (or the one named) over its seeds, then own mutations for
// some seconds:    tk07_fuzz [SECONDI] [BERSAGLIO [FILE...]]

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "bersaglio.h"

namespace tk07::fuzz {

namespace fs = std::filesystem;

std::vector<Bersaglio>& Bersagli() {
    static std::vector<Bersaglio> b;
    return b;
}

void Pretendi(bool vero, const std::string& cosa) {
    if (vero) return;
    std::fprintf(stderr, "PRETESA: %s\n", cosa.c_str());
    std::abort();
}

void PretendiUguali(const std::string& a, const std::string& b, const std::string& cosa) {
    if (a == b) return;
    const auto d = static_cast<std::size_t>(
        std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
    const std::size_t da = d < 60 ? 0 : d - 60;
    Pretendi(false, cosa + " al byte " + std::to_string(d) + "\n<<< " +
                        (da < a.size() ? a.substr(da, 120) : "") + "\n>>> " +
                        (da < b.size() ? b.substr(da, 120) : ""));
}

Semi Forniti(const std::string& direttorio, const std::string& fine) {
    Semi semi;
    std::vector<fs::path> file;
    for (const auto& v :
         fs::recursive_directory_iterator(std::string(TK07_SORGENTE) + "/" + direttorio)) {
        if (v.is_regular_file() && v.path().filename().string().ends_with(fine))
            file.push_back(v.path());
    }
    std::sort(file.begin(), file.end());
    for (const fs::path& f : file) semi.push_back(prova::LeggiTesto(f));
    Pretendi(!semi.empty(), "nessun seme " + direttorio + " *" + fine);
    return semi;
}

static const prova::Cartella& Scarto() {
    static const prova::Cartella c;
    return c;
}

std::string ComeFile(std::string_view dati, const std::string& nome) {
    const fs::path f = Scarto() / nome;
    std::FILE* uscita = std::fopen(f.c_str(), "wb");
    Pretendi(uscita != nullptr && std::fwrite(dati.data(), 1, dati.size(), uscita) == dati.size() &&
                 std::fclose(uscita) == 0,
             "file di prova non scritto");
    return f.string();
}

bool SenzaFatale(const std::function<void()>& cosa) {
    try {
        cosa();
        return true;
    } catch (const ErroreFatale&) {
        return false;
    }
}

const prova::SessioneDiProva& Base() {
    static const prova::SessioneDiProva b;
    return b;
}

static Semi TuttiISemi(const Bersaglio& b) {
    Semi semi = b.semi();
    const std::string qui = "fuzz/semi/" + b.nome;
    if (fs::is_directory(std::string(TK07_SORGENTE) + "/" + qui)) {
        for (const std::string& s : Forniti(qui, "")) semi.push_back(s);
    }
    Pretendi(!semi.empty(), "nessun seme per " + b.nome);
    return semi;
}

static const Bersaglio& Chiamato(const std::string& nome) {
    for (const Bersaglio& b : Bersagli()) {
        if (b.nome == nome) return b;
    }
    for (const Bersaglio& b : Bersagli()) std::fprintf(stderr, "%s\n", b.nome.c_str());
    std::_Exit(2);
}

}  // namespace tk07::fuzz

using namespace tk07::fuzz;

#ifdef TK07_LIBFUZZER

static const Bersaglio* scelto = nullptr;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const char* nome = std::getenv("TK07_BERSAGLIO");
    const char* corpus = std::getenv("TK07_CORPUS");
    scelto = &Chiamato(nome == nullptr ? "" : nome);
    int n = 0;
    for (const std::string& s : corpus == nullptr ? Semi{} : TuttiISemi(*scelto)) {
        tk07::prova::ScriviTesto(fs::path(corpus) / ("seme" + std::to_string(n++)), s);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    scelto->prova({reinterpret_cast<const char*>(dati), quanti});
    return 0;
}

#else

// The input in hand, for the handler of a fall.
static std::string inMano, fileCaduta;

extern "C" void Caduta(int) {
    if (std::FILE* f = std::fopen(fileCaduta.c_str(), "wb")) {
        std::fwrite(inMano.data(), 1, inMano.size(), f);
        std::fclose(f);
        std::fprintf(stderr, "%s tiene i dati che lo hanno fatto\n", fileCaduta.c_str());
    }
    std::_Exit(1);
}
extern "C" const char* __asan_default_options() { return "handle_abort=0:abort_on_error=1"; }
extern "C" const char* __ubsan_default_options() { return "abort_on_error=1:print_stacktrace=1"; }

static std::string Mutato(std::string t, const Semi& semi, std::mt19937_64& r) {
    const auto caso = [&](std::size_t n) {
        return static_cast<std::size_t>(r() % std::max<std::size_t>(n, 1));
    };
    static const char* const kParole[] = {
        "-1",       "0",          "32768",      "-32769", "1e308", "1e999", "nan", "inf",
        "1,5",      "[",          "]",          "|",      "\"",    "\n",    "\t",  "\xC3",
        "\xC3\xA9", "99 [nBull]", "2147483648", "",       "*END*", "65536"};
    for (std::size_t volte = 1 + caso(4); volte > 0; --volte) {
        const std::size_t p = caso(t.size() + 1), q = std::min(t.size(), p + caso(12));
        switch (caso(7)) {
            case 0:
                if (p < t.size()) t[p] = static_cast<char>(t[p] ^ (1 << caso(8)));
                break;
            case 1:
                t.insert(p, 1, static_cast<char>(caso(256)));
                break;
            case 2:
                t.erase(p, q - p);
                break;
            case 3:
                t.insert(p, kParole[caso(std::size(kParole))]);
                break;
            case 4: {  // another number in a number's place
                const std::size_t n = t.find_first_of("0123456789", p);
                if (n == std::string::npos) break;
                t.replace(n,
                          t.find_first_not_of("0123456789.", n) == std::string::npos
                              ? t.size() - n
                              : t.find_first_not_of("0123456789.", n) - n,
                          kParole[caso(std::size(kParole))]);
                break;
            }
            case 5:
                t = t.substr(0, p) + [&] {
                    const std::string& s = semi[caso(semi.size())];
                    return s.substr(caso(s.size()));
                }();
                break;
            default:
                t.insert(p, t.substr(p, q - p));
                break;
        }
    }
    return t.substr(0, 1u << 17);
}

int main(int argc, char** argv) {
    const double secondi = argc > 1 ? std::atof(argv[1]) : 1.0;
    for (const int segnale : {SIGABRT, SIGSEGV, SIGFPE}) std::signal(segnale, Caduta);
    std::mt19937_64 r(20240607);
    for (const Bersaglio& b : argc > 2 ? std::vector{Chiamato(argv[2])} : Bersagli()) {
        fileCaduta = (fs::current_path() / ("caduta_" + b.nome)).string();
        Semi semi;
        for (int i = 3; i < argc; ++i) semi.push_back(tk07::prova::LeggiTesto(argv[i]));
        if (semi.empty()) semi = TuttiISemi(b);
        long fatte = 0;
        for (const std::string& s : semi) b.prova(inMano = s), ++fatte;
        const auto fine = std::chrono::steady_clock::now() + std::chrono::duration<double>(secondi);
        for (; std::chrono::steady_clock::now() < fine; ++fatte) {
            inMano = Mutato(semi[r() % semi.size()], semi, r);
            b.prova(inMano);
        }
        std::printf("%-12s %zu semi, %ld esecuzioni\n", b.nome.c_str(), semi.size(), fatte);
        std::fflush(stdout);
    }
    return 0;
}

#endif
