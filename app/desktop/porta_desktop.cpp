#include "desktop/porta_desktop.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QProgressDialog>
#include <QWindow>
#include <memory>

#include "base/file_testo.h"
#include "base/testo.h"
#include "desktop/testo_qt.h"
#include "finestre/servizio_finestra.h"
#include "guscio/porta_cli.h"

namespace tk07::desktop {

namespace {

QMessageBox::Icon Icona(Segno s) {
    switch (s) {
        case Segno::critico:
            return QMessageBox::Critical;
        case Segno::esclamazione:
            return QMessageBox::Warning;
        case Segno::informazione:
            return QMessageBox::Information;
        case Segno::domanda:
            return QMessageBox::Question;
        case Segno::nessuno:
            break;
    }
    return QMessageBox::NoIcon;
}

QStringList Filtri(const std::string& filtro) {
    QStringList l;
    QStringList parti = Q(filtro).split(QLatin1Char('|'));
    // "Save as" gives names in .tk17 too: what was saved is found again.
    parti.replaceInStrings(QStringLiteral("*.tk7"), QStringLiteral("*.tk7 *.tk17"));
    for (qsizetype i = 0; i + 1 < parti.size(); i += 2) {
        const QString descrizione = parti[i].section(QLatin1String(" ("), 0, 0);
        l << descrizione + QStringLiteral(" (") +
                 (parti[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parti[i + 1]) +
                 QLatin1Char(')');
    }
    return l;
}

// "dxf" of "AutoCAD (*.dxf)"; empty for all files.
QString EstensioneDi(const QString& filtro) {
    const QString modello = filtro.section(QLatin1Char('('), -1).remove(QLatin1Char(')'));
    return modello.startsWith(QLatin1String("*.")) ? modello.mid(2) : QString();
}

std::optional<FileScelto> Scegli(QWidget* padre, const RichiestaFile& r) {
    const bool salva = r.modo == ModoFile::salva;
    QFileDialog d(padre);
    d.setWindowTitle(!r.titolo.empty() ? Q(r.titolo)
                     : salva           ? QStringLiteral("Salva con nome")
                                       : QStringLiteral("Apri"));
    d.setAcceptMode(salva ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    d.setFileMode(salva ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!r.chiediSovrascrittura) d.setOption(QFileDialog::DontConfirmOverwrite);
    d.setDefaultSuffix(Q(r.estensione));
    const QStringList filtri = Filtri(r.filtro);
    if (!filtri.isEmpty()) d.setNameFilters(filtri);
    if (salva && EstensioneDi(filtri.value(0)) == Q(r.estensione)) {
        // The name follows the kind of file that is chosen.
        QObject::connect(&d, &QFileDialog::filterSelected, &d, [&d, filtri](const QString& filtro) {
            const QString estensione = EstensioneDi(filtro);
            if (estensione.isEmpty()) return;
            d.setDefaultSuffix(estensione);
            const QFileInfo f(d.selectedFiles().value(0));
            for (const QString& altro : filtri) {
                if (f.suffix().isEmpty() || f.suffix() != EstensioneDi(altro)) continue;
                d.selectFile(f.completeBaseName() + QLatin1Char('.') + estensione);
                break;
            }
        });
    }
    if (!r.direttorio.empty()) d.setDirectory(Q(PercorsoPiattaforma(r.direttorio)));
    if (!r.nomeIniziale.empty()) {
        const QFileInfo f(Q(PercorsoPiattaforma(r.nomeIniziale)));
        if (f.path() != QLatin1String(".")) d.setDirectory(f.path());
        d.selectFile(f.fileName());
    }
    if (d.exec() != QDialog::Accepted || d.selectedFiles().isEmpty()) return std::nullopt;
    const int filtro = static_cast<int>(filtri.indexOf(d.selectedNameFilter())) + 1;
    return FileScelto{S(d.selectedFiles().constFirst()), filtro < 1 ? 1 : filtro};
}

// Waits for a program with the windows alive but closed to the user, who may stop waiting.
bool AvviaEAttendi(QWidget* padre, const QString& file, const QStringList& argomenti,
                   const QString& dir) {
    QProcess processo;
    processo.setWorkingDirectory(dir);
    processo.setProcessChannelMode(QProcess::ForwardedChannels);
    processo.setStandardInputFile(QProcess::nullDevice());  // nobody types there
    processo.start(file, argomenti);
    if (!processo.waitForStarted()) return false;
    QProgressDialog attesa(
        QStringLiteral("In attesa di ") + QFileInfo(file).fileName() + QStringLiteral("..."),
        QStringLiteral("Non attendere"), 0, 0, padre);
    attesa.setWindowTitle(Q(kTitoloProgramma));
    attesa.setWindowModality(Qt::ApplicationModal);
    attesa.setMinimumDuration(400);
    QEventLoop giro;
    QObject::connect(&processo, &QProcess::finished, &giro, &QEventLoop::quit);
    QObject::connect(&processo, &QProcess::errorOccurred, &giro, &QEventLoop::quit);
    QObject::connect(&attesa, &QProgressDialog::canceled, &giro, &QEventLoop::quit);
    if (processo.state() != QProcess::NotRunning) giro.exec();
    if (processo.state() != QProcess::NotRunning) {  // the tool goes on without being listened to
        processo.terminate();
        return false;
    }
    return processo.exitStatus() == QProcess::NormalExit;
}

}  // namespace

QString FiltroQt(const std::string& filtro) { return Filtri(filtro).join(QLatin1String(";;")); }

Piattaforma PortaDesktop(const std::function<QWidget*()>& finestra,
                         const std::function<void(const QString& percorso)>& mostraTesto,
                         const std::function<void(bool nodi, QWidget* padre)>& cerca) {
    const auto padre = [finestra] {
        QWidget* attiva = QApplication::activeModalWidget();
        if (attiva == nullptr) attiva = QApplication::activeWindow();
        return attiva != nullptr ? attiva : finestra();
    };
    Piattaforma p = PiattaformaMuta();
    p.messaggio = [padre](const std::string& testo, const std::string& titolo, Segno segno,
                          Pulsanti pulsanti) {
        QMessageBox box(Icona(segno), Q(titolo), Q(testo), QMessageBox::Ok, padre());
        box.setTextFormat(Qt::PlainText);
        if (pulsanti == Pulsanti::OKAnnulla) {
            box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
            box.setEscapeButton(QMessageBox::Cancel);
        }
        box.setDefaultButton(QMessageBox::Ok);
        // A busy pointer of a long command must not stay over the box.
        const bool occupato = QApplication::overrideCursor() != nullptr;
        if (occupato) QApplication::setOverrideCursor(Qt::ArrowCursor);
        const int risposta = box.exec();
        if (occupato) QApplication::restoreOverrideCursor();
        return risposta == QMessageBox::Ok ? Risposta::OK : Risposta::Annulla;
    };
    p.scegliFile = [padre](const RichiestaFile& r) { return Scegli(padre(), r); };
    p.avvia = [padre, mostraTesto, cerca](const std::string& programma,
                                          const std::vector<std::string>& argomenti, bool attendi) {
        if (Minuscolo(programma) == "notepad.exe" && argomenti.size() == 1) {
            mostraTesto(Q(argomenti.front()));
            return true;
        }
        QStringList lista;
        for (const std::string& a : argomenti) lista << Q(a);
        if (Minuscolo(programma) == "explorer.exe") {
            if (lista.size() == 1) lista[0] = Q(FileDaMostrare(argomenti.front()));
            return QProcess::startDetached(QStringLiteral("xdg-open"), lista);
        }
        // The search tools of the suite where they are installed, else the window of this program.
        const std::string nome = Minuscolo(NomeSenzaDirettorio(programma));
        if ((nome == "trova.exe" || nome == "trovanod.exe") && !EsisteFile(programma)) {
            cerca(nome == "trovanod.exe", padre());
            return true;
        }
        const QString file = Q(FileProgramma(programma));
        const QString dir = Q(DirettorioDiPartenza(programma));
        return attendi ? AvviaEAttendi(padre(), file, lista, dir)
                       : QProcess::startDetached(file, lista, dir);
    };
    // The last window that was activated gets the keys.
    const auto attivata = std::make_shared<QString>();
    p.attivaFinestra = [attivata](const std::string& titolo) {
        *attivata = Q(titolo);
        if (InviaAFinestra(*attivata, QStringLiteral("attiva"))) return true;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (!w->isVisible() || !w->windowTitle().startsWith(Q(titolo))) continue;
            w->raise();
            w->activateWindow();
            return true;
        }
        return false;
    };
    p.inviaTasti = [attivata](const std::string& tasti) { InviaAFinestra(*attivata, Q(tasti)); };
    p.puntatore = [](int forma) {
        constexpr int kOccupato = 11;
        while (QApplication::overrideCursor() != nullptr) QApplication::restoreOverrideCursor();
        if (forma == kOccupato) QApplication::setOverrideCursor(Qt::WaitCursor);
    };
    return p;
}

}  // namespace tk07::desktop
