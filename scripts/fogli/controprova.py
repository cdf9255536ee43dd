#!/usr/bin/env python3
"""Counter-check of the hand sheets by a separate path, with no routine shared with the calculation.

    controprova.py [CARTELLA]

From foglio_slu.json and foglio_ta.json:
  - the plane of contact is integrated over a fine grid of small squares and must balance the loads;
  - the section properties of the weld groups are summed over small squares, laid out here anew;
  - the normal stresses of S1 and S2 are integrated over the welds and must give back N and the moments;
  - the shears of the bolts must add up to Ty, Tz and the torsion;
  - the overhangs of plate 2 are integrated on the grid.
Tolerances follow from the size of the squares and stand by each test. Exit code 1 on any failure.
"""

from __future__ import annotations

import json
import math
import sys
from pathlib import Path

import fogli_dati

# Sections of the two sheets: H, B, tw, tf (EN 10365).
SEZIONI = {"IPE500": (500, 200, 10.2, 16), "IPE270": (270, 135, 6.6, 10.2),
           "HEA450": (440, 300, 11.5, 21), "IPE240": (240, 120, 6.2, 9.8)}
PASSO = 0.4          # side of the squares of the contact grid [mm]
FETTE = 200          # small squares along and across a weld
guai = []


def prova(nome, avuto, atteso, tolleranza):
    ok = abs(avuto - atteso) <= tolleranza
    print(f"{'ok' if ok else 'NO':<3}{nome:<58}{avuto:>18.9g}{atteso:>18.9g}{tolleranza:>12.2g}")
    if not ok:
        guai.append(nome)


def griglia(piano, x0, x1, y0, y1):
    """Integrals of s y, s x, s over the part of a rectangle where s < 0, midpoint rule."""
    c1, c2, c3 = piano
    nx, ny = round((x1 - x0) / PASSO), round((y1 - y0) / PASSO)
    hx, hy = (x1 - x0) / nx, (y1 - y0) / ny
    Iy = Ix = I = 0.0
    for r in range(ny):
        y = y0 + (r + 0.5) * hy
        base = c1 * y + c3
        if min(base + c2 * x0, base + c2 * x1) >= 0:
            continue
        somma = momento = 0.0
        for c in range(nx):
            x = x0 + (c + 0.5) * hx
            s = base + c2 * x
            if s < 0:
                somma += s
                momento += s * x
        Iy += somma * y
        Ix += momento
        I += somma
    return Iy * hx * hy, Ix * hx * hy, I * hx * hy


def quadretti(x, y, w, h):
    """Centres of FETTE strips along the longer side of a weld, 20 across, with the area of one."""
    lungo = w > h
    nx, ny = (FETTE, 20) if lungo else (20, FETTE)
    for r in range(ny):
        for c in range(nx):
            yield (x - w / 2 + (c + 0.5) * w / nx, y - h / 2 + (r + 0.5) * h / ny, w * h / nx / ny)


def geometria(d):
    """Welds of the sheet's joint as (group, line, x, y, width, height), and the level data."""
    Hp, Bp, _, tfp = SEZIONI[d["TraPri_Nome"]]
    Hs, Bs, tws, tfs = SEZIONI[d["TraSec_Nome"]]
    return Hp, Bp, tfp, Hs, Bs, tws, tfs


def saldature(d, L):
    Hp, Bp, tfp, Hs, Bs, tws, tfs = geometria(d)
    b1, b2 = d["spSaldS1"] / math.sqrt(2), d["spSaldS2"] / math.sqrt(2)
    a1, sp = d["spSaldS1"], d["SpNerv"]
    s1, s2 = [], []
    for lato in (1, -1):
        s1.append(("s1", lato * (tws + b1) / 2, Hs / 2, b1, L[0]))
        s1.append(("s2", lato * (Bs - L[1]) / 2, Hs - tfs - b1 / 2, L[1], b1))
        s1.append(("s3", lato * (Bs - L[2]) / 2, tfs + b1 / 2, L[2], b1))
        s1.append(("s10", lato * (Bs - L[9]) / 2, Hs + b1 / 2, L[9], b1))
        s1.append(("s11", lato * (Bs - L[10]) / 2, -b1 / 2, L[10], b1))
        s1.append(("s13", lato * (sp[0] + b1) / 2, Hs + a1 + L[12] / 2, b1, L[12]))
        s1.append(("s15", lato * (sp[1] + b1) / 2, -a1 - L[14] / 2, b1, L[14]))
        s2.append(("s4", lato * (sp[2] + b2) / 2, 0.0, b2, L[3]))
        for nome, su in (("s8", 1), ("s9", -1)):
            s2.append((nome, lato * (d["BPiastra"][0] - L[7]) / 2, su * (Hp / 2 - tfp - b2 / 2), L[7], b2))
    return s1, s2, b1, b2


def somme(gruppo):
    A = Ax = Ay = Axx = Ayy = 0.0
    for _, x, y, w, h in gruppo:
        for px, py, a in quadretti(x, y, w, h):
            A += a
            Ax += a * px
            Ay += a * py
            Axx += a * px * px
            Ayy += a * py * py
    return A, Ax, Ay, Axx, Ayy


def piano_da(linee):
    """Plane through the stresses of three ends (x, y, s)."""
    (xa, ya, sa), (xb, yb, sb), (xc, yc, sc) = linee
    det = (xb - xa) * (yc - ya) - (xc - xa) * (yb - ya)
    px = ((sb - sa) * (yc - ya) - (sc - sa) * (yb - ya)) / det
    py = ((xb - xa) * (sc - sa) - (xc - xa) * (sb - sa)) / det
    return py, px, sa - py * ya - px * xa


def controlla(nome, d, r):
    print(f"\n{nome}: {'avuto con la controprova':>62}{'foglio':>18}{'tolleranza':>12}")
    Hp, Bp, tfp, Hs, Bs, tws, tfs = geometria(d)
    I = r["intermedi"]
    L = r["LungSald"]
    asse_sup = (Hp + d["HPiastra"][0]) / 2 - d["distAliPriSec"]
    cima = asse_sup + d["distAlaSecPiastra"]
    y0, y1 = max(0.0, cima - d["HPiastra"][1]), min(d["HPiastra"][0], cima)
    mezza = min(d["BPiastra"]) / 2
    yAsse = asse_sup - Hs / 2
    dA = Bp / 2 + d["distPiastraTraPri"] + d["SpPiastra"][1]
    area = {di: math.pi / 4 * (0.9 * di * ((di - 0.1) / di) ** 3.5) ** 2 for di in (16, 20)}

    s1, s2, b1, b2 = saldature(d, L)
    A, Ax, Ay, Axx, Ayy = somme(s1)
    yG = Ay / A
    G1, G2 = I["S1"], I["S2"]
    # The squares miss the own inertia of a square: 1/(20^2) of that across, 1/200^2 of that along.
    for nome_v, v, atteso, tol in (("S1 A", A, G1["A"], 1e-9), ("S1 yG", yG, G1["yG"], 1e-9),
                                   ("S1 Ix", Ayy - yG * yG * A, G1["Ix"], 1e-4),
                                   ("S1 Iy", Axx, G1["Iy"], 1e-4)):
        prova(nome_v, v, atteso, tol * abs(atteso))
    A2, _, _, Axx2, Ayy2 = somme(s2)
    for nome_v, v, atteso, tol in (("S2 A", A2, G2["A"], 1e-9), ("S2 Ix", Ayy2, G2["Ix"], 1e-4),
                                   ("S2 Iy", Axx2, G2["Iy"], 1e-4)):
        prova(nome_v, v, atteso, tol * abs(atteso))
    prova("S1 J (somma di L b^3/3)", sum(max(w, h) * min(w, h) ** 3 for *_, w, h in s1) / 3, G1["J"],
          1e-9 * G1["J"])
    B3 = (Bp - {"IPE500": 10.2, "HEA450": 11.5}[d["TraPri_Nome"]]) / 2 + d["distPiastraTraPri"] - d["SpPiastra"][0]
    n3 = []
    for _ in (1, -1):
        n3.append(("s6", B3, 0.0, b2, L[5]))
        n3.append(("s5", d["spSaldS2"] + L[4] / 2, -(Hp / 2 - tfp - b2 / 2), L[4], b2))
        n3.append(("s7", d["spSaldS2"] + L[6] / 2, Hp / 2 - tfp - b2 / 2, L[6], b2))
    A3, Ax3, _, Axx3, Ayy3 = somme(n3)
    for nome_v, v, atteso, tol in (("nerv. 3 A", A3, G2["A3"], 1e-9), ("nerv. 3 xG", Ax3 / A3, G2["xG3"], 1e-9),
                                   ("nerv. 3 Ix", Ayy3, G2["Ix3"], 1e-4),
                                   ("nerv. 3 Iy", Axx3 - Ax3 * Ax3 / A3, G2["Iy3"], 1e-4)):
        prova(nome_v, v, atteso, tol * abs(atteso))

    for s, q in enumerate(r["sestetti"]):
        N, Ty, Tz, Mt, My, Mz, _, chi = d["sestetti"][s]
        J = q["intermedi"]
        tag = f"[{s + 1}]"
        con = (10 * Mz - dA * Ty) * Mz <= 0
        M1, M2 = (-10 * Mz + dA * Ty, -10 * My + dA * Tz) if con else (-10 * Mz, -10 * My)
        f = (M1 + yAsse * N, M2, N)
        R = list(griglia(J["piano"], -mezza, mezza, y0, y1))
        c1, c2, c3 = J["piano"]
        modulo = [abs(v) for v in R]
        for x, y, di in d["bulloni"]:
            v = c1 * y + c2 * x + c3
            if v > 0:
                for k, leva in enumerate((y, x, 1.0)):
                    R[k] += area[di] * v * leva
                    modulo[k] += abs(area[di] * v * leva)
        for k, cosa in enumerate(("equilibrio M su y", "equilibrio M su x", "equilibrio N")):
            prova(f"{tag} {cosa}", R[k], f[k], 2e-5 * modulo[k] + 1e-3)
        prova(f"{tag} sigma del bullone 1", (c1 * d["bulloni"][0][1] + c2 * d["bulloni"][0][0] + c3) * 100,
              q["Sigma"][0], 1e-6)

        # Shears: sums and torsion about the bolts' centroid.
        SA = sum(area[b[2]] for b in d["bulloni"])
        XG = sum(area[b[2]] * b[0] for b in d["bulloni"]) / SA
        YG = sum(area[b[2]] * b[1] for b in d["bulloni"]) / SA
        V = J["V"]
        prova(f"{tag} somma Vz", sum(v[0] for v in V), Tz, 1e-6)
        prova(f"{tag} somma Vy", sum(v[1] for v in V), Ty, 1e-6)
        n = len(V)
        giro = sum(-(y - YG) * (v[0] - Tz / n) - (x - XG) * (v[1] - Ty / n)
                   for v, (x, y, _) in zip(V, d["bulloni"]))
        prova(f"{tag} torsione dei bulloni", giro, 10 * Mt + (YG - yAsse) * Tz + XG * Ty, 1e-6 * abs(giro) + 1e-6)
        if q["Fv_Ed"]:
            prova(f"{tag} Fv,Ed del bullone 1", q["Fv_Ed"][0], math.hypot(*V[0]), 1e-8 * math.hypot(*V[0]))
        else:
            A1 = area[d["bulloni"][0][2]]
            prova(f"{tag} tau del bullone 1", q["Tau"][0] * A1 / 100, math.hypot(*V[0]), 1e-8 * math.hypot(*V[0]))

        # Overhangs: moment about the flange of bolts and contact, on the grid.
        peggio = 0.0
        for k, (ya, yb, leva) in enumerate(((asse_sup, y1, asse_sup), (y0, asse_sup - Hs, asse_sup - Hs))):
            verso = 1.0 if k == 0 else -1.0
            Iy, _, I0 = griglia(J["piano"], -d["BPiastra"][1] / 2, d["BPiastra"][1] / 2, ya, yb)
            M = -verso * (Iy - leva * I0)
            for x, y, di in d["bulloni"]:
                v = c1 * y + c2 * x + c3
                if verso * (y - leva) > 0 and abs(v) > 0.5:
                    M -= area[di] * v * verso * (y - leva)
            t, B, b, a = d["SpPiastra"][1], Bs, d["BNerv"][k], d["SpNerv"][k]
            y_g = (B * t * t / 2 + b * a * (b / 2 + t)) / (B * t + b * a)
            inerzia = B * t**3 / 12 + B * t * (y_g - t / 2) ** 2 + b * a * (y_g - t - b / 2) ** 2
            peggio = max(peggio, abs(M) / inerzia * max(b + t - y_g, abs(y_g - t)))
        prova(f"{tag} SigPiastra2", peggio * 100, q["SigPiastra2"], 2e-4 * q["SigPiastra2"])

        # Normal stress of the welds: the planes through three ends give back N and the moments.
        P1, P2 = q["S_prp"]
        y10, y11 = Hs + b1, -b1
        capi1 = [(Bs / 2, y10, P2[9]), (-Bs / 2, y10, P1[24]), (Bs / 2, y11, P2[10])]
        m1 = 10 * Mz - (dA * Ty if con else 0) + (yG - Hs / 2) * N
        m2 = 10 * My - (dA * Tz if con else 0)
        braccio = Bp / 2 + d["distPiastraTraPri"] - d["SpPiastra"][0]
        y8 = Hp / 2 - tfp
        X = d["BPiastra"][0] / 2
        capi2 = [(X, y8, P2[7]), (-X, y8, P1[22]), (X, -y8, P2[8])]
        livello = -(Hp / 2 - d["distAliPriSec"] - Hs / 2)
        n1 = Mz - (braccio * Ty if con else 0) + N * livello
        n2 = My - (braccio * Tz if con else 0)
        for nome_g, gruppo, capi, y_g, F1, F2 in (("S1", s1, capi1, yG, m1, m2), ("S2", s2, capi2, 0.0, n1, n2)):
            cy, cx, c0 = piano_da(capi)
            F = My_ = Mx_ = 0.0
            for _, x, y, w, h in gruppo:
                for px, py, a in quadretti(x, y, w, h):
                    v = (cy * py + cx * px + c0) / 100
                    F += v * a
                    My_ -= v * a * (py - y_g)
                    Mx_ -= v * a * px
            prova(f"{tag} {nome_g} forza dalle tensioni", F, N, 1e-6 * abs(N) + 1e-6 * abs(F1) / 100)
            prova(f"{tag} {nome_g} momento con y", My_, F1, 2e-4 * abs(F1))
            prova(f"{tag} {nome_g} momento con x", Mx_, F2, 2e-4 * abs(F2))


def main() -> int:
    cartella = Path(sys.argv[1]) if len(sys.argv) > 1 else (
        Path(__file__).resolve().parents[2] / "tests" / "validazione")
    for nome, d in (("foglio_slu", fogli_dati.SLU), ("foglio_ta", fogli_dati.TA)):
        r = json.loads((cartella / f"{nome}.json").read_text(encoding="utf-8"))
        controlla(nome, d, r)
    print(f"\n{len(guai)} controprove non tornano" if guai else "\ntutte le controprove tornano")
    return 1 if guai else 0


if __name__ == "__main__":
    sys.exit(main())
