#include "reports/esteso_verifiche.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <span>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "norme/cnr10011.h"
#include "norme/ntc2018.h"
#include "textnum/formatta.h"
#include "verification/piastra.h"
#include "verification/resistenze.h"
#include "verification/saldature.h"

namespace tk07 {

std::string TestoFisso(double x, int n) {
    if (!std::isfinite(x) || std::fabs(x) >= 1e15) return TestoReale(x);
    double r = Arrotonda(x, std::max(n, 0));
    if (r == 0.0) r = 0.0;  // no sign on a zero
    std::array<char, 64> testo{};
    const auto fine = std::to_chars(testo.data(), testo.data() + testo.size(), std::fabs(r),
                                    std::chars_format::fixed, std::max(n, 0));
    return (r < 0.0 ? "-" : "") + std::string(testo.data(), fine.ptr);
}

std::string TestoCifre(double x, int n) { return TestoReale(CifreSignificative(x, n)); }
std::string TestoMm(double x) { return TestoReale(Arrotonda(x, 1)); }

std::string UnitaMostrata(const std::string& nome) {
    std::string u = SostituisciTesto(nome, "*", "·");
    if (!u.empty() && u.back() == '2') u = u.substr(0, u.size() - 1) + "²";
    return u;
}

std::string CifreRel::Forza(double x) const {
    return TestoFisso(x * u.FattoreForze, u.DecimaliForze);
}
std::string CifreRel::Momento(double x) const {
    return TestoFisso(x * u.FattoreMomenti, u.DecimaliMomenti);
}
std::string CifreRel::Tensione(double x) const {
    return TestoFisso(x * u.FattoreTensioni, u.DecimaliTensioni);
}
std::string CifreRel::UForza() const { return " " + UnitaMostrata(u.UnitaForze); }
std::string CifreRel::UMomento() const { return " " + UnitaMostrata(u.UnitaMomenti); }
std::string CifreRel::UTensione() const { return " " + UnitaMostrata(u.UnitaTensioni); }

std::string TestoRapporto(double r) {
    if (!std::isfinite(r)) return "∞";
    const std::string t = TestoFisso(r, 3);
    return r > 1.0 && t == "1.000" ? "1.001" : t;
}

std::string NomeAzioni(const Nodo& n, int s) {
    constexpr std::size_t kMassimo = 160;
    const std::string nome = Taglia(TogliCR(n.NomeSa(s)));
    return NumeroCaratteri(nome) <= kMassimo ? nome : PrimiCaratteri(nome, kMassimo) + "…";
}

std::string NomeSestetto(const Nodo& n, int s) {
    const std::string nome = NomeAzioni(n, s);
    return "Sestetto " + std::to_string(s + 1) + (nome.empty() ? "" : ": " + nome);
}

namespace {

std::string Frazione(const std::string& sopra, const std::string& sotto) {
    return "\\frac{" + sopra + "}{" + sotto + "}";
}
std::string Quadrato(const std::string& x) { return "(" + x + ")^{2}"; }

using Sestetto = int;

void SpiegaCo(const ContestoRel& c, const Riscontro& e, Sestetto s, VerificaRel& v) {
    const Risultati& r = c.ris;
    const CifreRel& f = c.cifre;
    const int i = e.elemento;
    const double fv = r.Fv_Ed(s, i), ft = r.Ft_Ed(s, i);
    const bool taglio = r.Fv_Rd(i) > 0.0 && r.Fb_Rd(i) > 0.0,
               trazione = r.Ft_Rd(i) > 0.0 && r.Bp_Rd(i) > 0.0;
    const std::string Rv = "min(F_{v,Rd}; F_{b,Rd})", Rt = "min(F_{t,Rd}; B_{p,Rd})";
    const std::string nv =
        "min(" + f.Forza(r.Fv_Rd(i)) + "; " + f.Forza(r.Fb_Rd(i)) + ")" + f.UForza();
    const std::string nt =
        "min(" + f.Forza(r.Ft_Rd(i)) + "; " + f.Forza(r.Bp_Rd(i)) + ")" + f.UForza();
    const std::string nome = NomeConfronto(e);
    std::string formula, numeri;
    bool resistente = trazione;
    if (e.confronto == Confronto::co2) {
        v.titolo += ": trazione e punzonamento";
        formula = Frazione("|F_{t,Ed}|", Rt);
        numeri = Frazione(f.ForzaU(std::fabs(ft)), nt);
    } else if (!(ft > 0.0)) {
        v.titolo += ": taglio e rifollamento";
        formula = Frazione("F_{v,Ed}", Rv);
        numeri = Frazione(f.ForzaU(fv), nv);
        resistente = taglio || !(fv > 0.0);
    } else if (fv > 0.0) {
        v.titolo += ": taglio e trazione";
        formula = Frazione("F_{v,Ed}", Rv) + " + " + Frazione("F_{t,Ed}", "1.4 · " + Rt);
        numeri = Frazione(f.ForzaU(fv), nv) + " + " + Frazione(f.ForzaU(ft), "1.4 · " + nt);
        resistente = taglio && trazione;
    } else {
        v.titolo += ": sola trazione";
        formula = Frazione("F_{t,Ed}", Rt);
        numeri = Frazione(f.ForzaU(ft), nt);
    }
    if (!resistente) numeri = "resistenza non positiva, il coefficiente vale";
    v.formule = {nome + " = " + formula + " ≤ 1",
                 nome + " = " + numeri + (resistente ? " = " : " ") + TestoFisso(e.domanda, 2)};
}

void SpiegaBulloneTA(const ContestoRel& c, const Riscontro& e, Sestetto s, VerificaRel& v) {
    const CifreRel& f = c.cifre;
    const int i = e.elemento;
    const double k = FattoreCaso(c.n, s);
    const std::string nome = NomeConfronto(e);
    if (e.confronto == Confronto::coeff) {
        v.titolo += ": trazione e taglio";
        v.formule = {
            "Coeff = " + Quadrato(Frazione("σ", "k σ_{b,adm}")) + " + " +
                Quadrato(Frazione("τ", "k τ_{b,adm}")) + " ≤ 1",
            "Coeff = " +
                Quadrato(Frazione(f.TensioneU(c.ris.Sigma(s, i)),
                                  TestoReale(k) + " · " + f.TensioneU(c.n.vite.SammVite))) +
                " + " +
                Quadrato(Frazione(f.TensioneU(c.ris.Tau(s, i)),
                                  TestoReale(k) + " · " + f.TensioneU(c.n.vite.TauAmmVite))) +
                " = " + TestoFisso(e.domanda, 2)};
        return;
    }
    const int piastra = e.confronto == Confronto::sigRifPias1 ? 1 : 2;
    v.titolo += ": rifollamento sulla piastra " + std::to_string(piastra);
    const double d = c.n.Fibull(i), t = c.n.SpPiastra(piastra);
    v.formule = {
        nome + " = " + Frazione("A τ", "d t") + " ≤ k σ_{adm} α",
        nome + " = " +
            Frazione(TestoFisso(AreaResistente(d), 2) + " mm² · " + f.TensioneU(c.ris.Tau(s, i)),
                     TestoMm(d) + " mm · " + TestoMm(t) + " mm") +
            " = " + f.TensioneU(e.domanda),
        "k σ_{adm} α = " + TestoReale(k) + " · " + f.TensioneU(SammPiastra(c.n, piastra)) + " · " +
            TestoCifre(CoeffRifollamento(c.n, c.opz, s), 4) + " = " + f.TensioneU(e.limite)};
}

// The plate's limit: formula and numbers.
std::array<std::string, 2> LimitePiastra(const ContestoRel& c, const Riscontro& e, Sestetto s) {
    const CifreRel& f = c.cifre;
    const int k = e.elemento;
    if (c.Slu()) {
        return {
            "f_{d} = f_{yk} / γ_{M0}",
            "f_{d} = " + Frazione(f.TensioneU(FykPiastra(c.n, k)), TestoReale(c.n.acciaio.GammaM)) +
                " = " + f.TensioneU(e.limite)};
    }
    return {"k σ_{adm}", "k σ_{adm} = " + TestoReale(FattoreCaso(c.n, s)) + " · " +
                             f.TensioneU(SammPiastra(c.n, k)) + " = " + f.TensioneU(e.limite)};
}

void SpiegaPiastra(const ContestoRel& c, const Riscontro& e, Sestetto s, VerificaRel& v) {
    const CifreRel& f = c.cifre;
    const Nodo& n = c.n;
    const std::string nome = NomeConfronto(e);
    const auto limite = LimitePiastra(c, e, s);
    if (e.elemento == 1) {
        v.titolo += ": compressione di contatto";
        const Rettangolo r = GeometriaDi(n).comune;
        const Tab1<double, 1, 3> p = PianoTensioni(c.ris, s);
        PuntoPiano dove{r.xMin, r.yMin};
        for (const PuntoPiano q :
             {PuntoPiano{r.xMin, r.yMax}, {r.xMax, r.yMax}, {r.xMax, r.yMin}}) {
            if (ValorePiano(p, q.x, q.y) < ValorePiano(p, dove.x, dove.y)) dove = q;
        }
        const double sig = c.ris.Sig(s, 0);
        v.formule = {"|" + nome + "| = |min(0; s(x, y))| ≤ " + limite[0],
                     sig < 0.0 ? nome + " = s(" + TestoMm(dove.x) + "; " + TestoMm(dove.y) +
                                     ") = " + f.TensioneU(sig)
                               : nome + " = " + f.TensioneU(0.0) + ": nessuna zona compressa",
                     limite[1]};
        return;
    }
    v.titolo += ": flessione dello sbalzo";
    const Strisce st = GeometriaDi(n).strisce;
    const bool c1 = st.ySup2 - st.ySup1 > 0.0, c2 = st.yInf2 - st.yInf1 > 0.0;
    if (!c1 && !c2) {
        v.formule = {nome + " = " + f.TensioneU(0.0) + ": la piastra 2 non sporge dalla trave",
                     limite[1]};
        return;
    }
    const double s1 = c1 ? FlessionePiastra(n, 1, c.ris.MPiastra2(s, 1), 0.0) : -1.0;
    const double s2 = c2 ? FlessionePiastra(n, 2, c.ris.MPiastra2(s, 2), 0.0) : -1.0;
    const int k = s1 >= s2 ? 1 : 2;
    v.titolo += k == 1 ? " superiore" : " inferiore";
    const double unitario = FlessionePiastra(n, k, 1.0, 0.0);  // 1 / W
    const double M = std::fabs(c.ris.MPiastra2(s, k)) / 10.0;  // daN cm
    const std::string W = TestoCifre(1.0 / unitario, 5) + " mm³";
    const std::string Mu = TestoCifre(M * f.u.FattoreMomenti, 5) + f.UMomento();
    v.formule = {nome + " = " + Frazione("|M|", "W") + " ≤ " + limite[0],
                 "|M| = bulloni e contatto dello sbalzo, al filo dell'ala = " + Mu};
    if (n.AttNerv(k)) {
        v.formule.push_back("W = " + Frazione("I", "max(b + t − y_{G}; |y_{G} − t|)") + " = " + W +
                            " (sezione a T: piastra " + TestoMm(n.TraSec.B) + " × " +
                            TestoMm(n.SpPiastra(2)) + " mm, nervatura " + TestoMm(n.BNerv(k)) +
                            " × " + TestoMm(n.SpNerv(k)) + " mm)");
    } else {
        v.formule.push_back(
            "W = " + Frazione("B_{sec} t^{2}", "6") + " = " +
            Frazione(TestoMm(n.TraSec.B) + " mm · (" + TestoMm(n.SpPiastra(2)) + " mm)^{2}", "6") +
            " = " + W);
    }
    v.formule.push_back(nome + " = " + Frazione(Mu, W) + " = " + f.TensioneU(e.domanda));
    v.formule.push_back(limite[1]);
}

void SpiegaSaldatura(const ContestoRel& c, const Riscontro& e, Sestetto s, VerificaRel& v) {
    const CifreRel& f = c.cifre;
    const int j = e.elemento;
    const bool slu = c.Slu();
    const std::string P = f.Tensione(c.ris.MaxS_prp(s, j)), pa = f.Tensione(c.ris.Tau_pa(s, j)),
                      pe = f.Tensione(c.ris.Tau_pe(s, j));
    const std::string nome = NomeConfronto(e);
    const bool somma = e.confronto == Confronto::sEq2 || e.confronto == Confronto::somma;
    const FattoriSaldatura b = FattoriSLU(c.n.acciaio.Nome);
    const FattoriTA a = FattoriTensAmm(c.n.acciaio.Nome);
    const double coeff = slu ? (somma ? b.Beta2 : b.Beta1) : (somma ? a.somma : a.singola);
    const std::string simbolo = slu ? (somma ? "β_{2} f_{yk}" : "β_{1} f_{yk}")
                                    : (somma ? "c_{2} k σ_{adm}" : "c_{1} k σ_{adm}");
    std::string limite = simbolo + " = " + TestoReale(coeff) + " · ";
    if (!slu) limite += TestoReale(FattoreCaso(c.n, s)) + " · ";
    limite +=
        f.TensioneU(slu ? c.n.acciaio.Fyk40 : c.n.acciaio.Samm) + " = " + f.TensioneU(e.limite);
    if (!slu && !a.noto) limite = "l'acciaio non è tra quelli della CNR 10011/88: nessun limite";
    if (slu && coeff == 0.0) limite += " (acciaio senza fattori β)";
    const std::string segno = somma && !slu ? "|S_{prp}| + |τ_{pe}|" : nome;
    if (somma) {
        v.titolo += ": somma delle componenti";
        v.formule = {(slu ? segno + " = |S_{prp}| + |τ_{pe}|" : segno) + " ≤ " + simbolo,
                     segno + " = |" + P + "| + |" + pe + "| = " + f.TensioneU(e.domanda), limite};
    } else {
        v.titolo += ": risultante delle componenti";
        const std::string id = slu ? nome : "S_{id}";
        v.formule = {id + " = \\sqrt{S_{prp}^{2} + τ_{pa}^{2} + τ_{pe}^{2}} ≤ " + simbolo,
                     id + " = \\sqrt{" + Quadrato(P) + " + " + Quadrato(pa) + " + " + Quadrato(pe) +
                         "} = " + f.TensioneU(e.domanda),
                     limite};
    }
}

using Righe = std::span<const Riscontro>;

// A row of the text report's tables, with its last cell.
RigaRel RigaCon(std::vector<std::string> celle, Righe righe) {
    const bool passa = Passano(righe);
    celle.push_back(passa ? "SI'" : "NO");
    return {std::move(celle), !passa};
}

}  // namespace

std::string ValoreControllo(const ContestoRel& c, const Riscontro& e, double x) {
    return Dati(e.confronto).coefficiente ? TestoFisso(x, 2) : c.cifre.TensioneU(x);
}

VerificaRel SpiegaControllo(const ContestoRel& c, const Riscontro& e) {
    const int s = e.sestetto;
    VerificaRel v;
    std::string elemento = NomeElemento(e);
    elemento[0] = static_cast<char>(elemento[0] - 'a' + 'A');
    v.titolo = elemento;
    v.clausola = Testo(Dati(e.confronto).clausola);
    v.passa = e.passa;
    v.rapporto = TestoRapporto(e.rapporto);
    switch (e.famiglia) {
        case Famiglia::bulloni:
            c.Slu() ? SpiegaCo(c, e, s, v) : SpiegaBulloneTA(c, e, s, v);
            break;
        case Famiglia::piastra1:
        case Famiglia::piastra2:
            SpiegaPiastra(c, e, s, v);
            break;
        default:
            SpiegaSaldatura(c, e, s, v);
    }
    v.confronto = ValoreControllo(c, e, e.domanda) + (v.passa ? " ≤ " : " > ") +
                  (std::isfinite(e.rapporto) || e.limite > 0.0 ? ValoreControllo(c, e, e.limite)
                                                               : "limite assente");
    return v;
}

TabellaRel TabellaBulloni(const ContestoRel& c, int s) {
    const Risultati& r = c.ris;
    const CifreRel& f = c.cifre;
    TabellaRel t;
    if (c.Slu()) {
        t.colonne = {{"Num"},      {"F_{v,Ed}"}, {"F_{v,Rd}"}, {"F_{b,Rd}"}, {"F_{t,Ed}"},
                     {"F_{t,Rd}"}, {"B_{p,Rd}"}, {"Co-1"},     {"Co-2"},     {"Ver"}};
    } else {
        t.colonne = {{"Num"}, {"σ"}, {"τ"}, {"Coeff"}, {"SigRifPias1"}, {"SigRifPias2"}, {"Ver"}};
    }
    c.esiti.PerElemento(s, TipoElemento::bullone, [&](Righe q) {
        const int i = q.front().elemento;
        const std::string numero = std::to_string(i);
        if (c.Slu()) {
            t.righe.push_back(
                RigaCon({numero, f.Forza(r.Fv_Ed(s, i)), f.Forza(r.Fv_Rd(i)), f.Forza(r.Fb_Rd(i)),
                         f.Forza(r.Ft_Ed(s, i)), f.Forza(r.Ft_Rd(i)), f.Forza(r.Bp_Rd(i)),
                         TestoFisso(r.Co1(s, i), 2), TestoFisso(r.Co2(s, i), 2)},
                        q));
            return;
        }
        t.righe.push_back(
            RigaCon({numero, f.Tensione(r.Sigma(s, i)), f.Tensione(r.Tau(s, i)),
                     TestoFisso(q.front().domanda, 2), f.Tensione(r.SigRifPias1(s, i - 1)),
                     f.Tensione(r.SigRifPias2(s, i - 1))},
                    q));
    });
    return t;
}

TabellaRel TabellaAmmissibili(const ContestoRel& c, int s) {
    const double k = FattoreCaso(c.n, s);
    const FattoriTA a = FattoriTensAmm(c.n.acciaio.Nome);
    const CifreRel& f = c.cifre;
    std::array<double, 2> rif{};  // the same for every bolt
    for (const Riscontro& e : c.esiti.Righe(s)) {
        if (e.confronto == Confronto::sigRifPias1) rif[0] = e.limite;
        if (e.confronto == Confronto::sigRifPias2) rif[1] = e.limite;
    }
    return {{{"S_adm viti"}, {"T_adm viti"}, {"SadmRifPias1"}, {"SadmRifPias2"}, {"S_id_adm sald"}},
            {{{f.Tensione(c.n.vite.SammVite * k), f.Tensione(c.n.vite.TauAmmVite * k),
               f.Tensione(rif[0]), f.Tensione(rif[1]),
               a.noto ? f.Tensione(a.singola * c.n.acciaio.Samm * k) : "0"}}}};
}

TabellaRel TabellaPiastre(const ContestoRel& c, int s) {
    TabellaRel t;
    t.colonne = {
        {"Piastra", true}, {c.Slu() ? "Sig" : "Smax"}, {c.Slu() ? "f_{d}" : "S_{adm}"}, {"Ver"}};
    t.insieme = 2;
    c.esiti.PerElemento(s, TipoElemento::piastra, [&](Righe q) {
        const bool prima = q.front().elemento == 1;
        t.righe.push_back(
            RigaCon({prima ? "1, compressione massima" : "2, tensione massima",
                     c.cifre.Tensione(prima ? c.ris.Sig(s, 0) : c.ris.SigPiastra2(s, 0)),
                     c.cifre.Tensione(q.front().limite)},
                    q));
    });
    return t;
}

TabellaRel TabellaSaldature(const ContestoRel& c, int s) {
    const Risultati& r = c.ris;
    const CifreRel& f = c.cifre;
    TabellaRel t;
    t.colonne = {{"Nome", true}, {"S_{prp}"}, {"τ_{pa}"}, {"τ_{pe}"}};
    if (c.Slu()) {
        for (const char* nome : {"SEq-1", "SEq-2", "SLim-1", "SLim-2"}) t.colonne.push_back({nome});
    }
    t.colonne.push_back({"Ver"});
    t.insieme = 2;  // a line and its mirror
    c.esiti.PerElemento(s, TipoElemento::saldatura, [&](Righe q) {
        const int j = q.front().elemento;
        std::vector<std::string> celle{NomeLinea(j), f.Tensione(r.MaxS_prp(s, j)),
                                       f.Tensione(r.Tau_pa(s, j)), f.Tensione(r.Tau_pe(s, j))};
        if (c.Slu()) {
            for (const double x : {q[0].domanda, q[1].domanda, q[0].limite, q[1].limite}) {
                celle.push_back(f.Tensione(x));
            }
        }
        t.righe.push_back(RigaCon(std::move(celle), q));
    });
    return t;
}

}  // namespace tk07
