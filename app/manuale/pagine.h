#pragma once

#include <QPainter>
#include <QPdfWriter>
#include <functional>
#include <memory>
#include <vector>

#include "manuale/blocchi.h"
#include "pdf/segnalibri.h"

namespace tk07::manuale {

// A piece that is never split over two pages.
struct Riquadro {
    double altezza = 0.0;
    double spazioSopra = 0.0;    // not at the top of a page
    bool conIlProssimo = false;  // stays on the page of the next one
    bool nuovaPagina = false;    // begins a page
    QString capitolo;            // names the chapter of the pages from here on
    int livello = 0;             // of a heading: goes into the table of contents
    QString titolo;
    const Riquadro* meta = nullptr;     // of a line of the contents: the heading that it tells
    std::shared_ptr<Riquadro> testata;  // drawn again where a page begins with this one
    std::function<void(QPainter&, QPointF)> disegna;
};

struct Posto {
    const Riquadro* riquadro;
    double y;
};
struct Pagina {
    QString capitolo;
    std::vector<Posto> posti;
};

// Turns chapters into pieces and pieces into pages. Lengths are dots of the writer.
class Impaginatore {
  public:
    explicit Impaginatore(QPdfWriter& carta);
    // False, with the reason in `errore`, when a figure cannot be read or a piece has no room on a
    // page.
    bool Capitolo(const QString& markdown, const QString& cartella, QString& errore);
    // Title page, table of contents, chapters.
    bool Scrivi(const QString& titolo, const QString& sottotitolo, const QString& versione,
                QString& errore);
    // Of what was written: headings down to sections, and where the contents lead to them.
    const std::vector<Segnalibro>& Segnalibri() const { return segnalibri_; }
    const std::vector<Rimando>& Rimandi() const { return rimandi_; }

  private:
    double Mm(double x) const { return x * mm_; }
    Riquadro Testo(const QString& markdown, double x, double larghezza, double corpo,
                   bool grassetto);
    bool Tabella(const Blocco& b, QString& errore);
    bool Figura(const Blocco& b, const QString& cartella, QString& errore);
    void Codice(const Blocco& b);
    bool Disponi(const std::vector<Riquadro>& pezzi, std::vector<Pagina>& pagine,
                 QString& errore) const;
    std::vector<Riquadro> Indice(const std::vector<Pagina>& pagine, int spostamento);
    void Segna(const std::vector<Pagina>& prime, const std::vector<Pagina>& pagine);

    QPdfWriter& carta_;
    double mm_, larghezza_, altezza_, cima_, fondo_;
    std::vector<Riquadro> pezzi_;
    QString capitolo_;
    std::vector<Segnalibro> segnalibri_;
    std::vector<Rimando> rimandi_;
};

}  // namespace tk07::manuale
