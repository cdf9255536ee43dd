#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QMainWindow>
#include <QString>
#include <QTimer>
#include <array>

#include "finestre/servizio_finestra.h"
#include "mostradis/vista.h"
#include "options/opzioni.h"

class QLabel;
class QListWidget;
class QPrinter;

namespace tk07 {

inline constexpr const char* kTitoloVisualizzatore = "VISUALIZZAZIONE FILE DISEGNO - ";

// The viewer's window: one drawing, its layers, measuring, printing, export. The file is watched
// and read again when it changes.
class Finestra : public QMainWindow {
  public:
    // `opz` gives the layers their names and pens; may be empty.
    explicit Finestra(const Opzioni& opz);

    // Shows a DIS file, or the one named by an exchange file. When it cannot be read a bar above
    // the drawing says why, with file and line, and the drawing on show stays, title and all.
    bool Apri(const QString& file);
    bool Ricarica();
    void Avvisa(const QString& testo);  // empty: hides the bar
    bool Esporta(const QString& file);
    // On the printer's sheet as it is set: to scale where it fits at all.
    bool Stampa(QPrinter& stampante);

    Vista* Superficie() { return vista_; }

  protected:
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dropEvent(QDropEvent* e) override;

  private:
    void FaiMenu();
    void FaiStrati();
    void AggiornaStrati();
    void Sorveglia();
    void ControllaFile();
    void ChiediFile();
    void ChiediEsporta();
    void ChiediStampa();

    Vista* vista_;
    ServizioFinestra* servizio_;  // a session that knows the title brings the window up
    QLabel* avviso_;
    QListWidget* strati_;
    QLabel *posizione_, *misura_;
    std::array<QString, kColori> nomiStrati_;
    QFileSystemWatcher guardia_;
    QTimer attesa_;        // several signals of one change are one
    QString file_;         // absolute
    QDateTime dataLetta_;  // of the file on show
    qint64 grandezzaLetta_ = -1;
    bool mostrato_ = false;  // a drawing is on show
};

}  // namespace tk07
