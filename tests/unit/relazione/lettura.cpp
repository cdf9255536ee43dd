#include "unit/relazione/lettura.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <regex>

#include "aiuti/prova.h"
#include "base/testo.h"

namespace tk07::prova {

Gettoni Spezza(const std::string& riga) {
    std::string t = SostituisciTesto(riga, " ****", " ");
    for (char& c : t) {
        if (c == '|' || c == '\t') c = ' ';
    }
    Gettoni g;
    for (const std::string& parola : Dividi(t, ' ')) {
        if (parola.empty()) continue;
        Gettone x{parola};
        const char* fine = parola.data() + parola.size();
        const auto r = std::from_chars(parola.data(), fine, x.valore);
        x.numero = r.ec == std::errc() && r.ptr == fine;
        g.push_back(x);
    }
    return g;
}

bool HaRiga(const std::vector<std::string>& righe, const Gettoni& voluti, bool inizio) {
    for (const std::string& riga : righe) {
        const Gettoni g = Spezza(riga);
        if (g.size() < voluti.size()) continue;
        const std::size_t da = inizio ? 0 : g.size() - voluti.size();
        bool uguali = true;
        for (std::size_t i = 0; uguali && i < voluti.size(); ++i) {
            const Gettone &a = g[da + i], &b = voluti[i];
            if (b.testo.find_first_not_of('*') == std::string::npos) continue;
            uguali = a.numero && b.numero ? a.valore == b.valore : a.testo == b.testo;
        }
        if (uguali) return true;
    }
    return false;
}

double Azione(const std::string& testo, const std::string& nome) {
    const std::regex forma("(^| )" + nome + " = (-?[0-9.]+)");
    std::smatch m;
    if (!std::regex_search(testo, m, forma)) return std::numeric_limits<double>::quiet_NaN();
    return Spezza(m[2])[0].valore;
}

PdfLetto LeggiPdf(const std::string& file) {
    PdfLetto pdf;
    std::string testo;
    if (Esegui("pdftotext -layout " + file + " -", &testo) != 0) return pdf;
    pdf.pagine = Dividi(testo, '\f');
    pdf.pagine.pop_back();  // a form feed ends every page
    for (const std::string& pagina : pdf.pagine) {
        for (const std::string& riga : Dividi(pagina, '\n')) pdf.righe.push_back(Taglia(riga));
    }
    for (const std::string& riga : pdf.righe) {
        for (const Gettone& g : Spezza(riga)) pdf.tutto += g.testo + " ";
    }
    return pdf;
}

std::vector<std::string> PdfLetto::Tra(const std::string& da, const std::string& a) const {
    std::vector<std::string> dentro;
    bool preso = false;
    for (const std::string& r : righe) {
        if (preso && r.rfind(a, 0) == 0) break;
        preso = preso || r.rfind(da, 0) == 0;
        if (preso) dentro.push_back(r);
    }
    return dentro;
}

std::vector<std::string> PdfLetto::Sestetto(int s) const {
    const auto titolo = [](const std::string& r, int n) {
        const std::string t = "Sestetto " + std::to_string(n);
        return r == t || r.rfind(t + ":", 0) == 0;
    };
    std::vector<std::string> dentro;
    bool capitolo = false, preso = false;
    for (const std::string& r : righe) {
        capitolo = capitolo || r == "Verifiche dei sestetti";
        if (preso && (titolo(r, s + 1) || r == "Limiti del metodo")) break;
        preso = preso || (capitolo && titolo(r, s));
        if (preso) dentro.push_back(r);
    }
    return dentro;
}

std::vector<std::pair<int, std::string>> Segnalibri(const std::string& file) {
    std::string xml;
    Esegui("pdftohtml -xml -i -stdout " + file, &xml);
    std::vector<std::pair<int, std::string>> voci;
    const std::regex forma("<item page=\"([0-9]+)\">([^<]*)</item>");
    for (std::sregex_iterator i(xml.begin(), xml.end(), forma), fine; i != fine; ++i) {
        voci.emplace_back(std::stoi((*i)[1]), (*i)[2]);
    }
    return voci;
}

namespace {

// sum := product (+|-|− product)*; product := power (· power)*; power := atom [^{number}]
class Valuta {
  public:
    explicit Valuta(const std::string& t) : t_(t) {}
    std::optional<double> Tutto() {
        const double x = Somma();
        Bianchi();
        if (guasto_ || i_ != t_.size()) return std::nullopt;
        return x;
    }

  private:
    void Bianchi() {
        while (i_ < t_.size() && t_[i_] == ' ') ++i_;
    }
    bool Prende(const std::string& s) {
        Bianchi();
        if (t_.compare(i_, s.size(), s) != 0) return false;
        i_ += s.size();
        return true;
    }
    void Vuole(const std::string& s) { guasto_ = guasto_ || !Prende(s); }
    double Somma() {
        double x = Prodotto();
        for (;;) {
            if (Prende("+")) {
                x += Prodotto();
            } else if (Prende("−")) {
                x -= Prodotto();
            } else {
                return x;
            }
        }
    }
    double Prodotto() {
        double x = Potenza();
        while (Prende("·")) x *= Potenza();
        return x;
    }
    double Potenza() {
        const double x = Atomo();
        if (!Prende("^{")) return x;
        const double n = Somma();
        Vuole("}");
        return std::pow(x, n);
    }
    double Atomo() {
        if (guasto_) return 0.0;
        if (Prende("(")) {
            const double x = Somma();
            Vuole(")");
            return x;
        }
        if (Prende("|")) {
            const double x = Somma();
            Vuole("|");
            return std::fabs(x);
        }
        for (const bool minimo : {true, false}) {
            if (!Prende(minimo ? "min(" : "max(")) continue;
            const double a = Somma();
            Vuole(";");
            const double b = Somma();
            Vuole(")");
            return minimo ? std::fmin(a, b) : std::fmax(a, b);
        }
        if (Prende("\\frac{")) {
            const double a = Somma();
            Vuole("}");
            Vuole("{");
            const double b = Somma();
            Vuole("}");
            return a / b;
        }
        if (Prende("\\sqrt{")) {
            const double x = Somma();
            Vuole("}");
            return std::sqrt(x);
        }
        if (Prende("π")) return 3.14159265358979;
        Bianchi();
        double x = 0.0;
        const auto r = std::from_chars(t_.data() + i_, t_.data() + t_.size(), x);
        if (r.ec != std::errc()) {
            guasto_ = true;
            return 0.0;
        }
        i_ = static_cast<std::size_t>(r.ptr - t_.data());
        return x;
    }
    const std::string t_;
    std::size_t i_ = 0;
    bool guasto_ = false;
};

}  // namespace

std::optional<std::pair<double, double>> ValutaFormula(const std::string& formula) {
    const std::size_t ultimo = formula.rfind(" = ");
    if (ultimo == std::string::npos || ultimo == 0) return std::nullopt;
    const std::size_t primo = formula.rfind(" = ", ultimo - 1);
    if (primo == std::string::npos) return std::nullopt;
    static const std::regex unita(
        " (daN|kN|N)(·(cm|mm|m))?(/(cm|mm|m)²)?(?![A-Za-z_])| mm(²|³)?(?![A-Za-z_])");
    const auto x =
        Valuta(std::regex_replace(formula.substr(primo + 3, ultimo - primo - 3), unita, ""))
            .Tutto();
    const Gettoni risultato = Spezza(formula.substr(ultimo + 3));
    if (!x || risultato.empty() || !risultato[0].numero) return std::nullopt;
    return std::pair{*x, risultato[0].valore};
}

}  // namespace tk07::prova
