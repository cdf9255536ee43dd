#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <memory>

#include "aiuti/prova.h"
#include "desktop/controlli.h"
#include "desktop/finestra_principale.h"
#include "desktop/legame.h"
#include "desktop/pannello_secondario.h"
#include "desktop/pilota.h"

namespace tk07::prova {

using namespace desktop;

// The desktop program offscreen on a tree of its own, with the tests' port behind the windows.
struct BancoGui {
    Cartella cartella;
    std::string radice = AlberoDiProva(cartella);
    Porta porta;
    Pilota pilota;
    std::unique_ptr<FinestraPrincipale> finestra;

    explicit BancoGui(const std::string& lavoro = {}) {
        pilota.LaSessione().piattaforma = porta.Fai();
        Avvio avvio;
        avvio.diroot = radice;
        if (!lavoro.empty()) avvio.lavoro = lavoro;
        if (!pilota.Avvia(avvio)) throw std::runtime_error("sessione non avviata");
        finestra = std::make_unique<FinestraPrincipale>(pilota);
        finestra->resize(1280, 800);  // the platform's screen is smaller
        finestra->show();
        QCoreApplication::processEvents();
    }
    Sessione& S() { return pilota.LaSessione(); }
    Nodo& N() { return pilota.LaSessione().nodo; }

    // Widget of a control of an open panel.
    template <class W = QWidget>
    W* Trova(const std::string& nome, const std::string& pannello = "InsDati") {
        Legame& l = pannello == "InsDati" ? finestra->IlLegame()
                                          : finestra->Secondario(pannello)->IlLegame();
        return qobject_cast<W*>(l.Oggetto(nome));
    }
    void Premi(const std::string& nome, const std::string& pannello = "InsDati") {
        auto* b = Trova<QAbstractButton>(nome, pannello);
        ASSERT_NE(b, nullptr) << nome;
        b->click();
        QCoreApplication::processEvents();
    }
    // Focus, type, leave by the Tab key.
    void Scrivi(const std::string& nome, const char* testo,
                const std::string& pannello = "InsDati") {
        auto* e = Trova<QLineEdit>(nome, pannello);
        ASSERT_NE(e, nullptr) << nome;
        e->setFocus(Qt::MouseFocusReason);
        e->selectAll();
        QTest::keyClicks(e, QString::fromUtf8(testo));
        QTest::keyClick(e, Qt::Key_Tab);
    }
    void Apri(const std::string& nome) {
        porta.file.push_back({radice + "/lavori/esempi/" + nome, 1});
        Premi("Car_Nodo");
    }
};

// Opens each secondary panel and says what to do with it.
template <class Fa>
void PerOgniPannello(BancoGui& b, Fa fa) {
    const struct {
        const char* apre;
        const char* pannello;
    } vie[] = {{"DefBulloni", "FormBulloni"},
               {"PropMatButton", "PropMateriali"},
               {"Opz", "FormOpz_Cond"},
               {"ImpS3D", "Soll3D"}};
    for (const auto& v : vie) {
        b.Premi(v.apre);
        ASSERT_NE(b.finestra->Secondario(v.pannello), nullptr) << v.pannello;
        fa(v.pannello);
        if (std::string(v.pannello) == "FormOpz_Cond") {  // a colour label opens the colours
            for (const auto& [nome, c] : b.S().FormOpz_Cond.controlli) {
                if (nome.rfind("LabColP", 0) != 0 || !c.visibile) continue;
                QTest::mouseClick(b.Trova(nome, v.pannello), Qt::LeftButton);
                break;
            }
            fa("FormColori");
            b.Premi("Colore(3)", "FormColori");
        }
        if (std::string(v.pannello) == "Soll3D") {
            b.Premi("Cerca(0)", "Soll3D");
            fa("selezione");
            b.Premi("Chiudi", "selezione");
        }
        b.Premi(PulsanteDiChiusura(v.pannello), v.pannello);
        EXPECT_EQ(b.finestra->Secondario(v.pannello), nullptr) << v.pannello;
    }
}

}  // namespace tk07::prova
