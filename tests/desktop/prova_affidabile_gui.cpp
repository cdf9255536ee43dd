// What the window does so that nothing is lost and nothing changes without a word.

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QTimer>
#include <filesystem>

#include "banco_gui.h"
#include "base/testo.h"
#include "desktop/finestra_recupero.h"
#include "desktop/in_corsa.h"
#include "desktop/porta_desktop.h"
#include "desktop/programma_gui.h"
#include "joint/file_nodo.h"
#include "session/recupero.h"

namespace tk07::prova {
namespace {

void Scegli(BancoGui& b, const char* lista, const std::string& voce) {
    auto* l = b.Trova<QComboBox>(lista);
    l->setCurrentIndex(l->findText(QString::fromStdString(voce), Qt::MatchStartsWith));
    Q_EMIT l->activated(l->currentIndex());
}

// The panel keeps a steel for each method: the one that comes back is named until it was seen.
TEST(GuiAffidabile, UnAcciaioCheTornaSiNomina) {
    BancoGui b;
    const auto detto = [&] {
        auto* l = b.finestra->findChild<QLabel*>(QStringLiteral("AcciaioCambiato"));
        return l->isHidden() ? std::string() : l->text().toStdString();
    };
    Scegli(b, "Cb_Acciaio", "S 460");
    const std::string scelto = b.N().acciaio.Nome;
    ASSERT_EQ(scelto.rfind("S 460", 0), 0u);
    EXPECT_EQ(detto(), "") << "chosen, not brought";
    b.Premi("TipoVer(0)");
    b.Apri("09_hea260_su_hea400.tk7");
    const std::string letto = b.N().acciaio.Nome;
    EXPECT_EQ(detto(), "") << "read from the file";
    for (int giro = 0; giro < 2; ++giro) {
        b.Premi("TipoVer(1)");
        ASSERT_EQ(b.N().acciaio.Nome, scelto);
        EXPECT_EQ(detto(), "Acciaio: era " + Taglia(letto) + ", ora è " + Taglia(scelto));
        if (giro == 1) break;
        b.pilota.Annulla();
        EXPECT_EQ(detto(), "");
        EXPECT_EQ(b.N().acciaio.Nome, letto);
        EXPECT_EQ(b.N().TipoVer, 0) << "one step with the method";
    }
    b.finestra->findChild<QAbstractButton*>(QStringLiteral("AcciaioVisto"))->click();
    EXPECT_EQ(detto(), "");
}

TEST(GuiAffidabile, SalvaChiedePrimaDiScrivereDoveNonSiAspetta) {
    BancoGui b;
    const std::string nuovo = b.radice + "/lavori/esempi/Nuovo.tk7",
                      altrove = b.radice + "/temp/altrove.tk7";
    std::string chiesto;
    Pilota::Salvare risposta = Pilota::Salvare::rinuncia;
    b.pilota.chiediSalva = [&](const QString& t) {
        chiesto = t.toStdString();
        return risposta;
    };
    const auto salva = [&](Pilota::Salvare r) {
        risposta = r;
        chiesto.clear();
        b.Premi("Bt_salva");
        return chiesto;
    };
    EXPECT_FALSE(b.finestra->isWindowModified());
    b.Scrivi("GeoPias(0)", "181");
    EXPECT_TRUE(b.finestra->isWindowModified());
    // A joint that no file holds.
    EXPECT_TRUE(Contiene(salva(Pilota::Salvare::rinuncia), "Nuovo.tk7 ?\nNon esiste ancora"));
    EXPECT_FALSE(std::filesystem::exists(nuovo));
    EXPECT_NE(salva(Pilota::Salvare::scrivi), "");
    EXPECT_TRUE(std::filesystem::exists(nuovo));
    EXPECT_FALSE(b.finestra->isWindowModified());
    b.Scrivi("GeoPias(0)", "182");
    EXPECT_EQ(salva(Pilota::Salvare::scrivi), "") << "the own file";
    // Another program changed it.
    ScriviTesto(nuovo, "d'altri");
    EXPECT_TRUE(Contiene(salva(Pilota::Salvare::rinuncia), "È cambiato su disco"));
    EXPECT_EQ(LeggiTesto(nuovo), "d'altri");
    // "Save as" is one of the answers; from then on the joint lies elsewhere than in the job.
    b.porta.file.push_back({altrove, 1});
    salva(Pilota::Salvare::conNome);
    EXPECT_TRUE(std::filesystem::exists(altrove));
    EXPECT_EQ(LeggiTesto(nuovo), "d'altri");
    EXPECT_TRUE(Contiene(salva(Pilota::Salvare::rinuncia), "Il nodo viene da " + altrove));
    EXPECT_FALSE(std::filesystem::exists(b.radice + "/lavori/esempi/altrove.tk7"));
    // A name that the libraries lack would go.
    std::string ignoto = LeggiTesto(altrove);
    ignoto.replace(ignoto.find("IPE160"), 6, "IPE999");
    ScriviTesto(b.radice + "/lavori/esempi/ignoto.tk7", ignoto);
    b.Apri("ignoto.tk7");
    EXPECT_TRUE(
        Contiene(salva(Pilota::Salvare::rinuncia), "Andrebbe perso TraSec_Nome \"IPE999\""));
    EXPECT_EQ(LeggiTesto(b.radice + "/lavori/esempi/ignoto.tk7"), ignoto);
    EXPECT_TRUE(FiltroQt(kFiltroNodo).contains(QStringLiteral("*.tk17")));
}

// Nothing judged is no verdict.
TEST(GuiAffidabile, SenzaCarichiNessunEsito) {
    BancoGui b;
    b.Apri("01_ipe160_su_ipe270.tk7");
    const auto* esito = b.finestra->findChild<QLabel*>(QStringLiteral("EsitoVerifica"));
    EXPECT_EQ(esito->text().left(10), QStringLiteral("VERIFICATO"));
    b.porta.risposte = {Risposta::OK};
    b.Premi("RimuoviTutteSoll");
    EXPECT_EQ(esito->text(), QStringLiteral("Nessun sestetto"));
    b.Premi("Bt_agg_sing_sol");
    EXPECT_EQ(esito->text(), QStringLiteral("Carichi tutti nulli: niente da verificare"));
    EXPECT_EQ(esito->palette().color(QPalette::WindowText), QPalette().color(QPalette::WindowText));
}

// The first key starts the copies, and they hold what is being typed.
TEST(GuiAffidabile, CopiaDalPrimoTasto) {
    BancoGui b;
    auto* timer = b.pilota.findChild<QTimer*>(QStringLiteral("CopiaAutomatica"));
    auto* campo = b.Trova<QLineEdit>("GeoPias(0)");
    campo->setFocus();
    campo->selectAll();
    EXPECT_FALSE(timer->isActive());
    QTest::keyClick(campo, Qt::Key_7);
    EXPECT_TRUE(timer->isActive());
    EXPECT_TRUE(b.finestra->isWindowModified());
    b.pilota.CopiaOra();
    const std::vector<CopiaTrovata> copie = TrovaCopie(b.S());
    ASSERT_EQ(copie.size(), 1u);
    Nodo n;
    ASSERT_TRUE(LeggiFileNodo(n, copie[0].percorso, PiattaformaMuta()));
    EXPECT_EQ(n.BPiastra(1), 7.0);
    // After a run that broke off the newest copy is offered, and refused here.
    b.porta.risposte = {Risposta::Annulla};
    OffriRecupero(b.pilota, nullptr);
    EXPECT_TRUE(Contiene(b.porta.detti.back().testo, "Nuovo, " + copie[0].data));
}

// A mark outlives the program that was killed, not the one that goes on or ends.
TEST(GuiAffidabile, SiSaSeUnaEsecuzioneSiEInterrotta) {
    const Cartella c;
    int tubo[2];
    ASSERT_EQ(pipe(tubo), 0);
    const pid_t figlio = fork();
    if (figlio == 0) {
        const InCorsa segno(c.Testo());
        static_cast<void>(write(tubo[1], "x", 1));
        for (;;) pause();
    }
    char x = 0;
    ASSERT_EQ(read(tubo[0], &x, 1), 1);
    EXPECT_FALSE(InCorsa(c.Testo()).AltraInterrotta());
    kill(figlio, SIGKILL);
    waitpid(figlio, nullptr, 0);
    EXPECT_TRUE(InCorsa(c.Testo()).AltraInterrotta());
    EXPECT_FALSE(InCorsa(c.Testo()).AltraInterrotta()) << "told once";
}

// What no command holds back is told, and the window goes on.
TEST(GuiAffidabile, UnEccezioneNonChiudeLaFinestra) {
    BancoGui b;
    auto* app = qobject_cast<Applicazione*>(QCoreApplication::instance());
    ASSERT_NE(app, nullptr);
    struct Scoppia : QObject {
        std::function<void()> come;
        bool event(QEvent*) override {
            come();
            return true;
        }
    } oggetto;
    std::vector<std::string> detti;
    app->guasto = [&](const std::string& cosa) { detti.push_back(cosa); };
    for (const std::function<void()>& come : {std::function<void()>([] { throw std::bad_alloc(); }),
                                              {[] { throw 7; }},
                                              {[] { throw ErroreFatale("rotto", "qui"); }},
                                              {[] { throw std::out_of_range("x"); }}}) {
        oggetto.come = come;
        QCoreApplication::postEvent(&oggetto, new QEvent(QEvent::User));
        QCoreApplication::processEvents();
    }
    app->guasto = nullptr;
    EXPECT_EQ(detti, (std::vector<std::string>{"memoria esaurita", "errore interno",
                                               "rotto\nin qui", "errore interno (x)"}));
    b.Scrivi("GeoPias(0)", "190");
    EXPECT_EQ(b.N().BPiastra(1), 190.0);
}

TEST(GuiAffidabile, CampiDidascalieEdEsc) {
    BancoGui b;
    QStringList scritte;
    for (const QLabel* l : b.finestra->findChildren<QLabel*>()) scritte << l->text();
    for (const char* t : {"Lato trave principale (1)", "Lato trave secondaria (2)",
                          "Altezza h1:", "Altezza h2:", "Larghezza b"}) {
        EXPECT_TRUE(scritte.contains(QString::fromUtf8(t))) << t;
    }
    // Letters in the list of bolts are marked and go nowhere.
    b.Apri("01_ipe160_su_ipe270.tk7");
    b.Premi("DefBulloni");
    auto* x = b.Trova<QLineEdit>("Xbul(0)", "FormBulloni");
    const double prima = b.S().bulloni.XbullTemp(1);
    ASSERT_NE(prima, 0.0);
    x->setFocus();
    x->selectAll();
    QTest::keyClicks(x, QStringLiteral("abc"));
    EXPECT_NE(x->palette().color(QPalette::Text), QPalette().color(QPalette::Text));
    QTest::keyClick(x, Qt::Key_Tab);
    EXPECT_EQ(b.S().bulloni.XbullTemp(1), prima);
    // Esc keeps this panel, and is Cancel on the options.
    QTest::keyClick(b.finestra->Secondario("FormBulloni"), Qt::Key_Escape);
    ASSERT_NE(b.finestra->Secondario("FormBulloni"), nullptr);
    b.Premi("MatBulAnn", "FormBulloni");
    b.Premi("Opz");
    QTest::keyClick(b.finestra->Secondario("FormOpz_Cond"), Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_EQ(b.finestra->Secondario("FormOpz_Cond"), nullptr);
    b.Premi("ImpS3D");
    auto* aste = b.Trova<QLineEdit>("Astetxt", "Soll3D");
    aste->setFocus();
    aste->selectAll();
    QTest::keyClicks(aste, QStringLiteral("1,a"));
    EXPECT_NE(aste->palette().color(QPalette::Text), QPalette().color(QPalette::Text));
}

}  // namespace
}  // namespace tk07::prova
