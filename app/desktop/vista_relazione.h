#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace tk07 {

// The report with a search, opened at its verdict.
class VistaRelazione : public QWidget {
    Q_OBJECT

  public:
    explicit VistaRelazione(QWidget* padre);
    // Reads the file; false when it cannot be read.
    bool Apri(const QString& percorso);
    void ImpostaSuperata(bool superata);
    // To the line of the load set of that name.
    bool VaiAlSestetto(const QString& nome);
    bool Vuota() const { return percorso_.isEmpty(); }
    QPlainTextEdit* Testo() const { return testo_; }

  private:
    void VaiAlVerdetto();
    void Cerca(bool indietro);

    QString percorso_;
    QLabel* titolo_;
    QLineEdit* cerca_;
    QPlainTextEdit* testo_;
};

}  // namespace tk07
