#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "aiuti/prova.h"
#include "base/file_testo.h"
#include "session/recupero.h"
#include "session/storia.h"

namespace tk07 {
namespace {

// Edits without end, each copied; the number of every finished copy goes down the pipe.
[[noreturn]] void ModificaSenzaFine(Sessione& s, int giro, int dove) {
    CopieAutomatiche copie(s.dir.dirTemp, "giro" + std::to_string(giro));
    for (int k = 1;; ++k) {
        s.nodo.BPiastra(1) = k;
        s.nodo.nSollAg = static_cast<short>(k % 300);  // files of changing length
        if (!copie.Scrivi(s, s.nodo).empty() || write(dove, &k, sizeof k) != sizeof k) _exit(1);
    }
}

// Killed at any moment, a run leaves the last finished copy whole, or a newer one.
TEST(Recupero, SopravviveAllUccisione) {
    constexpr int kGiri = 100;
    prova::SessioneDiProva b;
    std::mt19937 caso(7);
    int conCopie = 0;
    for (int giro = 0; giro < kGiri; ++giro) {
        int tubo[2];
        ASSERT_EQ(pipe(tubo), 0);
        const pid_t figlio = fork();
        ASSERT_GE(figlio, 0);
        if (figlio == 0) ModificaSenzaFine(*b.s, giro, tubo[1]);
        close(tubo[1]);
        // After some copies, in the middle of the next: by their number, since a busy machine is
        // slow.
        int k = 0, ultimo = 0;
        const auto attesi = static_cast<int>(caso() % 6);
        while (ultimo < attesi && read(tubo[0], &k, sizeof k) == sizeof k) ultimo = k;
        usleep(static_cast<useconds_t>(caso() % 1500));
        kill(figlio, SIGKILL);
        waitpid(figlio, nullptr, 0);
        while (read(tubo[0], &k, sizeof k) == sizeof k) ultimo = k;
        close(tubo[0]);
        double trovato = 0.0;
        int quante = 0;
        for (const CopiaTrovata& c : TrovaCopie(*b.s)) {
            ASSERT_TRUE(c.leggibile) << c.percorso;
            Nodo n;
            ASSERT_TRUE(LeggiFileNodo(n, c.percorso, PiattaformaMuta()));
            EXPECT_EQ(n.nSollAg, static_cast<int>(n.BPiastra(1)) % 300) << "half of two copies";
            trovato = std::max(trovato, n.BPiastra(1));
            ++quante;
            EliminaFile(c.percorso);
        }
        EXPECT_GE(trovato, ultimo) << "giro " << giro;
        EXPECT_LE(quante, 2);
        conCopie += ultimo >= 2;
    }
    EXPECT_GT(conCopie, kGiri / 4) << "the runs were killed before they wrote anything";
}

// What counts as an edit: data of the joint, not what follows from them nor the selection of bolts.
TEST(Recupero, CosaEUnaModifica) {
    prova::SessioneDiProva b;
    Nodo n = b.s->nodo;
    n.nBull = 1;
    Nodo m = n;
    m.SelBull(1) = 1.0, m.BNerv(3) += 5, m.H1Nerv(3) = 0, m.Xbull(2) = 9, m.TaglioY(0) = 4;
    EXPECT_TRUE(StessoNodo(n, m)) << "slots beyond those in use";
    const std::function<void(Nodo&)> modifiche[] = {
        [](Nodo& x) { x.Xbull(1) = 1; },      [](Nodo& x) { x.nSollAg = 1; },
        [](Nodo& x) { x.SpNerv(3) += 1; },    [](Nodo& x) { x.H2Nerv(2) += 1; },
        [](Nodo& x) { x.TipoVer = 0; },       [](Nodo& x) { x.spSaldS2 = 1; },
        [](Nodo& x) { x.vite.Nome = "4.6"; }, [](Nodo& x) { x.AttNerv(1) = !x.AttNerv(1); },
        [](Nodo& x) { x.Esposizione = 2; },   [](Nodo& x) { x.distAliPriSec += 0.001; }};
    for (const auto& modifica : modifiche) {
        m = n;
        modifica(m);
        EXPECT_FALSE(StessoNodo(n, m));
    }
}

}  // namespace
}  // namespace tk07
