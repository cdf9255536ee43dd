#pragma once

#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "aiuti/prova.h"

namespace tk07::prova {

struct Bullone {
    double x, y, d;
};

inline void MettiBulloni(Nodo& n, const std::vector<Bullone>& bulloni) {
    n.nBull = static_cast<short>(bulloni.size());
    for (int i = 1; i <= n.nBull; ++i) {
        const Bullone& b = bulloni[static_cast<std::size_t>(i - 1)];
        n.Xbull(i) = b.x, n.Ybull(i) = b.y, n.Fibull(i) = b.d;
    }
}

// One load set more: N, Ty, Tz [daN], Mt, My, Mz [daN cm].
inline void AggiungiSestetto(Nodo& n, double N, double Ty, double Tz, double Mt, double My,
                             double Mz, const std::string& nome = "Soll") {
    const short s = n.nSollAg++;
    n.SforzoNormale(s) = N, n.TaglioY(s) = Ty, n.TaglioZ(s) = Tz;
    n.MomTorc(s) = Mt, n.MomY(s) = My, n.MomZ(s) = Mz, n.NomeSa(s) = nome;
}

// A consistent joint of round figures. Secondary beam from y = 85 to 285, its axis at 185; plate 1
// from 0 to 370, plate 2 from 25 to 345; 60 mm of plate above and below the beam; four M20.
inline Nodo NodoDiProva(Metodo metodo = Metodo::SLU) {
    Nodo n;
    n.TraPri = {.Nome = "T400", .H = 400, .B = 200, .tw = 10, .tf = 15, .r = 20};
    n.TraSec = {.Nome = "T200", .H = 200, .B = 100, .tw = 6, .tf = 10, .r = 12};
    n.distAlaSecPiastra = 60, n.distPiastraTraPri = 0, n.distAliPriSec = 100;
    n.BPiastra(1) = 200, n.HPiastra(1) = 370, n.SpPiastra(1) = 15;
    n.BPiastra(2) = 180, n.HPiastra(2) = 320, n.SpPiastra(2) = 20;
    n.AttNerv(1) = n.AttNerv(2) = true;
    const double nerv[3][4] = {{8, 60, 30, 100}, {10, 60, 5, 90}, {12, 370, 370, 80}};
    for (int k = 1; k <= 3; ++k) {
        n.SpNerv(k) = nerv[k - 1][0], n.H1Nerv(k) = nerv[k - 1][1];
        n.H2Nerv(k) = nerv[k - 1][2], n.BNerv(k) = nerv[k - 1][3];
    }
    n.SmussoNerv(3) = 20;
    n.spSaldS1 = 6, n.spSaldS2 = 8;
    MettiBulloni(n, {{-60, 55, 20}, {60, 55, 20}, {-60, 315, 20}, {60, 315, 20}});
    n.acciaio.Nome = "S 235 (FE 360)";
    n.acciaio.Samm = 1600, n.acciaio.Samm80 = 1400, n.acciaio.Fyk40 = 2350, n.acciaio.Fyk80 = 2150;
    n.acciaio.Ftk40 = 3600, n.acciaio.Ftk80 = 3400, n.acciaio.GammaM = 1.05;
    n.vite = {.Nome = "8.8",
              .SammVite = 3730,
              .TauAmmVite = 2640,
              .FyVite = 6490,
              .FtVite = 8000,
              .GammaMVite = 1.25};
    n.TipoVer = metodo == Metodo::SLU ? 1 : 0;
    return n;
}

inline Opzioni OpzioniDiProva(double gioco = 2.0) {
    Opzioni o;
    o.Righe.resize(kMinimoRigheOpzioni);
    o.Righe[kOpzTollForo].Valore = gioco;
    o.Disponibili = true;
    return o;
}

inline Unita UnitaDa(const char* forze, const char* momenti, const char* tensioni) {
    Unita u;
    u.UnitaForze = forze, u.UnitaMomenti = momenti, u.UnitaTensioni = tensioni;
    ImpostaUnita(u);
    return u;
}
inline Unita UnitaDiLavoro() { return UnitaDa("daN", "daN*cm", "daN/cm2"); }

inline nlohmann::json Validazione(const std::string& file) {
    std::ifstream f(std::string(TK07_SORGENTE) + "/tests/validazione/" + file);
    return nlohmann::json::parse(f);
}

}  // namespace tk07::prova
