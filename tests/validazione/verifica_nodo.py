"""Full calculation of one joint, limit states (NTC 2018) and allowable stress (CNR 10011).

Lengths in mm, forces in daN, moments of the load sets in daN cm (brought to daN mm where used),
strengths in daN/cm2. Stresses are worked out in daN/mm2 and given back in daN/cm2.

The plane of contact is found by energy (contatto.py); the weld groups are lists of rectangles that
are summed. Rules that look odd but are meant so are followed to the letter, each with a comment.
"""

from __future__ import annotations

import math

from contatto import Bullone, Contatto, NonEquilibrato, inversa, momenti, prodotto, semipiano, valore
from lettura import Nodo, incoerenze
from saldature import gruppo_S1, gruppo_S2, lunghezze, tensioni_S1, tensioni_S2

PIGRECO = 3.14159265358979          # the value that the rules of the calculation fix
CM2 = 100.0                         # mm2 in a cm2
TAN30 = math.tan(math.pi / 6)
STRETTA = 1e-9                      # relative spread of values that do not depend on the plane


class Interrotta(Exception):
    """The verification stops without a verdict."""


def area_resistente(d: float) -> float:
    """Area of the bolt's shank that resists [mm2]."""
    return PIGRECO / 4 * (0.9 * d * ((d - 0.1) / d) ** 3.5) ** 2


def trasporta(nodo: Nodo, s: int) -> bool:
    """Whether the shears' moment of transport enters load set s.

    Mz and Ty alone decide for all moments, which stay without transport whenever it would not turn
    the sign of Mz.
    """
    return (10 * nodo.MomZ[s] - nodo.distAzioni * nodo.TaglioY[s]) * nodo.MomZ[s] <= 0.0


# --------------------------------------------------------------------------- bolts

def contatto_di(nodo: Nodo) -> Contatto:
    return Contatto(nodo.contatto,
                    [Bullone(nodo.Xbull[i], nodo.Ybull[i], area_resistente(nodo.Fibull[i]))
                     for i in range(1, nodo.nBull + 1)])


def baricentro(nodo: Nodo):
    """Centroid of the bolts and their polar moment, weighed with the areas."""
    aree = {i: area_resistente(nodo.Fibull[i]) for i in range(1, nodo.nBull + 1)}
    somma = sum(aree.values())
    XG = sum(a * nodo.Xbull[i] for i, a in aree.items()) / somma
    YG = sum(a * nodo.Ybull[i] for i, a in aree.items()) / somma
    Ip = sum(a * ((nodo.Xbull[i] - XG) ** 2 + (nodo.Ybull[i] - YG) ** 2) for i, a in aree.items())
    return XG, YG, Ip


def carico_contatto(nodo: Nodo, s: int):
    """Moments at the plane of the bolts about (0, yAsse), then the load about the origin."""
    con = trasporta(nodo, s)
    d = nodo.distAzioni if con else 0.0
    M1 = -10 * nodo.MomZ[s] + d * nodo.TaglioY[s]
    M2 = -10 * nodo.MomY[s] + d * nodo.TaglioZ[s]
    N = nodo.SforzoNormale[s]
    return con, M1, M2, [M1 + nodo.yAsse * N, M2, N]


def piano_nodo(nodo: Nodo, contatto: Contatto, s: int) -> dict:
    """The converged plane of load set s, what it balances and how far a stopped one may lie off.

    tol are the misfits that the program's stopping rule allows; a plane that misses f by tol moves,
    at first order, by the inverse matrix times tol.
    """
    con, M1, M2, f = carico_contatto(nodo, s)
    fermo, vicino = contatto.arresto(f)
    if fermo is None:
        raise Interrotta(f"sestetto {s + 1}: situazione non equilibrata")
    try:
        piano = contatto.piano(f)
        M = contatto.matrice(piano)
        G = inversa(M)
    except NonEquilibrato as guaio:
        raise Interrotta(f"sestetto {s + 1}: {guaio}") from guaio
    R = contatto.risultanti(piano)
    return {"trasporta": con, "M1": M1, "M2": M2, "f": f, "piano": piano, "matrice": M, "inversa": G,
            "compresso": contatto.compresso(piano), "resto": [a - b for a, b in zip(R, f)],
            "tol": [1.0 + 1e-4 * abs(v) for v in f], "piano_arresto": fermo,
            "arresto_incerto": vicino < 1e-6, "pendenza": contatto.pendenza(piano)}


def margine(p: dict, gradiente) -> float:
    """How much a linear function of the plane, of given gradient, may move within tol."""
    return sum(abs(g) * t for g, t in zip(prodotto(p["inversa"], gradiente), p["tol"]))


def tagli(nodo: Nodo, s: int, XG: float, YG: float, Ip: float):
    """Torsion about the bolts' centroid and shear of each bolt: equal direct shares, torsion by area."""
    Ty, Tz = nodo.TaglioY[s], nodo.TaglioZ[s]
    Mtot = 10 * nodo.MomTorc[s] + (YG - nodo.yAsse) * Tz + XG * Ty
    if Ip <= 1e-4 and abs(Mtot) > 1e-4:
        raise Interrotta("non e' possibile distribuire la torsione")
    V = {}
    for i in range(1, nodo.nBull + 1):
        giro = Mtot / Ip * area_resistente(nodo.Fibull[i]) if Ip > 1e-4 else 0.0
        V[i] = (Tz / nodo.nBull - giro * (nodo.Ybull[i] - YG),
                Ty / nodo.nBull - giro * (nodo.Xbull[i] - XG))
    return Mtot, V


def _posto(qui: float, traverso: float, altri: list):
    """Place of a bolt in its row: ('inizio' | 'fine' | 'interno', pitch).

    altri holds (position, cross position) of every other bolt; a bolt is of the row when it lies in a
    wedge of 30 degrees about the row's direction.
    """
    riga = [p for p, t in altri if abs(t - traverso) <= abs(p - qui) * TAN30]
    if abs(qui - min(riga + [qui])) < 0.01:
        return "inizio", 0.0
    if abs(qui - max(riga + [qui])) < 0.01:
        return "fine", 0.0
    return "interno", min(abs(p - qui) for p in riga)


def resistenze(nodo: Nodo) -> dict:
    """Resistances of the bolts (NTC 2018 4.2.8.1.1, EN 1993-1-8 table 3.4) [daN]."""
    vite, acc = nodo.vite, nodo.acciaio
    fattore = 0.0
    for classi, valore_classe in ((("4.6", "5.6", "8.8"), 0.6), (("6.8", "10.9"), 0.5)):
        if any(c in vite.Nome for c in classi):
            fattore = valore_classe
            break
    t = min(nodo.SpPiastra[1], nodo.SpPiastra[2])
    spessa = max(nodo.SpPiastra[1], nodo.SpPiastra[2]) > 40.0
    Ftk = acc.Ftk80 if spessa else acc.Ftk40
    rapporto = vite.FtVite / acc.Ftk40         # The strength up to 40 mm, in thicker plates too.
    xMin, xMax, yMin, yMax = nodo.contatto
    numeri = range(1, nodo.nBull + 1)
    ris = {n: [] for n in ("Fv_Rd", "Fb_Rd", "Ft_Rd", "Bp_Rd", "k", "alfa", "posto_x", "posto_y")}
    for i in numeri:
        d, d0, A = nodo.Fibull[i], nodo.foro(i), area_resistente(nodo.Fibull[i])
        altri = [j for j in numeri if j != i]
        # k across and alfa along the vertical, whatever the direction of the shear.
        dove_x, p = _posto(nodo.Xbull[i], nodo.Ybull[i],
                           [(nodo.Xbull[j], nodo.Ybull[j]) for j in altri])
        if dove_x == "interno":
            k = 1.4 * p / d0 - 1.7
        else:
            bordo = nodo.Xbull[i] - xMin if dove_x == "inizio" else xMax - nodo.Xbull[i]
            k = 2.8 * bordo / d0 - 1.7
        k = min(2.5, k)
        dove_y, p = _posto(nodo.Ybull[i], nodo.Xbull[i],
                           [(nodo.Ybull[j], nodo.Xbull[j]) for j in altri])
        if dove_y == "interno":
            alfa = p / (3 * d0) - 0.25
        else:
            bordo = nodo.Ybull[i] - yMin if dove_y == "inizio" else yMax - nodo.Ybull[i]
            alfa = bordo / (3 * d0)
        alfa = min(rapporto, alfa, 1.0)
        ris["k"].append(k)
        ris["alfa"].append(alfa)
        ris["posto_x"].append(dove_x)
        ris["posto_y"].append(dove_y)
        ris["Fv_Rd"].append(fattore * vite.FtVite * A / CM2 / vite.GammaMVite)
        ris["Fb_Rd"].append(k * alfa * Ftk * d * t / CM2 / vite.GammaMVite)
        ris["Ft_Rd"].append(0.9 * vite.FtVite * A / CM2 / vite.GammaMVite)
        ris["Bp_Rd"].append(0.6 * PIGRECO * Ftk * 1.5 * d * t / CM2 / vite.GammaMVite)
    return ris


def coefficienti(Fv: float, Ft_segno: float, Fv_Rd, Fb_Rd, Ft_Rd, Bp_Rd):
    """Shear with tension (NTC 2018 formula 4.2.71) and tension alone; 100 without resistance."""
    Ft = abs(Ft_segno)
    taglio = Fv / min(Fv_Rd, Fb_Rd) if min(Fv_Rd, Fb_Rd) > 0 else 100.0
    tira = Ft / min(Ft_Rd, Bp_Rd) if min(Ft_Rd, Bp_Rd) > 0 else 100.0
    if Ft_segno <= 0:
        Co1 = taglio if Fv > 0 else 0.0
    elif Fv == 0:
        Co1 = tira
    elif min(Fv_Rd, Fb_Rd, Ft_Rd, Bp_Rd) > 0:
        Co1 = taglio + Ft / 1.4 / min(Ft_Rd, Bp_Rd)
    else:
        Co1 = 100.0
    return Co1, tira                    # Compression counts in the second one too.


# --------------------------------------------------------------------------- plate 2

def sezione_piastra(nodo: Nodo, k: int) -> dict:
    """Section of the overhang of plate 2 at rib k: plate alone, or a T with the rib."""
    B, t = nodo.TraSec.B, nodo.SpPiastra[2]       # The flange's width, not the plate's.
    if not nodo.AttNerv[k]:
        return {"T": False, "W": B * t**2 / 6, "per_M": 6 / (B * t**2)}
    b, a = nodo.BNerv[k], nodo.SpNerv[k]
    yG = (B * t * t / 2 + b * a * (t + b / 2)) / (B * t + b * a)
    # The rib enters with its area alone, without b^3 a/12; the inner fibre is the face at yG - t.
    I = B * t**3 / 12 + B * t * (yG - t / 2) ** 2 + b * a * (yG - t - b / 2) ** 2
    return {"T": True, "yG": yG, "I": I, "per_M": max(abs(b + t - yG), abs(yG - t)) / I}


def flessione_piastra(nodo: Nodo, contatto: Contatto, p: dict, piano) -> dict:
    """Bending of the two overhangs of plate 2 under the bolts and the contact of their strip."""
    mezza = nodo.BPiastra[2] / 2
    base = nodo.asse_sup - nodo.TraSec.H
    strisce = ((1, "sopra", max(0.0, nodo.asse_sup), min(nodo.cima2, nodo.HPiastra[1]), 0),
               (2, "sotto", max(0.0, nodo.fondo2), min(nodo.HPiastra[1], base), 1))
    esito = {"SigPiastra2": 0.0, "margine": 0.0, "incerto": False, "strisce": {}}
    for k, nome, y1, y2, incastro in strisce:
        if y2 - y1 <= 0:
            continue
        y0 = y2 if incastro else y1                # built-in edge
        verso = -1.0 if incastro else 1.0          # lever arms grow away from the flange
        M, dM, contati = 0.0, [0.0, 0.0, 0.0], []
        for i in range(1, nodo.nBull + 1):
            braccio = (nodo.Ybull[i] - y0) * verso
            if braccio <= 0:
                continue
            sigma = valore(piano, nodo.Xbull[i], nodo.Ybull[i])
            spazio = margine(p, (nodo.Ybull[i], nodo.Xbull[i], 1.0))
            if abs(abs(sigma) - 0.5) <= spazio + 1e-9:
                esito["incerto"] = True
            # A bolt whose stress rounds to 0 daN/mm2 pulls nothing and is left out.
            if round(sigma) == 0:
                continue
            contati.append(i)
            A = area_resistente(nodo.Fibull[i])
            M -= A * sigma * braccio
            dM = [v - A * braccio * w for v, w in zip(dM, (nodo.Ybull[i], nodo.Xbull[i], 1.0))]
        M_bulloni = M
        striscia = semipiano([(-mezza, y1), (mezza, y1), (mezza, y2), (-mezza, y2)], piano)
        I = momenti(striscia)
        R = prodotto(I, piano)
        M -= verso * (R[0] - R[2] * y0)
        dM = [v - verso * (I[0][c] - I[2][c] * y0) for c, v in enumerate(dM)]
        sez = sezione_piastra(nodo, k)
        sigma = abs(M) * sez["per_M"]
        esito["strisce"][nome] = {"y1": y1, "y2": y2, "bulloni": contati, "M_bulloni": M_bulloni,
                                  "R1": R[0], "R3": R[2], "M": M, "sezione": sez, "sigma": sigma}
        esito["SigPiastra2"] = max(esito["SigPiastra2"], sigma)
        esito["margine"] = max(esito["margine"], margine(p, dM) * sez["per_M"])
    return esito


# --------------------------------------------------------------------------- limits and verdicts

def limiti_slu(nodo: Nodo) -> dict:
    """Design strengths of plates and welds (NTC 2018 4.2.8.2.4) [daN/cm2]."""
    acc, nome = nodo.acciaio, nodo.acciaio.Nome.upper()
    Beta1 = Beta2 = 0.0
    for cifre, b1, b2 in ((("235",), 0.85, 1.0), (("275", "355"), 0.7, 0.85),
                          (("420", "450", "460"), 0.62, 0.75)):
        if any(c in nome for c in cifre):
            Beta1, Beta2 = b1, b2
            break
    fd = {k: (acc.Fyk40 if nodo.SpPiastra[k] <= 40 else acc.Fyk80) / acc.GammaM for k in (1, 2)}
    return {"Beta1": Beta1, "Beta2": Beta2, "SLim1": Beta1 * acc.Fyk40, "SLim2": Beta2 * acc.Fyk40,
            "FdPiastra1": fd[1], "FdPiastra2": fd[2]}


def limiti_ta(nodo: Nodo, s: int) -> dict:
    """Allowable stresses of load set s (CNR 10011), case II with 1.125 [daN/cm2]."""
    acc = nodo.acciaio
    k = 1.125 if nodo.CasoCarico[s] != 0 else 1.0
    coeff = coefficiente_rifollamento(nodo, s)
    amm = {p: acc.Samm if nodo.SpPiastra[p] <= 40 else acc.Samm80 for p in (1, 2)}
    nome = acc.Nome.upper()
    b1, b2 = {"S 235 (FE 360)": (0.85, 1.0), "S 275 (FE 430)": (0.7, 0.85),
              "S 355 (FE 510)": (0.7, 0.85)}.get(nome, (None, None))
    a = acc.Samm * k
    return {"k": k, "CoeffBulloni": coeff, "SammPiastra1": amm[1], "SammPiastra2": amm[2],
            "a": a, "b1": b1, "b2": b2}


def coefficiente_rifollamento(nodo: Nodo, s: int) -> float:
    """Least edge distance over least hole, at most 2.5 (CNR 10011 5.3.4)."""
    q = nodo.fondo2
    numeri = range(1, nodo.nBull + 1)
    dY = min(min(abs(y), abs(y - nodo.HPiastra[1]), abs(y - q), abs(y - nodo.HPiastra[2] - q))
             for y in (nodo.Ybull[i] for i in numeri))
    dX = min(min(abs(x - e * nodo.BPiastra[k] / 2) for e in (-1, 1) for k in (1, 2))
             for x in (nodo.Xbull[i] for i in numeri))
    d = min(abs(nodo.foro(i)) for i in numeri)
    if abs(nodo.TaglioZ[s]) > 1e-4 or abs(nodo.MomTorc[s]) > 1e-4:
        dY = min(dY, dX)
    return min(dY / d, 2.5)


class Giudizio:
    """Collects comparisons and gives True, False, or None when a value is too near its limit."""

    def __init__(self):
        self.no = self.incerto = False

    def non_oltre(self, quanto: float, limite: float, spazio: float = 0.0) -> bool:
        spazio = spazio + STRETTA * max(abs(quanto), abs(limite), 1e-30)
        # Two exact zeros compare as they are.
        if abs(quanto - limite) <= spazio and not quanto == limite == 0.0:
            self.incerto = True
        elif quanto > limite:
            self.no = True
        return quanto <= limite

    @property
    def esito(self):
        return False if self.no else None if self.incerto else True


# --------------------------------------------------------------------------- the whole joint

def calcola(nodo: Nodo, metodo: str, lungh=None) -> dict:
    """Everything of one joint with metodo 'SLU' or 'TA'; lungh replaces the weld lengths.

    Keys are those of the program's own output; what only serves the comparison or the hand sheets
    stands under "intermedi" and "margini". Raises Interrotta when the verification cannot run.
    """
    if nodo.nBull <= 0:
        raise Interrotta("nessun bullone")
    guai = incoerenze(nodo)
    if guai:
        raise Interrotta("nodo incoerente: " + "; ".join(guai))
    slu = metodo == "SLU"
    numeri = range(1, nodo.nBull + 1)
    aree = [area_resistente(nodo.Fibull[i]) for i in numeri]
    lungh = lungh or lunghezze(nodo)
    contatto = contatto_di(nodo)
    XG, YG, Ip = baricentro(nodo)
    S1, S2 = gruppo_S1(nodo, lungh), gruppo_S2(nodo, lungh)
    res = resistenze(nodo)
    risultato = {"metodo": metodo, "interrotta": False, "verificato": True,
                 "LungSald": [float(lungh[j]) for j in range(1, 16)]}
    for nome in ("Fv_Rd", "Fb_Rd", "Ft_Rd", "Bp_Rd"):
        risultato[nome] = res[nome] if slu else []
    risultato["intermedi"] = {
        "TollForoBull": nodo.gioco, "yAsse": nodo.yAsse, "cima2": nodo.cima2,
        "distAzioni": nodo.distAzioni, "contatto": list(nodo.contatto), "AreaResistente": aree,
        "XG": XG, "YG": YG, "Ip": Ip, "BNerv3": nodo.BNerv[3], "SmussoNerv3": nodo.SmussoNerv[3],
        "S1": S1.proprieta, "S2": S2.proprieta,
        "piastra2": {k: sezione_piastra(nodo, k) for k in (1, 2)}}
    if slu:
        risultato["intermedi"].update({n: res[n] for n in ("k", "alfa", "posto_x", "posto_y")})
        risultato["intermedi"]["limiti"] = limiti_slu(nodo)
    risultato["sestetti"] = []
    for s in range(nodo.nSollAg):
        risultato["sestetti"].append(_sestetto(nodo, s, slu, contatto, (XG, YG, Ip), res, S1, S2, lungh))
    esiti = [q["verificato"] for q in risultato["sestetti"]]
    # Without load sets nothing is judged.
    risultato["verificato"] = False if False in esiti else None if None in esiti or not esiti else True
    return risultato


def _sestetto(nodo, s, slu, contatto, gruppo, res, S1, S2, lungh) -> dict:
    XG, YG, Ip = gruppo
    numeri = range(1, nodo.nBull + 1)
    aree = [area_resistente(nodo.Fibull[i]) for i in numeri]
    p = piano_nodo(nodo, contatto, s)
    Mtot, V = tagli(nodo, s, XG, YG, Ip)
    Fv = [math.hypot(*V[i]) for i in numeri]

    def sui_bulloni(piano):
        return [valore(piano, nodo.Xbull[i], nodo.Ybull[i]) for i in numeri]

    def sullo_spigolo(piano):
        return min([0.0] + [valore(piano, x, y) for x, y in contatto.vertici])

    sigma = sui_bulloni(p["piano"])
    m_sigma = [margine(p, (nodo.Ybull[i], nodo.Xbull[i], 1.0)) for i in numeri]
    m_sig = max(margine(p, (y, x, 1.0)) for x, y in contatto.vertici)
    piastra = flessione_piastra(nodo, contatto, p, p["piano"])
    ferma = flessione_piastra(nodo, contatto, p, p["piano_arresto"])
    S_prp, Tau_pa, Tau_pe, altro = tensioni_S1(nodo, s, S1, lungh, trasporta(nodo, s))
    aggiunta = tensioni_S2(nodo, s, S2, lungh, trasporta(nodo, s))
    for lista, nuovi in ((S_prp[0], aggiunta[0][0]), (S_prp[1], aggiunta[0][1]),
                         (Tau_pa, aggiunta[1]), (Tau_pe, aggiunta[2])):
        for j in range(30):
            lista[j] = (lista[j] + nuovi[j]) * CM2
    altro.update(aggiunta[3])

    q = {"NomeSa": nodo.NomeSa[s], "verificato": None, "Sigma": [v * CM2 for v in sigma],
         "Tau": [], "SigRifPias": [], "Fv_Ed": [], "Ft_Ed": [], "Co1": [], "Co2": [],
         "Sig": sullo_spigolo(p["piano"]) * CM2, "SigPiastra2": piastra["SigPiastra2"] * CM2,
         "S_prp": S_prp, "Tau_pa": Tau_pa, "Tau_pe": Tau_pe, "SEq1": [], "SEq2": []}
    margini = {"Sigma": [v * CM2 for v in m_sigma], "Sig": m_sig * CM2,
               "SigPiastra2": piastra["margine"] * CM2,
               "SigPiastra2_incerta": piastra["incerto"], "tol": p["tol"]}
    P = [max(abs(a), abs(b)) for a, b in zip(*S_prp)]
    g = Giudizio()
    if slu:
        q["Fv_Ed"] = Fv
        q["Ft_Ed"] = [a * v for a, v in zip(aree, sigma)]
        margini["Ft_Ed"] = [a * v for a, v in zip(aree, m_sigma)]
        margini["Co1"], margini["Co2"], grezzi = [], [], []
        for i in range(nodo.nBull):
            R = [res[n][i] for n in ("Fv_Rd", "Fb_Rd", "Ft_Rd", "Bp_Rd")]
            C = coefficienti(Fv[i], q["Ft_Ed"][i], *R)
            d = margini["Ft_Ed"][i] / min(R[2], R[3]) if min(R[2], R[3]) > 0 else 0.0
            if min(R) <= 0 and abs(q["Ft_Ed"][i]) <= margini["Ft_Ed"][i]:
                d = 100.0
            grezzi.append(C)
            # Shears that cancel leave 0 or a trace, and tension alone has another formula.
            traccia = Fv[i] < STRETTA and any((nodo.TaglioY[s], nodo.TaglioZ[s], nodo.MomTorc[s]))
            gemello = coefficienti(0.0 if Fv[i] > 0 else 1e-30, q["Ft_Ed"][i], *R) if traccia else C
            for nome, c, c2 in zip(("Co1", "Co2"), C, gemello):
                q[nome].append(round(c, 2))
                dove = [round(min(c, c2) - d - STRETTA * c, 2), round(max(c, c2) + d + STRETTA * c, 2)]
                margini[nome].append(dove)
                if dove[0] <= 1.0 < dove[1]:
                    g.incerto = True
                elif q[nome][-1] > 1.0:
                    g.no = True
        L = limiti_slu(nodo)
        g.non_oltre(abs(q["Sig"]), L["FdPiastra1"], margini["Sig"])
        g.non_oltre(q["SigPiastra2"], L["FdPiastra2"], margini["SigPiastra2"])
        q["SEq1"] = [math.sqrt(a * a + b * b + c * c) for a, b, c in zip(P, Tau_pa, Tau_pe)]
        q["SEq2"] = [a + abs(c) for a, c in zip(P, Tau_pe)]
        for j in range(1, 16):
            for m in (j - 1, j + 14):
                if lungh[j] > 1e-4:
                    g.non_oltre(q["SEq1"][m], L["SLim1"])
                    g.non_oltre(q["SEq2"][m], L["SLim2"])
        altro["Co_grezzi"] = grezzi
    else:
        q["Tau"] = [v / a * CM2 for v, a in zip(Fv, aree)]
        q["SigRifPias"] = [[abs(v) / nodo.Fibull[i] / nodo.SpPiastra[k] * CM2 for k in (1, 2)]
                           for i, v in zip(numeri, Fv)]
        L = limiti_ta(nodo, s)
        altro["limiti"], altro["Coeff"] = L, []
        vite, k = nodo.vite, L["k"]
        for i in range(nodo.nBull):
            def coeff(sig):
                return (sig / vite.SammVite / k) ** 2 + (q["Tau"][i] / vite.TauAmmVite / k) ** 2
            altro["Coeff"].append(coeff(q["Sigma"][i]))
            estremi = [abs(q["Sigma"][i]) + e * margini["Sigma"][i] for e in (-1, 1)]
            dove = [round(coeff(max(0.0, v)) * (1 + e * STRETTA), 2) for v, e in zip(estremi, (-1, 1))]
            if dove[0] <= 1.0 < dove[1]:
                g.incerto = True
            elif round(altro["Coeff"][-1], 2) > 1.0:
                g.no = True
            for n in (1, 2):
                g.non_oltre(q["SigRifPias"][i][n - 1], L[f"SammPiastra{n}"] * k * L["CoeffBulloni"])
        g.non_oltre(abs(q["Sig"]), L["SammPiastra1"] * k, margini["Sig"])
        g.non_oltre(q["SigPiastra2"], L["SammPiastra2"] * k, margini["SigPiastra2"])
        for j in range(1, 16):
            for m in (j - 1, j + 14):
                if lungh[j] <= 1e-4:
                    continue
                if L["b1"] is None:
                    g.no = True
                    continue
                g.non_oltre(math.sqrt(P[m] ** 2 + Tau_pa[m] ** 2 + Tau_pe[m] ** 2), L["b1"] * L["a"])
                g.non_oltre(P[m] + abs(Tau_pe[m]), L["b2"] * L["a"])
                g.non_oltre(P[m], L["b1"] * L["a"])
                # The two shears are compared with their sign: a negative one always passes.
                g.non_oltre(Tau_pa[m], L["b1"] * L["a"])
                g.non_oltre(Tau_pe[m], L["b1"] * L["a"])
    if piastra["incerto"]:
        g.incerto = True
    q["verificato"] = g.esito
    q["margini"] = margini
    q["intermedi"] = {
        "trasporta": p["trasporta"], "M1": p["M1"], "M2": p["M2"], "carico": p["f"],
        "piano": p["piano"], "resto": p["resto"], "matrice": p["matrice"],
        "compresso": p["compresso"], "Mtot": Mtot,
        "V": [list(V[i]) for i in numeri], "strisce": piastra["strisce"],
        "arresto": {"piano": p["piano_arresto"], "incerto": p["arresto_incerto"],
                    "pendenza": p["pendenza"],
                    "Sigma": [v * CM2 for v in sui_bulloni(p["piano_arresto"])],
                    "Sig": sullo_spigolo(p["piano_arresto"]) * CM2,
                    "SigPiastra2": ferma["SigPiastra2"] * CM2}, **altro}
    return q
