#ifdef TK07_OSSERVA3D

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QSlider>
#include <QWheelEvent>
#include <cmath>
#include <cstdlib>

#include "aiuti/finestra.h"
#include "osserva3d/finestra.h"
#include "osserva3d/lettura.h"
#include "render/esporta.h"
#include "scene3d/file_scena.h"
#include "scene3d/terna.h"
#include "unit/verification/nodo_di_prova.h"
#include "verification/saldature.h"

namespace tk07 {

using namespace osserva3d;
namespace {

const Piattaforma kMuta = PiattaformaMuta();

[[maybe_unused]] const auto* const kApplicazione =
    ::testing::AddGlobalTestEnvironment(new prova::Applicazione);

void ScriviNodo(const Nodo& n, const std::string& file) {
    Scena s;
    ASSERT_TRUE(ComponiScena3D(n, GeometriaDi(n), nullptr, s, kMuta));
    ASSERT_TRUE(ScriviScena(s, file, kMuta));
}
void Clic(QWidget* w, const QPointF& dove) {
    prova::Topo(w, QEvent::MouseButtonPress, dove);
    prova::Topo(w, QEvent::MouseButtonRelease, dove);
}

struct Visore {
    prova::Cartella cartella;
    Nodo nodo = prova::NodoDiProva();
    std::string file = (cartella / "s.tmp").string();
    Finestra3D f;
    Superficie* v = f.Vista();
    QLabel* avviso = f.findChild<QLabel*>("Avviso");
    Visore() {
        ScriviNodo(nodo, file);
        if (std::getenv("TK07_CON_X") != nullptr) {
            EXPECT_EQ(v->paintEngine(), nullptr) << "the OpenGL surface paints by itself";
        }
        f.resize(1100, 700);
        f.show();
        QApplication::processEvents();
        EXPECT_TRUE(f.Apri(QString::fromStdString(file)));
        QApplication::processEvents();
    }
    std::string Scelto() {
        const int i = v->Aspetto().pittura.scelta;
        return i < 0 ? "" : v->Parti()[static_cast<std::size_t>(i)].dati.nome;
    }
    // Where a point of the scene is on the surface.
    QPointF Su(const Punto3& p) {
        const Camera c = v->Occhio3D();
        const Proiezione q = ProiezioneCamera(c);
        const auto a = q.Piana(p), o = q.Piana(c.centro);
        return {v->width() / 2.0 + (a[0] - o[0]) * c.perMm,
                v->height() / 2.0 - (a[1] - o[1]) * c.perMm};
    }
};

// Seen from the secondary beam (view 3) plate 2, 180 x 320, stands before all else beside the beam.
TEST(Osserva3D, ClickMeasureHideAndSection) {
    Visore s;
    EXPECT_EQ(s.v->Occhio3D().azimut, 50);  // the scene's own angles
    EXPECT_EQ(s.v->Occhio3D().elevazione, 15);
    s.v->Orienta(0, 0);
    Clic(s.v, s.Su({120, 80, -140}));
    EXPECT_EQ(s.Scelto(), "piastra_lato_TraSec");
    const QString detto = s.f.findChild<QLabel*>("Dettagli")->text();
    EXPECT_TRUE(detto.contains("180 x 320 x 20 mm")) << detto.toStdString();
    EXPECT_EQ(s.f.findChild<QListWidget*>("Pezzi")->currentRow(), 3);

    s.f.findChild<QAction*>("AttivaMisura")->setChecked(true);
    Clic(s.v, s.Su({120, 89, -159}));  // near two of its corners
    Clic(s.v, s.Su({120, -89, 159}));
    EXPECT_EQ(s.f.findChild<QLabel*>("Misura")->text(),
              "d = 367.15 mm   dX = 0.00   dY = -180.00   dZ = 320.00");
    s.f.findChild<QAction*>("AttivaMisura")->setChecked(false);

    s.f.Nascondi(3);
    Clic(s.v, s.Su({120, 80, -140}));
    EXPECT_EQ(s.Scelto(), "piastra_lato_TraPri") << "what stands behind the hidden one";
    EXPECT_EQ(s.f.findChild<QListWidget*>("Pezzi")->item(3)->checkState(), Qt::Unchecked);
    s.f.Isola(0);
    Clic(s.v, s.Su({100, 300, 190}));
    EXPECT_EQ(s.Scelto(), "TraPri");
    s.f.MostraTutti();
    // A cut across X in the middle of all, -100 to 520: what is left ends at 210.
    s.f.findChild<QComboBox*>("AsseSezione")->setCurrentIndex(1);
    s.v->Orienta(-90, 0);
    EXPECT_EQ(s.v->ParteSotto(s.Su({205, -50, 95})), 1);
    EXPECT_EQ(s.v->ParteSotto(s.Su({215, -50, 95})), -1);
    s.f.findChild<QComboBox*>("AsseSezione")->setCurrentIndex(0);
    EXPECT_EQ(s.v->ParteSotto(s.Su({215, -50, 95})), 1);
    // Pulled apart the secondary beam is seven steps of 140 mm away.
    s.f.findChild<QSlider*>("Esploso")->setValue(100);
    EXPECT_EQ(s.v->ParteSotto(s.Su({7 * 140 + 300, -50, 95})), 1);
}

TEST(Osserva3D, MouseTurnsZoomKeepsThePointAndModesDiffer) {
    Visore s;
    const QPointF dove(300, 200);
    const Camera prima = s.v->Occhio3D();
    const Proiezione q = ProiezioneCamera(prima);
    const Punto3 sotto =
        Avanti(Avanti(prima.centro, (dove.x() - s.v->width() / 2.0) / prima.perMm, q.destra),
               (s.v->height() / 2.0 - dove.y()) / prima.perMm, q.su);
    QWheelEvent rotella(dove, s.v->mapToGlobal(dove), {}, {0, 240}, Qt::NoButton, Qt::NoModifier,
                        Qt::NoScrollPhase, false);
    QApplication::sendEvent(s.v, &rotella);
    EXPECT_NEAR(s.v->Occhio3D().perMm / prima.perMm, 1.44, 1e-9);
    EXPECT_NEAR(std::hypot(s.Su(sotto).x() - dove.x(), s.Su(sotto).y() - dove.y()), 0.0, 1e-6);
    prova::Topo(s.v, QEvent::MouseButtonPress, dove);
    prova::Topo(s.v, QEvent::MouseMove, dove + QPointF(50, 1000));
    prova::Topo(s.v, QEvent::MouseButtonRelease, dove + QPointF(50, 1000));
    EXPECT_EQ(s.v->Occhio3D().elevazione, 90) << "not over the top";
    EXPECT_LT(s.v->Occhio3D().azimut, prima.azimut);
    EXPECT_EQ(s.Scelto(), "") << "a drag is no click";
    s.v->Orienta(50, 15);
    std::vector<QImage> viste;
    for (int m = 0; m < 3; ++m) {
        s.f.findChild<QComboBox*>("Modo")->setCurrentIndex(m);
        viste.push_back(s.v->Immagine());
    }
    EXPECT_NE(viste[0], viste[1]);
    EXPECT_EQ(viste[2].pixelColor(5, 5), QColor(Qt::white));
    s.f.findChild<QComboBox*>("Modo")->setCurrentIndex(0);
    s.f.findChild<QSlider*>("Trasparenza")->setValue(80);
    EXPECT_NE(s.v->Immagine(), viste[0]);
    const QString png = QString::fromStdString((s.cartella / "v.png").string());
    EXPECT_TRUE(s.f.Esporta(png));
    EXPECT_EQ(QImage(png).size(), s.v->size());
    s.f.Isola(0);
    EXPECT_TRUE(s.f.Esporta(QString::fromStdString((s.cartella / "v.step").string())));
    const std::string step = prova::LeggiTesto(s.cartella / "v.step");
    EXPECT_NE(step.find("'TraPri'"), std::string::npos);
    EXPECT_EQ(step.find("'TraSec'"), std::string::npos) << "only what is in view";
}

TEST(Osserva3D, ReloadsWhenTheFileIsReplacedAndKeepsTheCamera) {
    Visore s;
    s.v->Ingrandisci(2.0, {100, 100});
    s.f.Scegli(1);
    s.f.Nascondi(2);
    const Camera prima = s.v->Occhio3D();
    const std::size_t n = s.v->Parti().size();
    s.nodo.AttNerv(1) = false;  // five parts less, and the weld of the flange in two halves
    ScriviNodo(s.nodo, s.file);
    EXPECT_TRUE(prova::Aspetta([&] { return s.v->Parti().size() == n - 5; }));
    EXPECT_EQ(s.v->Occhio3D(), prima);
    EXPECT_EQ(s.Scelto(), "TraSec");
    EXPECT_FALSE(s.v->Aspetto().pittura.visibili[2]);
    // A broken file, then an empty scene: told, and the picture stays; a good one clears the bar.
    prova::ScriviTesto(s.file, "pera\n");
    EXPECT_TRUE(prova::Aspetta([&] { return s.avviso->isVisible(); }));
    EXPECT_EQ(s.avviso->text().toStdString(),
              "Scena non leggibile: " + s.file + ": riga 1: non è un file di scena 3D");
    EXPECT_EQ(s.v->Parti().size(), n - 5);
    Scena vuota;
    SvuotaScena(vuota);
    ASSERT_TRUE(ScriviScena(vuota, s.file, kMuta));
    EXPECT_TRUE(prova::Aspetta([&] { return s.avviso->text().contains("non è definito"); }));
    s.nodo.AttNerv(1) = true;
    ScriviNodo(s.nodo, s.file);
    EXPECT_TRUE(prova::Aspetta([&] { return s.v->Parti().size() == n && !s.avviso->isVisible(); }));
    EXPECT_FALSE(s.f.Apri("/manca/altra.tmp"));
    EXPECT_EQ(s.f.windowTitle().toStdString(), "Osserva3D - " + s.file);
}

TEST(Osserva3D, CommandLine) {
    const prova::Cartella c;
    const std::string file = (c / "una scena.tmp").string(), prog = TK07_OSSERVA3D;
    ScriviNodo(prova::NodoDiProva(), file);
    std::string uscita, errori;
    // The marked field as the main program hands it over, in one argument.
    ASSERT_EQ(prova::Esegui(prog + " --elenca ' |fileinp=" + file + "|'", &uscita, &errori), 0)
        << errori;
    EXPECT_EQ(uscita.rfind("FILE  " + file + "\nESTRUSI  43\nSEZIONI  11\n", 0), 0U) << uscita;
    EXPECT_NE(uscita.find("\nESTRUSO 2  |oggetto=piastra_lato_TraPri|  sezione 4  da 85 0 0  a "
                          "100 0 0  lunghezza 15  giro 0  colore #FFFFFF00\n"),
              std::string::npos)
        << uscita;
    const std::string png = (c / "i.png").string();
    EXPECT_EQ(prova::Esegui("env -u DISPLAY " + prog + " --immagine '" + png +
                                "' --dimensioni 400x300 --vista 1 '" + file + "'",
                            &uscita, &errori),
              0);
    EXPECT_EQ(errori, "");
    const QImage im(png.c_str());
    EXPECT_EQ(im.size(), QSize(400, 300));
    int colorati = 0;
    for (int x = 0; x < 400; ++x) colorati += im.pixelColor(x, 150) != QColor(Qt::white);
    EXPECT_GT(colorati, 200);
    EXPECT_EQ(prova::Esegui(prog + " --vista 8 --immagine '" + png + "' '" + file + "'"), 2);
    EXPECT_EQ(prova::Esegui(prog + " --elenca /manca.tmp", &uscita, &errori), 2);
    EXPECT_EQ(errori.rfind("Osserva3D: /manca.tmp: ", 0), 0U) << errori;
    EXPECT_EQ(prova::Esegui("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + prog + " '" +
                                file + "'",
                            &uscita, &errori),
              2);
    EXPECT_EQ(errori, "Osserva3D: nessuno schermo: usare --elenca o --immagine\n");
}

}  // namespace
}  // namespace tk07

#endif
