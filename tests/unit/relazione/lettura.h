#pragma once

// A report read back by the tools of another project: text, outline; and an evaluator of formula
// lines.

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tk07::prova {

struct Gettone {
    std::string testo;
    bool numero = false;
    double valore = 0.0;
};
using Gettoni = std::vector<Gettone>;
// Words of a line; the bars, tabs and stars of the text reports are blanks.
Gettoni Spezza(const std::string& riga);
// Whether one of the lines begins (or ends) with these words, numbers by value. A word of stars, a
// number that did not fit its field, stands for any.
bool HaRiga(const std::vector<std::string>& righe, const Gettoni& gettoni, bool inizio);
// The number behind "Ty = ".
double Azione(const std::string& testo, const std::string& nome);

struct PdfLetto {
    std::string tutto;  // blanks and line ends as one blank each
    std::vector<std::string> pagine, righe;
    // Lines from the one that begins with `da` to the one that begins with `a`.
    std::vector<std::string> Tra(const std::string& da, const std::string& a) const;
    // Lines of the checks of load set s, from 1.
    std::vector<std::string> Sestetto(int s) const;
};
PdfLetto LeggiPdf(const std::string& file);
// Page, from 1, and title of every entry of the outline, in order.
std::vector<std::pair<int, std::string>> Segnalibri(const std::string& file);

// "x = numbers = result": what the numbers give, and the result as printed. Nothing for a line with
// letters in place of numbers.
std::optional<std::pair<double, double>> ValutaFormula(const std::string& formula);

}  // namespace tk07::prova
