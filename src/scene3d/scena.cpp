#include "scene3d/scena.h"

#include <algorithm>
#include <cmath>

namespace tk07 {

namespace {

bool StessoVertice(const Vertice& a, const Vertice& b) {
    return std::fabs(a.Z - b.Z) <= kSezioniUguali && std::fabs(a.Y - b.Y) <= kSezioniUguali &&
           std::fabs(a.R - b.R) <= kSezioniUguali;
}

bool StessoContorno(const Contorno& a, const Contorno& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), StessoVertice);
}

bool StessaSezione(const Sezione& a, const Sezione& b) {
    return a.sezioni_tipo == b.sezioni_tipo &&
           std::equal(a.contorni.begin(), a.contorni.end(), b.contorni.begin(), b.contorni.end(),
                      StessoContorno);
}

}  // namespace

void AvvisoScena(const Scena& s, const std::string& testo, const Piattaforma& p) {
    MostraAvviso(p, testo, "VISUALIZZATORE 3D (" + s.visDescrizione + " )");
}

void ImpostaScena(Scena& s, double alfa, double beta, double dist, const std::string& descrizione) {
    s = Scena{};
    s.visual_alfa = alfa;
    s.visual_beta = beta;
    s.visual_dist = dist;
    s.visDescrizione = descrizione;
}

bool AggiungiEstruso(Scena& s, const Estruso& e, const Piattaforma& p) {
    if (s.estrusi.size() >= kMaxEstrusi) {
        AvvisoScena(s, "E' stato raggiunto il numero massimo di estrusi (500).", p);
        return false;
    }
    s.estrusi.push_back(e);
    return true;
}

bool FissaSezione(Scena& s, short& indice, const Piattaforma& p) {
    const auto uguale = std::find_if(s.sezioni.begin(), s.sezioni.end(), [&](const Sezione& x) {
        return StessaSezione(x, s.corrente);
    });
    const bool nuova = uguale == s.sezioni.end();
    if (nuova && s.sezioni.size() >= kMaxSezioni) {
        AvvisoScena(s, "E' stato raggiunto il numero massimo di sezioni inseribili.", p);
        indice = 0;
        return false;
    }
    indice = static_cast<short>(uguale - s.sezioni.begin());
    if (nuova) s.sezioni.push_back(s.corrente);
    return true;
}

}  // namespace tk07
