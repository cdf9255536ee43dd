#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "base/aritmetica.h"
#include "base/tabella.h"
#include "joint/nodo.h"

namespace tk07 {

inline constexpr int kLineeSaldatura = 30;  // 0..14 lines s1..s15, 15..29 their mirrors s1'..s15'

// Where a step of the verification breaks off, with a message: what would follow stays 0.
enum class Interruzione { s1Verticali, s1Orizzontali, s2Verticali, s2Orizzontali, s2Nervatura3 };

// The result record of one verification. Load sets s from 0, bolts i from 1, weld lines j from 0,
// ends of a line k 0..1. During the calculation stresses are daN/mm2; TensioniAlCm2 turns them into
// daN/cm2 at its end. Forces in daN, lengths in mm. Tension is positive.
struct Risultati {
    // bolts
    TabPerSestetto<double, 0, kMaxBulloni> Sigma;            // stress plane at the bolt
    TabPerSestetto<double, 0, kMaxBulloni> Tau;              // shear stress, TA only
    TabPerSestetto<double, 0, kMaxBulloni - 1> SigRifPias1;  // bearing, bolt i at i-1, TA only
    TabPerSestetto<double, 0, kMaxBulloni - 1> SigRifPias2;
    TabPerSestetto<double, 0, kMaxBulloni> Fv_Ed, Ft_Ed;  // SLU only
    Tab1<double, 0, kMaxBulloni> Fv_Rd, Fb_Rd, Ft_Rd, Bp_Rd;
    TabPerSestetto<double, 0, kMaxBulloni> Co1, Co2;  // to 2 decimals at the end
    // The stress plane s(x, y) = c1 y + c2 x + c3, always in daN/mm2.
    TabPerSestetto<double, 1, 3> Piano;
    // plates
    TabPerSestetto<double, 0, 0> Sig;          // largest compression on plate 1, 0 or negative
    TabPerSestetto<double, 0, 0> SigPiastra2;  // largest bending stress of plate 2
    // Moments of its overhangs, 1 above and 2 below the beam [daN mm], 0 without one.
    TabPerSestetto<double, 1, 2> MPiastra2;
    // welds
    Tab1<double, 0, 14> LungSald;
    TabPerSestetto<double, 0, kLineeSaldatura - 1> S_prp1, S_prp2;  // at the two ends
    TabPerSestetto<double, 0, kLineeSaldatura - 1> Tau_pa, Tau_pe;
    TabPerSestetto<double, 0, kLineeSaldatura - 1> SEq1, SEq2;  // SLU only
    std::vector<Interruzione> Interruzioni;
    // verdict
    TabPerSestetto<char, 0, 0> Verificato;  // 1 verified, 0 not
    bool NodoVerificato = false;

    // The larger absolute stress of the two ends of line j.
    double MaxS_prp(int s, int j) const {
        return Max(std::fabs(S_prp2(s, j)), std::fabs(S_prp1(s, j)));
    }
};

// Stress plane c1 y + c2 x + c3 of load set s [daN/mm2], tension positive.
Tab1<double, 1, 3> PianoTensioni(const Risultati& ris, int s);

// Sizes the tables for the joint's load sets and sets everything to 0.
void AzzeraRisultati(const Nodo& nodo, Risultati& ris);

// Stresses of the record from daN/mm2 to daN/cm2, in place: a second call would scale once more.
void TensioniAlCm2(const Nodo& nodo, Risultati& ris);

// A divisor is exactly zero, or a strength is missing: thrown by a step, told by the driver, which
// ends the run without a report.
struct GrandezzaNulla {
    std::string testo;
};
// Throws GrandezzaNulla naming the quantity when x is exactly 0.
inline double NonNullo(double x, const char* grandezza) {
    if (x == 0.0) throw GrandezzaNulla{grandezza};
    return x;
}

}  // namespace tk07
