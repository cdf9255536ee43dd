#pragma once

#include <QString>
#include <array>

#include "drawing/stili_grb.h"
#include "finestre/finestra_file.h"
#include "finestre/servizio_finestra.h"
#include "mostradis/vista.h"
#include "options/opzioni.h"

class QLabel;
class QListWidget;
class QPrinter;

namespace tk07::mostradis {

inline constexpr const char* kTitoloVisualizzatore = "VISUALIZZAZIONE FILE DISEGNO - ";

// The viewer's window: one drawing, its layers, measuring, printing, export.
class Finestra : public FinestraFile {
  public:
    // `opz` gives the layers their names and pens, and with `stili` a GRB file its colours and text
    // sizes; may be empty.
    explicit Finestra(const Opzioni& opz, StiliGrb stili = {.Stili = {}});

    bool Esporta(const QString& file);
    // On the printer's sheet as it is set: to scale where it fits at all.
    bool Stampa(QPrinter& stampante);

    Vista* Superficie() { return vista_; }

  protected:
    // A DIS or GRB file, or the one named by an exchange file.
    QString FileInteso(const QString& argomento, QString& errore) const override;
    bool Leggi(const QString& file, QString& errore) override;
    void Aperto(bool letto) override;

  private:
    void FaiMenu();
    void FaiStrati();
    void AggiornaStrati();
    void ChiediFile();
    void ChiediEsporta();
    void ChiediStampa();

    Opzioni opz_;
    StiliGrb stili_;
    Vista* vista_;
    ServizioFinestra* servizio_;  // a session that knows the title brings the window up
    QListWidget* strati_;
    QLabel *posizione_, *misura_;
    std::array<QString, kColori> nomiStrati_;
};

}  // namespace tk07::mostradis
