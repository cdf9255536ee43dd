#!/usr/bin/env python3
"""Writes the machine-readable reference cases and checks them against the independent calculation.

    scrivi_riferimenti.py [--uscita CARTELLA]

contatto_chiuso.json: closed forms of the contact without tension, derived in contatto_chiuso.md.
riferimenti_bulloni.json: published resistances, bearing values and bolt groups, turned into inputs.
The expected planes come from the closed forms alone; contatto.py only supplies the spread that the
program's stopping rule allows, and must agree with every case. Exit code 1 when it does not.
"""

from __future__ import annotations

import argparse
import json
import math
import sys
from pathlib import Path

from contatto import Bullone, Contatto, NonEquilibrato, inversa, prodotto, valore
from lettura import Acciaio, Nodo, Profilo, Vite
from verifica_nodo import area_resistente, baricentro, resistenze, tagli

QUI = Path(__file__).resolve().parent
A20, A24 = area_resistente(20), area_resistente(24)
IN = 25.4                                   # mm in an inch
PSI = 4.4482216152605 / 10 / IN**2          # daN/mm2 in a psi
guai = []


# --------------------------------------------------------------------------- contact

def caso(nome, rettangolo, bulloni, azioni, piano, punti=(), fonte="forma chiusa", pubblicati=()):
    """One case: expected plane and stresses at chosen points, each with the spread it may have."""
    xMin, xMax, yMin, yMax = rettangolo
    fuori = {"nome": nome, "fonte": fonte,
             "rettangolo": {"xMin": xMin, "xMax": xMax, "yMin": yMin, "yMax": yMax},
             "bulloni": [list(b) for b in bulloni], "azioni": list(azioni)}
    c = Contatto(rettangolo, [Bullone(*b) for b in bulloni])
    fermo, _ = c.arresto(azioni)
    if piano is None:
        fuori["esito"] = "fallisce"
        if fermo is not None:
            guai.append(f"{nome}: il passo pieno non fallisce")
        return fuori
    M = c.matrice(piano)
    G = inversa(M) if any(azioni) else [[0.0] * 3] * 3
    soglie = [1.0 + 1e-4 * abs(v) for v in azioni]

    def spazio(gradiente, quanto):
        return sum(abs(g) * t for g, t in zip(prodotto(G, gradiente), soglie)) + 1e-9 * abs(quanto) + 1e-12

    R = prodotto(M, piano)
    for k, (r, f) in enumerate(zip(R, azioni)):
        grande = sum(abs(a * b) for a, b in zip(M[k], piano))
        if abs(r - f) > 1e-9 * grande + 1e-9:
            guai.append(f"{nome}: equilibrio {k + 1}: {r} contro {f}")
    assi = ((1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0))
    fuori["esito"] = "risolto"
    fuori["piano"] = list(piano)
    fuori["tolleranza_piano"] = [spazio(a, p) for a, p in zip(assi, piano)]
    fuori["punti"] = [{"x": x, "y": y, "s": valore(piano, x, y),
                       "tolleranza": spazio((y, x, 1.0), valore(piano, x, y))} for x, y in punti]
    fuori["pubblicati"] = [dict(zip(("x", "y", "s", "tolleranza_relativa"), p)) for p in pubblicati]
    for p in fuori["pubblicati"]:
        if abs(valore(piano, p["x"], p["y"]) - p["s"]) > p["tolleranza_relativa"] * abs(p["s"]):
            guai.append(f"{nome}: valore pubblicato")
    for chi, trovato in (("energia", _piano(c, azioni)), ("passo pieno", fermo)):
        if trovato is None:
            guai.append(f"{nome}: {chi} non trova il piano")
            continue
        stretto = 1e-9 if chi == "energia" else 1.0
        for k in range(3):
            lecito = (fuori["tolleranza_piano"][k] if stretto == 1.0
                      else 1e-9 * max(1e-3, abs(piano[k])) + 1e-12)
            if abs(trovato[k] - piano[k]) > lecito:
                guai.append(f"{nome}: {chi} c{k + 1} = {trovato[k]} contro {piano[k]}")
    return fuori


def _piano(c, azioni):
    try:
        return c.piano(azioni)
    except NonEquilibrato:
        return None


def carico_di(bulloni_tesi, blocchi):
    """Load about the origin from bolts (x, y, area, s) and blocks of contact (resultant, x, y)."""
    pezzi = [(a * s, x, y) for x, y, a, s in bulloni_tesi] + list(blocchi)
    return (sum(f * y for f, _, y in pezzi), sum(f * x for f, x, _ in pezzi), sum(f for f, *_ in pezzi))


def asse_neutro(b, righe, giri=200):
    """Neutral axis from the compressed edge with N = 0: b x^2 / 2 = sum A_i (d_i - x) over d_i > x.

    Between two rows the equation is quadratic; the root that lies between them is the axis.
    """
    righe = sorted(righe)
    for k in range(len(righe)):
        tese = righe[k:]
        S, D = sum(a for _, a in tese), sum(a * d for d, a in tese)
        x = (-S + math.sqrt(S * S + 2 * b * D)) / b
        sotto = righe[k - 1][0] if k else 0.0
        if sotto <= x <= righe[k][0]:
            return x
    raise ValueError("asse neutro")


def flessione(nome, b, h, file, M, fonte, punti, pubblicati=(), area_al_pezzo=None):
    """N = 0, moment M that pulls the rows far from y = 0; file holds (y, total area, xs)."""
    x = asse_neutro(b, [(y, a) for y, a, _ in file])
    # Moment about the axis: block b s x/2 at 2x/3, bolts A s (d - x)/x at d - x.
    pendenza = M / (b * x**3 / 3 + sum(a * (y - x) ** 2 for y, a, _ in file if y > x))
    bulloni = [(xs_i, y, a / len(xs)) for y, a, xs in file for xs_i in xs]
    return caso(nome, (-b / 2, b / 2, 0.0, h), bulloni, (M, 0.0, 0.0),
                (pendenza, 0.0, -pendenza * x), punti, fonte, pubblicati)


def casi_contatto() -> list:
    B, H = 200.0, 400.0
    rett = (-B / 2, B / 2, 0.0, H)
    quattro = [(-60.0, 80.0, A20), (60.0, 80.0, A20), (-60.0, 320.0, A20), (60.0, 320.0, A20)]
    casi = []

    # 1. Bolts alone.
    N = 12000.0
    s = N / (4 * A20)
    casi.append(caso("trazione centrata, quattro bulloni", rett, quattro, (N * H / 2, 0.0, N),
                     (0.0, 0.0, s), [(-60, 80), (60, 320), (0, 0)]))
    pesi = [(-60.0, 80.0, A20), (60.0, 80.0, A20), (-60.0, 320.0, A24), (60.0, 320.0, A24)]
    SA, yG = sum(a for *_, a in pesi), sum(a * y for _, y, a in pesi) / sum(a for *_, a in pesi)
    Iy = sum(a * (y - yG) ** 2 for _, y, a in pesi)
    Ix = sum(a * x * x for x, _, a in pesi)
    N, M, My = 30000.0, 300000.0, 90000.0
    c1, c2 = M / Iy, My / Ix
    piano = (c1, c2, N / SA - c1 * yG)
    assert min(valore(piano, x, y) for x in (-B / 2, B / 2) for y in (0, H)) > 0
    casi.append(caso("trazione e due momenti, contatto tutto staccato, due diametri", rett, pesi,
                     (M + N * yG, My, N), piano, [(-60, 80), (60, 80), (-60, 320), (60, 320)]))
    casi.append(caso("nessuna azione", rett, quattro, (0.0, 0.0, 0.0), (0.0, 0.0, 0.0), [(0, 0), (60, 320)]))
    due = [(0.0, 80.0, A20), (0.0, 320.0, A20)]
    casi.append(caso("due bulloni in trazione piena: matrice singolare", rett, due,
                     (8000.0 * H / 2, 0.0, 8000.0), None))
    casi.append(caso("due bulloni in diagonale, trazione piena: matrice singolare", rett,
                     [(-60.0, 80.0, A20), (60.0, 320.0, A20)], (8000.0 * H / 2, 0.0, 8000.0), None))
    casi.append(caso("rettangolo senza bulloni in trazione", rett, [], (1000.0 * H / 2, 0.0, 1000.0), None))

    # 2. Compression with no bolt at work.
    N = -80000.0
    for chi, quali in (("con quattro bulloni", quattro), ("senza bulloni", [])):
        casi.append(caso(f"compressione centrata, {chi}", rett, quali, (N * H / 2, 0.0, N),
                         (0.0, 0.0, N / (B * H)), [(-100, 0), (100, 400), (60, 320)]))
    e = H / 10
    c1 = 12 * -N * e / (B * H**3)
    casi.append(caso("compressione entro il nocciolo, e = H/10", rett, quattro, (N * (H / 2 - e), 0.0, N),
                     (c1, 0.0, N / (B * H) - c1 * H / 2), [(0, 0), (0, 400)]))
    ex = B / 24
    c2 = 12 * -N * ex / (H * B**3)
    casi.append(caso("compressione entro il nocciolo, biassiale", rett, quattro,
                     (N * (H / 2 - e), -N * ex, N),
                     (c1, c2, N / (B * H) - c1 * H / 2), [(-100, 0), (100, 0), (-100, 400), (100, 400)]))
    for rapporto in (1 / 6, 0.25, 1 / 3, 0.45):
        c = H / 2 - rapporto * H
        smax = 2 * N / (3 * B * c)
        casi.append(caso(f"rettangolo senza trazione, e/H = {rapporto:.5f}", rett, [],
                         (N * c, 0.0, N), (-smax / (3 * c), 0.0, smax), [(0, 0), (100, 0)],
                         "forma chiusa: triangolo 3c, s = 2N/(3 B c)"))
    for ex, ey in ((0.3, 0.3), (0.35, 0.3)):
        a, b = 4 * (0.5 - ex) * B, 4 * (0.5 - ey) * H
        s = 6 * N / (a * b)
        casi.append(caso(f"contatto triangolare nello spigolo, ex/B = {ex}, ey/H = {ey}", rett, [],
                         (N * b / 4, N * (a / 4 - B / 2), N), (-s / b, -s / a, s - s / a * B / 2),
                         [(-100, 0), (100, 0)], "forma chiusa: tetraedro, s = 6N/(a b)"))

    # 3. Bending with bolts, N = 0.
    una = [(-60.0, 320.0, A20), (60.0, 320.0, A20)]
    casi.append(flessione("una fila di bulloni, solo momento", B, H, [(320.0, 2 * A20, (-60.0, 60.0))],
                          1.5e6, "forma chiusa: quadratica dell'asse neutro", [(0, 0), (60, 320)]))
    casi.append(flessione("due file M20, 200x400, solo momento", 200.0, 400.0,
                          [(50.0, 2 * A20, (-50.0, 50.0)), (350.0, 2 * A20, (-50.0, 50.0))], 2e6,
                          "forma chiusa, riferimento numerico indipendente", [(0, 0), (50, 50), (50, 350)],
                          [(0.0, 0.0, -1.54032269, 1e-7), (50.0, 50.0, 0.40001, 1e-5),
                           (50.0, 350.0, 12.042006, 1e-7)]))
    casi.append(flessione("quattro file M24, 220x600, solo momento", 220.0, 600.0,
                          [(y, 2 * A24, (-60.0, 60.0)) for y in (60.0, 220.0, 380.0, 540.0)], 8e6,
                          "forma chiusa, riferimento numerico indipendente",
                          [(0, 0), (60, 60), (60, 220), (60, 380), (60, 540)],
                          [(0.0, 0.0, -2.30794372, 1e-7), (60.0, 60.0, -0.503147, 1e-5),
                           (60.0, 540.0, 13.935227, 1e-7)]))
    casi.append(flessione("rettangolo 14 in, barra equivalente 14.08 in2 a 17 in, 60 kip ft", 14 * IN, 20 * IN,
                          [(17 * IN, 14.08 * IN**2, (0.0,))], 720000 * PSI * IN**3,
                          "https://mocivilengineering.com/flexural-stress-calculation-using-transformed-"
                          "area-method-for-rectangular-beam/ ; convertito in mm e daN, n = 8",
                          [(0.0, 0.0), (0.0, 17 * IN)],
                          [(0.0, 0.0, -1357 * PSI, 2e-3), (0.0, 17 * IN, 26655.49 / 8 * PSI, 2e-3)]))

    # 4. Load built from the plane: the resultants of the blocks are those of elementary solids.
    x, s0 = 150.0, -2.4                      # neutral axis at y = 150, edge stress at y = 0
    c1 = -s0 / x
    tesi = [(xb, yb, a, c1 * (yb - x)) for xb, yb, a in una]
    casi.append(caso("una fila di bulloni, momento e compressione", rett, una,
                     carico_di(tesi, [(B * s0 * x / 2, 0.0, x / 3)]), (c1, 0.0, s0), [(0, 0), (60, 320)]))
    a, b, s0 = 120.0, 180.0, -3.0            # triangle in the corner (-100, 0), legs a along x, b along y
    c1, c2 = -s0 / b, -s0 / a
    piano = (c1, c2, s0 + c2 * B / 2)
    tesi = [(xb, yb, ar, valore(piano, xb, yb)) for xb, yb, ar in quattro if valore(piano, xb, yb) > 0]
    casi.append(caso("contatto triangolare con quattro bulloni", rett, quattro,
                     carico_di(tesi, [(s0 * a * b / 6, -B / 2 + a / 4, b / 4)]), piano,
                     [(-100, 0)] + [(xb, yb) for xb, yb, _ in quattro]))
    # Pentagon: the whole rectangle less the tetrahedron of tension at the corner (100, 400).
    a, b, s1 = 90.0, 240.0, 1.2
    c1, c2 = s1 / b, s1 / a
    piano = (c1, c2, s1 - c1 * H - c2 * B / 2)
    mezzo = valore(piano, 0.0, H / 2)
    # Whole rectangle: force A s_G, moments A s_G y_G + c1 B H^3/12 and A s_G x_G + c2 H B^3/12.
    F = B * H * mezzo
    tetra = s1 * a * b / 6
    tesi = [(xb, yb, ar, valore(piano, xb, yb)) for xb, yb, ar in quattro if valore(piano, xb, yb) > 0]
    base = carico_di(tesi, [(F, 0.0, H / 2), (-tetra, B / 2 - a / 4, H - b / 4)])
    casi.append(caso("contatto a cinque lati con un bullone teso", rett, quattro,
                     (base[0] + c1 * B * H**3 / 12, base[1] + c2 * H * B**3 / 12, base[2]), piano,
                     [(-100, 0), (100, 0), (-100, 400), (60, 320), (-60, 80)]))
    return casi


# --------------------------------------------------------------------------- bolts

def nodo_di(c) -> Nodo:
    """Bare joint: two equal plates that lie one upon the other, from the fields of a case."""
    h = c["HPiastra"]
    n = Nodo(TraPri=Profilo("principale", h, 0, 0, 0, 0), TraSec=Profilo("secondaria", h / 2, 0, 0, 0, 0),
             acciaio=Acciaio("acciaio", 0, 0, 0, c["Ftk40"], 0, c["Ftk80"], 1.05, 1.25),
             vite=Vite(c["vite_Nome"], 0, 0, 0, c["FtVite"], 0, c["GammaMVite"]), gioco=c["TollForoBull"])
    for p in (1, 2):
        n.BPiastra[p], n.HPiastra[p], n.SpPiastra[p] = c["BPiastra"], h, c["SpPiastra"]
    n.nBull = len(c["bulloni"])
    for i, (x, y, d) in enumerate(c["bulloni"], 1):
        n.Xbull[i], n.Ybull[i], n.Fibull[i] = x, y, d
    return n


def piastre(e1, e2, p1, p2, righe=2):
    """Plate and bolts from edge distances and pitches; e1, p1 vertical, e2, p2 horizontal."""
    return (2 * e2 + p2, 2 * e1 + (righe - 1) * p1,
            [(x, e1 + r * p1) for r in range(righe) for x in (-p2 / 2, p2 / 2)])


def caso_bullone(nome, fonte, d, d0, t, e1, e2, p1, p2, classe, ftb, ftk, attesi, righe=2, note=""):
    B, H, posti = piastre(e1, e2, p1, p2, righe)
    c = {"nome": nome, "fonte": fonte, "bulloni": [[x, y, d] for x, y in posti], "BPiastra": B,
         "HPiastra": H, "SpPiastra": t, "TraPri_H": H, "distAliPriSec": 0.0, "distAlaSecPiastra": 0.0,
         "TollForoBull": d0 - d, "vite_Nome": classe, "FtVite": ftb, "GammaMVite": 1.25,
         "Ftk40": ftk, "Ftk80": ftk, "attesi": attesi}
    if note:
        c["nota"] = note
    r = resistenze(nodo_di(c))
    for a in attesi:
        for i in a["bulloni"]:
            if abs(r[a["grandezza"]][i - 1] - a["valore"]) > a["tolleranza_relativa"] * abs(a["valore"]):
                guai.append(f"{nome} {a['grandezza']} {i}: {r[a['grandezza']][i - 1]} contro {a['valore']}")
    return c


def atteso(grandezza, bulloni, kN, tolleranza, che="pubblicato"):
    return {"grandezza": grandezza, "bulloni": bulloni, "valore": kN * 100, "tolleranza_relativa": tolleranza,
            "che": che}


BLU = "https://www.scribd.com/document/406113368/TATA"
ARANCIO = "https://orangebook.arcelormittal.com/node/45"
MATHCAD = "https://ja.scribd.com/document/348716350/Mathcad-Design-Resistance-for-Individual-Fastners"
# d: (tensile area of the tables, Fv,Rd and Ft,Rd of class 8.8, then of class 4.6) [mm2, kN]
TABELLE = {12: (84.3, 27.5, 48.6, 16.2, 24.3), 16: (157.0, 60.3, 90.4, 30.1, 45.2),
           20: (245.0, 94.1, 141.0, 47.0, 70.6), 24: (353.0, 136.0, 203.0, 67.8, 102.0),
           30: (561.0, 215.0, 323.0, 108.0, 162.0)}
# d, d0, e1, e2, p1, p2, {thickness: published Fb,Rd in kN}; class 8.8 in S355 with fu = 470
RIFOLLAMENTO = [
    (16, 18.0, 50, 30, 65, 55, {5: 69.6, 7: 97.5, 9: 125, 12: 167, 20: 279, 30: 418}),
    (20, 22.0, 60, 35, 80, 70, {6: 103, 8: 137, 10: 171, 15: 256, 25: 427}),
    (24, 26.0, 75, 40, 95, 80, {5: 108, 7: 152, 9: 195, 12: 260, 20: 434, 30: 651}),
    (30, 33.0, 90, 50, 115, 100, {6: 154, 8: 205, 10: 256, 15: 385, 25: 641})]


def formula_area(d):
    """pi/4 (0.9 d ((d - 0.1)/d)^3.5)^2, through logarithms."""
    return math.pi / 4 * math.exp(2 * (math.log(0.9 * d) + 3.5 * (math.log(d - 0.1) - math.log(d))))


def casi_bulloni() -> dict:
    fuori = {"area_resistente": [], "resistenze": [], "torsione": []}
    for d, (As, *_) in TABELLE.items():
        A = formula_area(d)
        fuori["area_resistente"].append(
            {"d": d, "A": A, "tolleranza_relativa": 1e-12, "As_di_tabella": As,
             "tolleranza_su_tabella": abs(A / As - 1) + 5e-4, "fonte": f"formula; tabella: {ARANCIO}"})
        if abs(area_resistente(d) / A - 1) > 1e-12:
            guai.append(f"area M{d}")

    for d, (As, Fv88, Ft88, Fv46, Ft46) in TABELLE.items():
        scarto = abs(formula_area(d) / As - 1) + 5e-3      # of the area, and of three published digits
        for classe, ftb, Fv, Ft, fonte in (("8.8", 8000.0, Fv88, Ft88, BLU), ("4.6", 4000.0, Fv46, Ft46, ARANCIO)):
            note = ""
            if d == 12 and classe == "8.8":
                Fv, note = Fv / 0.85, "tabella con lo 0.85 di EN 1993-1-8 3.6.1(5), qui tolto"
            Av = formula_area(d)
            tutti = [1, 2, 3, 4]
            fuori["resistenze"].append(caso_bullone(
                f"M{d} {classe}: taglio e trazione", fonte, d, d + 2.0, 10.0, 3.0 * d, 2.0 * d, 4.0 * d, 4.0 * d,
                classe, ftb, 3600.0,
                [atteso("Fv_Rd", tutti, Fv, scarto), atteso("Ft_Rd", tutti, Ft, scarto),
                 atteso("Fv_Rd", tutti, 0.6 * ftb / 100 * Av / 1.25 / 100, 1e-9, "formula con l'area del programma"),
                 atteso("Ft_Rd", tutti, 0.9 * ftb / 100 * Av / 1.25 / 100, 1e-9, "formula con l'area del programma")],
                note=note))

    for d, d0, e1, e2, p1, p2, valori in RIFOLLAMENTO:
        k1, alfa = min(2.5, 2.8 * e2 / d0 - 1.7), min(e1 / (3 * d0), 800 / 470, 1.0)
        for t, FbRd in valori.items():
            esatto = k1 * alfa * 470 * d * t / 1.25 / 1000
            fuori["resistenze"].append(caso_bullone(
                f"M{d} 8.8 S355 t = {t}: rifollamento", BLU, d, d0, float(t), e1, e2, p1, p2, "8.8", 8000.0, 4700.0,
                [atteso("Fb_Rd", [1, 2, 3, 4], FbRd, 5e-3),
                 atteso("Fb_Rd", [1, 2, 3, 4], esatto, 1e-9, "formula, k = 2.5 e alfa = e1/(3 d0)")]))

    fuori["resistenze"].append(caso_bullone(
        "M20 4.6 S235 t = 8: punzonamento, rifollamento di bordo e interno", MATHCAD, 20, 22.0, 8.0, 26.4, 26.4,
        48.4, 52.8, "4.6", 4000.0, 3600.0,
        [atteso("Bp_Rd", [1, 2, 3, 4, 5, 6], 130.288, 1e-5),
         atteso("Fb_Rd", [1, 2, 5, 6], 30.597, 1e-4, "pubblicato, con fu al posto di fub"),
         atteso("Fb_Rd", [3, 4], 36.972, 5e-4, "pubblicato, con fu al posto di fub"),
         atteso("Fv_Rd", [1, 2, 3, 4, 5, 6], 47.04, formula_area(20) / 245 - 1 + 1e-3),
         atteso("Ft_Rd", [1, 2, 3, 4, 5, 6], 70.56, formula_area(20) / 245 - 1 + 1e-3)],
        righe=3, note="tre righe da due: bulloni 3 e 4 interni in verticale"))

    torsioni = (
        ("colonna di 4 bulloni", "https://github.com/wcfrobert/ezbolt, Example 1", 25.4, 100.0,
         [(0, 0), (0, 3), (0, 6), (0, 9)], 0, -40, -160, [18.868, 11.3333, 11.3333, 18.868], 18.87),
        ("2x2 bulloni", "https://github.com/wcfrobert/ezbolt, Example 3", 25.4, 100.0,
         [(0, 0), (8, 0), (0, 6), (8, 6)], -17.3, -30, -180, [9.7296, 17.6257, 1.1161, 14.7393], 17.63),
        ("4 bulloni 100 kN a 200 mm", "https://steelcalculator.app/eu-bolt-group-capacity/", 1.0, 100.0,
         [(0, 0), (100, 0), (0, 100), (100, 100)], 0, -100, -20000, [55.9017, 90.1388, 55.9017, 90.1388], 90.1))
    for nome, fonte, lung, forza, posti, Px, Py, M, R, massimo in torsioni:
        xG = sum(x for x, _ in posti) / len(posti)
        yG = sum(y for _, y in posti) / len(posti)
        yAsse = 300.0
        # Pattern centred on the beam's axis: then Mtot = 10 Mt. Ty is positive downwards.
        bulloni = [[(x - xG) * lung, (y - yG) * lung + yAsse, 20] for x, y in posti]
        c = {"nome": nome, "fonte": fonte, "bulloni": bulloni, "yAsse": yAsse, "TaglioY": -Py * forza,
             "TaglioZ": Px * forza, "MomTorc": M * forza * lung / 10,
             "Fv_Ed": [v * forza for v in R], "tolleranza_relativa": 1e-4,
             "massimo_pubblicato": massimo * forza, "tolleranza_massimo": 1e-3,
             "nota": f"coordinate per {lung:g}, forze per {forza:g}: la distribuzione e' lineare"}
        n = Nodo(TraPri=Profilo("", 2 * yAsse, 0, 0, 0, 0), TraSec=Profilo("", 0, 0, 0, 0, 0),
                 acciaio=None, vite=None, gioco=0.0)
        n.HPiastra[1], n.distAliPriSec, n.nBull = 0.0, 0.0, len(bulloni)
        for i, (x, y, d) in enumerate(bulloni, 1):
            n.Xbull[i], n.Ybull[i], n.Fibull[i] = x, y, d
        n.TaglioY[0], n.TaglioZ[0], n.MomTorc[0] = c["TaglioY"], c["TaglioZ"], c["MomTorc"]
        if abs(n.yAsse - yAsse) > 1e-12:
            guai.append(f"{nome}: asse")
        _, V = tagli(n, 0, *baricentro(n))
        avute = [math.hypot(*V[i]) for i in range(1, n.nBull + 1)]
        for a, b in zip(avute, c["Fv_Ed"]):
            if abs(a - b) > 1e-4 * b:
                guai.append(f"{nome}: {a} contro {b}")
        if abs(max(avute) / c["massimo_pubblicato"] - 1) > 1e-3:
            guai.append(f"{nome}: massimo")
        fuori["torsione"].append(c)
    return fuori


def main() -> int:
    a = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    a.add_argument("--uscita", default=str(QUI))
    uscita = Path(a.parse_args().uscita)
    contatto = {
        "titolo": "Contatto senza trazione: forme chiuse",
        "convenzioni": [
            "piano s = c1*y + c2*x + c3, trazione positiva, tutti i moduli 1",
            "bulloni: x, y, area; azioni: momento con y, momento con x, forza N",
            "i momenti sono riferiti all'origine (0, 0): fissare li' il punto di riferimento",
            "mm, daN, daN/mm2",
            "tolleranza: quanto la soglia di arresto 1 + 1e-4 del carico puo' muovere il valore",
            "esito 'fallisce': il solutore deve dare insuccesso"],
        "casi": casi_contatto()}
    bulloni = {
        "titolo": "Resistenze, rifollamento e gruppi di bulloni da fonti pubblicate",
        "convenzioni": [
            "mm, daN, daN/cm2; valori attesi in daN (kN x 100); bulloni: x, y, d",
            "le due piastre sono uguali e sovrapposte: BPiastra, HPiastra, SpPiastra valgono per entrambe",
            "TraPri_H = HPiastra e distanze nulle: la piastra 2 va da 0 a HPiastra",
            "tolleranza: meta' dell'ultima cifra pubblicata e, dove entra, lo scarto dell'area resistente "
            "dalla tabella",
            "torsione: Mtot = 10*MomTorc poiche' il baricentro sta in (0, yAsse)"],
        **casi_bulloni()}
    for nome, cosa in (("contatto_chiuso", contatto), ("riferimenti_bulloni", bulloni)):
        (uscita / f"{nome}.json").write_text(json.dumps(cosa, ensure_ascii=False, indent=1) + "\n",
                                             encoding="utf-8")
    quanti = len(contatto["casi"]), len(bulloni["resistenze"]), len(bulloni["torsione"])
    print("casi: contatto %d, resistenze %d, torsione %d" % quanti)
    for g in guai:
        print("NON TORNA", g)
    return 1 if guai else 0


if __name__ == "__main__":
    sys.exit(main())
