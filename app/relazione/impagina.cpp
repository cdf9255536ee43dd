#include "relazione/impagina.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "relazione/copertina.h"
#include "relazione/formula.h"
#include "relazione/piano.h"
#include "relazione/tabella.h"

namespace tk07 {

namespace {

constexpr double kFoglioL = 210.0, kFoglioA = 297.0;
constexpr double kX = kSinistraRel * kMmRel;
constexpr double kLargo = (kFoglioL - kSinistraRel - kDestraRel) * kMmRel;
constexpr double kCima = kAltoRel * kMmRel, kFondo = (kFoglioA - kBassoRel) * kMmRel;
constexpr double kPiano = 118.0 * kMmRel, kVista = 125.0 * kMmRel;
constexpr double kAria = 1.6 * kMmRel;  // below a block
const QColor kBene(30, 120, 50), kMale(175, 20, 20), kGrigio(90, 90, 90), kTitolo(25, 55, 100);

// A block measured for the page's width.
struct Misurato {
    double altezza = 0.0;  // all of it
    double minimo = 0.0;   // what must at least stand together
};

class Impaginatore {
  public:
    Impaginatore(const RelazioneEstesa& d, const CaratteriRel& c, const FigureRelazione& f)
        : d_(d), c_(c), f_(f) {}

    Impaginato Fai(const std::vector<std::pair<QString, QString>>& scheda) {
        NuovaPagina();
        r_.segnalibri.push_back({1, QStringLiteral("Esito"), 0, kCima / kPtRel});
        Disegna([this, scheda](QPainter& p) {
            DipingiCopertina(p, QRectF(kX, kCima, kLargo, kFondo - kCima), d_, scheda, c_);
        });
        NuovaPagina();
        for (std::size_t i = 0; i < d_.blocchi.size(); ++i) {
            i_ = i;
            std::visit([this](const auto& b) { Poni(b); }, d_.blocchi[i]);
        }
        if (r_.pagine.back().elementi.empty()) r_.pagine.pop_back();
        return std::move(r_);
    }

  private:
    void NuovaPagina() {
        r_.pagine.emplace_back();
        y_ = kCima;
    }
    bool InCima() const { return y_ <= kCima + 1.0; }
    void Disegna(std::function<void(QPainter&)> f) {
        r_.pagine.back().elementi.push_back(std::move(f));
    }
    // Room for h, on a new page if need be.
    void Posto(double h) {
        if (y_ + h > kFondo && !InCima()) NuovaPagina();
    }
    void Segna(int livello, const QString& t) {
        r_.segnalibri.push_back({livello, t, static_cast<int>(r_.pagine.size()) - 1, y_ / kPtRel});
    }

    // What the block at i wants to have together at its beginning; headings take the next along.
    // NOLINTNEXTLINE(misc-no-recursion)
    double Minimo(std::size_t i) const {
        if (i >= d_.blocchi.size()) return 0.0;
        const BloccoRel& b = d_.blocchi[i];
        if (const auto* t = std::get_if<TitoloRel>(&b)) return AltezzaTitolo(*t) + Minimo(i + 1);
        if (const auto* t = std::get_if<TestoRel>(&b)) {
            return AltezzaTesto(t->testo) + (Lega(i) ? Minimo(i + 1) : 0.0);
        }
        if (const auto* v = std::get_if<VerificaRel>(&b)) return AltezzaVerifica(*v);
        if (const auto* t = std::get_if<TabellaRel>(&b)) {
            const TabellaPosta m(*t, c_, kLargo);
            return m.Capo() + m.Altezza(0, std::min(m.Righe(), Insieme(m, *t)));
        }
        if (const auto* r = std::get_if<RiquadroRel>(&b)) return AltezzaRiquadro(*r);
        if (std::holds_alternative<PianoRel>(b)) return kPiano;
        return f_.vista3d ? kVista : 0.0;
    }
    // A sentence goes with what it leads to: a table, more text, a heading within the section.
    bool Lega(std::size_t i) const {
        if (i + 1 >= d_.blocchi.size()) return false;
        const BloccoRel& b = d_.blocchi[i + 1];
        const auto* t = std::get_if<TitoloRel>(&b);
        return std::holds_alternative<TabellaRel>(b) || std::holds_alternative<TestoRel>(b) ||
               (t != nullptr && t->livello == 3);
    }
    // Rows that stay together at the top of a table: small tables whole.
    static std::size_t Insieme(const TabellaPosta& m, const TabellaRel& t) {
        if (m.Altezza(0, m.Righe()) < 0.3 * (kFondo - kCima)) return m.Righe();
        return std::max<std::size_t>(t.insieme, (3 + t.insieme - 1) / t.insieme * t.insieme);
    }

    const Carattere& CarattereTitolo(int livello) const {
        return livello == 1 ? c_.capitolo : livello == 2 ? c_.paragrafo : c_.forte;
    }
    double AltezzaTitolo(const TitoloRel& t) const {
        const Carattere& c = CarattereTitolo(t.livello);
        const double sopra = t.livello == 1 ? 6.0 : t.livello == 2 ? 4.0 : 2.5;
        const double sotto = t.livello == 1 ? 3.0 : 1.4;
        const auto righe = c.Righe(DaUtf8(t.testo), kLargo).size();
        return c.Altezza() * static_cast<double>(righe) + (sopra + sotto) * kMmRel;
    }
    void Poni(const TitoloRel& t) {
        if (t.livello == 1 && y_ > kCima + 0.6 * (kFondo - kCima)) NuovaPagina();
        Posto(Minimo(i_));
        const Carattere& c = CarattereTitolo(t.livello);
        const double sopra = InCima() ? 0.0
                                      : (t.livello == 1   ? 6.0
                                         : t.livello == 2 ? 4.0
                                                          : 2.5) *
                                            kMmRel;
        y_ += sopra;
        if (t.livello <= 2) Segna(t.livello, DaUtf8(t.testo));
        const double y = y_;
        const QStringList righe = c.Righe(DaUtf8(t.testo), kLargo);
        const bool capitolo = t.livello == 1;
        const double alto = c.Altezza() * static_cast<double>(righe.size());
        Disegna([&c, righe, y, capitolo, alto](QPainter& p) {
            p.setFont(c.Font());
            p.setPen(kTitolo);
            for (qsizetype k = 0; k < righe.size(); ++k) {
                p.drawText(QPointF(kX, y + c.Salita() + static_cast<double>(k) * c.Altezza()),
                           righe[k]);
            }
            if (!capitolo) return;
            p.setPen(QPen(kTitolo, 14));
            p.drawLine(QPointF(kX, y + alto + 10), QPointF(kX + kLargo, y + alto + 10));
        });
        y_ += alto + (capitolo ? 3.0 : 1.4) * kMmRel;
    }

    double AltezzaTesto(const std::string& t) const {
        return c_.testo.Altezza() * 1.12 *
                   static_cast<double>(c_.testo.Righe(DaUtf8(t), kLargo).size()) +
               kAria;
    }
    void Poni(const TestoRel& t) {
        const double h = AltezzaTesto(t.testo);
        Posto(Minimo(i_));
        const QStringList righe = c_.testo.Righe(DaUtf8(t.testo), kLargo);
        Disegna([this, righe, y = y_](QPainter& p) {
            p.setFont(c_.testo.Font());
            p.setPen(Qt::black);
            double yr = y + c_.testo.Salita();
            for (const QString& r : righe) {
                p.drawText(QPointF(kX, yr), r);
                yr += c_.testo.Altezza() * 1.12;
            }
        });
        y_ += h;
    }

    void Poni(const TabellaRel& t) {
        if (t.righe.empty()) return;
        const auto m = std::make_shared<TabellaPosta>(t, c_, kLargo);
        std::size_t da = 0;
        Posto(m->Capo() + m->Altezza(0, std::min(m->Righe(), Insieme(*m, t))));
        while (da < m->Righe()) {
            double h = m->Capo();
            std::size_t a = da;
            while (a < m->Righe()) {
                const std::size_t fine = std::min(m->Righe(), a + t.insieme);
                const double altri = m->Altezza(a, fine);
                if (y_ + h + altri > kFondo && a > da) break;
                h += altri;
                a = fine;
            }
            // No lonely row on the next page.
            if (a < m->Righe() && m->Righe() - a <= t.insieme && a - da > 2 * t.insieme) {
                a -= t.insieme;
            }
            Disegna([m, y = y_, da, a](QPainter& p) { m->Disegna(p, kX, y, da, a); });
            y_ += m->Capo() + m->Altezza(da, a);
            da = a;
            if (da < m->Righe()) NuovaPagina();
        }
        y_ += 1.5 * kAria;
    }

    CaratteriFormula PerFormula(const Carattere& base) const {
        return {&base, &base == &c_.testo ? &c_.indice : &c_.indiceForte};
    }
    // A formula as large as the width allows.
    Formula FaiFormula(const std::string& t, double largo) const {
        Formula f(DaUtf8(t), PerFormula(c_.testo));
        if (f.Larghezza() <= largo) return f;
        return Formula(DaUtf8(t), {&c_.stretta, &c_.indiceForte});
    }
    static constexpr double kRientro = 4.0 * kMmRel;
    double AltezzaVerifica(const VerificaRel& v) const {
        double h = c_.forte.Altezza() + 1.6 * kMmRel;
        for (const std::string& f : v.formule) {
            h += FaiFormula(f, kLargo - 2.0 * kRientro).Altezza() + 1.3 * kMmRel;
        }
        if (!v.confronto.empty()) h += c_.forte.Altezza() + 0.8 * kMmRel;
        return h + 2.6 * kMmRel;
    }
    void Poni(const VerificaRel& v) {
        const double h = AltezzaVerifica(v);
        Posto(h);
        Disegna([this, &v, y = y_, h](QPainter& p) { DisegnaVerifica(p, v, y, h); });
        y_ += h;
    }
    void DisegnaVerifica(QPainter& p, const VerificaRel& v, double y, double h) const {
        const QColor colore = v.confronto.empty() ? kGrigio : v.passa ? kBene : kMale;
        p.fillRect(QRectF(kX, y, 0.9 * kMmRel, h - 2.2 * kMmRel), colore);
        double base = y + c_.forte.Salita();
        const double x = kX + kRientro;
        p.setPen(Qt::black);
        p.setFont(c_.forte.Font());
        p.drawText(QPointF(x, base), DaUtf8(v.titolo));
        const QString norma = DaUtf8(v.clausola);
        p.setPen(kGrigio);
        p.setFont(c_.tabella.Font());
        p.drawText(QPointF(kX + kLargo - c_.tabella.Larghezza(norma), base), norma);
        double cima = y + c_.forte.Altezza() + 1.6 * kMmRel;
        p.setPen(Qt::black);
        for (const std::string& t : v.formule) {
            const Formula f = FaiFormula(t, kLargo - 2.0 * kRientro);
            f.Disegna(p, {x + kRientro, cima + f.Salita()});
            cima += f.Altezza() + 1.3 * kMmRel;
        }
        if (v.confronto.empty()) return;
        base = cima + c_.forte.Salita();
        p.setFont(c_.testo.Font());
        p.drawText(QPointF(x + kRientro, base), DaUtf8(v.confronto));
        p.setFont(c_.forte.Font());
        p.setPen(colore);
        const QString esito = QStringLiteral("rapporto ") + DaUtf8(v.rapporto) +
                              (v.passa ? QStringLiteral("   SI'") : QStringLiteral("   NO"));
        p.drawText(QPointF(kX + kLargo - c_.forte.Larghezza(esito), base), esito);
    }

    double AltezzaRiquadro(const RiquadroRel& r) const {
        double h = c_.forte.Altezza() + 6.0 * kMmRel;
        for (const std::string& t : r.punti) {
            h += c_.testo.Altezza() * 1.1 *
                     static_cast<double>(c_.testo.Righe(DaUtf8(t), kLargo - 12.0 * kMmRel).size()) +
                 0.9 * kMmRel;
        }
        return h + kAria;
    }
    void Poni(const RiquadroRel& r) {
        const double h = AltezzaRiquadro(r);
        Posto(h);
        Disegna([this, &r, y = y_, h](QPainter& p) {
            p.setPen(QPen(kTitolo, 12));
            p.setBrush(QColor(248, 249, 252));
            p.drawRect(QRectF(kX, y, kLargo, h - kAria));
            p.setBrush(Qt::NoBrush);
            double base = y + 2.5 * kMmRel + c_.forte.Salita();
            p.setFont(c_.forte.Font());
            p.setPen(kTitolo);
            p.drawText(QPointF(kX + 4.0 * kMmRel, base), DaUtf8(r.titolo));
            base += c_.forte.Altezza() + 1.0 * kMmRel;
            p.setFont(c_.testo.Font());
            p.setPen(Qt::black);
            for (const std::string& t : r.punti) {
                p.drawText(QPointF(kX + 4.0 * kMmRel, base), QStringLiteral("–"));
                for (const QString& riga : c_.testo.Righe(DaUtf8(t), kLargo - 12.0 * kMmRel)) {
                    p.drawText(QPointF(kX + 8.0 * kMmRel, base), riga);
                    base += c_.testo.Altezza() * 1.1;
                }
                base += 0.9 * kMmRel;
            }
        });
        y_ += h;
    }

    void Poni(const PianoRel& d) {
        TitoloFigura(d.titolo, kPiano);
        Disegna([&d, y = y_](QPainter& p) { DipingiPiano(p, QRectF(kX, y, kLargo, kPiano), d); });
        y_ += kPiano + kAria;
    }
    void TitoloFigura(const std::string& t, double altezza) {
        Posto(altezza + c_.forte.Altezza() + kAria);
        Disegna([this, testo = DaUtf8(t), y = y_](QPainter& p) {
            p.setFont(c_.forte.Font());
            p.setPen(Qt::black);
            p.drawText(QPointF(kX, y + c_.forte.Salita()), testo);
        });
        y_ += c_.forte.Altezza();
    }

    void Poni(const FiguraRel& f) {
        if (f == FiguraRel::vista3d) {
            if (!f_.vista3d) return;
            const TitoloRel t{1, "Vista del nodo"};
            if (!InCima()) Posto(AltezzaTitolo(t) + kVista);
            Poni(t);
            Disegna([this, y = y_](QPainter& p) {
                p.save();
                f_.vista3d(p, QRectF(kX, y, kLargo, kVista));
                p.restore();
            });
            y_ += kVista + kAria;
            return;
        }
        if (!f_.tavola) return;
        if (!InCima() || !r_.pagine.back().elementi.empty()) NuovaPagina();
        PaginaRel& pagina = r_.pagine.back();
        pagina.foglio = f_.foglioTavola;
        pagina.tavola = true;
        Segna(1, QStringLiteral("Disegno del nodo"));
        r_.segnalibri.back().alto = 0.0;
        Disegna([this](QPainter& p) {
            p.save();
            f_.tavola(p, QRectF(QPointF(0.0, 0.0), f_.foglioTavola * kMmRel));
            p.restore();
        });
        NuovaPagina();
    }

    const RelazioneEstesa& d_;
    const CaratteriRel& c_;
    const FigureRelazione& f_;
    Impaginato r_;
    double y_ = 0.0;
    std::size_t i_ = 0;
};

}  // namespace

Impaginato Impagina(const RelazioneEstesa& documento,
                    const std::vector<std::pair<QString, QString>>& scheda,
                    const CaratteriRel& caratteri, const FigureRelazione& figure) {
    const auto lavoro = std::make_shared<Impaginatore>(documento, caratteri, figure);
    Impaginato r = lavoro->Fai(scheda);
    r.contesto = lavoro;
    return r;
}

}  // namespace tk07
