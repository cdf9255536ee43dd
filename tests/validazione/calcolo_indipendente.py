#!/usr/bin/env python3
"""Independent check of the joint verification.

    calcolo_indipendente.py --albero DIR FILE.tk7 ...                 prints the results, JSON a line
    calcolo_indipendente.py --albero DIR --json RISULTATI             compares results already printed
    calcolo_indipendente.py --tk07 PROGRAMMA --diroot DIR FILE.tk7 ...  runs the program and compares

DIR is a directory tree (DIR/custom/prof_pro, MaterialiNTC08.tx1, OpzioniNodi.txt). With --json the
joints named in the results are read from where the results say, or from --cartella. Exit code 0 when
everything agrees, 1 when something does not, 2 for a usage or reading error.

How close is close enough
  - Lengths, areas, resistances, shears, welds: 1e-9 of the value plus 1e-11 of the largest of its
    table, since no iteration stands between data and result.
  - What depends on the plane of contact (Sigma, Sig, Ft_Ed, Co1, Co2, SigPiastra2): the program stops
    when each of the three resultants is within 1 + 1e-4 of the load; here the plane is converged to
    1e-14. The difference allowed is what a misfit of that size moves: sum over the components of
    |inverse matrix . gradient| times (1 + 1e-4 |load|). In addition the plane is rebuilt from Sigma and
    its resultants must meet the same three tolerances.
  - The same again, sharply: undamped steps with the stopping rule end on one definite plane, and the
    program's plane must lie within 1e-6 of it.
Values within their spread of a switch (a Sigma that rounds to 0 or 1 daN/mm2, the second decimal of a
ratio, a verdict at its limit, a length that is whole, a neutral axis so steep that edge integrals lose
digits) are left out and counted; more than 2 % left out is a failure.
"""

from __future__ import annotations

import argparse
import json
import math
import subprocess
import sys
from pathlib import Path

from contatto import NonEquilibrato, risolvi
from lettura import DatiErrati, Librerie, leggi_nodo
from saldature import NonCalcolabile, lunghezze
from verifica_nodo import Interrotta, calcola, contatto_di

REL, REL_TABELLA, REL_ARRESTO = 1e-9, 1e-11, 1e-6
RIPIDA, VERTICALE = 1e4, 1e6        # slopes between which integrals along an edge lose digits
LIMITE_SALTATI = 0.02


class Confronto:
    """Comparisons made, grouped by quantity, and what went wrong."""

    def __init__(self):
        self.voci = {}              # quantity -> [made, left out, worst relative deviation]
        self.guai = []

    def _voce(self, nome):
        return self.voci.setdefault(nome, [0, 0, 0.0])

    def salta(self, nome, quante=1):
        self._voce(nome)[1] += quante

    def valore(self, nome, dove, avuto, atteso, spazio, scala=0.0):
        voce = self._voce(nome)
        voce[0] += 1
        if not isinstance(avuto, (int, float)) or isinstance(avuto, bool) or not math.isfinite(avuto):
            self.guai.append((dove, nome, avuto, atteso, spazio))
            return
        scarto = abs(avuto - atteso)
        if scarto > 0:
            voce[2] = max(voce[2], scarto / max(abs(atteso), 1e-6 * scala, 1e-300))
        if scarto > spazio:
            self.guai.append((dove, nome, avuto, atteso, spazio))

    def uguale(self, nome, dove, avuto, atteso):
        self._voce(nome)[0] += 1
        if avuto != atteso:
            self.guai.append((dove, nome, avuto, atteso, 0.0))

    def tabella(self, nome, dove, avuti, attesi, quali=None, spazi=None):
        """Two lists; spazi gives the spread of each value, else the sharp rule holds."""
        if not isinstance(avuti, list) or len(avuti) != len(attesi):
            quanti = len(avuti) if isinstance(avuti, list) else avuti
            self.guai.append((dove, nome + " (elementi)", quanti, len(attesi), 0))
            return
        scala = max((abs(v) for v in attesi), default=0.0)
        for n, (avuto, atteso) in enumerate(zip(avuti, attesi)):
            if quali is None or n in quali:
                spazio = REL * abs(atteso) + REL_TABELLA * scala + 1e-12
                if spazi is not None:
                    spazio += spazi[n]
                self.valore(nome, f"{dove} [{n}]", avuto, atteso, spazio, scala)

    def esito(self) -> int:
        print(f"{'grandezza':<28}{'confronti':>10}{'saltati':>9}{'scarto relativo massimo':>26}")
        for nome, (fatti, saltati, scarto) in self.voci.items():
            print(f"{nome:<28}{fatti:>10}{saltati:>9}{scarto:>26.3e}")
        fatti = sum(v[0] for v in self.voci.values())
        saltati = sum(v[1] for v in self.voci.values())
        quota = saltati / max(1, fatti + saltati)
        print(f"totale: {fatti} confronti, {saltati} saltati ({quota:.2%})")
        if self.guai:
            print(f"\n{len(self.guai)} valori oltre la tolleranza (i primi 60):")
            print(f"{'dove':<52}{'grandezza':<20}{'avuto':>24}{'atteso':>24}{'tolleranza':>12}")
            for dove, nome, avuto, atteso, spazio in self.guai[:60]:
                print(f"{dove:<52}{nome:<20}{_testo(avuto):>24}{_testo(atteso):>24}{spazio:>12.3g}")
            return 1
        if fatti == 0:
            print("nessun confronto fatto")
            return 1
        if quota > LIMITE_SALTATI:
            print(f"saltati oltre il {LIMITE_SALTATI:.0%}")
            return 1
        return 0


def _testo(v) -> str:
    return f"{v:.15g}" if isinstance(v, float) else str(v)


def confronta(c: Confronto, nodo, avuto: dict, nome: str) -> None:
    metodo = avuto.get("metodo")
    dove = f"{nome} {metodo}"
    if metodo not in ("SLU", "TA"):
        c.guai.append((dove, "metodo", metodo, "SLU o TA", 0.0))
        return
    acc = nodo.acciaio
    if min((acc.Samm, acc.Samm80) if metodo == "TA" else (acc.Fyk40, acc.Fyk80)) <= 0:
        print(f"{dove}: acciaio '{acc.Nome}' non ammesso dal metodo, nodo non confrontato")
        return
    avvisi = []
    lungh = lunghezze(nodo, avvisi)
    avute = avuto.get("LungSald") or []
    if len(avute) == 15 and not avuto.get("interrotta"):
        for j in range(1, 16):
            # A whole length may fall just short of itself in floating point: both are right.
            if j in avvisi and avute[j - 1] == lungh[j] - 1:
                c.salta("LungSald")
                lungh[j] -= 1
    try:
        atteso = calcola(nodo, metodo, lungh)
    except Interrotta as motivo:
        c.uguale("interrotta", f"{dove} ({motivo})", avuto.get("interrotta"), True)
        return
    except NonCalcolabile as motivo:
        print(f"{dove}: {motivo}, nodo non confrontato")
        return
    c.uguale("interrotta", dove, avuto.get("interrotta"), False)
    if avuto.get("interrotta") is not False:
        return
    for tabella in ("LungSald", "Fv_Rd", "Fb_Rd", "Ft_Rd", "Bp_Rd"):
        c.tabella(tabella, dove, avuto.get(tabella), atteso[tabella])
    _verdetto(c, dove, avuto.get("verificato"), atteso["verificato"])
    sestetti = avuto.get("sestetti")
    if not isinstance(sestetti, list) or len(sestetti) != nodo.nSollAg:
        c.guai.append((dove, "sestetti", sestetti and len(sestetti), nodo.nSollAg, 0.0))
        return
    visibili = {m for j in range(1, 16) if lungh[j] > 1e-4 for m in (j - 1, j + 14)}
    for s, (a, e) in enumerate(zip(sestetti, atteso["sestetti"])):
        _sestetto(c, f"{dove} sest. {s + 1}", nodo, metodo, a, e, visibili)


def _verdetto(c, dove, avuto, atteso):
    if atteso is None:
        c.salta("verificato")
    else:
        c.uguale("verificato", dove, avuto, atteso)


def _sestetto(c, dove, nodo, metodo, a, e, visibili):
    m, fermo = e["margini"], e["intermedi"]["arresto"]
    # Base welds of a rib whose shear lies at the value below which it counts as none.
    basi = {"nervatura1": (11, 26), "nervatura2": (13, 28)}
    fuori = {n for k, v in basi.items() if e["intermedi"].get(k, {}).get("incerta") for n in v}
    c.uguale("NomeSa", dove, a.get("NomeSa"), e["NomeSa"])
    _verdetto(c, dove, a.get("verificato"), e["verificato"])

    # Plane of contact.
    c.tabella("Sigma", dove, a.get("Sigma"), e["Sigma"], spazi=m["Sigma"])
    c.tabella("Sig", dove, [a.get("Sig")], [e["Sig"]], spazi=[m["Sig"]])
    _residuo(c, dove, nodo, a, e)
    if metodo == "SLU":
        c.tabella("Ft_Ed", dove, a.get("Ft_Ed"), e["Ft_Ed"], spazi=m["Ft_Ed"])
    dubbio = fermo["incerto"] or RIPIDA < fermo["pendenza"] < VERTICALE
    if dubbio:
        c.salta("Sigma all'arresto", nodo.nBull + 1)
    else:
        scala = max([abs(v) for v in fermo["Sigma"]] + [abs(fermo["Sig"]), 1e-3])
        for n, (avuto, atteso) in enumerate(zip(a.get("Sigma") or [], fermo["Sigma"])):
            c.valore("Sigma all'arresto", f"{dove} [{n}]", avuto, atteso, REL_ARRESTO * scala, scala)
        c.valore("Sig all'arresto", dove, a.get("Sig"), fermo["Sig"], REL_ARRESTO * scala, scala)
    if m["SigPiastra2_incerta"]:
        c.salta("SigPiastra2")
    else:
        c.tabella("SigPiastra2", dove, [a.get("SigPiastra2")], [e["SigPiastra2"]],
                  spazi=[m["SigPiastra2"]])
        if not dubbio:
            # Bolts and contact may nearly cancel: the spread is that of one of them.
            parti = [abs(v["M_bulloni"]) * v["sezione"]["per_M"] * 100
                     for v in e["intermedi"]["strisce"].values()]
            scala = max(parti + [fermo["SigPiastra2"]])
            c.valore("SigPiastra2 all'arresto", dove, a.get("SigPiastra2"), fermo["SigPiastra2"],
                     REL_ARRESTO * scala + 1e-9, scala)

    # Bolts.
    if metodo == "SLU":
        c.tabella("Fv_Ed", dove, a.get("Fv_Ed"), e["Fv_Ed"])
        for nome in ("Co1", "Co2"):
            avuti = a.get(nome)
            if not isinstance(avuti, list) or len(avuti) != nodo.nBull:
                c.guai.append((dove, nome, avuti, nodo.nBull, 0.0))
                continue
            for n, (basso, alto) in enumerate(m[nome]):
                if basso == alto:
                    c.valore(nome, f"{dove} [{n}]", avuti[n], e[nome][n], 1e-12)
                else:
                    c.salta(nome)
                    if not basso - 1e-12 <= avuti[n] <= alto + 1e-12:
                        c.guai.append((f"{dove} [{n}]", nome, avuti[n], e[nome][n], alto - basso))
        c.tabella("SEq1", dove, a.get("SEq1"), e["SEq1"], visibili - fuori)
        c.tabella("SEq2", dove, a.get("SEq2"), e["SEq2"], visibili)
        altri = ("Tau", "SigRifPias")
    else:
        c.tabella("Tau", dove, a.get("Tau"), e["Tau"])
        avuti = a.get("SigRifPias") or []
        for k in (0, 1):
            c.tabella(f"SigRifPias{k + 1}", dove, [r[k] for r in avuti],
                      [r[k] for r in e["SigRifPias"]])
        altri = ("Fv_Ed", "Ft_Ed", "Co1", "Co2", "SEq1", "SEq2")
    for nome in altri:
        c.uguale("tabelle dell'altro metodo", f"{dove} {nome}", a.get(nome), [])

    # Welds: lines without length are nowhere shown.
    capi = a.get("S_prp")
    if not isinstance(capi, list) or len(capi) != 2:
        c.guai.append((dove, "S_prp", capi, "due estremi", 0.0))
        return
    for k in (0, 1):
        c.tabella(f"S_prp estremo {k + 1}", dove, capi[k], e["S_prp"][k], visibili)
    if fuori:
        c.salta("Tau_pa", len(fuori))
    c.tabella("Tau_pa", dove, a.get("Tau_pa"), e["Tau_pa"], visibili - fuori)
    c.tabella("Tau_pe", dove, a.get("Tau_pe"), e["Tau_pe"], visibili)


def _residuo(c, dove, nodo, a, e):
    """Plane rebuilt from the program's Sigma by least squares, and whether it balances the load."""
    sigma = a.get("Sigma")
    if not isinstance(sigma, list) or len(sigma) != nodo.nBull:
        return
    righe = [(nodo.Ybull[i], nodo.Xbull[i], 1.0) for i in range(1, nodo.nBull + 1)]
    normale = [[sum(r[p] * r[q] for r in righe) for q in range(3)] for p in range(3)]
    try:
        piano = risolvi(normale, [sum(r[p] * v / 100 for r, v in zip(righe, sigma)) for p in range(3)])
        # A second turn on the remainders takes away the round-off of the normal equations.
        resto = [v / 100 - sum(x * y for x, y in zip(r, piano)) for r, v in zip(righe, sigma)]
        piano = [x + y for x, y in zip(piano, risolvi(
            normale, [sum(r[p] * v for r, v in zip(righe, resto)) for p in range(3)]))]
    except NonEquilibrato:
        return                      # bolts on one line do not fix the plane
    scala = max(abs(v) for v in sigma) + 1e-9
    for n, (r, v) in enumerate(zip(righe, sigma)):
        giusto = 100 * sum(x * y for x, y in zip(r, piano))
        c.valore("Sigma su un piano", f"{dove} [{n}]", v, giusto, 1e-8 * scala, scala)
    R = contatto_di(nodo).risultanti(piano)
    f = e["intermedi"]["carico"]
    for nome, r, g, t in zip(("M su y", "M su x", "N"), R, f, e["margini"]["tol"]):
        c.valore(f"equilibrio {nome}", dove, r, g, t * (1 + 1e-6), 1e6)


def _oggetti(testo: str) -> list:
    """JSON objects of a text: one whole, a list, or one a line."""
    try:
        tutto = json.loads(testo)
        return tutto if isinstance(tutto, list) else [tutto]
    except json.JSONDecodeError:
        return [json.loads(r) for r in testo.splitlines() if r.strip()]


def _percorso(nome: str, cartella, accanto: Path) -> Path:
    solo = Path(nome.replace("\\", "/"))
    for base in ([Path(cartella)] if cartella else []) + [Path("."), accanto]:
        for prova in (base / solo, base / solo.name):
            if prova.is_file():
                return prova
    raise DatiErrati(f"{nome}: nodo non trovato")


def main() -> int:
    a = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    a.add_argument("--albero", help="albero di cartelle con le librerie")
    a.add_argument("--json", help="risultati da confrontare")
    a.add_argument("--cartella", help="dove stanno i nodi nominati nei risultati")
    a.add_argument("--tk07", help="programma da eseguire e confrontare")
    a.add_argument("--diroot", help="albero passato al programma")
    a.add_argument("--metodo", choices=("slu", "ta"), help="un solo metodo (di solito entrambi)")
    a.add_argument("file", nargs="*", help="nodi")
    opz = a.parse_args()
    metodi = [opz.metodo] if opz.metodo else ["slu", "ta"]
    try:
        librerie = Librerie(opz.albero or opz.diroot or a.error("serve --albero o --diroot"))
        c = Confronto()
        if opz.json:
            percorso = Path(opz.json)
            for oggetto in _oggetti(percorso.read_text(encoding="utf-8")):
                nodo = leggi_nodo(_percorso(oggetto["file"], opz.cartella, percorso.parent), librerie)
                confronta(c, nodo, oggetto, Path(oggetto["file"]).name)
            return c.esito()
        if opz.tk07:
            for nome in opz.file:
                nodo = leggi_nodo(nome, librerie)
                for metodo in metodi:
                    comando = [opz.tk07, "--diroot", opz.diroot or opz.albero, "verifica", "--json",
                               "--metodo", metodo, nome]
                    fine = subprocess.run(comando, capture_output=True, encoding="utf-8", timeout=120)
                    oggetti = _oggetti(fine.stdout) if fine.stdout.strip() else []
                    if len(oggetti) != 1 or fine.returncode not in (0, 1, 3):
                        c.guai.append((f"{nome} {metodo}", "esecuzione", fine.returncode,
                                       fine.stderr.strip()[:60], 0.0))
                        continue
                    confronta(c, nodo, oggetti[0], Path(nome).name)
                    oggetto = oggetti[0]
                    if not oggetto.get("interrotta"):
                        giudicato = oggetto.get("verificato") is not None and not oggetto.get("incompleta")
                        codice = 3 if not giudicato else 0 if oggetto["verificato"] else 1
                        c.uguale("codice d'uscita", f"{nome} {metodo}", fine.returncode, codice)
            return c.esito()
        for nome in opz.file:
            nodo = leggi_nodo(nome, librerie)
            for metodo in metodi:
                try:
                    esito = calcola(nodo, metodo.upper())
                except (Interrotta, NonCalcolabile) as motivo:
                    esito = {"metodo": metodo.upper(), "interrotta": True, "motivo": str(motivo)}
                print(json.dumps({"file": nome, **esito}, ensure_ascii=False))
        return 0
    except (DatiErrati, OSError, ValueError) as errore:
        print(errore, file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main())
