#!/usr/bin/env python3
"""Writes the structural model of the job installazione/lavori/telaio: a steel frame of two storeys whose
forces follow from the formulas below, so that an import into a joint can be followed by hand.

Units cm, daN, daN*cm. Global X along the main beams, Y along the secondary ones, Z up. Local axis x runs
from end 1 to end 2, y is up for a beam and along +X for a column, z = x ^ y. The six results are
  N   positive in tension
  T1  = dM2/dx; positive at end 1 of a beam that carries a load downwards (along -y)
  T2  = dM1/dx; the same in the plane x-z, load along -z
  Mt  about x, on the face whose outward normal is +x
  M1  tends the fibres on the side of -z;  M2 tends those on the side of -y
All is worked out in fractions and turned to a double once: the files do not depend on the machine.

Left out of the balance of the main beams: the end couples Mt and M1 of the secondary ones.

Usage:
  genera_modello.py --uscita DIR               writes the files
  genera_modello.py --uscita DIR --controlla   reads them back, follows an import and checks the equilibrium
"""

import argparse
import pathlib
import struct
import sys
from collections import namedtuple
from fractions import Fraction as F

L_PRI, L_SEC, H_PIANO = 600, 500, 320  # spans and storey height
TERZO = L_PRI // 3  # the secondary beams rest on the thirds of a main beam
STAZIONI = 5
RHO = F(12, 100)  # end restraint of the secondary beams: share of the fixed-end moment q L^2 / 12
ECCENTRICITA = 2  # of the non structural load on the secondary beams
PRESSIONE = F(80, 10000)  # of the wind, both faces together

CONDIZIONI = ("G1 permanente strutturale", "G2 permanente non strutturale", "Q imposto", "S neve",
              "Wx vento lungo +X", "Wy vento lungo +Y")
VENTO_X, VENTO_Y = 5, 6
SUPERFICIE = {1: (250, 250), 2: (100, 80), 3: (300, 50), 4: (0, 120)}  # daN/m2 on floors 1 and 2

# Name, family code, dimensions [cm], area and second moments [cm2, cm4], weight [daN/cm]. The place in
# this list, from 0, is what a member carries. The channel is not an I section: TK07 has none of it.
Sezione = namedtuple("Sezione", "nome forma misure dati peso")
SEZIONI = (
    Sezione("P_HEA 200", "I", "19 20 0.65 1 1.8", "53.831 3692.1 1335.5 20.985", F(423, 1000)),
    Sezione("P_IPE 330", "I", "33 16 0.75 1.15 1.8", "62.606 11767 788.14 28.145", F(491, 1000)),
    Sezione("P_IPE 220", "I", "22 11 0.59 0.92 1.2", "33.371 2771.8 204.89 9.0658", F(26, 100)),
    Sezione("P_UPN 220", "C", "22 8 0.9 1.25 1.25", "37.4 2690 197 16", F(29, 100)),
)
COLONNA, PRINCIPALE, SECONDARIA, BORDO = range(4)

# Load cases: number, type, title, six-sets. A six-set is the factor of each condition, 1 to 6.
# Factors of NTC 2018, tables 2.6.I and 2.5.I (category B, snow below 1000 m, wind).
Caso = namedtuple("Caso", "numero tipo titolo sestetti")
G = (F(13, 10), F(3, 2))
CASI = (
    Caso(1, "SLU", "Imposto dominante, vento x", tuple(
        G + (F(3, 2), F(3, 4), s * F(9, 10), F(0)) for s in (1, -1))),
    Caso(2, "SLU", "Vento dominante", tuple(
        G + (F(21, 20), F(3, 4), s * F(3, 2) * (d == 5), s * F(3, 2) * (d == 6))
        for d in (5, 6) for s in (1, -1))),
    Caso(3, "RARA", "Imposto dominante, vento y", tuple(
        (F(1), F(1), F(1), F(1, 2), F(0), s * F(3, 5)) for s in (1, -1))),
    Caso(4, "TENSAMM", "Tutti i carichi verticali", ((F(1),) * 4 + (F(0),) * 2,)),
)

# ---------------------------------------------------------------- geometry

Nodo = namedtuple("Nodo", "numero x y z")
Asta = namedtuple("Asta", "numero sezione piano nodo1 nodo2 posto")


def genera_nodi():
    nodi = []
    angoli = ((0, 0), (L_PRI, 0), (0, L_SEC), (L_PRI, L_SEC))
    appoggi = ((TERZO, 0), (2 * TERZO, 0), (TERZO, L_SEC), (2 * TERZO, L_SEC))
    for piano in range(3):
        posti = angoli if piano == 0 else angoli + appoggi
        nodi += [Nodo(100 * piano + k, x, y, H_PIANO * piano) for k, (x, y) in enumerate(posti, 1)]
    return nodi


def genera_aste():
    """In the order of the structure file, which is not that of the numbers. posto: for a column the signs
    towards the inside along X and Y; for a main beam its side (-1 south, 1 north) and its third."""
    aste = []
    segni = ((1, 1), (-1, 1), (1, -1), (-1, -1))
    for piano in (1, 2):
        aste += [Asta(4 * (piano - 1) + k, COLONNA, piano, 100 * (piano - 1) + k, 100 * piano + k, s)
                 for k, s in enumerate(segni, 1)]
    for piano in (1, 2):
        n, b = 10 * piano, 100 * piano
        aste += [Asta(n + 7, BORDO, piano, b + 1, b + 3, ()), Asta(n + 8, BORDO, piano, b + 2, b + 4, ()),
                 Asta(n + 9, SECONDARIA, piano, b + 5, b + 7, ()),
                 Asta(n + 10, SECONDARIA, piano, b + 6, b + 8, ())]
        for lato, linea in ((-1, (1, 5, 6, 2)), (1, (3, 7, 8, 4))):
            primo = n + (1 if lato < 0 else 4)
            aste += [Asta(primo + k, PRINCIPALE, piano, b + linea[k], b + linea[k + 1], (lato, k))
                     for k in range(3)]
    return aste


NODI, ASTE = genera_nodi(), genera_aste()
# The file's own index of a node, ordered by X, Y, Z: neither the user's number nor the place in the file.
INDICE = {n.numero: i for i, n in enumerate(sorted(NODI, key=lambda n: n[1:]), 1)}
LUNGHEZZA = {COLONNA: H_PIANO, PRINCIPALE: TERZO, SECONDARIA: L_SEC, BORDO: L_SEC}

# ---------------------------------------------------------------- forces


def uniforme(q, luce, x, vincolo):
    """Shear and moment under a uniform load; end moments of vincolo times those of a fixed beam."""
    return q * (F(luce, 2) - x), q * x * (luce - x) / 2 - vincolo * q * luce * luce / 12


def carico(c, piano, sezione):
    """Load of a secondary beam along its length, downwards."""
    if c not in SUPERFICIE:
        return F(0)
    interasse = TERZO if sezione == SECONDARIA else F(TERZO, 2)
    return SUPERFICIE[c][piano - 1] * interasse / F(10000) + (SEZIONI[sezione].peso if c == 1 else 0)


def reazione(c, piano):
    """What a secondary beam puts on a third of its main beam."""
    return carico(c, piano, SECONDARIA) * L_SEC / 2


def peso_principale(c):
    return SEZIONI[PRINCIPALE].peso if c == 1 else F(0)


def incastro_principale(c, piano):
    """Fixed beam, uniform load and two equal loads on the thirds: q L^2 / 12 + 2 P L / 9."""
    return peso_principale(c) * L_PRI * L_PRI / 12 + reazione(c, piano) * 2 * L_PRI / 9


def incastro_bordo(c, piano):
    return RHO * carico(c, piano, BORDO) * L_SEC * L_SEC / 12


def forza_vento(c, piano):
    """Of the whole building on a floor; the roof takes half a storey, the ground the lowest half."""
    fronte = {VENTO_X: L_SEC, VENTO_Y: L_PRI}.get(c, 0)
    return PRESSIONE * fronte * H_PIANO / (1 if piano == 1 else 2)


def taglio_colonna(c, piano):
    """Portal method: four equal columns, the moment vanishes at mid height."""
    return sum(forza_vento(c, p) for p in range(piano, 3)) / 4


def momento_portale(c, piano):
    sopra = taglio_colonna(c, 2) if piano == 1 else F(0)
    return (taglio_colonna(c, piano) + sopra) * H_PIANO / 2


def ritto(piano, segno, m1, m2, vento, x):
    """Shear and moment of a column in one plane. A floor's beam moment goes half to each of its two
    columns, whole at the roof; half of what reaches the top of the lowest column reaches its base."""
    base, cima = (-m1 / 4, m1 / 2) if piano == 1 else (-m1 / 2, m2)
    base, cima = segno * base, segno * cima
    return ((cima - base) / H_PIANO - vento,
            base + (cima - base) * x / H_PIANO + vento * (F(H_PIANO, 2) - x))


def ritto_x(c, piano, segno, x):
    vento = taglio_colonna(c, piano) if c == VENTO_X else F(0)
    return ritto(piano, segno, incastro_principale(c, 1), incastro_principale(c, 2), vento, x)


def ritto_y(c, piano, segno, x):
    vento = taglio_colonna(c, piano) if c == VENTO_Y else F(0)
    return ritto(piano, segno, incastro_bordo(c, 1), incastro_bordo(c, 2), vento, x)


def principale_verticale(c, piano, terzo, x):
    X = TERZO * terzo + x
    P = reazione(c, piano)
    T, M = uniforme(peso_principale(c), L_PRI, X, 1)
    T += P * (1 - terzo)
    M += P * min(X, TERZO, L_PRI - X) - P * 2 * L_PRI / 9
    if c == VENTO_X:
        Me = momento_portale(c, piano)
        T, M = T - 2 * Me / L_PRI, M + Me * (1 - 2 * X / L_PRI)
    return T, M


def secondaria_verticale(c, piano, sezione, x):
    T, M = uniforme(carico(c, piano, sezione), L_SEC, x, RHO)
    if c == VENTO_Y and sezione == BORDO:
        Me = momento_portale(c, piano)
        T, M = T - 2 * Me / L_SEC, M + Me * (1 - 2 * x / L_SEC)
    return T, M


def spinta(tagli, c, piano):
    """Axial force of a beam that holds the columns together: what the shear changes by at its floor."""
    sopra = tagli(c, 2, 1, F(0))[0] if piano == 1 else F(0)
    return sopra - tagli(c, piano, 1, F(0))[0] if c in SUPERFICIE else F(0)


def sollecitazioni(asta, c, x):
    """N, T1, T2, Mt, M1, M2 of a member in condition c at x from end 1."""
    x, piano, zero = F(x), asta.piano, F(0)
    vento = forza_vento(c, piano)
    if asta.sezione == COLONNA:
        sx, sy = asta.posto
        N = -(SEZIONI[COLONNA].peso * (H_PIANO * (3 - piano) - x) if c == 1 else zero)
        for p in range(piano, 3):
            N -= sx * principale_verticale(c, p, 0 if sx > 0 else 2, 0 if sx > 0 else F(TERZO))[0]
            N -= sy * secondaria_verticale(c, p, BORDO, 0 if sy > 0 else F(L_SEC))[0]
        T1, M2 = ritto_x(c, piano, sx, x)
        T2, M1 = ritto_y(c, piano, sy, x)
        return N, T1, T2, zero, M1, M2
    if asta.sezione == PRINCIPALE:
        lato, terzo = asta.posto
        T1, M2 = principale_verticale(c, piano, terzo, x)
        # The end moments of the secondary beams twist the two outer thirds.
        Mt = lato * (1 - terzo) * RHO * carico(c, piano, SECONDARIA) * L_SEC * L_SEC / 12
        N, T2, M1 = spinta(ritto_x, c, piano), zero, zero
        if c == VENTO_X:  # a third of each frame's half of the wind from each inner secondary beam
            N = vento / 6 * (1 - terzo)
        if c == VENTO_Y:  # simply supported in plan between the frames of the edges
            X = TERZO * terzo + x
            T2, M1 = vento / 6 * (1 - terzo), vento / 6 * min(X, TERZO, L_PRI - X)
        return N, T1, T2, Mt, M1, M2
    T1, M2 = secondaria_verticale(c, piano, asta.sezione, x)
    N, T2, M1, Mt = spinta(ritto_y, c, piano) if asta.sezione == BORDO else zero, zero, zero, zero
    parte = F(1, 3) if asta.sezione == SECONDARIA else F(1, 6)  # share of the floor's wind
    if c == 2:
        Mt = carico(c, piano, asta.sezione) * ECCENTRICITA * (F(L_SEC, 2) - x)
    if c == VENTO_X:  # the load runs along +z, so it is negative
        T2, M1 = uniforme(-vento * parte / L_SEC, L_SEC, x, RHO)
    if c == VENTO_Y:  # two thirds of the wind act on the south face, each side holds back a half
        N = -vento * parte / 6
    return N, T1, T2, Mt, M1, M2


def combina(asta, fattori, x):
    per_condizione = [sollecitazioni(asta, c, x) for c in range(1, 7)]
    return tuple(sum(f * v[k] for f, v in zip(fattori, per_condizione)) for k in range(6))


UNITARI = {c: tuple(F(int(k == c)) for k in range(1, 7)) for c in range(1, 7)}
# File, sets of factors, text for the name of a load set, title.
RISULTATI = [(f"astec{k.numero:03d}.bin", k.sestetti, f"Caso {k.numero}", k.titolo) for k in CASI] + [
    (f"aste_{c:03d}.bin", (UNITARI[c],), f"Cond {c}", CONDIZIONI[c - 1]) for c in UNITARI]

# ---------------------------------------------------------------- files


def struttura():
    r = ["ARGANOWIN [QuestoProgramma=non_presente] [Descrizione=struttura] [ReleaseArgano=18]"
         " [ReleaseQuestoFile=1]",
         f"{3:<20}righe di descrizione",
         "Telaio di esempio: due piani, travi secondarie sui terzi delle principali",
         "Lunghezze cm, forze daN, coppie daN*cm", "Generato da scripts/genera_modello.py",
         f"{len(NODI)} nodi"]
    for n in NODI:
        r += [f"{INDICE[n.numero]} {n.x} {n.y} {n.z}", f"{n.numero} {0 if n.z else 1}"]
    r.append(f"{len(ASTE)} aste")
    for a in ASTE:
        # Colour 1 to 10 and line type 1 to 5, for the filter of members.
        r += [f"{INDICE[a.nodo1]} {INDICE[a.nodo2]} 0", f"{a.numero} {a.sezione} {a.sezione + 1} {a.piano}"]
    r += ["2 gruppi di aste", "Piano 1", "1-4,11-20", "Piano 2", "5-8,21-30", "1 materiali", "S235 2100000 0.3",
          "1 vincoli", "incastro 1 1 1 1 1 1", "2 impalcati", f"{H_PIANO} Piano 1", f"{2 * H_PIANO} Copertura",
          f"{len(CONDIZIONI)} condizioni di carico", *CONDIZIONI]
    return testo(r)


def sezioni():
    r = [str(len(SEZIONI))]
    for k, s in enumerate(SEZIONI, 1):
        r += [f'{k},"{s.nome}","{s.forma}"', s.misure, s.dati, f"{float(s.peso)}", "S 235 (FE 360)"]
    return testo(r)


def combinazioni():
    r = [str(len(CASI))]
    for k in CASI:
        terne = [(s, c, float(f)) for s, fattori in enumerate(k.sestetti, 1)
                 for c, f in enumerate(fattori, 1) if f]
        # Six-set and its leading variable condition; none where all factors are 1.
        coppie = [(s, max(range(3, 7), key=lambda c: abs(f[c - 1]))) for s, f in enumerate(k.sestetti, 1)
                  if k.tipo != "TENSAMM"]
        r += [f"{k.numero},{k.titolo}", f"{len(k.sestetti)} sestetti per stazione",
              f"|PROGRESSIVO={k.numero}|TIPOVER={k.tipo}|SESTETTI={len(k.sestetti)}|", str(len(terne))]
        r += [f"{s} {c} {f:g}" for s, c, f in terne] + [str(len(coppie))]
        r += [f"{s} {c}" for s, c in coppie]
    return testo(r)


def risultati(sestetti, titolo):
    ordinate = sorted(ASTE)  # by number, unlike the structure file
    titolo = titolo[:20].ljust(20).encode("cp1252")
    dati = struct.pack("<h2xii4x20s20x", len(ordinate), STAZIONI, len(sestetti), titolo)
    for asta in ordinate:
        for a in range(STAZIONI):
            x = F(LUNGHEZZA[asta.sezione] * a, STAZIONI - 1)
            for fattori in sestetti:
                dati += struct.pack("<h6x6d", asta.numero, *map(float, combina(asta, fattori, x)))
    return dati


def testo(righe):
    return ("\n".join(righe) + "\n").encode()


# ---------------------------------------------------------------- the sheet for following by hand


def numero(v):
    """One decimal, half to even; exact, since v is a fraction."""
    t = f"{float(round(v, 1)):.1f}"
    return "0.0" if t == "-0.0" else t


def sestetto_importato(asta, estremo, fattori):
    """What the load table must show: N, Ty, Tz, Mt, My, Mz."""
    N, T1, T2, Mt, M1, M2 = combina(asta, fattori, LUNGHEZZA[asta.sezione] if estremo == 2 else 0)
    s = -1 if estremo == 2 else 1
    return tuple(map(numero, (N, s * T1, T2, -Mt, s * M1, M2)))


def importati(asta, estremo):
    nodo = asta.nodo1 if estremo == 1 else asta.nodo2
    for _, sestetti, nome, _ in RISULTATI:
        for k, fattori in enumerate(sestetti, 1):
            yield k, f"{nome} As. {asta.numero} Nd. {nodo}", sestetto_importato(asta, estremo, fattori)


def colonne(valori):
    return "".join(f"{v:>11}" for v in valori)


def elenco(numeri):
    return ", ".join(map(str, numeri))


PIANTA = """\
TELAIO DI ESEMPIO: due piani, per seguire a mano l'importazione delle sollecitazioni

Scritto da scripts/genera_modello.py, dove sta ogni formula. Lunghezze cm, forze daN, coppie daN*cm.

Pianta del piano 1; al piano 2 (copertura) nodi + 100, aste + 10. I nodi 1-4 sono alla base delle colonne.

    103 ---14--- 107 ---15--- 108 ---16--- 104     y = 500
     |            |            |            |
     17           19           20           18      Y
     |            |            |            |       |
    101 ---11--- 105 ---12--- 106 ---13--- 102     +-- X     y = 0
   x = 0         200          400          600
"""

REGOLE = """\
Ogni asta va dal nodo (estremo 1) al nodo (estremo 2) nel verso di X, di Y o dal basso. Il nodo trave-trave è
la secondaria (19, 20, 29, 30) sulla principale: nodi 105-108 e 205-208. nodo_telaio.tk7 è quello dei nodi 105
(asta 19, estremo 1; principale 11 o 12) e 108 (asta 20, estremo 2; principale 15 o 16).

Da importare in nodo_telaio: nodi 105,108; aste 19,20; casi 1,2 (SLU) o 3,4 (T.A.); sestetti 0 (tutti): 12
sestetti di carico per gli SLU, 6 per le T.A., 12 per le sei condizioni. Se un'asta ha due nodi nell'elenco
vale l'estremo 1. Le aste 17, 18, 27, 28 sono UPN 220, che la libreria non ha: come trave secondaria il
profilo "non è applicabile".

Risultati delle aste: N positivo di trazione; T1 = dM2/dx, positivo all'estremo 1 di una trave caricata verso
il basso; T2 = dM1/dx, lo stesso in pianta; M2 positivo tende le fibre inferiori, M1 quelle dal lato di -z.

Segni all'importazione:  N = N   Ty = T1 (-T1 all'estremo 2)   Tz = T2
                         Mt = -Mt sempre   My = M1 (-M1 all'estremo 2)   Mz = M2
All'estremo 2 gli assi del nodo sono girati di 180 gradi attorno alla verticale: Ty resta verso il basso.

Formule per le secondarie (q carico lineare, L = 500): T1 = q (L/2 - x); M2 = q x (L - x)/2 - 0.12 q L^2/12;
Mt = 2 q (L/2 - x) solo per G2. Principali incastrate: P ai terzi, M agli estremi -2 P L/9 - g L^2/12.
Vento: portali, quattro colonne uguali, momento nullo a mezza altezza (le formule sono nello script).
A mano, asta 19, condizione 3: q = 300 daN/m2 x 2 m = 6 daN/cm; T1 = 6 x 250 = 1500; M2 = -6 x 2500 = -15000.
"""


def leggimi():
    r = [PIANTA, "Sezioni (come in sezioni_, posto da 0)"]
    for k, s in enumerate(SEZIONI):
        r.append(f"  {k}  {s.nome}   aste {elenco(sorted(a.numero for a in ASTE if a.sezione == k))}")
    r += ["", "Condizioni: " + "; ".join(f"{c} {t}" for c, t in enumerate(CONDIZIONI[:4], 1)) + ";",
          "            " + "; ".join(f"{c} {CONDIZIONI[c - 1]}" for c in (VENTO_X, VENTO_Y)) + ".",
          "Carichi, daN/m2 (piano 1, copertura): " + "; ".join(
        f"{CONDIZIONI[c - 1].split()[0]} {p} e {q}" for c, (p, q) in SUPERFICIE.items())
          + "; vento 80 sul fronte.",
          "G1 ha in più i pesi propri, daN/cm: "
          + elenco(f"{s.nome[2:]} {float(s.peso)}" for s in SEZIONI) + ".",
          "", "Casi (i fattori delle condizioni 1-6 di ciascun sestetto):"]
    for k in CASI:
        for s, fattori in enumerate(k.sestetti, 1):
            r.append(f"  {k.numero} {k.tipo:8} sestetto {s}:" + "".join(f"{float(f):7g}" for f in fattori))
    r += ["", REGOLE, "SESTETTI ATTESI DOPO L'IMPORTAZIONE (ses. = sestetto della stazione)"]
    for n in (19, 29):
        asta = next(a for a in ASTE if a.numero == n)
        for estremo in (1, 2):
            r += ["", f"{f'Asta {n}, estremo {estremo}':24}{'ses.':>5}"
                  + colonne(("N", "Ty", "Tz", "Mt", "My", "Mz"))]
            r += [f"{nome:24}{k:>5}{colonne(v)}" for k, nome, v in importati(asta, estremo)]
    r += ["Le aste 20 e 30 danno gli stessi valori, con il loro numero e nodo.", "",
          "FORZE D'ESTREMITÀ DI TUTTE LE ASTE, una condizione alla volta (come nei file, prima dei segni)",
          "Le aste che mancano hanno tutto zero."]
    for c, titolo in enumerate(CONDIZIONI, 1):
        gruppi = {}
        for a in sorted(ASTE):
            v = tuple(tuple(map(numero, sollecitazioni(a, c, x))) for x in (0, LUNGHEZZA[a.sezione]))
            gruppi.setdefault(v, []).append(a.numero)
        r += ["", f"{f'{c}  {titolo}':36}{'estr.':>6}" + colonne(("N", "T1", "T2", "Mt", "M1", "M2"))]
        for v, aste in gruppi.items():
            if any(t != "0.0" for riga in v for t in riga):
                r += [f"{elenco(aste):36}{1:>6}{colonne(v[0])}", f"{'':36}{2:>6}{colonne(v[1])}"]
    return testo(r)


def tutti_i_file():
    file = {"STRUTTUR.STR": struttura(), "sezioni_": sezioni(), "combinaz.tot": combinazioni(),
            "LEGGIMI.txt": leggimi()}
    for nome, sestetti, _, titolo in RISULTATI:
        file[nome] = risultati(sestetti, titolo)
    return file


# ---------------------------------------------------------------- reading back


class Guasto(Exception):
    pass


def pretendi(vero, guasto):
    if not vero:
        raise Guasto(guasto)


def vicini(a, b, cosa):
    pretendi(abs(a - b) < 1e-6 * max(1, abs(b)), f"{cosa}: {a} invece di {b}")


class Risultato:
    """A result file, by its byte positions alone."""

    def __init__(self, percorso):
        self.dati = percorso.read_bytes()
        self.n, = struct.unpack_from("<h", self.dati, 0)
        self.A, self.B = struct.unpack_from("<ii", self.dati, 4)
        pretendi(len(self.dati) == 56 * (1 + self.n * self.A * self.B), f"{percorso.name}: lunghezza")
        self.blocco = {struct.unpack_from("<h", self.dati, 56 * (1 + i * self.A * self.B))[0]: i
                       for i in range(self.n)}
        pretendi(len(self.blocco) == self.n, f"{percorso.name}: asta ripetuta")

    def sei(self, asta, estremo, sestetto=1):
        a = 0 if estremo == 1 else self.A - 1
        record = 1 + (self.blocco[asta] * self.A + a) * self.B + sestetto
        return struct.unpack_from("<6d", self.dati, 56 * (record - 1) + 8)


def leggi_struttura(percorso):
    """User's number of the two end nodes and section of each member, number of load conditions."""
    righe = iter(percorso.read_text("cp1252").splitlines())
    pretendi("release" in next(righe).lower(), "struttura senza release")

    def primo():
        return int(next(righe).split()[0])

    def salta(n):
        for _ in range(n):
            next(righe)

    salta(int(next(righe)[:20]))
    nodi = {}
    for _ in range(primo()):
        indice = primo()
        nodi[indice] = primo()
    aste = {}
    for _ in range(primo()):
        i, j = map(int, next(righe).split()[:2])
        numero_asta, sezione = map(int, next(righe).split()[:2])
        aste[numero_asta] = nodi[i], nodi[j], sezione
    salta(2 * primo())
    for _ in range(3):
        salta(primo())
    return aste, primo()


def leggi_combinazioni(percorso):
    """Type and triples (six-set, condition, factor) of each case."""
    righe = iter(percorso.read_text("cp1252").splitlines())
    casi = {}
    for _ in range(int(next(righe))):
        caso = int(next(righe).split(",")[0])
        next(righe)
        tipo = next(righe).split("TIPOVER=")[1].split("|")[0]
        terne = [tuple(map(float, next(righe).split())) for _ in range(int(next(righe)))]
        for _ in range(int(next(righe))):
            next(righe)
        casi[caso] = tipo, terne
    pretendi(next(righe, None) is None, "combinaz.tot più lungo del dovuto")
    return casi


def controlla(cartella):
    for nome, atteso in tutti_i_file().items():
        pretendi((cartella / nome).read_bytes() == atteso, f"{nome} non è quello generato")
    aste, condizioni = leggi_struttura(cartella / "STRUTTUR.STR")
    righe_sezioni = (cartella / "sezioni_").read_text("cp1252").splitlines()
    profili = [r.split(",")[1].strip('"').replace(" ", "").removeprefix("P_") for r in righe_sezioni[1::5]]
    pretendi(len(profili) == int(righe_sezioni[0]) and len(aste) == 28, "numero di sezioni o di aste")
    pretendi((profili[aste[19][2]], profili[aste[11][2]]) == ("IPE220", "IPE330"), "sezione di 19 o 11")
    ris = {c: Risultato(cartella / f"aste_{c:03d}.bin") for c in range(1, condizioni + 1)}

    # The whole building: what the bases take is what was put on 5 m x 6 m and on the fronts. Own
    # weight of a floor: two main beams of 6 m, two inner secondary and two edge beams of 5 m, four columns.
    base = {c: [sum(ris[c].sei(k, 1)[i] for k in (1, 2, 3, 4)) for i in range(3)] for c in ris}
    proprio = 2 * (2 * 600 * 0.491 + 2 * 500 * 0.26 + 2 * 500 * 0.29 + 4 * 320 * 0.423)
    for c, atteso in ((1, 250 * 60 + proprio), (2, 180 * 30), (3, 350 * 30), (4, 120 * 30), (5, 0), (6, 0)):
        vicini(-base[c][0], atteso, f"peso alla base, condizione {c}")
    vicini(-base[5][1], 80 * 5 * 4.8, "vento x alla base")
    vicini(-base[6][2], 80 * 6 * 4.8, "vento y alla base")
    # Nodes where a secondary beam meets a main one: south 105, member 19 at its end 1; north 108, member 20
    # at its end 2. Vertical, along X, along Y, and twist of the main beam.
    for prima, dopo, secondaria, estremo, s, quota in ((11, 12, 19, 1, 1, 2), (15, 16, 20, 2, -1, 1)):
        for c in ris:
            p, d, t = ris[c].sei(prima, 2), ris[c].sei(dopo, 1), ris[c].sei(secondaria, estremo)
            vicini(p[1] - d[1], s * t[1], f"verticale al nodo, condizione {c}")
            vicini(p[0] - d[0], -s * t[2], f"orizzontale al nodo, condizione {c}")
            fronte = 80 * 6 * 3.2 / 3 * quota / 3 if c == 6 else 0  # a third of the floor, this face
            vicini(p[2] - d[2], fronte + s * t[0], f"lungo Y al nodo, condizione {c}")
            vicini(d[3] - p[3], -s * t[5], f"torsione al nodo, condizione {c}")
            vicini(p[5], d[5], f"continuità di M2, condizione {c}")
    # Where main beam and columns meet at floor 1: node 101, columns 1 and 5; edge beam in the other plane.
    for c in ris:
        sotto, sopra = ris[c].sei(1, 2), ris[c].sei(5, 1)
        travi = ris[c].sei(11, 1), ris[c].sei(17, 1)
        vicini(travi[0][5], sopra[5] - sotto[5], f"momento M2 in 101, condizione {c}")
        vicini(travi[1][5], sopra[4] - sotto[4], f"momento M1 in 101, condizione {c}")
        vicini(sopra[0] - sotto[0], travi[0][1] + travi[1][1], f"verticale in 101, condizione {c}")
    # Cases are the sums that combinaz.tot tells.
    for caso, (tipo, terne) in leggi_combinazioni(cartella / "combinaz.tot").items():
        r = Risultato(cartella / f"astec{caso:03d}.bin")
        pretendi(r.B == max(int(t[0]) for t in terne) and tipo in ("SLU", "RARA", "TENSAMM"), f"caso {caso}")
        for asta in aste:
            for estremo in (1, 2):
                for s in range(1, r.B + 1):
                    for k, v in enumerate(r.sei(asta, estremo, s)):
                        somma = sum(f * ris[int(c)].sei(asta, estremo)[k] for q, c, f in terne if q == s)
                        vicini(v, somma, f"caso {caso}, asta {asta}")
    # The import, from the bytes: every row of the sheet. No value may stand half way between two
    # decimals, where the last bit of a double would decide; quarters are exact and go to the even one.
    foglio = (cartella / "LEGGIMI.txt").read_text().splitlines()
    for nome, _, prefisso, _ in RISULTATI:
        r = Risultato(cartella / nome)
        for asta in aste:
            for estremo in (1, 2):
                for s in range(1, r.B + 1):
                    v = list(r.sei(asta, estremo, s))
                    for q in v:
                        pretendi(4 * q % 1 == 0 or abs(10 * q % 1 - 0.5) > 1e-6, f"{nome}, asta {asta}: {q}")
                    if asta in (19, 29):
                        v[3] = -v[3]
                        if estremo == 2:
                            v[1], v[4] = -v[1], -v[4]
                        v = colonne(f"{round(q, 1) + 0.0:.1f}" for q in v)
                        riga = f"{f'{prefisso} As. {asta} Nd. {aste[asta][estremo - 1]}':24}{s:>5}{v}"
                        pretendi(riga in foglio, f"non sta in LEGGIMI.txt: {riga}")
    print(f"{cartella.name}: {len(aste)} aste, {condizioni} condizioni, {len(CASI)} casi: tutto torna")


def main():
    p = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    p.add_argument("--uscita", type=pathlib.Path, required=True, metavar="DIR")
    p.add_argument("--controlla", action="store_true", help="reads DIR in place of writing it")
    a = p.parse_args()
    if a.controlla:
        try:
            controlla(a.uscita)
        except (Guasto, OSError) as e:
            sys.exit(f"genera_modello: {e}")
        return
    a.uscita.mkdir(parents=True, exist_ok=True)
    for nome, dati in tutti_i_file().items():
        (a.uscita / nome).write_bytes(dati)


if __name__ == "__main__":
    main()
