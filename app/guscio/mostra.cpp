#include "guscio/mostra.h"

#include "base/aritmetica.h"
#include "base/testo.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

std::string Num(double x) { return TestoReale(Arrotonda(x, 4)); }

// A line of cells, each padded to its width; texts at the left, numbers at the right.
class Riga {
  public:
    Riga& T(std::string_view t, std::size_t w) {
        r_.append(t);
        const std::size_t n = NumeroCaratteri(t);
        r_.append(n < w ? w - n : 1, ' ');
        return *this;
    }
    Riga& N(double x, std::size_t w) {
        const std::string t = Num(x);
        r_.append(t.size() < w ? w - t.size() : 1, ' ').append(t);
        return *this;
    }
    std::string Fine() { return TagliaDestra(r_) + "\n"; }

  private:
    std::string r_;
};

std::string Profilo(const char* nome, const ProfiloRec& p) {
    return Riga()
        .T(nome, 20)
        .T(p.Nome, 12)
        .T("H " + Num(p.H), 10)
        .T("B " + Num(p.B), 10)
        .T("tw " + Num(p.tw), 10)
        .T("tf " + Num(p.tf), 10)
        .T("r " + Num(p.r), 8)
        .Fine();
}

}  // namespace

std::string TestoNodo(const Sessione& s) {
    const Nodo& n = s.nodo;
    const Unita& u = s.unita;
    std::string t = s.nomeFile + "\n";
    t += std::string("Metodo: ") +
         (n.MetodoVerifica() == Metodo::SLU ? "Stati limite (NTC 2018)"
                                            : "Tensioni ammissibili (CNR 10011/88)") +
         "\n\nTravi [mm]\n";
    t += Profilo("  principale", n.TraPri) + Profilo("  secondaria", n.TraSec);
    t += "\nQuote [mm]\n";
    t += "  ala secondaria - cima piastra 2:  " + Num(n.distAlaSecPiastra) + "\n";
    t += "  trave principale - piastra 2:     " + Num(n.distPiastraTraPri) + "\n";
    t += "  tra le ali superiori delle travi: " + Num(n.distAliPriSec) + "\n";
    t += "\nPiastre [mm]\n" +
         Riga().T("", 22).T("      B", 8).T("       H", 10).T("     Sp", 8).Fine();
    for (int i = 1; i <= 2; ++i) {
        t += Riga()
                 .T(i == 1 ? "  1 (principale)" : "  2 (secondaria)", 20)
                 .N(n.BPiastra(i), 9)
                 .N(n.HPiastra(i), 10)
                 .N(n.SpPiastra(i), 8)
                 .Fine();
    }
    t += "\nNervature [mm]\n" +
         Riga().T("", 24).T("  h1", 10).T("  h2", 9).T(" b", 7).T("  Sp", 6).Fine();
    for (int i = 1; i <= 3; ++i) {
        if (i < 3 && !n.AttNerv(i)) {
            t += "  " + std::to_string(i) + " assente\n";
            continue;
        }
        t += Riga()
                 .T("  " + std::to_string(i), 18)
                 .N(n.H1Nerv(i), 10)
                 .N(n.H2Nerv(i), 10)
                 .N(n.BNerv(i), 9)
                 .N(n.SpNerv(i), 7)
                 .Fine();
    }
    t += "\nSaldature [mm]\n  lato S1 " + Num(n.spSaldS1) + ", lato S2 " + Num(n.spSaldS2) + "\n";
    t += "\nMateriali\n  acciaio " + n.acciaio.Nome + ", viti classe " + n.vite.Nome + "\n";
    if (n.Esposizione >= 0 && n.Esposizione <= 2) {
        t += "  " + s.InsDati["ComboEsposizione"].voci[static_cast<std::size_t>(n.Esposizione)] +
             "\n";
    }
    t += "\nBulloni (" + std::to_string(n.nBull) + ") [mm]\n";
    if (n.nBull > 0) t += Riga().T("", 6).T("      X", 9).T("       Y", 10).T("   Fi", 6).Fine();
    for (int i = 1; i <= n.nBull; ++i) {
        t += Riga()
                 .T("  " + std::to_string(i), 6)
                 .N(n.Xbull(i), 8)
                 .N(n.Ybull(i), 10)
                 .N(n.Fibull(i), 7)
                 .Fine();
    }
    t += "\nSollecitazioni (" + std::to_string(n.nSollAg) + ") [" + u.UnitaForze + "; " +
         u.UnitaMomenti + "]\n";
    if (n.nSollAg > 0) {
        t += Riga()
                 .T("", 6)
                 .T("         N", 12)
                 .T("        Ty", 12)
                 .T("        Tz", 12)
                 .T("        Mt", 12)
                 .T("        My", 12)
                 .T("        Mz", 12)
                 .T(" caso", 6)
                 .T("descrizione", 12)
                 .Fine();
    }
    for (int k = 0; k < n.nSollAg; ++k) {
        Riga r;
        r.T("  " + std::to_string(k + 1), 6);
        for (const double x : {n.SforzoNormale(k), n.TaglioY(k), n.TaglioZ(k)}) {
            r.N(x * u.FattoreForze, 11).T(" ", 1);
        }
        for (const double x : {n.MomTorc(k), n.MomY(k), n.MomZ(k)}) {
            r.N(x * u.FattoreMomenti, 11).T(" ", 1);
        }
        t += r.T(n.CasoCarico(k) != 0 ? "  II" : "  I", 6).T(n.NomeSa(k), 12).Fine();
    }
    if (n.numNodi > 0) {
        t += "\nNodi della struttura:";
        for (int i = 1; i <= n.numNodi; ++i) t += " " + std::to_string(n.NomeNodi(i));
        t += "\n";
    }
    return t;
}

std::string TestoSezioni(const LibreriaProfili& lib) {
    std::string t = Riga()
                        .T("Profilo", 18)
                        .T("      H", 9)
                        .T("      B", 9)
                        .T("    tw", 8)
                        .T("    tf", 8)
                        .T("     r", 8)
                        .T("    A [cm2]", 12)
                        .T("   Iy [cm4]", 12)
                        .T("   Iz [cm4]", 12)
                        .Fine();
    for (int i = 1; i <= lib.nProfili; ++i) {
        const ProfiloRec& p = lib.Profili(i);
        t += Riga()
                 .T(p.Nome, 16)
                 .N(p.H, 9)
                 .N(p.B, 9)
                 .N(p.tw, 8)
                 .N(p.tf, 8)
                 .N(p.r, 8)
                 .N(p.Area / 1e2, 13)
                 .N(p.J1 / 1e4, 13)
                 .N(p.J2 / 1e4, 12)
                 .Fine();
    }
    return t;
}

std::string TestoMateriali(const Materiali& mat) {
    std::string t = "Acciai per sezioni aperte [daN/cm2]\n";
    const auto testaAcciai = [] {
        return Riga()
            .T("  Nome", 22)
            .T("Norma", 18)
            .T("  Samm", 8)
            .T("Samm80", 8)
            .T(" Fyk40", 8)
            .T(" Ftk40", 8)
            .T(" Fyk80", 8)
            .T(" Ftk80", 8)
            .T("GammaM", 8)
            .T("GammaMT", 8)
            .Fine();
    };
    const auto acciai = [&](const TabellaMateriali<MaterialeRec>& tab, short n) {
        t += testaAcciai();
        for (int i = 1; i <= RigheUtili(n); ++i) {
            const MaterialeRec& a = tab(i);
            Riga r;
            r.T("  " + Taglia(a.Nome), 22).T(Taglia(a.Designazione), 16);
            for (const double x :
                 {a.Samm, a.Samm80, a.Fyk40, a.Ftk40, a.Fyk80, a.Ftk80, a.GammaM, a.GammaMT}) {
                r.N(x, 8);
            }
            t += r.Fine();
        }
    };
    acciai(mat.AcciaiAperte, mat.nAcciaiAperte);
    t += "\nAcciai per sezioni chiuse [daN/cm2]\n";
    acciai(mat.AcciaiChiuse, mat.nAcciaiChiuse);
    t += "\nViti [daN/cm2]\n" + Riga()
                                    .T("  Classe", 10)
                                    .T("  SammVite", 12)
                                    .T("TauAmmVite", 12)
                                    .T("    FyVite", 12)
                                    .T("    FtVite", 12)
                                    .T("GammaMVite", 12)
                                    .Fine();
    for (int i = 1; i <= RigheUtili(mat.nViti); ++i) {
        const ViteRec& v = mat.Viti(i);
        Riga r;
        r.T("  " + v.Nome, 8);
        for (const double x : {v.SammVite, v.TauAmmVite, v.FyVite, v.FtVite, v.GammaMVite})
            r.N(x, 12);
        t += r.Fine();
    }
    t += "\nCalcestruzzi [daN/cm2]\n";
    for (int i = 1; i <= RigheUtili(mat.nCalcestruzzi); ++i) {
        const CalcestruzzoRec& c = mat.Calcestruzzi(i);
        t += "  " + c.Nome + ": Rck " + Num(c.Rck) + ", GammaC " + Num(c.GammaC) + "\n";
    }
    t += "\nAcciai da c.a. [daN/cm2]\n";
    for (int i = 1; i <= RigheUtili(mat.nAcciaiCa); ++i) {
        const AcciaioCaRec& a = mat.AcciaiCa(i);
        t += "  " + a.Nome + ": fyk " + Num(a.Primo) + ", ftk " + Num(a.Secondo) + ", Samm " +
             Num(a.SammCa) + "\n";
    }
    return t;
}

}  // namespace tk07
