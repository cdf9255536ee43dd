#include "desktop/programma_gui.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTranslator>
#include <clocale>
#include <new>
#include <set>

#include "base/errore.h"
#include "base/testo.h"
#include "desktop/finestra_principale.h"
#include "desktop/finestra_recupero.h"
#include "desktop/finestra_trova.h"
#include "desktop/in_corsa.h"
#include "desktop/pilota.h"
#include "desktop/porta_desktop.h"
#include "desktop/primo_avvio.h"
#include "desktop/testo_qt.h"
#include "guscio/programma.h"

namespace tk07::desktop {

bool Applicazione::notify(QObject* oggetto, QEvent* evento) {
    std::string cosa;
    try {
        return QApplication::notify(oggetto, evento);
    } catch (const std::bad_alloc&) {
        cosa = "memoria esaurita";
    } catch (const ErroreFatale& e) {
        cosa = e.what() + (e.Dove().empty() ? "" : "\nin " + e.Dove());
    } catch (const std::exception& e) {
        cosa = "errore interno (" + std::string(e.what()) + ")";
    } catch (...) {
        cosa = "errore interno";
    }
    if (guasto) guasto(cosa);
    return false;
}

namespace {

// What a window let through: the joint goes to the automatic copies at once. A fault that comes
// back with every repaint is told once.
void Racconta(Pilota& pilota, const std::string& cosa, std::set<std::string>& detti) {
    pilota.CopiaOra();
    if (!detti.insert(cosa).second) return;
    QTimer::singleShot(0, &pilota, [&pilota, cosa] {
        MostraErrore(pilota.LaSessione().piattaforma,
                     "Qualcosa non è andato a buon fine: " + cosa +
                         "\nIl nodo è tra le copie automatiche (File, Recupera). Salvarlo con un "
                         "altro nome e riavviare il programma.");
    });
}

Pilota::Salvare ChiediSalva(QWidget* finestra, const QString& testo) {
    QMessageBox box(QMessageBox::Question, Q(kTitoloProgramma), testo, QMessageBox::NoButton,
                    finestra);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* scrivi = box.addButton(QStringLiteral("&Salva"), QMessageBox::AcceptRole);
    const QPushButton* conNome =
        box.addButton(QStringLiteral("Salva &con nome..."), QMessageBox::ActionRole);
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    const QAbstractButton* scelto = box.clickedButton();
    if (scelto == scrivi) return Pilota::Salvare::scrivi;
    return scelto == conNome ? Pilota::Salvare::conNome : Pilota::Salvare::rinuncia;
}

}  // namespace

void PreparaApplicazione(QApplication& app) {
    std::setlocale(LC_NUMERIC, "C");  // the toolkit has taken over the user's
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    auto* traduzione = new QTranslator(&app);
    if (traduzione->load(QStringLiteral("qtbase_it"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(traduzione);
    }
    QCoreApplication::setApplicationName(QStringLiteral("tk07-gui"));
    QGuiApplication::setApplicationDisplayName({});
    // With no font of its own the platform would draw no text at all.
    if (QFontDatabase::families().contains(QStringLiteral("DejaVu Sans"))) {
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setPointSizeF(9.0);
        QApplication::setFont(f);
    }
}

Avvio LeggiRigaComando(const QStringList& argomenti) {
    Avvio a;
    for (int i = 1; i < argomenti.size(); ++i) {
        const QString& t = argomenti[i];
        a.rigaComando += (i > 1 ? " " : "") + S(t);
        const auto valore = [&](const char* nome, std::optional<std::string>& dove) {
            const QString chiave = QString::fromUtf8(nome);
            if (t == chiave && i + 1 < argomenti.size()) dove = S(argomenti[i + 1]);
            if (t.startsWith(chiave + QLatin1Char('='))) dove = S(t.mid(chiave.size() + 1));
        };
        valore("--diroot", a.diroot);
        valore("--lavoro", a.lavoro);
    }
    if (a.diroot) a.diroot = PercorsoAssoluto(*a.diroot);
    return a;
}

std::string FileDaAprire(const QStringList& argomenti) {
    for (int i = 1; i < argomenti.size(); ++i) {
        const QString& t = argomenti[i];
        if (t == QLatin1String("--diroot") || t == QLatin1String("--lavoro")) {
            ++i;
        } else if (!t.startsWith(QLatin1Char('-')) && !t.startsWith(QLatin1Char('|'))) {
            return PercorsoAssoluto(S(t));
        }
    }
    return {};
}

int EseguiGui(QApplication& app, const QStringList& argomenti) {
    PreparaApplicazione(app);
    Avvio avvio = LeggiRigaComando(argomenti);
    avvio.dirProgramma = DirettorioProgramma(argomenti.empty() ? "" : S(argomenti[0]).c_str());
    if (!TrovaAlberoOChiedi(avvio)) return kUscitaAvvio;
    Pilota pilota;
    std::unique_ptr<FinestraPrincipale> finestra;
    pilota.LaSessione().piattaforma =
        PortaDesktop([&finestra]() -> QWidget* { return finestra.get(); },
                     [&finestra](const QString& percorso) {
                         if (finestra) finestra->MostraRelazione(percorso);
                     },
                     [&pilota](bool nodi, QWidget* padre) {
                         const Sessione& s = pilota.LaSessione();
                         TrovaInFinestra(s.dir, nodi, padre, s.piattaforma);
                     });
    if (!pilota.Avvia(avvio)) {
        const int codice = pilota.LaSessione().codiceUscita;
        return codice != 0 ? codice : kUscitaAvvio;
    }
    finestra = std::make_unique<FinestraPrincipale>(pilota);
    pilota.chiediSalva = [&finestra](const QString& testo) {
        return ChiediSalva(finestra.get(), testo);
    };
    std::set<std::string> guasti;
    if (auto* nostra = qobject_cast<Applicazione*>(&app)) {
        nostra->guasto = [&pilota, &guasti](const std::string& cosa) {
            Racconta(pilota, cosa, guasti);
        };
    }
    int codice = 0;
    QObject::connect(&pilota, &Pilota::finito, &app, [&](int c) {
        codice = c;
        QCoreApplication::exit(c);
    });
    finestra->show();
    InCorsa inCorsa(pilota.LaSessione().dir.dirTemp);
    if (inCorsa.AltraInterrotta()) {
        QTimer::singleShot(0, finestra.get(),
                           [&pilota, &finestra] { OffriRecupero(pilota, finestra.get()); });
    }
    if (const std::string file = FileDaAprire(argomenti); !file.empty()) {
        QTimer::singleShot(0, finestra.get(), [&finestra, file] { finestra->ApriFile(file); });
    }
    QApplication::exec();
    if (codice != 0) inCorsa.LasciaIlSegno();
    finestra.reset();
    return codice;
}

}  // namespace tk07::desktop
