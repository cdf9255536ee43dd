#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTimer>
#include <chrono>
#include <filesystem>
#include <random>
#include <vector>

#include "banco_gui.h"
#include "base/file_testo.h"
#include "joint/file_nodo.h"
#include "session/recupero.h"

namespace tk07 {

using namespace desktop;
namespace {

namespace fs = std::filesystem;
using Ora = std::chrono::steady_clock;
constexpr int kOgni = 15;  // between automatic copies here [ms]; the program's own rate is 30 s

struct Modifica {
    int valore;
    long long istante;  // ms
};

long long Adesso() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(Ora::now().time_since_epoch())
        .count();
}

// The window on a tree that is there, typing one width after the other into the plate's field and
// saving now and then, until it is killed; what was typed goes to standard output. Runs in a
// process of its own, started by the test below.
TEST(Uccisione, DISABLED_Sessione) {
    const char* radice = std::getenv("TK07_RADICE");
    ASSERT_NE(radice, nullptr) << "only for the test below";
    prova::Porta porta;
    Pilota pilota;
    pilota.LaSessione().piattaforma = porta.Fai();
    Avvio avvio;
    avvio.diroot = radice;
    ASSERT_TRUE(pilota.Avvia(avvio));
    FinestraPrincipale finestra(pilota);
    finestra.show();
    pilota.findChild<QTimer*>("CopiaAutomatica")->setInterval(kOgni);
    auto* campo = qobject_cast<QLineEdit*>(finestra.IlLegame().Oggetto("GeoPias(0)"));
    auto* salva = qobject_cast<QAbstractButton*>(finestra.IlLegame().Oggetto("Bt_salva"));
    ASSERT_TRUE(campo != nullptr && salva != nullptr);
    QCoreApplication::processEvents();
    std::mt19937 g(static_cast<unsigned>(getpid()));
    for (int k = 200; k < 100000; ++k) {
        campo->setFocus(Qt::MouseFocusReason);
        campo->selectAll();
        QTest::keyClicks(campo, QString::number(k));
        QTest::keyClick(campo, Qt::Key_Tab);
        const Modifica m{static_cast<int>(pilota.LaSessione().nodo.BPiastra(1)), Adesso()};
        if (write(STDOUT_FILENO, &m, sizeof m) != sizeof m) return;
        if (g() % 5 == 0) salva->click();
        QTest::qWait(static_cast<int>(g() % 6));
    }
}

pid_t AvviaSessione(int dove) {
    const std::string io = fs::read_symlink("/proc/self/exe").string();
    const pid_t figlio = fork();
    if (figlio != 0) return figlio;
    dup2(dove, STDOUT_FILENO);
    execl(io.c_str(), io.c_str(), "--gtest_also_run_disabled_tests", "--gtest_brief=1",
          "--gtest_filter=Uccisione.DISABLED_Sessione", nullptr);
    _exit(1);
}

// Sessions of the window killed at any moment: what was typed two copies before is found again, and
// no file is damaged.
TEST(Uccisione, LosesAtMostWhatWasTypedSinceTheLastCopy) {
    constexpr int kSessioni = 80;
    prova::SessioneDiProva b;
    ASSERT_EQ(setenv("TK07_RADICE", b.radice.c_str(), 1), 0);
    const std::string salvato = b.radice + "/lavori/esempi/Nuovo.tk7";
    std::mt19937 caso(11);
    int conCopie = 0, conFile = 0;
    for (int giro = 0; giro < kSessioni; ++giro) {
        int tubo[2];
        ASSERT_EQ(pipe(tubo), 0);
        const pid_t figlio = AvviaSessione(tubo[1]);
        ASSERT_GE(figlio, 0);
        close(tubo[1]);
        // From the start to a dozen copies later, by what was typed: a busy machine is slow.
        std::vector<Modifica> fatte;
        const auto legge = [&] {
            Modifica m{};
            if (read(tubo[0], &m, sizeof m) != sizeof m) return false;
            fatte.push_back(m);
            return true;
        };
        const std::size_t attese = caso() % 40;
        while (fatte.size() < attese && legge()) {
        }
        usleep(static_cast<useconds_t>(caso() % 10000));
        const long long fine = Adesso();
        kill(figlio, SIGKILL);
        waitpid(figlio, nullptr, 0);
        while (legge()) {
        }
        int sicuro = 0;
        for (const Modifica& m : fatte) {
            if (m.istante <= fine - 2 * kOgni - 60) sicuro = m.valore;  // 60 ms: the write itself
        }
        close(tubo[0]);
        double trovato = 0.0;
        for (const CopiaTrovata& c : TrovaCopie(*b.s)) {
            Nodo n;
            ASSERT_TRUE(c.leggibile && LeggiFileNodo(n, c.percorso, PiattaformaMuta()))
                << c.percorso;
            trovato = std::max(trovato, n.BPiastra(1));
            EliminaFile(c.percorso);
        }
        EXPECT_GE(trovato, sicuro) << "sessione " << giro;
        conCopie += sicuro > 0;
        if (EsisteFile(salvato)) {
            Nodo n;
            NoteLettura note;
            ASSERT_TRUE(LeggiFileNodo(n, salvato, PiattaformaMuta(), &note));
            EXPECT_TRUE(note.ChiaviMancanti.empty()) << "half a file, sessione " << giro;
            ++conFile;
        }
    }
    EXPECT_GT(conCopie, kSessioni / 10);
    EXPECT_GT(conFile, kSessioni / 2);
}

}  // namespace
}  // namespace tk07
