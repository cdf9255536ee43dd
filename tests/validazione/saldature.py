"""Weld groups of the joint: lengths, section properties and stresses of the lines s1..s15.

Group S1 joins the secondary beam and ribs 1 and 2 to plate 2, group S2 joins plate 1 and rib 3 to the
primary beam. Index j - 1 is line j and j + 14 its mirror across x = 0. Each group is taken as a list of
rectangles of throat b = a / sqrt(2); properties are plain sums over them. Stresses in daN/mm2.
"""

from __future__ import annotations

import math
from fractions import Fraction

from lettura import Nodo


class NonCalcolabile(Exception):
    """A division by zero: a group without inertia or a rib without its base weld."""


def diviso(a: float, b: float) -> float:
    if b == 0:
        raise NonCalcolabile("divisione per zero nelle saldature")
    return a / b


def segno(v: float) -> float:
    return (v > 0) - (v < 0)


def sporge_di(nodo: Nodo) -> dict:
    """Whether plate 2 stands out by at least the weld's leg above (1) and below (2) the beam."""
    sotto = nodo.HPiastra[2] - nodo.distAlaSecPiastra - nodo.TraSec.H
    return {1: nodo.distAlaSecPiastra >= nodo.spSaldS1, 2: sotto >= nodo.spSaldS1}


def lunghezze(nodo: Nodo, avvisi: list | None = None) -> dict:
    """Lengths of s1..s15, cut down to whole millimetres; negative ones stay negative.

    The sums are made exactly, on the decimal values of the data. avvisi collects the lines whose
    exact length is whole although the sum in floating point may fall just short of it.
    """
    def esatto(v: float) -> Fraction:
        return Fraction(repr(v))

    S, P = nodo.TraSec, nodo.TraPri
    Hs, Bs, tws, tfs, rs = (esatto(v) for v in (S.H, S.B, S.tw, S.tf, S.r))
    Hp, tfp = esatto(P.H), esatto(P.tf)
    Bp, twp = esatto(P.B), esatto(P.tw)
    a1, a2 = esatto(nodo.spSaldS1), esatto(nodo.spSaldS2)
    sp = {k: esatto(nodo.SpNerv[k]) for k in (1, 2, 3)}
    B3 = (Bp - twp) / 2 + esatto(nodo.distPiastraTraPri) - esatto(nodo.SpPiastra[1])
    sm3 = esatto(nodo.SmussoNerv[3])
    esatte = {1: Hs - 2 * tfs - 2 * max(rs, a1), 2: Bs / 2 - tws / 2 - max(rs, a1),
              4: Hp - 2 * tfp - 2 * a2, 5: B3 - sm3 - a2, 6: Hp - 2 * tfp - 2 * sm3,
              8: esatto(nodo.BPiastra[1]) / 2 - sp[3] / 2 - a2}
    esatte[3], esatte[7], esatte[9] = esatte[2], esatte[5], esatte[8]
    sporge = sporge_di(nodo)
    for k, base, lato, ala in ((1, 12, 13, 10), (2, 14, 15, 11)):
        rib = nodo.AttNerv[k]
        esatte[ala] = Fraction(0) if not sporge[k] else (Bs - sp[k]) / 2 - a1 if rib else Bs
        if not rib:
            esatte[base] = esatte[lato] = Fraction(0)
            continue
        H1, H2, B = esatto(nodo.H1Nerv[k]), esatto(nodo.H2Nerv[k]), esatto(nodo.BNerv[k])
        if not sporge[k]:
            esatte[base] = B
        elif H2 < a1 and H1 != H2:
            # The tip is cut to a point: the weld ends where the rib is as high as the weld's leg.
            esatte[base] = abs((a1 - H2) / (H1 - H2) * B - B + a1)
        else:
            esatte[base] = B - a1
        esatte[lato] = abs(H1 - a1 - (H1 - H2) * a1 / B)
    if avvisi is not None:
        avvisi += [j for j, v in esatte.items() if abs(v - round(v)) < Fraction(1, 10**9) and v != 0]
    return {j: math.floor(esatte[j]) for j in range(1, 16)}


class Gruppo:
    """Rectangles (x, y, width, height) about the group's own axes, with their sums."""

    def __init__(self, b: float, rettangoli: list):
        self.b = b
        self.rettangoli = rettangoli
        self.A = sum(w * h for _, _, w, h in rettangoli)
        self.Sx = sum(w * h * y for _, y, w, h in rettangoli)
        self.Sy = sum(w * h * x for x, _, w, h in rettangoli)
        self.Ix0 = sum(w * h**3 / 12 + w * h * y * y for _, y, w, h in rettangoli)
        self.Iy0 = sum(h * w**3 / 12 + w * h * x * x for x, _, w, h in rettangoli)
        self.proprieta = {}


def _coppia(x, y, w, h):
    return [(x, y, w, h), (-x, y, w, h)]


def gruppo_S1(nodo: Nodo, LS: dict) -> Gruppo:
    S, a1 = nodo.TraSec, nodo.spSaldS1
    b = a1 / math.sqrt(2)
    sporge = sporge_di(nodo)
    r = _coppia(S.tw / 2 + b / 2, S.H / 2, b, LS[1])
    for y in (S.H - S.tf - b / 2, S.tf + b / 2):
        r += _coppia(S.B / 2 - LS[2] / 2, y, LS[2], b)
    lineare = 2 * LS[1] + 2 * LS[2] + 2 * LS[3]             # length for the torsion stiffness
    orizzontale = 2 * LS[2] + 2 * LS[3]
    verticale = 2 * LS[1] + 2 * LS[13] + 2 * LS[15]
    for k, ala, y in ((1, 10, S.H + b / 2), (2, 11, -b / 2)):
        volte = 2 if nodo.AttNerv[k] else 1
        orizzontale += volte * LS[ala]
        if sporge[k]:
            lineare += volte * LS[ala]
            r += (_coppia(S.B / 2 - LS[ala] / 2, y, LS[ala], b) if nodo.AttNerv[k]
                  else [(0.0, y, LS[ala], b)])
    for k, lato, y in ((1, 13, S.H + a1 + LS[13] / 2), (2, 15, -(LS[15] / 2 + a1))):
        if nodo.AttNerv[k]:
            lineare += 2 * LS[lato]
            r += _coppia(nodo.SpNerv[k] / 2 + b / 2, y, b, LS[lato])
    g = Gruppo(b, r)
    yG = diviso(g.Sx, g.A)
    g.proprieta = {"b": b, "A": g.A, "yG": yG, "xG": 0.0, "Ix": g.Ix0 - yG * yG * g.A, "Iy": g.Iy0,
                   "J": lineare * b**3 / 3, "Av": verticale * b, "Ah": orizzontale * b}
    return g


def gruppo_S2(nodo: Nodo, LS: dict) -> Gruppo:
    P, a2 = nodo.TraPri, nodo.spSaldS2
    b = a2 / math.sqrt(2)
    y = P.H / 2 - P.tf - b / 2
    r = _coppia(nodo.SpNerv[3] / 2 + b / 2, 0.0, b, LS[4])
    for j, verso in ((8, 1), (9, -1)):
        r += _coppia(nodo.BPiastra[1] / 2 - LS[j] / 2, verso * y, LS[j], b)
    g = Gruppo(b, r)
    # Rib 3: here x runs from the web along the rib, and both welds of a pair stand at the same x.
    n = Gruppo(b, 2 * [(nodo.BNerv[3], 0.0, b, LS[6])]
               + 2 * [(LS[5] / 2 + a2, y, LS[5], b)] + 2 * [(LS[7] / 2 + a2, -y, LS[7], b)])
    xG3 = diviso(n.Sy, n.A)
    g.proprieta = {
        "b": b, "A": g.A, "xG": 0.0,
        # The secondary's axis seen from the primary's, where N acts: no centroid of the welds.
        "yG": -(P.H / 2 - nodo.distAliPriSec - nodo.TraSec.H / 2),
        "Ix": g.Ix0, "Iy": g.Iy0, "J2": (2 * LS[4] + 2 * LS[8] + 2 * LS[9]) * b**3 / 3,
        "Av2": 2 * LS[4] * b, "Ah2": 2 * (LS[8] + LS[9]) * b,
        "A3": n.A, "xG3": xG3, "Ix3": n.Ix0, "Iy3": n.Iy0 - xG3 * xG3 * n.A}
    return g


def _vuote():
    return [[0.0] * 30, [0.0] * 30], [0.0] * 30, [0.0] * 30


def _con_specchio(j, x1, x2, y1, y2):
    """Ends 1 and 2 of a line and of its mirror: end k of the mirror has minus the x of the other
    end and the y of the same one."""
    return [(j - 1, (x1, y1), (x2, y2)), (j + 14, (-x2, y1), (-x1, y2))]


def estremi_S1(nodo: Nodo, LS: dict) -> list:
    S, a1, b = nodo.TraSec, nodo.spSaldS1, nodo.spSaldS1 / math.sqrt(2)
    H, B, x1 = S.H, S.B, S.tw / 2 + nodo.spSaldS1 / math.sqrt(2)
    linee = _con_specchio(1, x1, x1, H / 2 - LS[1] / 2, H / 2 + LS[1] / 2)
    linee += _con_specchio(2, B / 2 - LS[2], B / 2, H - S.tf, H - S.tf)
    linee += _con_specchio(3, B / 2 - LS[2], B / 2, S.tf, S.tf)
    sporge = sporge_di(nodo)
    for k, ala, y in ((1, 10, H + b), (2, 11, -b)):
        if sporge[k]:
            linee += (_con_specchio(ala, B / 2 - LS[ala], B / 2, y, y) if nodo.AttNerv[k]
                      else [(ala - 1, (-B / 2, y), (B / 2, y))])
    if nodo.AttNerv[1]:
        x = nodo.SpNerv[1] / 2 + b
        linee += _con_specchio(13, x, x, H + a1, H + a1 + LS[13])
    if nodo.AttNerv[2]:
        x = nodo.SpNerv[2] / 2 + b
        linee += _con_specchio(15, x, x, -(a1 + LS[15]), -a1)
    return linee


def estremi_S2(nodo: Nodo, LS: dict) -> list:
    P, x4 = nodo.TraPri, nodo.SpNerv[3] / 2 + nodo.spSaldS2 / math.sqrt(2)
    y, B = P.H / 2 - P.tf, nodo.BPiastra[1]
    return (_con_specchio(4, x4, x4, -LS[4] / 2, LS[4] / 2)
            + _con_specchio(8, B / 2 - LS[8], B / 2, y, y)
            + _con_specchio(9, B / 2 - LS[9], B / 2, -y, -y))


def _navier(linee, S_prp, N, F1, F2, A, Ix, Iy, x0, y0):
    for m, *capi in linee:
        for k, (x, y) in enumerate(capi):
            S_prp[k][m] = diviso(N, A) - diviso(F1, Ix) * (y - y0) - diviso(F2, Iy) * (x - x0)


def _con_taglio(Tau_pa, linee, T, area):
    """The torsion share takes the sign of the shear, so that the two always add up."""
    if T != 0:
        for j in linee:
            for m in (j - 1, j + 14):
                Tau_pa[m] = abs(Tau_pa[m]) * segno(T) + T / area


def tensioni_S1(nodo: Nodo, s: int, g: Gruppo, LS: dict, trasporta: bool):
    """Stresses of the lines of S1 for load set s: S_prp at both ends, Tau_pa, Tau_pe."""
    S_prp, Tau_pa, Tau_pe = _vuote()
    p, b, Hs = g.proprieta, g.b, nodo.TraSec.H
    N, Ty, Tz = nodo.SforzoNormale[s], nodo.TaglioY[s], nodo.TaglioZ[s]
    d = nodo.distAzioni if trasporta else 0.0
    F1 = 10 * nodo.MomZ[s] - d * Ty + (p["yG"] - Hs / 2) * N
    F2 = 10 * nodo.MomY[s] - d * Tz
    linee = estremi_S1(nodo, LS)
    _navier(linee, S_prp, N, F1, F2, p["A"], p["Ix"], p["Iy"], 0.0, p["yG"])
    M = 10 * nodo.MomTorc[s] + (p["yG"] - Hs / 2) * Tz
    giro = abs(diviso(M, p["J"]) * b)
    for j in (1, 2, 3, 10, 11, 13, 15):
        Tau_pa[j - 1] = Tau_pa[j + 14] = giro
    altro = {"S1": {"F1": F1, "F2": F2, "M": M, "giro": giro, "estremi": linee}}
    if p["Av"] <= 1e-4:
        return S_prp, Tau_pa, Tau_pe, altro
    _con_taglio(Tau_pa, (1, 13, 15), Ty, p["Av"])
    if p["Ah"] <= 1e-4:
        return S_prp, Tau_pa, Tau_pe, altro
    _con_taglio(Tau_pa, (2, 3, 10, 11), Tz, p["Ah"])
    for k, V, O in ((1, 13, 12), (2, 15, 14)):
        if nodo.AttNerv[k]:
            altro[f"nervatura{k}"] = _base_nervatura(nodo, s, k, V, O, g, LS, S_prp, Tau_pa, Tau_pe)
    return S_prp, Tau_pa, Tau_pe, altro


def _base_nervatura(nodo, s, k, V, O, g, LS, S_prp, Tau_pa, Tau_pe) -> dict:
    """Hands the forces of the side welds V of rib k on to the welds O at its base on the flange."""
    b, a1, sp, Av = g.b, nodo.spSaldS1, nodo.SpNerv[k], g.proprieta["Av"]
    LV, LO = float(LS[V]), float(LS[O])
    v, vs, o, os = V - 1, V + 14, O - 1, O + 14
    Ty = nodo.TaglioY[s]
    su = 1.0 if k == 1 else -1.0
    media = (S_prp[0][v] + S_prp[1][v]) / 2
    media_s = (S_prp[0][vs] + S_prp[1][vs]) / 2
    area = LV * b
    R = (media + media_s) * area
    T = -2 * Ty / Av * area
    Pe = -(Tau_pe[v] + Tau_pe[vs]) * area
    q = abs(Tau_pa[v] - Ty / Av) * segno(nodo.MomTorc[s])
    Q = q * b * b * LV / 3
    D = (media_s - media) * area * (sp / 2 + b / 2)
    # The linear part of the stress on the side welds: resultant of the triangle at 2/3 less the half.
    E = (S_prp[0][v] - S_prp[1][v] + S_prp[0][vs] - S_prp[1][vs]) * area / 2 * LV * (0.5 - 2 / 3)
    M1 = su * ((LO / 2 + a1) * T + E) - (LV / 2 + a1) * R
    F = su * T
    sezione, W = 2 * LO * b, LO * LO * b / 3
    M2 = (LV / 2 + a1) * Pe - su * Q
    storto = diviso(diviso(M2, b + sp), b * LO)
    for m, verso in ((o, 1.0), (os, -1.0)):
        S_prp[0][m] = diviso(F, sezione) - diviso(M1, W) + verso * storto
        S_prp[1][m] = diviso(F, sezione) + diviso(M1, W) + verso * storto
        Tau_pe[m] = -diviso(Pe, sezione)
    M3 = (LO / 2 + a1) * Pe - D
    u = abs(diviso(M3, 2 * LO * b**3 / 3) * b)
    lungo = diviso(R, sezione)
    for m in (o, os):
        Tau_pa[m] = lungo + segno(lungo) * u if abs(lungo) > 1e-4 else u
    return {"R": R, "T": T, "P": Pe, "q": q, "Q": Q, "D": D, "E": E, "M1": M1, "F": F, "M2": M2,
            "M3": M3, "W": W, "u": u, "lungo": lungo, "incerta": abs(abs(lungo) - 1e-4) < 1e-10}


def tensioni_S2(nodo: Nodo, s: int, g: Gruppo, LS: dict, trasporta: bool):
    """Stresses of the lines of S2 for load set s."""
    S_prp, Tau_pa, Tau_pe = _vuote()
    p, b, P = g.proprieta, g.b, nodo.TraPri
    N, Ty, Tz = nodo.SforzoNormale[s], nodo.TaglioY[s], nodo.TaglioZ[s]
    braccio = P.B / 2 + nodo.distPiastraTraPri - nodo.SpPiastra[1]
    d = braccio if trasporta else 0.0
    # The moments enter in daN cm beside forces in daN and arms in mm: a moment counts for a tenth.
    F1 = nodo.MomZ[s] - d * Ty + N * p["yG"]
    F2 = nodo.MomY[s] - d * Tz
    linee = estremi_S2(nodo, LS)
    _navier(linee, S_prp, N, F1, F2, p["A"], p["Ix"], p["Iy"], 0.0, 0.0)
    M = 10 * nodo.MomTorc[s] + Tz * p["yG"]
    giro = abs(diviso(M, p["J2"]) * b)
    for j in (4, 8, 9):
        Tau_pa[j - 1] = Tau_pa[j + 14] = giro
    altro = {"S2": {"braccio": braccio, "F1": F1, "F2": F2, "M": M, "giro": giro, "estremi": linee}}
    if p["Av2"] <= 1e-4:
        return S_prp, Tau_pa, Tau_pe, altro
    _con_taglio(Tau_pa, (4,), Ty, p["Av2"])
    if p["Ah2"] <= 1e-4:
        return S_prp, Tau_pa, Tau_pe, altro
    _con_taglio(Tau_pa, (8, 9), Tz, p["Ah2"])

    # Rib 3 under what its side welds s4 and s4' hand over.
    L4 = float(LS[4])
    area = L4 * b
    m4 = (S_prp[0][3] + S_prp[1][3]) / 2
    m4s = (S_prp[0][18] + S_prp[1][18]) / 2
    R3 = (m4 + m4s) * area
    T3 = 2 * Ty / p["Av2"] * area
    Q3 = abs(Tau_pa[3] - Ty / p["Av2"]) * segno(nodo.MomTorc[s]) * b * b * L4 / 3
    D3 = abs((m4 - m4s) * (nodo.SpNerv[3] / 2 + b / 2) * area) * segno(nodo.MomY[s])
    E3 = (S_prp[1][3] - S_prp[0][3] + S_prp[1][18] - S_prp[0][18]) * area / 2 * L4 * (0.5 - 2 / 3)
    t5 = diviso(Q3, 2 * (P.H - 2 * P.tf - b / 2) * b * LS[5])
    A3, Ix3, Iy3, xG3 = p["A3"], p["Ix3"], p["Iy3"], p["xG3"]
    for m in (5, 20):
        S_prp[1][m] = diviso(R3, A3) - diviso(E3, Ix3) * (LS[6] / 2)
        S_prp[0][m] = diviso(R3, A3) + diviso(E3, Ix3) * (LS[6] / 2)
        Tau_pe[m] = -diviso(D3, Iy3) * (nodo.BNerv[3] - xG3)
    y = P.H / 2 - P.tf - b / 2
    for j, t0, verso in ((5, t5, -1.0), (7, -t5, 1.0)):
        capi = [t0 - diviso(D3, Iy3) * (nodo.spSaldS2 + fine - xG3) for fine in (LS[j], 0)]
        peggiore = max(capi, key=abs)
        for m in (j - 1, j + 14):
            Tau_pa[m] = diviso(R3, A3) - diviso(E3, Ix3) * y * verso
            Tau_pe[m] = peggiore
    altro["nervatura3"] = {"R3": R3, "T3": T3, "Q3": Q3, "D3": D3, "E3": E3, "t5": t5}
    if LS[6] > 1e-4:
        for m in (5, 20):
            Tau_pa[m] += T3 / (2 * b * LS[6])
    return S_prp, Tau_pa, Tau_pe, altro
