#include "bolting/bulloni_temp.h"

#include <string>

#include "base/aritmetica.h"

namespace tk07 {

namespace {

bool Selezionato(const BulloniTemp& t, int i) { return t.SelBullTemp(i) == 1.0; }

bool Uguali(const BulloniTemp& t, int a, int b) {
    return t.XbullTemp(a) == t.XbullTemp(b) && t.YbullTemp(a) == t.YbullTemp(b) &&
           t.FibullTemp(a) == t.FibullTemp(b);
}

}  // namespace

void CopiaDalNodo(const Nodo& nodo, BulloniTemp& t) {
    t = BulloniTemp{};
    for (int i = 1; i <= nodo.nBull; ++i) {
        t.XbullTemp(i) = nodo.Xbull(i);
        t.YbullTemp(i) = nodo.Ybull(i);
        t.FibullTemp(i) = nodo.Fibull(i);
        t.SelBullTemp(i) = nodo.SelBull(i);
    }
    t.nBullTemp = nodo.nBull;
}

void CopiaNelNodo(const BulloniTemp& t, Nodo& nodo) {
    nodo.nBull = t.nBullTemp;
    for (int i = 1; i <= t.nBullTemp; ++i) {
        nodo.Xbull(i) = t.XbullTemp(i);
        nodo.Ybull(i) = t.YbullTemp(i);
        nodo.Fibull(i) = t.FibullTemp(i);
        nodo.SelBull(i) = t.SelBullTemp(i);
    }
}

std::string OltreIlMassimo() { return "Più di " + std::to_string(kMaxBulloni) + " bulloni"; }

bool CePosto(const BulloniTemp& t, double quanti) { return t.nBullTemp + quanti <= kMaxBulloni; }

int QuantiSelezionati(const BulloniTemp& t) {
    int quanti = 0;
    for (int i = 1; i <= t.nBullTemp; ++i) quanti += Selezionato(t, i) ? 1 : 0;
    return quanti;
}

void EsigiPosto(const BulloniTemp& t, double quanti) {
    if (!CePosto(t, quanti)) {
        throw ErroreFatale(OltreIlMassimo(), kDisposizione);
    }
}

void AccodaBullone(BulloniTemp& t, double x, double y, double diametro) {
    EsigiPosto(t, 1);
    const int n = t.nBullTemp + 1;
    t.XbullTemp(n) = x;
    t.YbullTemp(n) = y;
    t.FibullTemp(n) = diametro;
    t.nBullTemp = static_cast<short>(n);
}

void CopiaIndietro(BulloniTemp& t, int da, int a) {
    for (int i = da; i < a; ++i) {
        t.XbullTemp(i) = t.XbullTemp(i + 1);
        t.YbullTemp(i) = t.YbullTemp(i + 1);
        t.FibullTemp(i) = t.FibullTemp(i + 1);
        t.SelBullTemp(i) = t.SelBullTemp(i + 1);
    }
}

double Scatta5(double v) {
    constexpr double kGriglia = 5.0;  // mm
    // The last term turns a negative zero into zero: a file or a tip must not read "-0".
    return Sgn(v) * kGriglia * Int(std::fabs(v) / kGriglia + 0.5) + 0.0;
}

void AggiungiSingolo(BulloniTemp& t) {
    EsigiPosto(t, 1);
    t.nBullTemp = static_cast<short>(t.nBullTemp + 1);
    t.attesaClick = 1;
}

bool PosaBullone(BulloniTemp& t, double x, double y, double diametro) {
    if (t.attesaClick != 1) return false;
    // The last bolt moves. Where the one that awaited the press has been removed meanwhile, that is
    // another bolt, which the plan shows at once (with no bolt left, the unused slot 0).
    const int n = t.nBullTemp;
    t.XbullTemp(n) = Scatta5(x);
    t.YbullTemp(n) = Scatta5(y);
    t.FibullTemp(n) = diametro;
    t.attesaClick = 0;
    return true;
}

void AnnullaAttesa(BulloniTemp& t) {
    // The bolt is in the list already and stays there, with what its slot held, to be edited or
    // removed as any other.
    t.attesaClick = 0;
}

void RimuoviUltimo(BulloniTemp& t) {
    if (t.nBullTemp > 0) t.nBullTemp = static_cast<short>(t.nBullTemp - 1);
}

void RimuoviTutti(BulloniTemp& t) { t.nBullTemp = 0; }

void RimuoviNumero(BulloniTemp& t, int numero) {
    if (numero < 1 || numero > t.nBullTemp) return;
    CopiaIndietro(t, numero, t.nBullTemp);
    t.nBullTemp = static_cast<short>(t.nBullTemp - 1);
}

void RimuoviSelezionati(BulloniTemp& t) {
    // The end moves with the count: a slot that has fallen behind it keeps its selection, and would
    // be taken for a bolt.
    for (int i = 1; i <= t.nBullTemp;) {
        if (Selezionato(t, i)) {
            RimuoviNumero(t, i);
        } else {
            ++i;
        }
    }
}

void EliminaDoppi(BulloniTemp& t) {
    // As above: a slot behind the count is equal to the bolt that moved down from it.
    for (int a = 1; a <= t.nBullTemp; ++a) {
        for (int b = t.nBullTemp; b > a; --b) {
            if (Uguali(t, a, b)) RimuoviNumero(t, b);
        }
    }
}

void Seleziona(BulloniTemp& t, Selezione quali) {
    for (int i = 1; i <= t.nBullTemp; ++i) {
        t.SelBullTemp(i) = quali == Selezione::tutti ? 1.0 : 0.0;
    }
}

void CopiaSelezionati(BulloniTemp& t, Asse asse, double delta) {
    const int fine = t.nBullTemp;
    EsigiPosto(t, QuantiSelezionati(t));
    for (int i = 1; i <= fine; ++i) {
        if (!Selezionato(t, i)) continue;
        AccodaBullone(t, t.XbullTemp(i) + (asse == Asse::X ? delta : 0.0),
                      t.YbullTemp(i) + (asse == Asse::Y ? delta : 0.0), t.FibullTemp(i));
    }
}

void TraslaSelezionati(BulloniTemp& t, Asse asse, double delta) {
    auto& coordinata = asse == Asse::X ? t.XbullTemp : t.YbullTemp;
    for (int i = 1; i <= t.nBullTemp; ++i) {
        if (Selezionato(t, i)) coordinata(i) += delta;
    }
}

void CambiaDiametro(BulloniTemp& t, double diametro) {
    for (int i = 1; i <= t.nBullTemp; ++i) {
        if (Selezionato(t, i)) t.FibullTemp(i) = diametro;
    }
}

}  // namespace tk07
