"""Reading of the files a verification starts from: joint, sections, materials, options.

Written apart from the program, as the first link of the independent check. Lengths in mm, forces in
daN, moments in daN cm, strengths in daN/cm2, as the files hold them.
"""

from __future__ import annotations

import math
import re
from dataclasses import make_dataclass
from pathlib import Path

FAMIGLIE = ("IPE IPEA IPER IPEO IPEV HEA HEAA HEB HEM HEC DIL HER HLAA HLA HLB HLM HLR "
            "HXAA HXA HXB HXM HXR HD HP M W").split()

_NUMERO = re.compile(r"[ \t]*([+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)")


class DatiErrati(Exception):
    """A file that cannot be read, or lacks what the calculation needs."""


def _scheda(nome: str, campi: str):
    """Record whose first field is the name, the others numbers in the order of the file."""
    return make_dataclass(nome, [("Nome", str)] + [(c, float) for c in campi.split()])


Profilo = _scheda("Profilo", "H B tw tf r")
Acciaio = _scheda("Acciaio", "Samm Samm80 Fyk40 Ftk40 Fyk80 Ftk80 GammaM GammaMT")
Vite = _scheda("Vite", "SammVite TauAmmVite FyVite FtVite ViteQuinto GammaMVite")

_REALI = ("distAlaSecPiastra distPiastraTraPri distAliPriSec spSaldS1 spSaldS2").split()
_TABELLE = ("BPiastra HPiastra SpPiastra SpNerv H1Nerv H2Nerv BNerv SmussoNerv Xbull Ybull Fibull "
            "SforzoNormale TaglioY TaglioZ MomTorc MomY MomZ").split()
_ALTRE_TABELLE = "AttNerv CasoCarico NomeSa".split()


class Nodo:
    """One joint, with the names of its file. Tables are dicts that keep the numbering of the file:
    plates 1..2, ribs 1..3, bolts 1..nBull, load sets 0..nSollAg-1. gioco is the clearance of a hole
    over its bolt [mm]."""

    def __init__(self, TraPri: Profilo, TraSec: Profilo, acciaio: Acciaio, vite: Vite, gioco: float):
        self.TraPri, self.TraSec = TraPri, TraSec
        self.acciaio, self.vite, self.gioco = acciaio, vite, gioco
        self.nBull = self.nSollAg = self.TipoVer = 0
        for nome in _REALI:
            setattr(self, nome, 0.0)
        for nome in _TABELLE + _ALTRE_TABELLE:
            setattr(self, nome, {})

    # Levels in plate coordinates: x = 0 on the axis, y = 0 at the lower edge of plate 1, which is
    # centred on the primary beam.
    @property
    def asse_sup(self) -> float:
        """Upper face of the secondary beam [mm]."""
        return (self.TraPri.H + self.HPiastra[1]) / 2 - self.distAliPriSec

    @property
    def cima2(self) -> float:
        """Upper edge of plate 2 [mm]."""
        return self.asse_sup + self.distAlaSecPiastra

    @property
    def fondo2(self) -> float:
        """Lower edge of plate 2 [mm]."""
        return self.cima2 - self.HPiastra[2]

    @property
    def yAsse(self) -> float:
        """Axis of the secondary beam [mm]."""
        return self.asse_sup - self.TraSec.H / 2

    @property
    def distAzioni(self) -> float:
        """From the primary beam's axis to the face of plate 2 [mm]."""
        return self.TraPri.B / 2 + self.distPiastraTraPri + self.SpPiastra[2]

    @property
    def contatto(self) -> tuple:
        """Overlap of the two plates: xMin, xMax, yMin, yMax [mm]."""
        mezza = min(self.BPiastra[1], self.BPiastra[2]) / 2
        return (-mezza, mezza, max(0.0, self.fondo2), min(self.HPiastra[1], self.cima2))

    def foro(self, i: int) -> float:
        return self.Fibull[i] + self.gioco


def testo_di(percorso) -> str:
    """Text of a file: UTF-8 when it is valid UTF-8, else Windows-1252."""
    try:
        grezzo = Path(percorso).read_bytes()
    except OSError as errore:
        raise DatiErrati(f"{percorso}: {errore.strerror}") from errore
    try:
        return grezzo.decode("utf-8-sig")
    except UnicodeDecodeError:
        return grezzo.decode("cp1252", errors="replace")


def righe_di(percorso) -> list:
    return testo_di(percorso).replace("\r\n", "\n").split("\n")


def numero_iniziale(testo: str) -> float:
    trovato = _NUMERO.match(testo)
    return float(trovato.group(1)) if trovato else 0.0


def trova(cartella: Path, nome: str) -> Path:
    """A file of the folder, found without regard to case."""
    if (cartella / nome).exists():
        return cartella / nome
    if cartella.is_dir():
        for voce in cartella.iterdir():
            if voce.name.lower() == nome.lower():
                return voce
    raise DatiErrati(f"{cartella / nome}: manca")


class Librerie:
    """Sections, steels, bolt classes and the hole clearance of one directory tree."""

    def __init__(self, albero):
        custom = trova(Path(albero), "custom")
        self.profili = self._profili(trova(custom, "prof_pro"))
        self.acciai, self.viti = self._materiali(trova(custom, "MaterialiNTC08.tx1"))
        self.TollForoBull, self.TollForoSald = self._giochi(trova(custom, "OpzioniNodi.txt"))

    @staticmethod
    def _profili(percorso) -> dict:
        profili = {}
        for riga in righe_di(percorso):
            riga = riga.strip()
            if riga == "*END*":
                break
            campi = riga.split()
            if len(campi) < 2 or campi[0] not in FAMIGLIE:
                continue
            valori = campi[2:]
            # Height, width, web, flange and root radius are the 16th to 20th value of a row.
            H, B, tw, tf, r = (float(v) for v in valori[15:20])
            profili.setdefault(campi[0] + campi[1], Profilo(campi[0] + campi[1], H, B, tw, tf, r))
        return profili

    @staticmethod
    def _materiali(percorso):
        righe = righe_di(percorso)

        def gruppo(titolo, scheda, passo, quanti):
            """Rows of a group: a name, and `quanti` numbers on the last of its `passo` lines."""
            n = next(k for k, riga in enumerate(righe) if titolo in riga.upper()) + 1
            tabella = {}
            for prima in range(n + 1, n + 1 + passo * int(righe[n].split()[0]), passo):
                nome = righe[prima] if passo == 3 else righe[prima].strip()
                numeri = righe[prima + passo - 1].split()[:quanti]
                tabella.setdefault(nome, scheda(nome, *map(float, numeri)))
            return tabella

        return (gruppo("[ACCIAIO_DA_CARPENTERIA_SEZIONI_APERTE]", Acciaio, 3, 8),
                gruppo("[VITI]", Vite, 2, 6))

    @staticmethod
    def _giochi(percorso):
        righe = righe_di(percorso)
        gruppi = int(numero_iniziale(righe[0]))
        prima = gruppi + 2                       # count of groups, groups, count of rows, then the rows
        valori = [numero_iniziale(righe[prima + n].split("|")[0]) for n in (5, 6)]
        return valori[0], valori[1]


def leggi_nodo(percorso, librerie: Librerie) -> Nodo:
    """Joint in the keyed format: value, blanks, [key index]. Keys may come in any order."""
    testi = {}
    for riga in righe_di(percorso)[1:]:
        for aperta in re.finditer(r"\[([^\]]*)\]", riga):
            parole = aperta.group(1).replace("\t", " ").split()
            if parole:
                indice = int(numero_iniziale(parole[1])) if len(parole) > 1 else None
                testi[(parole[0].lower(), indice)] = riga[:aperta.start()].strip()

    def testo(chiave, indice=None):
        try:
            return testi[(chiave.lower(), indice)]
        except KeyError:
            nome = chiave if indice is None else f"{chiave} {indice}"
            raise DatiErrati(f"{percorso}: manca la chiave {nome}") from None

    def preso(tabella, nome, specie):
        if nome not in tabella:
            raise DatiErrati(f"{percorso}: {specie} '{nome}' non in archivio")
        return tabella[nome]

    nodo = Nodo(TraPri=preso(librerie.profili, testo("TraPri_Nome"), "profilo"),
                TraSec=preso(librerie.profili, testo("TraSec_Nome"), "profilo"),
                acciaio=preso(librerie.acciai, testo("acciaio_Nome"), "acciaio"),
                vite=preso(librerie.viti, testo("vite_Nome"), "classe di viti"),
                gioco=librerie.TollForoBull)
    for chiave in _REALI:
        setattr(nodo, chiave, numero_iniziale(testo(chiave)))
    nodo.nBull = int(numero_iniziale(testo("nBull")))
    nodo.nSollAg = int(numero_iniziale(testo("nSollAg")))
    indici = {"Piastra": (1, 2), "Nerv": (1, 2, 3), "bull": range(1, nodo.nBull + 1)}
    sestetti = range(nodo.nSollAg)
    for chiave in _TABELLE:
        quali = next((v for k, v in indici.items() if chiave.endswith(k)), sestetti)
        getattr(nodo, chiave).update({i: numero_iniziale(testo(chiave, i)) for i in quali})
    nodo.AttNerv.update({i: numero_iniziale(testo("AttNerv", i)) == 1 for i in (1, 2)})
    nodo.CasoCarico.update({s: int(numero_iniziale(testo("CasoCarico", s))) for s in sestetti})
    nodo.NomeSa.update({s: testo("NomeSa", s) for s in sestetti})
    nodo.TipoVer = int(numero_iniziale(testi.get(("tipover", None), "0")))
    completa_nervatura3(nodo)
    return nodo


def completa_nervatura3(nodo: Nodo) -> None:
    """Rib 3 fills the primary beam between its flanges; only its thickness is a datum."""
    p = nodo.TraPri
    nodo.BNerv[3] = (p.B - p.tw) / 2 + nodo.distPiastraTraPri - nodo.SpPiastra[1]
    nodo.H1Nerv[3] = nodo.H2Nerv[3] = p.H - 2 * p.tf
    nodo.SmussoNerv[3] = float(math.floor(p.r + 0.99))


def incoerenze(nodo: Nodo) -> list:
    """What is geometrically wrong with the joint, in words; empty when it is consistent."""
    n, ps, pp = nodo, nodo.TraSec, nodo.TraPri
    sotto = n.HPiastra[2] - n.distAlaSecPiastra - ps.H
    guai = []

    def esige(vero, parole):
        if not vero:
            guai.append(parole)

    esige(ps.H <= pp.H, "secondaria piu' alta della principale")
    esige(ps.B <= n.BPiastra[2] and n.distAlaSecPiastra >= 0 and sotto >= 0, "piastra 2 piccola")
    for k, spazio in ((1, n.distAlaSecPiastra), (2, sotto)):
        if not n.AttNerv[k]:
            continue
        esige(n.H1Nerv[k] > 0 and n.H2Nerv[k] >= 0 and n.BNerv[k] > 0 and n.SpNerv[k] > 0,
              f"nervatura {k} nulla")
        esige(n.H1Nerv[k] <= spazio, f"nervatura {k} alta")
        esige(n.SpNerv[k] <= n.BPiastra[2], f"nervatura {k} larga")
        esige(n.spSaldS1 <= max(n.H1Nerv[k], n.H2Nerv[k]) and n.spSaldS1 <= n.BNerv[k],
              f"saldatura S1 su nervatura {k}")
    esige(min(n.H1Nerv[3], n.H2Nerv[3], n.BNerv[3], n.SpNerv[3]) > 0, "nervatura 3 nulla")
    for k in (1, 2):
        esige(min(n.HPiastra[k], n.BPiastra[k], n.SpPiastra[k]) > 0, f"piastra {k} nulla")
    esige(n.spSaldS1 > 0 and n.spSaldS2 > 0, "lato delle saldature nullo")
    esige(n.BNerv[3] / 2 >= n.spSaldS2, "saldatura S2 su nervatura 3")
    xMin, xMax, yMin, yMax = n.contatto
    esige(yMax > yMin, "piastre disgiunte")
    base = n.asse_sup - ps.H
    for i in range(1, n.nBull + 1):
        raggio, x, y = n.foro(i) / 2, n.Xbull[i], n.Ybull[i]
        dentro = yMin + raggio <= y <= yMax - raggio and xMin + raggio <= x <= xMax - raggio
        esige(dentro, f"bullone {i} fuori dall'area comune")
        fasce = ((base, base + ps.tf, ps.B), (base + ps.H - ps.tf, base + ps.H, ps.B),
                 (base + ps.tf, base + ps.H - ps.tf, ps.tw))
        for basso, alto, largo in fasce:
            esige(y + raggio <= basso or y - raggio >= alto or abs(x) - raggio >= largo / 2,
                  f"bullone {i} sulla trave secondaria")
    esige(n.distPiastraTraPri <= n.SpPiastra[1], "piastra 1 fuori dalla principale")
    esige(not (n.distAlaSecPiastra - n.distAliPriSec + pp.tf > 0 and n.distPiastraTraPri < 0),
          "piastra 2 sull'ala della principale")
    return guai
