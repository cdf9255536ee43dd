#!/usr/bin/env python3
"""Random joints that are geometrically consistent, as input for the independent check.

    genera_nodi.py --albero DIR --uscita CARTELLA [--numero 100] [--seme 1]

Every run with the same seed writes the same files. Steels usable with both methods only.
"""

from __future__ import annotations

import argparse
import random
import sys
from pathlib import Path

from lettura import Librerie, incoerenze, leggi_nodo

STAMPO = ("ARGANOWIN [QuestoProgramma=TK07 - NODO TRAVE - TRAVE CON PIASTRE] [Descrizione=file_TK07] "
          "[ReleaseArgano=18] [ReleaseQuestoFile=1]")
PRINCIPALI = ("IPE330 IPE400 IPE500 IPE600 HEA280 HEA400 HEB300 HEB450 HEM240").split()
SECONDARIE = ("IPE140 IPE160 IPE200 IPE240 IPE270 IPE300 HEA120 HEA160 HEB140").split()
ACCIAI = ("S 235 (FE 360)", "S 275 (FE 430)", "S 355 (FE 510)")
CLASSI = ("4.6", "5.6", "6.8", "8.8", "10.9")


def testo(v) -> str:
    return str(int(v)) if float(v).is_integer() else repr(float(v))


def scrivi_nodo(percorso: Path, voci: list) -> None:
    """Keyed joint file from (key, value) pairs, the key with its index when it has one."""
    righe = [STAMPO]
    for chiave, v in voci:
        valore = v if isinstance(v, str) else testo(v)
        righe.append((valore.ljust(max(len(valore) + 1, 40)) + f"[{chiave}]").strip())
    percorso.write_bytes(("\n".join(righe) + "\n").encode("cp1252"))


def voci_nodo(n: dict) -> list:
    """Pairs of a joint given with the file's key names; tables are lists from their first element."""
    voci = [("DescrizioneTK07", "Verifica e disegno di collegamento trave-trave a taglio (TK01)"),
            ("dataSalvataggio", "2024_01_01_00_00")]
    voci += [(k, n[k]) for k in ("TraPri_Nome", "TraSec_Nome", "distAlaSecPiastra",
                                 "distPiastraTraPri", "distAliPriSec")]
    for p in (1, 2):
        voci += [(f"{k} {p}", n[k][p - 1]) for k in ("BPiastra", "HPiastra", "SpPiastra")]
    for p in (1, 2, 3):
        voci += [(f"{k} {p}", n[k][p - 1]) for k in ("AttNerv", "SpNerv", "H1Nerv", "H2Nerv",
                                                     "BNerv", "SmussoNerv")]
    voci += [("spSaldS1", n["spSaldS1"]), ("spSaldS2", n["spSaldS2"]), ("nBull", len(n["bulloni"]))]
    for i, b in enumerate(n["bulloni"], 1):
        voci += [(f"{k} {i}", v) for k, v in zip(("Xbull", "Ybull", "Fibull"), b)]
    voci += [("acciaio_Nome", n["acciaio_Nome"]), ("vite_Nome", n["vite_Nome"]),
             ("Esposizione", n["Esposizione"]), ("nSollAg", len(n["sestetti"]))]
    for s, q in enumerate(n["sestetti"]):
        voci += [(f"{k} {s}", v) for k, v in zip(("SforzoNormale", "TaglioY", "TaglioZ", "MomTorc",
                                                  "MomY", "MomZ", "CasoCarico", "NomeSa"), q)]
    return voci + [("numNodi", 0), ("TipoVer", n["TipoVer"])]


def a_caso(r: random.Random, profili: dict) -> dict:
    """One joint, not yet checked."""
    pri, sec = profili[r.choice(PRINCIPALI)], profili[r.choice(SECONDARIE)]
    a1, a2 = r.choice((4, 5, 6, 8)), r.choice((5, 6, 8, 10))
    sp = [r.choice((10, 12, 15, 18, 20, 25, 42)), r.choice((10, 12, 15, 18, 20, 25, 42))]
    h1 = int(pri.H - 2 * pri.tf)
    sopra, sotto = r.randrange(0, 130), r.randrange(0, 130)
    ali = round(r.uniform(0.1, 0.9) * (pri.H - sec.H), r.choice((0, 1)))
    B1, B2 = max(sec.B, r.randrange(120, 321, 10)), max(sec.B, r.randrange(120, 321, 10))
    asse_sup = (pri.H + h1) / 2 - ali
    cima, fondo = asse_sup + sopra, asse_sup - sec.H - sotto
    d = r.choice((12, 16, 20, 24))
    mezza = min(B1, B2) / 2
    passi_x = r.choice((1, 2, 2, 2, 3))
    estremo = r.uniform(0.45, 0.8) * mezza
    xs = {1: [0.0], 2: [-estremo, estremo], 3: [-estremo, 0.0, estremo]}[passi_x]
    ys = []
    basso, alto = max(0.0, fondo), min(h1, cima)
    y = basso + r.uniform(1.0, 2.5) * d
    while y < alto - 0.6 * d:
        ys.append(round(y, 1))
        y += r.uniform(2.4, 6.0) * d
    bulloni = []
    strano = r.random() < 0.3
    for y in ys:
        for x in xs:
            fi = r.choice((12, 16, 20, 24)) if strano else d
            scosto = r.uniform(-8, 8) if strano else 0.0
            if r.random() < 0.85:
                bulloni.append((round(x + scosto, 1), y, fi))
    nerv = []
    for spazio in (sopra, sotto):
        H1 = max(1, int(spazio * r.uniform(0.5, 1.0)))
        nerv.append((int(r.random() < 0.65), r.choice((5, 6, 8, 10)), H1,
                     r.choice((0, 2, int(H1 * 0.6), H1)), r.randrange(40, 180), 0))
    nerv.append((0, r.choice((6, 8, 10, 12)), 0, 0, 0, 0))
    quanto = r.choice((1.0, 1.0, 5.0, 20.0))
    sestetti = []
    for s in range(r.randrange(1, 5)):
        def forza(f):
            return 0 if r.random() < 0.15 else round(r.uniform(-f, f) * quanto, r.choice((0, 2)))
        N, Ty, Tz = forza(800), forza(1500), forza(300)
        Mt, My, Mz = forza(300), forza(1500), forza(12000)
        sestetti.append((N, Ty, Tz, Mt, My, Mz, r.randrange(2), f"Soll {s + 1}"))
    nodo = {"TraPri_Nome": pri.Nome, "TraSec_Nome": sec.Nome, "distAlaSecPiastra": sopra,
            "distPiastraTraPri": r.randrange(0, 11), "distAliPriSec": ali, "BPiastra": [B1, B2],
            "HPiastra": [h1, sopra + sec.H + sotto], "SpPiastra": sp,
            "spSaldS1": a1, "spSaldS2": a2, "bulloni": bulloni, "acciaio_Nome": r.choice(ACCIAI),
            "vite_Nome": r.choice(CLASSI), "Esposizione": r.randrange(3), "sestetti": sestetti,
            "TipoVer": r.randrange(2)}
    for n, chiave in enumerate(("AttNerv", "SpNerv", "H1Nerv", "H2Nerv", "BNerv", "SmussoNerv")):
        nodo[chiave] = [q[n] for q in nerv]
    return nodo


def togli_fuori_posto(nodo, percorso: Path, librerie) -> bool:
    """Takes away the bolts that do not fit; false when the rest of the joint is wrong."""
    for _ in range(len(nodo["bulloni"]) + 1):
        scrivi_nodo(percorso, voci_nodo(nodo))
        guai = incoerenze(leggi_nodo(percorso, librerie))
        if not guai:
            return len(nodo["bulloni"]) > 0
        cattivi = {int(g.split()[1]) for g in guai if g.startswith("bullone")}
        if not cattivi or any(not g.startswith("bullone") for g in guai):
            return False
        nodo["bulloni"] = [b for i, b in enumerate(nodo["bulloni"], 1) if i not in cattivi]
    return False


def main() -> int:
    a = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    a.add_argument("--albero", required=True)
    a.add_argument("--uscita", required=True)
    a.add_argument("--numero", type=int, default=100)
    a.add_argument("--seme", type=int, default=1)
    opz = a.parse_args()
    librerie, r = Librerie(opz.albero), random.Random(opz.seme)
    uscita = Path(opz.uscita)
    uscita.mkdir(parents=True, exist_ok=True)
    fatti = 0
    while fatti < opz.numero:
        percorso = uscita / f"caso_{opz.seme:03d}_{fatti + 1:04d}.tk7"
        if togli_fuori_posto(a_caso(r, librerie.profili), percorso, librerie):
            fatti += 1
    for resto in uscita.glob(f"caso_{opz.seme:03d}_{fatti + 1:04d}.tk7"):
        resto.unlink()
    print(f"{fatti} nodi in {uscita}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
