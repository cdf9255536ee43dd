#!/usr/bin/env python3
"""Writes the two hand sheets: joint file, expected values and the calculation step by step.

    scrivi_fogli.py --albero DIR [--uscita CARTELLA]

foglio_slu.* is a joint under limit states (NTC 2018), foglio_ta.* one under allowable stress
(CNR 10011). The tree gives sections, materials and the clearance of the holes; when one of these
changes the sheets are to be written again. controprova.py checks them by quadrature.
"""

from __future__ import annotations

import argparse
import json
import math
import re
import sys
from pathlib import Path

import fogli_dati
from genera_nodi import scrivi_nodo, voci_nodo
from lettura import Librerie, incoerenze, leggi_nodo
from verifica_nodo import area_resistente, calcola, limiti_slu, valore

QUI = Path(__file__).resolve().parent


def n6(v) -> str:
    """Six significant digits, for reading along; the JSON holds the full values."""
    return str(v) if isinstance(v, (str, int)) else "0" if v == 0 else f"{v:.6g}"


def tabella(capi, righe) -> list:
    fuori = ["| " + " | ".join(capi) + " |", "|" + "|".join("---" for _ in capi) + "|"]
    return fuori + ["| " + " | ".join(n6(v) for v in r) + " |" for r in righe] + [""]


def parentesi(riga: str) -> str:
    """Negative numbers after an operator in brackets, outside tables."""
    if riga.startswith("|"):
        return riga
    return re.sub(r"(?<=[-+·/] )-(\d[\d.]*(?:e[-+]?\d+)?)|(?<=[·/])-(\d[\d.]*(?:e[-+]?\d+)?)",
                  lambda m: f"(-{m.group(1) or m.group(2)})", riga)


class Foglio:
    def __init__(self, nodo, metodo, r):
        self.n, self.metodo, self.r, self.I = nodo, metodo, r, r["intermedi"]
        self.righe = []
        self.LS = {j: int(v) for j, v in enumerate(r["LungSald"], 1)}

    def scrivi(self, *righe):
        self.righe += righe

    def tab(self, capi, righe):
        self.righe += tabella(capi, righe)

    # ------------------------------------------------------------------ head and data

    def testata(self):
        slu = self.metodo == "SLU"
        norma = ("NTC 2018 4.2.8.1.1 e 4.2.8.2.4, EN 1993-1-8 prospetto 3.4" if slu
                 else "CNR 10011/88 (bulloni, rifollamento, saldature a cordone d'angolo)")
        self.scrivi(
            f"# Foglio di calcolo: nodo trave-trave, {'stati limite' if slu else 'tensioni ammissibili'}",
            "", f"Nodo: `foglio_{self.metodo.lower()}.tk7`; valori a piena precisione: "
            f"`foglio_{self.metodo.lower()}.json`.", "",
            f"- Fonti: {norma}; geometria delle masse e contatto senza trazione per la statica.",
            "- Arrotondamento: calcolo in virgola mobile a 64 bit, qui sei cifre significative. "
            "Lunghezze delle saldature troncate al millimetro inferiore"
            + ("; Co-1 e Co-2 arrotondati a due decimali, metà al pari." if slu
               else "; coefficiente dei bulloni arrotondato a due decimali, metà al pari."),
            "- Il piano di contatto è quello convergente (resto sotto 1e-11 del carico). Il programma si "
            "ferma quando ogni risultante dista dal carico meno di 1 + 1e-4 del carico: la colonna "
            "*scarto ammesso* dice di quanto la tensione può muoversi entro quella soglia.",
            "- Unità: mm, daN; momenti dei sestetti in daN cm; tensioni in daN/mm² nei passi e in daN/cm² "
            "nei riepiloghi.",
            "- Controprova con altra via (quadratura su griglia fitta, somma di areole): "
            "`controprova.py`.", "")

    def dati(self):
        n = self.n
        self.scrivi("## 1. Dati", "")
        self.tab(["profilo", "H", "B", "tw", "tf", "r"],
                 [(f"{chi}: {p.Nome}", p.H, p.B, p.tw, p.tf, p.r)
                  for chi, p in (("principale", n.TraPri), ("secondaria", n.TraSec))])
        self.tab(["piastra", "B", "H", "Sp"],
                 [(str(k), n.BPiastra[k], n.HPiastra[k], n.SpPiastra[k]) for k in (1, 2)])
        self.tab(["nervatura", "h1", "h2", "b", "sp", "smusso"],
                 [(str(k), n.H1Nerv[k], n.H2Nerv[k], n.BNerv[k], n.SpNerv[k],
                   n.SmussoNerv[k] if k == 3 else "-") for k in (1, 2, 3)])
        p = n.TraPri
        self.scrivi(
            f"Nervatura 3: b = ({p.B:g} - {p.tw:g})/2 + {n.distPiastraTraPri:g} - {n.SpPiastra[1]:g} = "
            f"{n.BNerv[3]:g}; h = {p.H:g} - 2·{p.tf:g} = {n6(n.H1Nerv[3])}; smusso = intero di "
            f"({p.r:g} + 0.99) = {n.SmussoNerv[3]:g}.", "",
            f"Distanze: ala secondaria - cima piastra 2 = {n.distAlaSecPiastra:g}; piastra - trave "
            f"principale = {n.distPiastraTraPri:g}; fra le ali superiori = {n.distAliPriSec:g}.", "",
            f"Saldature: S1 lato {n.spSaldS1:g}, S2 lato {n.spSaldS2:g}. Gioco foro-bullone: "
            f"{n.gioco:g} mm.", "")
        a, v = n.acciaio, n.vite
        if self.metodo == "SLU":
            self.scrivi(f"Acciaio {a.Nome}: fyk {a.Fyk40:g}, ftk {a.Ftk40:g} fino a 40 mm (oltre: "
                        f"{a.Fyk80:g}, {a.Ftk80:g}), γM {a.GammaM:g}. Viti {v.Nome}: ftb {v.FtVite:g}, "
                        f"γM {v.GammaMVite:g} [daN/cm²].", "")
        else:
            self.scrivi(f"Acciaio {a.Nome}: σamm {a.Samm:g} fino a 40 mm (oltre: {a.Samm80:g}). "
                        f"Viti {v.Nome}: σamm {v.SammVite:g}, τamm {v.TauAmmVite:g} [daN/cm²].", "")
        self.tab(["sestetto", "N", "Ty", "Tz", "Mt", "My", "Mz", "caso"],
                 [(f"{s + 1} {n.NomeSa[s]}", n.SforzoNormale[s], n.TaglioY[s], n.TaglioZ[s],
                   n.MomTorc[s], n.MomY[s], n.MomZ[s], "II" if n.CasoCarico[s] else "I")
                  for s in range(n.nSollAg)])
        self.scrivi("## 2. Quote e bulloni", "",
                    "x dall'asse, y dal lembo inferiore della piastra 1.", "",
                    f"- Faccia superiore della secondaria: ({p.H:g} + {n.HPiastra[1]:g})/2 - "
                    f"{n.distAliPriSec:g} = {n.asse_sup:g}; faccia inferiore: {n.asse_sup - n.TraSec.H:g}; "
                    f"asse yAsse = {n.yAsse:g}.",
                    f"- Piastra 2 da {n.fondo2:g} a {n.cima2:g}; piastra 1 da 0 a {n.HPiastra[1]:g}.",
                    "- Rettangolo di contatto: x da {0:g} a {1:g}, y da {2:g} a {3:g}.".format(*n.contatto),
                    f"- distAzioni = {p.B:g}/2 + {n.distPiastraTraPri:g} + {n.SpPiastra[2]:g} = "
                    f"{n.distAzioni:g}.", "",
                    "Area resistente A = π/4·(0.9·d·((d - 0.1)/d)^3.5)².", "")
        numeri = range(1, n.nBull + 1)
        self.tab(["bullone", "x", "y", "d", "A", "A·(r² da G)"],
                 [(i, n.Xbull[i], n.Ybull[i], n.Fibull[i], self.I["AreaResistente"][i - 1],
                   self.I["AreaResistente"][i - 1] * ((n.Xbull[i] - self.I["XG"]) ** 2
                                                      + (n.Ybull[i] - self.I["YG"]) ** 2))
                  for i in numeri])
        somma = sum(self.I["AreaResistente"])
        self.scrivi(f"ΣA = {n6(somma)}; XG = ΣA·x/ΣA = {n6(self.I['XG'])}; YG = ΣA·y/ΣA = "
                    f"{n6(self.I['YG'])}; Ip = ΣA·r² = {n6(self.I['Ip'])}.", "")

    # ------------------------------------------------------------------ bolts

    def resistenze(self):
        n, r, I = self.n, self.r, self.I
        v, a = n.vite, n.acciaio
        t = min(n.SpPiastra[1], n.SpPiastra[2])
        fattore = 0.5 if any(c in v.Nome for c in ("6.8", "10.9")) else 0.6
        dove = {"inizio": "primo", "fine": "ultimo", "interno": "interno"}
        self.scrivi(
            "## 3. Resistenze dei bulloni", "",
            f"Fv,Rd = {fattore:g}·{v.FtVite:g}·A/100/{v.GammaMVite:g}; Ft,Rd = 0.9·{v.FtVite:g}·A/100/"
            f"{v.GammaMVite:g}; Fb,Rd = k·α·{a.Ftk40:g}·d·{t:g}/100/{v.GammaMVite:g}; Bp,Rd = 0.6·π·"
            f"{a.Ftk40:g}·1.5·d·{t:g}/100/{v.GammaMVite:g}. t è lo spessore minore.", "",
            "k in orizzontale: bordo min(2.5, 2.8·e/d0 - 1.7), interno min(2.5, 1.4·p/d0 - 1.7). α in "
            f"verticale: bordo min(e/(3·d0), fub/fu, 1), interno min(p/(3·d0) - 0.25, fub/fu, 1), con "
            f"fub/fu = {v.FtVite:g}/{a.Ftk40:g} = {n6(v.FtVite / a.Ftk40)}; d0 = d + {n.gioco:g}. La fila "
            "di un bullone è quella dei bulloni entro ±30° dalla direzione.", "")
        self.tab(["bullone", "in riga", "k", "in colonna", "α", "Fv,Rd", "Fb,Rd", "Ft,Rd", "Bp,Rd"],
                 [(i + 1, dove[I["posto_x"][i]], I["k"][i], dove[I["posto_y"][i]], I["alfa"][i],
                   r["Fv_Rd"][i], r["Fb_Rd"][i], r["Ft_Rd"][i], r["Bp_Rd"][i]) for i in range(n.nBull)])

    def sestetto(self, s):
        n, q = self.n, self.r["sestetti"][s]
        J = q["intermedi"]
        self.scrivi(f"## {5 + s}. Sestetto {s + 1}: {n.NomeSa[s]}", "", "### Piano di contatto", "")
        Mz, Ty, Tz, My, d = n.MomZ[s], n.TaglioY[s], n.TaglioZ[s], n.MomY[s], n.distAzioni
        prova = (10 * Mz - d * Ty) * Mz
        self.scrivi(f"Prova del trasporto: (10·{Mz:g} - {d:g}·{Ty:g})·{Mz:g} = {n6(prova)} "
                    + ("≤ 0: i momenti di trasporto entrano." if J["trasporta"]
                       else "> 0: i momenti restano senza trasporto."), "")
        if J["trasporta"]:
            self.scrivi(f"M1 = -10·{Mz:g} + {d:g}·{Ty:g} = {n6(J['M1'])}; M2 = -10·{My:g} + {d:g}·{Tz:g} "
                        f"= {n6(J['M2'])}; N = {n.SforzoNormale[s]:g}.", "")
        else:
            self.scrivi(f"M1 = -10·{Mz:g} = {n6(J['M1'])}; M2 = -10·{My:g} = {n6(J['M2'])}; "
                        f"N = {n.SforzoNormale[s]:g}.", "")
        f = J["carico"]
        c1, c2, c3 = J["piano"]
        self.scrivi(
            f"Carico riferito a y = 0: f = ({n6(J['M1'])} + {n.yAsse:g}·{n.SforzoNormale[s]:g}, "
            f"{n6(J['M2'])}, {n.SforzoNormale[s]:g}) = ({n6(f[0])}, {n6(f[1])}, {n6(f[2])}).", "",
            f"Piano s = c1·y + c2·x + c3: c1 = {c1:.10g}, c2 = {c2:.10g}, c3 = {c3:.10g}.", "",
            "Zona compressa (vertici): " + "; ".join(f"({x:.4f}, {y:.4f})" for x, y in J["compresso"])
            + ".", "", "Equilibrio: matrice della zona compressa e dei bulloni tesi, per il piano, contro "
            "il carico.", "")
        nomi = ("momento con y", "momento con x", "forza")
        self.tab(["", "· c1", "· c2", "· c3", "risultante", "carico", "resto"],
                 [(nome, *riga, sum(x * y for x, y in zip(riga, J["piano"])), fk, rk)
                  for nome, riga, fk, rk in zip(nomi, J["matrice"], f, J["resto"])])
        self._bulloni(s, q, J)
        self._piastra(s, q, J)
        self._saldature(s, q, J)

    def _bulloni(self, s, q, J):
        n, slu = self.n, self.metodo == "SLU"
        m, numeri = q["margini"], range(1, n.nBull + 1)
        Mt, Ty, Tz = n.MomTorc[s], n.TaglioY[s], n.TaglioZ[s]
        XG, YG, Ip = self.I["XG"], self.I["YG"], self.I["Ip"]
        self.scrivi(
            "### Bulloni", "",
            f"Mtot = 10·{Mt:g} + ({n6(YG)} - {n.yAsse:g})·{Tz:g} + {n6(XG)}·{Ty:g} = {n6(J['Mtot'])}; "
            f"Mtot/Ip = {n6(J['Mtot'] / Ip)}; quote dirette Tz/n = {n6(Tz / n.nBull)}, Ty/n = "
            f"{n6(Ty / n.nBull)}. Vz = Tz/n - Mtot/Ip·(y - YG)·A, Vy = Ty/n - Mtot/Ip·(x - XG)·A.", "")
        sigma = [v / 100 for v in q["Sigma"]]
        if slu:
            self.tab(["bullone", "σ daN/mm²", "scarto ammesso", "Ft,Ed", "Vz", "Vy", "Fv,Ed", "Co-1",
                      "Co-1 arr.", "Co-2", "Co-2 arr."],
                     [(i, sigma[i - 1], m["Sigma"][i - 1] / 100, q["Ft_Ed"][i - 1], *J["V"][i - 1],
                       q["Fv_Ed"][i - 1], J["Co_grezzi"][i - 1][0], q["Co1"][i - 1],
                       J["Co_grezzi"][i - 1][1], q["Co2"][i - 1]) for i in numeri])
            self.scrivi("Ft,Ed = A·σ. Co-1 = Fv/min(Fv,Rd, Fb,Rd) + Ft/1.4/min(Ft,Rd, Bp,Rd) con "
                        "trazione, Fv/min(Fv,Rd, Fb,Rd) senza; Co-2 = |Ft|/min(Ft,Rd, Bp,Rd).", "")
        else:
            L = J["limiti"]
            v = n.vite
            self.tab(["bullone", "σ daN/mm²", "scarto ammesso", "Vz", "Vy", "τ daN/mm²",
                      "σ rif. 1", "σ rif. 2", "coefficiente"],
                     [(i, sigma[i - 1], m["Sigma"][i - 1] / 100, *J["V"][i - 1], q["Tau"][i - 1] / 100,
                       q["SigRifPias"][i - 1][0] / 100, q["SigRifPias"][i - 1][1] / 100,
                       J["Coeff"][i - 1]) for i in numeri])
            self.scrivi(
                f"τ = √(Vz² + Vy²)/A; σ rif. = √(Vz² + Vy²)/d/Sp. Coefficiente = (σ/{v.SammVite:g}/"
                f"{L['k']:g})² + (τ/{v.TauAmmVite:g}/{L['k']:g})², tensioni in daN/cm². Caso di carico "
                f"{'II' if n.CasoCarico[s] else 'I'}: k = {L['k']:g}. Coefficiente di rifollamento "
                f"{n6(L['CoeffBulloni'])} (distanza minima dai bordi, anche laterali, diviso il foro "
                f"minimo, al più 2.5); limiti di rifollamento {n6(L['SammPiastra1'] * L['k'] * L['CoeffBulloni'])}"
                f" e {n6(L['SammPiastra2'] * L['k'] * L['CoeffBulloni'])} daN/cm².", "")
        vertici = [(x, y) for y in n.contatto[2:] for x in n.contatto[:2]]
        self.scrivi("Compressione della piastra 1, minimo del piano sui quattro vertici del contatto ("
                    + "; ".join(f"({x:g}, {y:g}): {n6(valore(J['piano'], x, y))}" for x, y in vertici)
                    + f"): Sig = {n6(q['Sig'])} daN/cm², scarto ammesso {n6(m['Sig'])}.", "")

    def _piastra(self, s, q, J):
        n = self.n
        self.scrivi("### Piastra 2", "")
        for k, nome in ((1, "sopra"), (2, "sotto")):
            st = J["strisce"].get(nome)
            if not st:
                self.scrivi(f"Sbalzo di {nome}: nullo.", "")
                continue
            y0 = st["y1"] if k == 1 else st["y2"]
            z, t, B = st["sezione"], n.SpPiastra[2], n.TraSec.B
            quali = ", ".join(map(str, st["bulloni"])) or "nessuno"
            self.scrivi(
                f"Sbalzo di {nome}: y da {st['y1']:g} a {st['y2']:g}, incastro a {y0:g}. Bulloni contati "
                f"(σ arrotondata diversa da 0): {quali}; M bulloni = -ΣA·σ·braccio = {n6(st['M_bulloni'])}. "
                f"Contatto della striscia: ∫s·y = {n6(st['R1'])}, ∫s = {n6(st['R3'])}. "
                + (f"M = {n6(st['M_bulloni'])} - {n6(st['R1'])} + {n6(st['R3'])}·{y0:g}" if k == 1
                   else f"M = {n6(st['M_bulloni'])} + {n6(st['R1'])} - {n6(st['R3'])}·{y0:g}")
                + f" = {n6(st['M'])}.", "")
            if z["T"]:
                b, a = n.BNerv[k], n.SpNerv[k]
                self.scrivi(
                    f"T con la nervatura {k}: yG = ({B:g}·{t:g}²/2 + {b:g}·{a:g}·({b:g}/2 + {t:g}))/"
                    f"({B:g}·{t:g} + {b:g}·{a:g}) = {n6(z['yG'])}; I = {B:g}·{t:g}³/12 + {B:g}·{t:g}·(yG - "
                    f"{t:g}/2)² + {b:g}·{a:g}·(yG - {t:g} - {b:g}/2)² = {n6(z['I'])}; σ = |M/I|·max(|{b:g} + "
                    f"{t:g} - yG|, |yG - {t:g}|) = {n6(st['sigma'])} daN/mm².", "")
            else:
                self.scrivi(f"Piastra sola: W = {B:g}·{t:g}²/6 = {n6(z['W'])}; σ = {n6(st['sigma'])} "
                            "daN/mm².", "")
        self.scrivi(f"SigPiastra2 = {n6(q['SigPiastra2'])} daN/cm², scarto ammesso "
                    f"{n6(q['margini']['SigPiastra2'])}.", "")

    # ------------------------------------------------------------------ welds

    def lunghezze_saldature(self):
        n, LS = self.n, self.LS
        S, p, a1, a2 = n.TraSec, n.TraPri, n.spSaldS1, n.spSaldS2
        m1 = max(S.r, a1)
        sotto = n.HPiastra[2] - n.distAlaSecPiastra - S.H
        righe = [("s1", f"{S.H:g} - 2·{S.tf:g} - 2·{m1:g}", S.H - 2 * S.tf - 2 * m1, LS[1]),
                 ("s2, s3", f"{S.B:g}/2 - {S.tw:g}/2 - {m1:g}", S.B / 2 - S.tw / 2 - m1, LS[2]),
                 ("s4", f"{p.H:g} - 2·{p.tf:g} - 2·{a2:g}", p.H - 2 * p.tf - 2 * a2, LS[4]),
                 ("s5, s7", f"{n.BNerv[3]:g} - {n.SmussoNerv[3]:g} - {a2:g}",
                  n.BNerv[3] - n.SmussoNerv[3] - a2, LS[5]),
                 ("s6", f"{p.H:g} - 2·{p.tf:g} - 2·{n.SmussoNerv[3]:g}",
                  p.H - 2 * p.tf - 2 * n.SmussoNerv[3], LS[6]),
                 ("s8, s9", f"{n.BPiastra[1]:g}/2 - {n.SpNerv[3]:g}/2 - {a2:g}",
                  n.BPiastra[1] / 2 - n.SpNerv[3] / 2 - a2, LS[8])]
        for k, ala, base, lato, spazio in ((1, 10, 12, 13, n.distAlaSecPiastra), (2, 11, 14, 15, sotto)):
            H1, H2, b, sp = n.H1Nerv[k], n.H2Nerv[k], n.BNerv[k], n.SpNerv[k]
            righe.append((f"s{ala}", f"({S.B:g} - {sp:g})/2 - {a1:g} (sporgenza {spazio:g} ≥ {a1:g})",
                          (S.B - sp) / 2 - a1, LS[ala]))
            if H2 < a1 and H1 != H2:
                righe.append((f"s{base}", f"abs(({a1:g} - {H2:g})/({H1:g} - {H2:g})·{b:g} - {b:g} + {a1:g})",
                              abs((a1 - H2) / (H1 - H2) * b - b + a1), LS[base]))
            else:
                righe.append((f"s{base}", f"{b:g} - {a1:g}", b - a1, LS[base]))
            righe.append((f"s{lato}", f"abs({H1:g} - {a1:g} - ({H1:g} - {H2:g})·{a1:g}/{b:g})",
                          abs(H1 - a1 - (H1 - H2) * a1 / b), LS[lato]))
        self.scrivi("## 4. Saldature: lunghezze e geometria", "")
        self.tab(["linea", "espressione", "valore", "lunghezza"], righe)

    def gruppi(self):
        n, LS, S1, S2 = self.n, self.LS, self.I["S1"], self.I["S2"]
        S, p, b1, b2 = n.TraSec, n.TraPri, S1["b"], S2["b"]
        a1, a2 = n.spSaldS1, n.spSaldS2
        self.scrivi(f"Gola b = a/√2: S1 {n6(b1)}, S2 {n6(b2)}.", "",
                    "### Gruppo S1 (y dalla faccia inferiore della secondaria)", "",
                    "Ogni riga è una coppia di rettangoli simmetrici; 2·A·y² più le inerzie proprie.", "")
        def riga(nome, L, x, y, verticale, b):
            w, h = (b, L) if verticale else (L, b)
            A = 2 * L * b
            return (nome, L, x, y, A, A * y, A * y * y + 2 * w * h**3 / 12, A * x * x + 2 * h * w**3 / 12)
        capi = ["coppia", "L", "x", "y", "A", "A·y", "Ix (da y = 0)", "Iy"]
        y13 = S.H + a1 + LS[13] / 2
        righe = [riga("s1", LS[1], S.tw / 2 + b1 / 2, S.H / 2, True, b1),
                 riga("s2", LS[2], S.B / 2 - LS[2] / 2, S.H - S.tf - b1 / 2, False, b1),
                 riga("s3", LS[2], S.B / 2 - LS[2] / 2, S.tf + b1 / 2, False, b1),
                 riga("s10", LS[10], S.B / 2 - LS[10] / 2, S.H + b1 / 2, False, b1),
                 riga("s11", LS[11], S.B / 2 - LS[11] / 2, -b1 / 2, False, b1),
                 riga("s13", LS[13], n.SpNerv[1] / 2 + b1 / 2, y13, True, b1),
                 riga("s15", LS[15], n.SpNerv[2] / 2 + b1 / 2, -(LS[15] / 2 + a1), True, b1)]
        somme = [sum(r[k] for r in righe) for k in (4, 5, 6, 7)]
        self.tab(capi, righe + [("somma", "", "", "", *somme)])
        lin = 2 * (LS[1] + LS[2] + LS[3] + LS[10] + LS[11] + LS[13] + LS[15])
        self.scrivi(f"yG = {n6(somme[1])}/{n6(somme[0])} = {n6(S1['yG'])}; Ix = {n6(somme[2])} - yG²·A = "
                    f"{n6(S1['Ix'])}; Iy = {n6(S1['Iy'])}; J = {lin}·b³/3 = {n6(S1['J'])}; Av = "
                    f"2·({LS[1]} + {LS[13]} + {LS[15]})·b = {n6(S1['Av'])}; Ah = 2·({LS[2]} + {LS[3]} + "
                    f"{LS[10]} + {LS[11]})·b = {n6(S1['Ah'])}.", "",
                    "### Gruppo S2 (y dalla mezzeria della principale)", "")
        y8 = p.H / 2 - p.tf - b2 / 2
        righe = [riga("s4", LS[4], n.SpNerv[3] / 2 + b2 / 2, 0.0, True, b2),
                 riga("s8", LS[8], n.BPiastra[1] / 2 - LS[8] / 2, y8, False, b2),
                 riga("s9", LS[9], n.BPiastra[1] / 2 - LS[9] / 2, -y8, False, b2)]
        somme = [sum(r[k] for r in righe) for k in (4, 5, 6, 7)]
        self.tab(capi, righe + [("somma", "", "", "", *somme)])
        self.scrivi(f"yG = -({p.H:g}/2 - {n.distAliPriSec:g} - {S.H:g}/2) = {n6(S2['yG'])} (livello "
                    f"dell'asse della secondaria); J2 = 2·({LS[4]} + {LS[8]} + {LS[9]})·b³/3 = "
                    f"{n6(S2['J2'])}; Av2 = 2·{LS[4]}·b = {n6(S2['Av2'])}; Ah2 = 2·({LS[8]} + {LS[9]})·b = "
                    f"{n6(S2['Ah2'])}.", "", "### Nervatura 3 (x dall'anima lungo la nervatura)", "")
        righe = [riga("s6", LS[6], n.BNerv[3], 0.0, True, b2),
                 riga("s5", LS[5], LS[5] / 2 + a2, -y8, False, b2),
                 riga("s7", LS[7], LS[7] / 2 + a2, y8, False, b2)]
        somme = [sum(r[k] for r in righe) for k in (4, 5, 6, 7)]
        self.tab(capi, righe + [("somma", "", "", "", *somme)])
        Sx = sum(r[4] * r[2] for r in righe)
        self.scrivi(f"xG3 = {n6(Sx)}/{n6(somme[0])} = {n6(S2['xG3'])}; Ix3 = {n6(S2['Ix3'])}; Iy3 = "
                    f"{n6(somme[3])} - xG3²·A3 = {n6(S2['Iy3'])}.", "")
        self.scrivi(
            "### Formule dei passaggi alle nervature", "",
            "Base della nervatura 1 (O = s12, fianco V = s13) e 2 (O = s14, V = s15); L, b e a della S1, "
            "σ1 e σ2 le tensioni ai capi del fianco, l'apice per lo specchio, sp lo spessore:", "",
            "- R = (σ1 + σ2 + σ1' + σ2')/2·LV·b; T = -2·(Ty/Av)·LV·b; P = -(τ⊥ + τ⊥')·LV·b;",
            "- q = |τ∥ - Ty/Av|·segno(Mt); Q = q·b²·LV/3; D = ((σ1' + σ2')/2 - (σ1 + σ2)/2)·LV·b·(sp/2 + b/2);",
            "- E = (σ1 - σ2 + σ1' - σ2')·LV·b/2·LV·(1/2 - 2/3);",
            "- nervatura 1: M1 = (LO/2 + a)·T + E - (LV/2 + a)·R, F = T, M2 = (LV/2 + a)·P - Q; "
            "nervatura 2: M1 = -((LO/2 + a)·T + E + (LV/2 + a)·R), F = -T, M2 = (LV/2 + a)·P + Q;",
            "- W = LO²·b/3; σ⊥ al capo 1 = F/(2·LO·b) - M1/W, al capo 2 = F/(2·LO·b) + M1/W, più "
            "(s12, s14) o meno (specchi) M2/(b + sp)/(b·LO);",
            "- M3 = (LO/2 + a)·P - D; u = |M3/(2·LO·b³/3)|·b; τ∥ = R/(2·LO·b) ± u col segno del primo "
            "(u da solo se il primo è nullo); τ⊥ = -P/(2·LO·b).", "",
            "Nervatura 3 (fianchi s4 e s4'; L, b e a della S2):", "",
            "- R3 = ((σ1 + σ2)/2 + (σ1' + σ2')/2)·L4·b; T3 = 2·(Ty/Av2)·L4·b; Q3 = |τ∥ - Ty/Av2|·segno(Mt)"
            "·b²·L4/3;",
            "- D3 = |((σ1 + σ2)/2 - (σ1' + σ2')/2)·(sp/2 + b/2)·L4·b|·segno(My); E3 = (σ2 - σ1 + σ2' - σ1')"
            "·L4/2·(L4/2 - 2·L4/3)·b;",
            "- s6: σ⊥ = R3/A3 ∓ E3/Ix3·L6/2 ai capi 2 e 1, τ⊥ = -D3/Iy3·(b nerv. - xG3), τ∥ = T3/(2·b·L6);",
            "- s5 e s7: τ∥ = R3/A3 - E3/Ix3·y con y = ∓(H/2 - tf - b/2); τ⊥ = ±Q3/(2·(H - 2·tf - b/2)·b·L5) "
            "- D3/Iy3·(x - xG3), il più grande in assoluto fra x = a e x = a + L.", "")

    def _saldature(self, s, q, J):
        n, S1, S2 = self.n, self.I["S1"], self.I["S2"]
        A, B, Hs = J["S1"], J["S2"], n.TraSec.H
        d = n.distAzioni if J["trasporta"] else 0.0
        N, Ty, Tz, Mt = n.SforzoNormale[s], n.TaglioY[s], n.TaglioZ[s], n.MomTorc[s]
        self.scrivi(
            "### Saldature S1", "",
            f"F1 = 10·{n.MomZ[s]:g} - {d:g}·{Ty:g} + ({n6(S1['yG'])} - {Hs:g}/2)·{N:g} = {n6(A['F1'])}; "
            f"F2 = 10·{n.MomY[s]:g} - {d:g}·{Tz:g} = {n6(A['F2'])}; F3 = {N:g}. σ⊥ = F3/A - F1/Ix·(y - yG) "
            f"- F2/Iy·x.", "",
            f"Torsione: M = 10·{Mt:g} + ({n6(S1['yG'])} - {Hs:g}/2)·{Tz:g} = {n6(A['M'])}; |M/J|·b = "
            f"{n6(A['giro'])}. Verticali: ± quel valore, col segno di Ty, più Ty/Av = "
            f"{n6(Ty / S1['Av'])}; orizzontali: col segno di Tz, più Tz/Ah = {n6(Tz / S1['Ah'])}.", "")
        self._capi(q, A["estremi"])
        for k, V, O in ((1, 13, 12), (2, 15, 14)):
            z = J.get(f"nervatura{k}")
            if z:
                self.scrivi(
                    f"Base della nervatura {k} (s{O}, da s{V}): R = {n6(z['R'])}, T = {n6(z['T'])}, P = "
                    f"{n6(z['P'])}, q = {n6(z['q'])}, Q = {n6(z['Q'])}, D = {n6(z['D'])}, E = {n6(z['E'])}; "
                    f"M1 = {n6(z['M1'])}, F = {n6(z['F'])}, W = {n6(z['W'])}, M2 = {n6(z['M2'])}, M3 = "
                    f"{n6(z['M3'])}; u = {n6(z['u'])}, R/(2·L·b) = {n6(z['lungo'])}.", "")
        db = B["braccio"] if J["trasporta"] else 0.0
        self.scrivi(
            "### Saldature S2", "",
            f"Braccio = {n.TraPri.B:g}/2 + {n.distPiastraTraPri:g} - {n.SpPiastra[1]:g} = "
            f"{n6(B['braccio'])}. F1 = {n.MomZ[s]:g} - {n6(db)}·{Ty:g} + {N:g}·({n6(S2['yG'])}) = "
            f"{n6(B['F1'])}; F2 = {n.MomY[s]:g} - {n6(db)}·{Tz:g} = {n6(B['F2'])}; F3 = {N:g} (momenti senza "
            "il fattore 10). σ⊥ = F3/A - F1/Ix·y - F2/Iy·x.", "",
            f"Torsione: M = 10·{Mt:g} + {Tz:g}·({n6(S2['yG'])}) = {n6(B['M'])}; |M/J2|·b = {n6(B['giro'])}; "
            f"Ty/Av2 = {n6(Ty / S2['Av2'])}; Tz/Ah2 = {n6(Tz / S2['Ah2'])}.", "")
        self._capi(q, B["estremi"])
        z = J["nervatura3"]
        self.scrivi(
            f"Nervatura 3: R3 = {n6(z['R3'])}, T3 = {n6(z['T3'])}, Q3 = {n6(z['Q3'])}, D3 = {n6(z['D3'])}, "
            f"E3 = {n6(z['E3'])}; τ⊥ di s5 dalla torsione = {n6(z['t5'])}, di s7 l'opposto.", "")
        linee = [(m, f"s{m + 1}" if m < 15 else f"s{m - 14}'") for m in (11, 26, 13, 28, 4, 5, 6)]
        self.tab(["linea", "σ⊥ 1 daN/mm²", "σ⊥ 2 daN/mm²", "τ∥ daN/mm²", "τ⊥ daN/mm²"],
                 [(nome, *(v[m] / 100 for v in (*q["S_prp"], q["Tau_pa"], q["Tau_pe"])))
                  for m, nome in linee])
        self._riepilogo(s, q, J)

    def _capi(self, q, estremi):
        nome = lambda m: f"s{m + 1}" if m < 15 else f"s{m - 14}'"
        self.tab(["linea", "x1", "y1", "x2", "y2", "σ⊥ 1 daN/mm²", "σ⊥ 2 daN/mm²"],
                 [(nome(m), *p1, *p2, q["S_prp"][0][m] / 100, q["S_prp"][1][m] / 100)
                  for m, p1, p2 in estremi])

    def _riepilogo(self, s, q, J):
        slu = self.metodo == "SLU"
        self.scrivi("### Riepilogo delle saldature (daN/cm²)", "")
        righe = []
        for j in range(1, 16):
            for m, apice in ((j - 1, ""), (j + 14, "'")):
                P = max(abs(q["S_prp"][0][m]), abs(q["S_prp"][1][m]))
                pa, pe = q["Tau_pa"][m], q["Tau_pe"][m]
                if slu:
                    L = limiti_slu(self.n)
                    e1, e2 = q["SEq1"][m], q["SEq2"][m]
                    ok = e1 <= L["SLim1"] and e2 <= L["SLim2"]
                else:
                    L = J["limiti"]
                    e1, e2 = math.sqrt(P * P + pa * pa + pe * pe), P + abs(pe)
                    b1, b2 = L["b1"] * L["a"], L["b2"] * L["a"]
                    ok = e1 <= b1 and e2 <= b2 and P <= b1 and pa <= b1 and pe <= b1
                righe.append((f"s{j}{apice}", P, pa, pe, e1, e2, "SI'" if ok else "NO"))
        self.tab(["linea", "σ⊥ max", "τ∥", "τ⊥", "√(σ⊥²+τ∥²+τ⊥²)", "abs(σ⊥)+abs(τ⊥)", "verifica"], righe)
        n, a = self.n, self.n.acciaio
        if slu:
            L = self.I["limiti"]
            self.scrivi(f"Limiti: {L['Beta1']:g}·{a.Fyk40:g} = {n6(L['SLim1'])}; {L['Beta2']:g}·{a.Fyk40:g} = "
                        f"{n6(L['SLim2'])}. Piastre: fd = {n6(L['FdPiastra1'])} e {n6(L['FdPiastra2'])} contro "
                        f"|Sig| = {n6(abs(q['Sig']))} e {n6(q['SigPiastra2'])}.", "")
        else:
            L = J["limiti"]
            self.scrivi(f"Limiti: {n6(L['b1'] * L['a'])} (radice, σ⊥ e tagli), {n6(L['b2'] * L['a'])} "
                        f"(somma). Piastre: {n6(L['SammPiastra1'] * L['k'])} e "
                        f"{n6(L['SammPiastra2'] * L['k'])} contro |Sig| = {n6(abs(q['Sig']))} e "
                        f"{n6(q['SigPiastra2'])}.", "")
        self.scrivi(f"**Esito del sestetto {s + 1}: "
                    + ("verificato" if q["verificato"] else "NON verificato") + ".**", "")

    def completo(self) -> str:
        self.testata()
        self.dati()
        if self.metodo == "SLU":
            self.resistenze()
        else:
            self.scrivi("## 3. Resistenze", "", "Nessuna resistenza per bullone: i limiti stanno nei "
                        "sestetti.", "")
        self.lunghezze_saldature()
        self.gruppi()
        for s in range(self.n.nSollAg):
            self.sestetto(s)
        return "\n".join(map(parentesi, self.righe)).rstrip() + "\n"


def main() -> int:
    a = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    a.add_argument("--albero", required=True)
    a.add_argument("--uscita", default=str(QUI))
    opz = a.parse_args()
    librerie, uscita = Librerie(opz.albero), Path(opz.uscita)
    for metodo, dati in (("SLU", fogli_dati.SLU), ("TA", fogli_dati.TA)):
        base = uscita / f"foglio_{metodo.lower()}"
        percorso = base.with_suffix(".tk7")
        scrivi_nodo(percorso, voci_nodo(dati))
        nodo = leggi_nodo(percorso, librerie)
        guai = incoerenze(nodo)
        if guai:
            print(percorso.name, guai, file=sys.stderr)
            return 1
        r = {"file": percorso.name, **calcola(nodo, metodo)}
        esiti = [q["verificato"] for q in r["sestetti"]]
        incerte = [q["margini"]["SigPiastra2_incerta"] for q in r["sestetti"]]
        if None in esiti or any(incerte):
            print(percorso.name, "valori troppo vicini a una soglia", file=sys.stderr)
            return 1
        base.with_suffix(".json").write_text(json.dumps(r, ensure_ascii=False, indent=1) + "\n",
                                             encoding="utf-8")
        base.with_suffix(".md").write_text(Foglio(nodo, metodo, r).completo(), encoding="utf-8")
        print(percorso.name, "verificato" if r["verificato"] else "non verificato", esiti)
    return 0


if __name__ == "__main__":
    sys.exit(main())
