// First start of an installed program: the question, the tree it makes, the joint on the command
// line.

#include <QMessageBox>
#include <QTimer>

#include "base/file_testo.h"
#include "desktop/banco_gui.h"
#include "desktop/primo_avvio.h"
#include "desktop/programma_gui.h"
#include "guscio/albero.h"

namespace tk07::prova {

using namespace desktop;
namespace {

namespace fs = std::filesystem;

// An installed tree and a user without one; the user's environment comes back at the end.
struct Installato {
    Cartella cartella;
    QByteArray casa = qgetenv("HOME"), config = qgetenv("XDG_CONFIG_HOME");
    Avvio avvio;
    Installato() {
        fs::copy(std::string(TK07_SORGENTE) + "/installazione", cartella / "tk07",
                 fs::copy_options::recursive);
        fs::create_directories(cartella / "casa");
        qputenv("HOME", (cartella / "casa").c_str());
        qunsetenv("XDG_CONFIG_HOME");
        avvio.dirProgramma = (cartella / "tk07/progra").string();
    }
    ~Installato() {
        qputenv("HOME", casa);
        if (!config.isNull()) qputenv("XDG_CONFIG_HOME", config);
    }
};

// Presses the buttons in turn, one a box; the texts of the boxes in `testi`.
void Rispondi(QStringList pulsanti, QStringList& testi) {
    QTimer::singleShot(50, qApp, [pulsanti, &testi]() mutable {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return Rispondi(pulsanti, testi);
        testi << box->text();
        const QString vuole = pulsanti.takeFirst();
        if (!pulsanti.isEmpty()) Rispondi(pulsanti, testi);
        for (QAbstractButton* b : box->buttons()) {
            if (b->text().remove(QLatin1Char('&')) == vuole) return b->click();
        }
        box->reject();
    });
}

TEST(PrimoAvvio, PreparaERicorda) {
    Installato u;
    QStringList testi;
    Avvio primo = u.avvio;
    Rispondi({QStringLiteral("Esci")}, testi);
    EXPECT_FALSE(TrovaAlberoOChiedi(primo));
    EXPECT_FALSE(AlberoRicordato());

    primo = u.avvio;
    Rispondi({QStringLiteral("Prepara")}, testi);
    ASSERT_TRUE(TrovaAlberoOChiedi(primo));
    const std::string albero = *primo.diroot;
    EXPECT_TRUE(testi.last().contains(QString::fromStdString(albero))) << "not where it was told";
    EXPECT_EQ(albero.rfind((u.cartella / "casa").string(), 0), 0u) << albero;
    EXPECT_EQ(AlberoRicordato(), albero);

    // The second start asks nothing; the tree is one to work in.
    Avvio secondo = u.avvio;
    ASSERT_TRUE(TrovaAlberoOChiedi(secondo));
    EXPECT_EQ(secondo.diroot, albero);
    Porta porta;
    Direttori d;
    EXPECT_TRUE(RisolviDirettori(secondo, d, porta.Fai()));
    EXPECT_TRUE(EsisteFile(d.dirLavoro + "/01_ipe160_su_ipe270.tk7"));

    // A directory that holds something else is refused and asked for again.
    fs::remove_all(u.cartella / "casa/.config");
    fs::remove(fs::path(albero) / "impostazioni/dirlav");
    Avvio terzo = u.avvio;
    testi.clear();
    Rispondi({QStringLiteral("Prepara"), QStringLiteral("OK"), QStringLiteral("Esci")}, testi);
    EXPECT_FALSE(TrovaAlberoOChiedi(terzo));
    ASSERT_EQ(testi.size(), 3);
    EXPECT_TRUE(testi[1].endsWith(QStringLiteral("non è vuoto"))) << testi[1].toStdString();
}

TEST(PrimoAvvio, FileSullaRigaDiComando) {
    const auto file = [](const QStringList& a) {
        return fs::path(FileDaAprire(QStringList{"tk07-gui"} + a)).filename().string();
    };
    EXPECT_EQ(file({"nodo.tk7"}), "nodo.tk7");
    EXPECT_EQ(file({"--diroot", "albero", "--lavoro=telaio", "nodo.tk7"}), "nodo.tk7");
    EXPECT_EQ(file({"|diroot=albero|"}), "");
    BancoGui b;
    b.finestra->ApriFile(b.radice + "/lavori/esempi/02_ipe200_su_ipe300.tk7");
    EXPECT_EQ(b.N().TraPri.Nome, "IPE300");
    EXPECT_TRUE(b.finestra->windowTitle().contains(QStringLiteral("02_ipe200_su_ipe300.tk7")));
}

}  // namespace
}  // namespace tk07::prova
