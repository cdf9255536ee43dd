#include <QApplication>
#include <cstdio>
#include <string_view>

#include "desktop/programma_gui.h"

namespace {

constexpr char kAiuto[] =
    "Nodo trave - trave con piastre: la finestra\n"
    "Uso: tk07-gui [OPZIONI] [FILE]\n"
    "\n"
    "Argomenti:\n"
    "  FILE                            Nodo da aprire (.tk7)\n"
    "\n"
    "Opzioni:\n"
    "  -h,--help                       Mostra questo aiuto ed esce\n"
    "  --version                       Mostra la versione ed esce\n"
    "  --diroot DIR                    Radice dell'albero dei direttori\n"
    "  --lavoro NOME                   Lavoro (sei caratteri) al posto di quello corrente\n"
    "\n"
    "Esempio: tk07-gui nodo.tk7\n";

}  // namespace

int main(int argc, char** argv) {
    // Answered before the toolkit starts: no screen is needed for it.
    for (int i = 1; i < argc; ++i) {
        const std::string_view a = argv[i];
        if (a == "-h" || a == "--help") return std::fputs(kAiuto, stdout) < 0 ? 2 : 0;
        if (a == "--version") return std::fputs("TK07 " TK07_VERSIONE "\n", stdout) < 0 ? 2 : 0;
    }
    tk07::desktop::Applicazione app(argc, argv);
    return tk07::desktop::EseguiGui(app, QCoreApplication::arguments());
}
