#include "reports/esteso_dati.h"

#include <array>
#include <cmath>

#include "base/aritmetica.h"
#include "base/testo.h"
#include "norme/cnr10011.h"
#include "norme/ntc2018.h"
#include "reports/comune.h"
#include "reports/relazione.h"
#include "verification/azioni_bulloni.h"
#include "verification/resistenze.h"
#include "verification/saldature.h"

namespace tk07 {

namespace {

// The formulas between loads and stresses hold in the units of the calculation.
const std::string kUnitaFormule =
    "In queste formule forze in daN, momenti in daN·cm, lunghezze in mm, qualunque sia l'unità "
    "della "
    "tabella dei carichi. ";

void Titolo(std::vector<BloccoRel>& b, int livello, const std::string& t) {
    b.push_back(TitoloRel{livello, t});
}

void DatiGeometria(const ContestoRel& c, std::vector<BloccoRel>& b) {
    const Nodo& n = c.n;
    Titolo(b, 3, "Profili (mm)");
    TabellaRel profili{{{"Trave", true}, {"Profilo", true}, {"h"}, {"b"}, {"a"}, {"e"}, {"r"}}, {}};
    for (const ProfiloRec* p : {&n.TraPri, &n.TraSec}) {
        RigaRel riga{{p == &n.TraPri ? "principale" : "secondaria", Taglia(p->Nome)}};
        for (const double x : {p->H, p->B, p->tw, p->tf, p->r}) riga.celle.push_back(TestoReale(x));
        profili.righe.push_back(riga);
    }
    b.push_back(profili);
    Titolo(b, 3, "Piastre e nervature (mm)");
    TabellaRel piastre{{{"Num"}, {"Elemento", true}, {"H1"}, {"H2"}, {"B"}, {"Sp"}}, {}};
    std::array<RigaPiastra, 5> righe{};
    const int quante = RighePiastre(n, righe.data());
    constexpr const char* kNomi[] = {"piastra sulla principale", "piastra sulla secondaria",
                                     "nervatura nella principale", "nervatura superiore",
                                     "nervatura inferiore"};
    for (int i = 0; i < quante; ++i) {
        const RigaPiastra& p = righe[static_cast<std::size_t>(i)];
        RigaRel riga{{p.numero, kNomi[p.numero[0] - '1']}};
        for (const double x : {p.H1, p.H2, p.B, p.Sp}) riga.celle.push_back(TestoFisso(x, 1));
        piastre.righe.push_back(riga);
    }
    b.push_back(piastre);
    b.push_back(
        TestoRel{"distAliPriSec = " + TestoMm(n.distAliPriSec) +
                 " mm (fra le ali superiori), distAlaSecPiastra = " + TestoMm(n.distAlaSecPiastra) +
                 " mm (ala superiore della secondaria – cima della piastra 2), "
                 "distPiastraTraPri = " +
                 TestoMm(n.distPiastraTraPri) + " mm."});
    Titolo(b, 3, "Bulloni (mm, mm²)");
    TabellaRel bulloni{{{"Num"}, {"X"}, {"Y"}, {"Fi"}, {"Area"}, {"d_{0}"}}, {}};
    for (int i = 1; i <= n.nBull; ++i) {
        bulloni.righe.push_back(
            {{std::to_string(i), TestoFisso(n.Xbull(i), 1), TestoFisso(n.Ybull(i), 1),
              TestoFisso(n.Fibull(i), 1), TestoFisso(AreaResistente(n.Fibull(i)), 2),
              TestoFisso(n.Fibull(i) + c.opz.ValOpz(kOpzTollForo), 1)}});
    }
    b.push_back(bulloni);
    b.push_back(
        TestoRel{"X dall'asse, Y dall'estremo inferiore della piastra 1; Area è l'area resistente, "
                 "d0 il foro."});
}

void Saldature(const ContestoRel& c, std::vector<BloccoRel>& b) {
    Titolo(b, 3, "Saldature a cordone d'angolo (mm)");
    b.push_back(TestoRel{"Lato saldature su piastra 1: " + TestoReale(c.n.spSaldS2) +
                         " mm (gruppo S2). Lato saldature su piastra 2: " +
                         TestoReale(c.n.spSaldS1) + " mm (gruppo S1). Lunghezze dei cordoni:"});
    TabellaRel t;
    for (int riga = 0; riga < 2; ++riga) {
        RigaRel r;
        for (int q = 0; q < 8; ++q) {
            const int j = riga * 8 + q;
            if (riga == 0) t.colonne.push_back({"cordone"}), t.colonne.push_back({"L"});
            r.celle.push_back(j < 15 ? NomeLinea(j) : "");
            r.celle.push_back(j < 15 ? TestoReale(c.ris.LungSald(j)) : "");
        }
        t.righe.push_back(r);
    }
    b.push_back(t);
}

void DatiMateriali(const ContestoRel& c, std::vector<BloccoRel>& b) {
    const Nodo& n = c.n;
    const CifreRel& f = c.cifre;
    const MaterialeRec& a = n.acciaio;
    Titolo(b, 3, "Materiali (" + UnitaMostrata(f.u.UnitaTensioni) + ")");
    if (c.Slu()) {
        b.push_back(
            TabellaRel{{{"Acciaio", true},
                        {"f_{yk} ≤ 40"},
                        {"f_{tk} ≤ 40"},
                        {"f_{yk} > 40"},
                        {"f_{tk} > 40"},
                        {"γ_{M0}"},
                        {"f_{d} ≤ 40 mm"},
                        {"f_{d} > 40 mm"}},
                       {{{Taglia(a.Nome), f.Tensione(a.Fyk40), f.Tensione(a.Ftk40),
                          f.Tensione(a.Fyk80), f.Tensione(a.Ftk80), TestoReale(a.GammaM),
                          f.Tensione(a.Fyk40 / a.GammaM), f.Tensione(a.Fyk80 / a.GammaM)}}}});
        const double g = n.vite.GammaMVite;
        b.push_back(TabellaRel{{{"Classe viti", true}, {"f_{tb}"}, {"γ_{M2}"}, {"f_{d}"}},
                               {{{Taglia(n.vite.Nome), f.Tensione(n.vite.FtVite), TestoReale(g),
                                  f.Tensione(n.vite.FtVite / g)}}}});
        return;
    }
    TabellaRel t{{{"Acciaio " + Taglia(a.Nome) + ", viti classe " + Taglia(n.vite.Nome), true},
                  {"σ_{adm} ≤ 40 mm"},
                  {"σ_{adm} > 40 mm"},
                  {"σ_{b,adm}"},
                  {"τ_{b,adm}"}},
                 {}};
    for (const bool casoII : {false, true}) {
        const double k = casoII ? cnr::kCasoII : 1.0;
        RigaRel r{{casoII ? "Comb. car. II" : "Comb. car. I"}};
        for (const double x : {a.Samm, a.Samm80, n.vite.SammVite, n.vite.TauAmmVite}) {
            r.celle.push_back(f.Tensione(x * k));
        }
        t.righe.push_back(r);
    }
    b.push_back(t);
}

void Carichi(const ContestoRel& c, std::vector<BloccoRel>& b) {
    const Nodo& n = c.n;
    const CifreRel& f = c.cifre;
    Titolo(b, 3,
           "Sestetti di sollecitazione (" + UnitaMostrata(f.u.UnitaForze) + ", " +
               UnitaMostrata(f.u.UnitaMomenti) + ")");
    TabellaRel t{{{"N."}, {"Nome", true}, {"N"}, {"Ty"}, {"Tz"}, {"Mt"}, {"My"}, {"Mz"}}, {}};
    if (!c.Slu()) t.colonne.push_back({"Caso"});
    for (int s = 0; s < n.nSollAg; ++s) {
        RigaRel r{{std::to_string(s + 1), NomeAzioni(n, s), f.Forza(n.SforzoNormale(s)),
                   f.Forza(n.TaglioY(s)), f.Forza(n.TaglioZ(s)), f.Momento(n.MomTorc(s)),
                   f.Momento(n.MomY(s)), f.Momento(n.MomZ(s))}};
        if (!c.Slu()) r.celle.push_back(n.CasoCarico(s) != 0 ? "II" : "I");
        t.righe.push_back(r);
    }
    if (n.nSollAg == 0) b.push_back(TestoRel{"Nessun sestetto."});
    b.push_back(t);
    b.push_back(TestoRel{
        "N positivo se tende i bulloni, Ty positivo verso il basso, Tz lungo x; Mz attorno "
        "all'asse "
        "orizzontale, My attorno all'asse verticale, Mt nel piano delle piastre. Le azioni sono "
        "riferite all'asse della trave secondaria."});
}

// Bolts with the same resistances share one explanation.
void Resistenze(const ContestoRel& c, std::vector<BloccoRel>& b) {
    const Nodo& n = c.n;
    const Risultati& r = c.ris;
    const CifreRel& f = c.cifre;
    Titolo(b, 2, "Resistenze dei bulloni");
    const double ftk = FtkPiastre(n);
    const double t = Min(n.SpPiastra(1), n.SpPiastra(2)), g = n.vite.GammaMVite;
    const auto frazione = [&](const std::string& sopra) {
        return "\\frac{" + sopra + "}{" + TestoReale(g) + "}";
    };
    const Geometria forma = GeometriaDi(n);
    std::vector<bool> detto(static_cast<std::size_t>(n.nBull) + 1, false);
    for (int i = 1; i <= n.nBull; ++i) {
        if (detto[static_cast<std::size_t>(i)]) continue;
        const CoefficientiRifollamento k = CoefficientiBullone(n, c.opz, forma, i);
        std::string chi;
        for (int j = i; j <= n.nBull; ++j) {
            const CoefficientiRifollamento q = CoefficientiBullone(n, c.opz, forma, j);
            if (n.Fibull(j) != n.Fibull(i) || q.k != k.k || q.alfa != k.alfa) continue;
            detto[static_cast<std::size_t>(j)] = true;
            chi += (chi.empty() ? "" : ", ") + std::to_string(j);
        }
        const double d = n.Fibull(i), A = AreaResistente(d);
        const std::string area = TestoFisso(A, 2) + " mm²", ftb = f.TensioneU(n.vite.FtVite);
        const std::string ft = f.TensioneU(ftk), dm = TestoMm(d) + " mm", tm = TestoMm(t) + " mm";
        const double a = FattoreTaglio(n.vite.Nome);
        Titolo(b, 3, "Bulloni " + chi + " (M" + TestoReale(d) + ")");
        const auto riga = [&](const std::string& titolo, const Clausola& clausola,
                              const std::string& formula, const std::string& numeri, double x) {
            VerificaRel v;
            v.titolo = titolo;
            v.clausola = tk07::Testo(clausola);
            v.formule = {formula + " = " + frazione(numeri) + " = " + f.ForzaU(x)};
            b.push_back(v);
        };
        riga("Taglio", a == 0.5 ? ntc::kTaglio05 : ntc::kTaglio06,
             "F_{v,Rd} = \\frac{" + TestoReale(a) + " f_{tb} A}{γ_{M2}}",
             TestoReale(a) + " · " + ftb + " · " + area, r.Fv_Rd(i));
        riga("Rifollamento", ntc::kRifollamento, "F_{b,Rd} = \\frac{k α f_{tk} d t}{γ_{M2}}",
             TestoCifre(k.k, 4) + " · " + TestoCifre(k.alfa, 4) + " · " + ft + " · " + dm + " · " +
                 tm,
             r.Fb_Rd(i));
        riga("Trazione", ntc::kTrazione, "F_{t,Rd} = \\frac{0.9 f_{tb} A}{γ_{M2}}",
             "0.9 · " + ftb + " · " + area, r.Ft_Rd(i));
        riga("Punzonamento", ntc::kPunzonamento,
             "B_{p,Rd} = \\frac{0.6 π (1.5 d) t f_{tk}}{γ_{M2}}",
             "0.6 · π · 1.5 · " + dm + " · " + tm + " · " + ft, r.Bp_Rd(i));
    }
}

void Gruppi(const ContestoRel& c, std::vector<BloccoRel>& b) {
    const Geometria forma = GeometriaDi(c.n);
    const GruppoS1 s1 = ProprietaS1(c.n, forma);
    const GruppoS2 s2 = ProprietaS2(c.n, forma);
    Titolo(b, 2, "Gruppi di saldature");
    TabellaRel t{{{"Gruppo", true},
                  {"gola"},
                  {"A"},
                  {"y_{G}"},
                  {"I_{x}"},
                  {"I_{y}"},
                  {"J"},
                  {"A_{vert}"},
                  {"A_{orizz}"}},
                 {}};
    const auto riga = [&](const char* nome, const auto& g) {
        RigaRel r{{nome}};
        for (const double x : {g.b, g.A, g.yG, g.Ix, g.Iy, g.J, g.Av, g.Ah}) {
            r.celle.push_back(TestoCifre(x, 5));
        }
        t.righe.push_back(r);
    };
    riga("S1", s1);
    riga("S2", s2);
    b.push_back(t);
    b.push_back(
        TestoRel{"Millimetri e loro potenze. S1: trave secondaria e nervature superiore e "
                 "inferiore sulla piastra 2, y dall'intradosso della secondaria. S2: piastra 1 e "
                 "nervatura 3 nella principale, y dalla metà della principale. yG di S1 è il "
                 "baricentro del gruppo; quello di S2 è il livello dell'asse della secondaria."});
    // S2 measures y from the main beam's middle and takes the moments as stored: two formulas.
    const auto formule = [&b](const char* titolo, std::vector<std::string> f) {
        VerificaRel v;
        v.titolo = titolo;
        v.formule = std::move(f);
        b.push_back(v);
    };
    formule("Tensioni nei cordoni S1 (s1, s2, s3, s10, s11, s13, s15)",
            {"S_{prp} = \\frac{N}{A} − \\frac{F_{1}}{I_{x}} (y − y_{G}) − \\frac{F_{2}}{I_{y}} x",
             "F_{1} = 10 M_{z} − [distAzioni T_{y}] + (y_{G} − \\frac{H_{sec}}{2}) N",
             "F_{2} = 10 M_{y} − [distAzioni T_{z}],    "
             "M = 10 M_{t} + (y_{G} − \\frac{H_{sec}}{2}) T_{z}"});
    formule("Tensioni nei cordoni S2 (s4, s8, s9)",
            {"S_{prp} = \\frac{N}{A} − \\frac{F_{1}}{I_{x}} y − \\frac{F_{2}}{I_{y}} x",
             "F_{1} = M_{z} − [braccio T_{y}] + y_{G} N,    F_{2} = M_{y} − [braccio T_{z}],    "
             "M = 10 M_{t} + y_{G} T_{z}",
             "braccio = \\frac{B_{pri}}{2} + distPiastraTraPri − t_{p1} = " +
                 TestoMm(c.n.TraPri.B / 2.0 + c.n.distPiastraTraPri - c.n.SpPiastra(1)) + " mm"});
    formule("Taglio nei cordoni S1 e S2",
            {"τ_{pa} = |\\frac{M b}{J}| senza taglio lungo il cordone,    "
             "τ_{pa} = ±|\\frac{M b}{J}| + \\frac{T}{A_{T}} con il segno di T"});
    b.push_back(TestoRel{
        kUnitaFormule +
        "I termini fra parentesi quadre valgono quando il trasporto è da considerare. b è la gola; "
        "T e la sua area sono Ty con A vert nei cordoni verticali (s1, s13, s15; s4), Tz con A "
        "orizz in quelli orizzontali (s2, s3, s10, s11; s8, s9). I cordoni s12 e s14 portano le "
        "risultanti di s13 e s15, i cordoni s5, s6, s7 quelle di s4. In S2 Mz e My, in daN·cm, "
        "valgono come daN·mm (capitolo «Limiti del metodo»)."});
}

// From a load set to the forces of one bolt.
void Azioni(const ContestoRel& c, std::vector<BloccoRel>& b) {
    Titolo(b, 2, "Azioni sui bulloni");
    VerificaRel v;
    v.titolo = c.Slu() ? "Forze nel bullone i" : "Tensioni nel bullone i";
    v.formule = {c.Slu()
                     ? "F_{t,Ed} = A_{i} s(x_{i}, y_{i}),    s(x, y) = c_{1} y + c_{2} x + c_{3}"
                     : "σ = s(x_{i}, y_{i}),    s(x, y) = c_{1} y + c_{2} x + c_{3}",
                 "M_{tot} = 10 M_{t} + (Y_{G} − y_{asse}) T_{z} + X_{G} T_{y}",
                 "V_{z} = \\frac{T_{z}}{n} − \\frac{M_{tot}}{I_{p}} (y_{i} − Y_{G}) A_{i},    "
                 "V_{y} = \\frac{T_{y}}{n} − \\frac{M_{tot}}{I_{p}} (x_{i} − X_{G}) A_{i}",
                 c.Slu() ? "F_{v,Ed} = \\sqrt{V_{z}^{2} + V_{y}^{2}}"
                         : "τ = \\frac{\\sqrt{V_{z}^{2} + V_{y}^{2}}}{A_{i}}"};
    b.push_back(v);
    b.push_back(TestoRel{
        kUnitaFormule +
        "Il piano s, positivo a trazione, equilibra N, 10 Mz − d Ty e 10 My − d Tz: le piastre "
        "premono e non tirano, i bulloni lavorano nei due versi. d = distAzioni; i termini d Ty e "
        "d Tz solo quando il trasporto è da considerare (capitolo «Equilibrio dei sestetti»). XG, "
        "YG e Ip sono baricentro e inerzia polare dei bulloni, n il loro numero."});
}

}  // namespace

void DatiIngresso(const ContestoRel& c, std::vector<BloccoRel>& b) {
    const Unita& u = c.cifre.u;
    b.push_back(TestoRel{"Unità di misura: forze " + UnitaMostrata(u.UnitaForze) + ", momenti " +
                         UnitaMostrata(u.UnitaMomenti) + ", tensioni " +
                         UnitaMostrata(u.UnitaTensioni) + ", dimensioni mm."});
    DatiGeometria(c, b);
    Saldature(c, b);
    DatiMateriali(c, b);
    Carichi(c, b);
}

void GrandezzeComuni(const ContestoRel& c, std::vector<BloccoRel>& b) {
    const Nodo& n = c.n;
    const GeometriaVerifica g = PreparaGeometria(n);
    const Rettangolo& r = g.forma.comune;
    Titolo(b, 2, "Livelli e bulloni");
    b.push_back(TabellaRel{
        {{"Grandezza", true}, {"Valore"}, {"Unità", true}},
        {{{"cima della piastra 2", TestoMm(g.forma.piastra(2).yMax), "mm"}},
         {{"asse della trave secondaria", TestoMm(g.yAsse), "mm"}},
         {{"area comune delle piastre, x", TestoMm(r.xMin) + " … " + TestoMm(r.xMax), "mm"}},
         {{"area comune delle piastre, y", TestoMm(r.yMin) + " … " + TestoMm(r.yMax), "mm"}},
         {{"braccio del trasporto distAzioni", TestoMm(g.distAzioni), "mm"}},
         {{"baricentro dei bulloni, x; y", TestoMm(g.XG) + "; " + TestoMm(g.YG), "mm"}},
         {{"inerzia polare dei bulloni", TestoCifre(g.Ip, 5), "mm⁴"}}}});
    Azioni(c, b);
    if (c.Slu()) Resistenze(c, b);
    Gruppi(c, b);
}

RiquadroRel LimitiDelMetodo(const ContestoRel& c) {
    RiquadroRel r{"Da leggere prima di firmare", {}};
    r.punti = {
        "Non sono verificati: travi, nervature come aste, stabilità della piastra compressa, "
        "attrito "
        "e serraggio, bulloni precaricati, fatica, fuoco, rotazione e rigidezza del collegamento, "
        "blocco di taglio. Le azioni sono quelle date: combinarle spetta all'ingegnere.",
        "Il momento dovuto all'eccentricità dei tagli è aggiunto solo se rovescia il segno di Mz "
        "(o se uno "
        "dei due è nullo); decide Mz anche per My. Con Mz diverso da zero dare i momenti già "
        "riferiti al "
        "piano dei bulloni.",
        "Le saldature S2 prendono i momenti della tabella in daN·cm come se fossero daN·mm: con Mz "
        "e "
        "My forti le loro tensioni sono sottostimate di dieci volte e vanno controllate a parte.",
        "Il taglio diretto è diviso in parti uguali fra i bulloni, anche di diametro diverso; solo "
        "la "
        "torsione segue l'area.",
        "Nel momento della piastra 2 un bullone con tensione entro 0.5 daN/mm² non conta: effetto "
        "a "
        "scalino con bulloni poco tesi. La larghezza resistente è quella dell'ala della "
        "secondaria; la "
        "sezione a T non ha l'inerzia propria della nervatura.",
        "La rigidezza torsionale dei cordoni è Σ L b³/3: con Mt le tensioni S1 e S2 risultano "
        "molto alte, "
        "a favore di sicurezza. I cordoni della nervatura 3 contano sempre.",
        "Il limite delle saldature usa la resistenza fino a 40 mm anche per piastre più spesse."};
    if (c.Slu()) {
        r.punti.push_back(
            "Nel rifollamento k è misurato in orizzontale e α in verticale, qualunque sia la "
            "direzione "
            "del taglio: con Tz prevalente va riletto. Il punzonamento usa 1.5 d.");
        r.punti.push_back(
            "Co-1 e Co-2 sono arrotondati a due decimali prima del confronto: 1.004 passa. Un "
            "bullone "
            "compresso ha un Co-2, perché si prende il valore assoluto della forza.");
    } else {
        r.punti.push_back(
            "Coeff è arrotondato a due decimali prima del confronto: 1.004 passa. Un acciaio che "
            "non sia "
            "uno dei tre della CNR 10011/88 non ha saldature ammissibili.");
    }
    r.punti.push_back(
        "Solo il primo e l'ultimo bullone di una direzione sono misurati dai bordi nelle regole di "
        "distanza. "
        "La compressione sulla piastra 1 è quella di contatto.");
    return r;
}

}  // namespace tk07
