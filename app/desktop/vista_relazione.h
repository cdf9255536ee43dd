#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTextBlock;

namespace tk07::desktop {

// The report with a search, opened at its verdict.
class VistaRelazione : public QWidget {
    Q_OBJECT

  public:
    explicit VistaRelazione(QWidget* padre);
    // Reads the file; false when it cannot be read.
    bool Apri(const QString& percorso);
    void ImpostaSuperata(bool superata);
    // To the heading of load set `indice` (from 0). False when the report has another set there.
    bool VaiAlSestetto(int indice, const QString& nome);
    bool Vuota() const { return percorso_.isEmpty(); }
    QPlainTextEdit* Testo() const { return testo_; }

  Q_SIGNALS:
    // A double click on the row of a bolt, a plate or a weld: set from 0, family, "bullone 3".
    void rigaScelta(int sestetto, int famiglia, const QString& elemento);

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    void VaiAlVerdetto();
    void ApriRiga(const QTextBlock& riga);
    void Cerca(bool indietro);

    QString percorso_;
    QLabel* titolo_;
    QLineEdit* cerca_;
    QPlainTextEdit* testo_;
};

}  // namespace tk07::desktop
