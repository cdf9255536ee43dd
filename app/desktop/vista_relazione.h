#pragma once

#include <QTextCursor>
#include <QWidget>
#include <vector>

#include "reports/relazione.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace tk07::desktop {

// The report with a search, opened at its verdict.
class VistaRelazione : public QWidget {
    Q_OBJECT

  public:
    explicit VistaRelazione(QWidget* padre);
    // Reads the file, of whose rows `scritta` tells the places; false when it cannot be read.
    bool Apri(const QString& percorso, const RelazioneScritta& scritta);
    void ImpostaSuperata(bool superata);
    // To the heading of load set `indice` (from 0). False when the report has another set there.
    bool VaiAlSestetto(int indice, const QString& nome);
    bool Vuota() const { return percorso_.isEmpty(); }
    QPlainTextEdit* Testo() const { return testo_; }

  Q_SIGNALS:
    // A double click on the row of a bolt, a plate or a weld: set from 0, element as in Riscontro.
    void rigaScelta(int sestetto, Famiglia famiglia, int elemento);

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    void VaiAlVerdetto();
    void ApriRiga(int riga);
    QTextCursor AllaRiga(int riga) const;
    void Cerca(bool indietro);

    QString percorso_;
    std::vector<RigaRelazione> righe_;
    std::vector<SestettoRelazione> sestetti_;
    QLabel* titolo_;
    QLineEdit* cerca_;
    QPlainTextEdit* testo_;
};

}  // namespace tk07::desktop
