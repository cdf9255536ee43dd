#!/usr/bin/env python3
"""Writes the stroke font installazione/progra/font.001.

Format of the file, in Windows-1252:
  line 1     percentage by which a glyph is narrowed inside its cell
  each line  the character, then for every stroke X1 Y1 X2 Y2, two digits each

The grid goes from 0 to 99 both ways. The base line is Y = 30 and capitals reach Y = 99, so that the
height given to a text is the height of its capitals. Lower case letters reach Y = 77; what hangs
below the base line stops at Y = 6. Capitals with an accent are lowered to leave it room.

The character ] draws the sign of a diameter, because drawings write hole diameters with it.

Usage:
  genera_font.py [-o FILE] [--campione FILE.svg]
"""

import argparse
import math
import pathlib

SPAZIATURA = 16
BASE, ALTO, XALTO, BASSO = 30, 99, 77, 6
MASSIMO_TRATTI = 50
NON_ASSEGNATI = (127, 129, 141, 143, 144, 157)

# ---------------------------------------------------------------- drawing pieces
# A glyph is a list of polylines, a polyline a list of points.


def linea(*numeri):
    """The polyline through the points given as x1, y1, x2, y2, ..."""
    return list(zip(numeri[0::2], numeri[1::2]))


def arco(cx, cy, rx, ry, inizio, fine, n):
    """n chords of an ellipse; angles in degrees, clockwise when fine is below inizio."""
    punti = []
    for k in range(n + 1):
        a = math.radians(inizio + (fine - inizio) * k / n)
        punti.append((cx + rx * math.cos(a), cy + ry * math.sin(a)))
    return punti


def ovale(cx, cy, rx, ry, n=16):
    return arco(cx, cy, rx, ry, 90, 450, n)


def punto(x, y, rx=6, ry=3):
    """A dot: a small square once the cell is drawn, since the pen has no width of its own."""
    return linea(x - rx, y - ry, x - rx, y + ry, x + rx, y + ry, x + rx, y - ry, x - rx, y - ry)


def trasforma(glifo, sx=1.0, sy=1.0, dx=0.0, dy=0.0):
    """Scales about the left end of the base line, then moves."""
    return [[(x * sx + dx, BASE + (y - BASE) * sy + dy) for x, y in p] for p in glifo]


def ruota(glifo, cx, cy):
    """Half a turn about (cx, cy)."""
    return [[(2 * cx - x, 2 * cy - y) for x, y in p] for p in glifo]


def specchia(glifo, cx):
    return [[(2 * cx - x, y) for x, y in p] for p in glifo]


# ---------------------------------------------------------------- letters and figures


def maiuscole():
    g = {}
    g["A"] = [linea(4, 30, 49.5, 99, 95, 30), linea(20, 54, 79, 54)]
    g["B"] = [
        linea(8, 67, 8, 99, 56, 99) + arco(56, 83, 29, 16, 90, -90, 6)[1:] + linea(8, 67),
        linea(56, 67) + arco(57, 48.5, 35, 18.5, 90, -90, 7) + linea(8, 30, 8, 67),
    ]
    g["C"] = [arco(52, 64.5, 45, 34.5, 42, 318, 16)]
    g["D"] = [linea(8, 30, 8, 99, 42, 99) + arco(42, 64.5, 50, 34.5, 90, -90, 10) + linea(8, 30)]
    g["E"] = [linea(89, 99, 8, 99, 8, 30, 89, 30), linea(8, 66, 72, 66)]
    g["F"] = [linea(89, 99, 8, 99, 8, 30), linea(8, 66, 72, 66)]
    g["G"] = [arco(51, 64.5, 45, 34.5, 42, 300, 15) + linea(93, 44, 93, 62, 58, 62)]
    g["H"] = [linea(8, 30, 8, 99), linea(91, 30, 91, 99), linea(8, 66, 91, 66)]
    g["I"] = [linea(49.5, 30, 49.5, 99), linea(30, 30, 69, 30), linea(30, 99, 69, 99)]
    g["J"] = [linea(46, 99, 84, 99), linea(76, 99, 76, 52) + arco(43, 52, 33, 22, 0, -160, 9)[1:]]
    g["K"] = [linea(8, 30, 8, 99), linea(90, 99, 8, 55), linea(35, 70, 92, 30)]
    g["L"] = [linea(10, 99, 10, 30, 88, 30)]
    g["M"] = [linea(4, 30, 4, 99, 49.5, 48, 95, 99, 95, 30)]
    g["N"] = [linea(8, 30, 8, 99, 91, 30, 91, 99)]
    g["O"] = [ovale(49.5, 64.5, 45, 34.5, 20)]
    g["P"] = [linea(8, 30, 8, 99, 58, 99) + arco(58, 80.5, 33, 18.5, 90, -90, 7)[1:] + linea(8, 62)]
    g["Q"] = g["O"] + [linea(60, 52, 95, 24)]
    g["R"] = g["P"] + [linea(50, 62, 92, 30)]
    g["S"] = [
        arco(49, 82, 40, 17, 28, 270, 10) + arco(49, 47.5, 43, 17.5, 90, -152, 10)[1:],
    ]
    g["T"] = [linea(5, 99, 94, 99), linea(49.5, 99, 49.5, 30)]
    g["U"] = [linea(8, 99, 8, 57) + arco(49.5, 57, 41.5, 27, 180, 360, 10)[1:] + linea(91, 99)]
    g["V"] = [linea(4, 99, 49.5, 30, 95, 99)]
    g["W"] = [linea(2, 99, 25, 30, 49.5, 84, 74, 30, 97, 99)]
    g["X"] = [linea(6, 99, 93, 30), linea(6, 30, 93, 99)]
    g["Y"] = [linea(5, 99, 49.5, 62, 94, 99), linea(49.5, 62, 49.5, 30)]
    g["Z"] = [linea(8, 99, 91, 99, 8, 30, 91, 30)]
    return g


def minuscole():
    cy, ry = (BASE + XALTO) / 2, (XALTO - BASE) / 2
    g = {}
    g["a"] = [ovale(47, cy, 37, ry, 16), linea(84, 77, 84, 30)]
    g["b"] = [linea(13, 99, 13, 30), ovale(51, cy, 38, ry, 16)]
    g["c"] = [arco(51, cy, 39, ry, 45, 315, 12)]
    g["d"] = [linea(86, 99, 86, 30), ovale(48, cy, 38, ry, 16)]
    g["e"] = [linea(11, 54, 88, 54) + arco(49.5, cy, 38.5, ry, 0, 318, 14)[1:]]
    g["f"] = [linea(42, 30, 42, 83) + arco(64, 83, 22, 16, 180, 50, 6)[1:], linea(16, 77, 74, 77)]
    g["g"] = [
        ovale(47, cy, 37, ry, 16),
        linea(84, 77, 84, 22) + arco(49, 22, 35, 16, 0, -150, 7)[1:],
    ]
    g["h"] = [linea(13, 99, 13, 30), arco(49.5, 57, 36.5, 20, 180, 0, 8) + linea(86, 30)]
    g["ı"] = [linea(30, 77, 50, 77, 50, 30)]
    g["i"] = g["ı"] + [punto(50, 93)]
    g["j"] = [linea(38, 77, 58, 77, 58, 20) + arco(34, 20, 24, 14, 0, -130, 5)[1:], punto(58, 93)]
    g["k"] = [linea(14, 30, 14, 99), linea(82, 77, 14, 48), linea(40, 59, 86, 30)]
    g["l"] = [linea(40, 99, 40, 44) + arco(58, 44, 18, 14, 180, 300, 4)[1:]]
    g["m"] = [
        linea(5, 77, 5, 30),
        arco(27.5, 60, 22.5, 17, 180, 0, 6) + linea(50, 30),
        arco(72.5, 60, 22.5, 17, 180, 0, 6) + linea(95, 30),
    ]
    g["n"] = [linea(13, 77, 13, 30), arco(49.5, 57, 36.5, 20, 180, 0, 8) + linea(86, 30)]
    g["o"] = [ovale(49.5, cy, 39, ry, 16)]
    g["p"] = [linea(13, 77, 13, 6), ovale(51, cy, 38, ry, 16)]
    g["q"] = [linea(86, 77, 86, 6), ovale(48, cy, 38, ry, 16)]
    g["r"] = [linea(20, 77, 20, 30), arco(56, 54, 36, 23, 180, 55, 6)]
    g["s"] = [arco(49, 65.5, 35, 11.5, 25, 270, 8) + arco(49, 42, 38, 12, 90, -155, 8)[1:]]
    g["t"] = [linea(44, 97, 44, 46) + arco(64, 46, 20, 16, 180, 305, 5)[1:], linea(18, 77, 76, 77)]
    g["u"] = [
        linea(13, 77, 13, 50) + arco(49.5, 50, 36.5, 20, 180, 360, 8)[1:],
        linea(86, 77, 86, 30),
    ]
    g["v"] = [linea(9, 77, 49.5, 30, 90, 77)]
    g["w"] = [linea(4, 77, 26, 30, 49.5, 68, 73, 30, 95, 77)]
    g["x"] = [linea(11, 77, 88, 30), linea(11, 30, 88, 77)]
    g["y"] = [linea(9, 77, 49.5, 30), linea(90, 77, 29, 6)]
    g["z"] = [linea(13, 77, 86, 77, 13, 30, 86, 30)]
    return g


def cifre():
    g = {}
    g["0"] = [ovale(49.5, 64.5, 36, 34.5, 18)]
    g["1"] = [linea(24, 84, 54, 99, 54, 30)]
    g["2"] = [arco(49, 78, 38, 21, 160, -28, 9) + linea(10, 30, 90, 30)]
    g["3"] = [arco(47, 83, 35, 16, 150, -90, 9) + arco(47, 48.5, 41, 18.5, 90, -152, 10)[1:]]
    g["4"] = [linea(68, 30, 68, 99, 8, 49, 92, 49)]
    g["5"] = [linea(84, 99, 20, 99, 15, 68) + arco(46, 53, 44, 23, 135, -150, 12)[1:]]
    g["6"] = [ovale(50, 51.5, 40, 21.5, 16), arco(88, 51.5, 78, 47.5, 96, 180, 6)]
    g["7"] = [linea(8, 99, 91, 99, 38, 30)]
    g["8"] = [ovale(49.5, 83, 33, 16, 14), ovale(49.5, 48.5, 40, 18.5, 16)]
    g["9"] = ruota(g["6"], 49.5, 64.5)
    return g


# ---------------------------------------------------------------- accents
# Drawn between Y = 83 and Y = 99, centred on X = 49.5.

ACCENTI = {
    "grave": [linea(34, 98, 60, 85)],
    "acuto": [linea(39, 85, 65, 98)],
    "circonflesso": [linea(28, 85, 49.5, 98, 71, 85)],
    "tilde": [linea(22, 86, 28, 93, 37, 95, 46, 92, 54, 89, 63, 87, 71, 90, 77, 97)],
    "dieresi": [punto(30, 92), punto(69, 92)],
    "anello": [ovale(49.5, 91, 16, 8, 12)],
    "pipetta": [linea(28, 98, 49.5, 85, 71, 98)],
    "cediglia": [linea(50, 30, 46, 22, 56, 21, 62, 16, 60, 9, 52, 6, 40, 8)],
}

COMPOSTI = {
    "grave": {"À": "A", "È": "E", "Ì": "I", "Ò": "O", "Ù": "U",
              "à": "a", "è": "e", "ì": "ı", "ò": "o", "ù": "u"},
    "acuto": {"Á": "A", "É": "E", "Í": "I", "Ó": "O", "Ú": "U", "Ý": "Y",
              "á": "a", "é": "e", "í": "ı", "ó": "o", "ú": "u", "ý": "y"},
    "circonflesso": {"Â": "A", "Ê": "E", "Î": "I", "Ô": "O", "Û": "U",
                     "â": "a", "ê": "e", "î": "ı", "ô": "o", "û": "u"},
    "tilde": {"Ã": "A", "Ñ": "N", "Õ": "O", "ã": "a", "ñ": "n", "õ": "o"},
    "dieresi": {"Ä": "A", "Ë": "E", "Ï": "I", "Ö": "O", "Ü": "U", "Ÿ": "Y",
                "ä": "a", "ë": "e", "ï": "ı", "ö": "o", "ü": "u", "ÿ": "y"},
    "anello": {"Å": "A", "å": "a"},
    "pipetta": {"Š": "S", "Ž": "Z", "š": "s", "ž": "z"},
    "cediglia": {"Ç": "C", "ç": "c"},
}


def accentate(g):
    ridotta = 49 / 69  # a capital that ends at Y = 79, under its accent
    for accento, lettere in COMPOSTI.items():
        for composta, base in lettere.items():
            corpo = g[base]
            if accento != "cediglia" and base.isupper():
                corpo = trasforma(corpo, sy=ridotta)
            g[composta] = corpo + ACCENTI[accento]


# ---------------------------------------------------------------- everything else


def segni(g):
    def apice(c):
        return trasforma(g[c], sx=0.6, sy=0.55, dx=18, dy=31)

    g[" "] = g["\xa0"] = []
    g["!"] = [linea(49.5, 99, 49.5, 52), punto(49.5, 33)]
    g['"'] = [linea(34, 99, 34, 80), linea(65, 99, 65, 80)]
    g["#"] = [linea(28, 34, 40, 95), linea(59, 34, 71, 95), linea(12, 76, 92, 76), linea(7, 53, 87, 53)]
    g["$"] = trasforma(g["S"], sx=0.9, sy=0.8, dx=5, dy=7) + [linea(49.5, 99, 49.5, 30)]
    g["%"] = [linea(12, 30, 87, 99), ovale(23, 87, 21, 12, 10), ovale(76, 42, 21, 12, 10)]
    g["&"] = [
        linea(92, 30, 30, 76) + arco(46, 86, 19, 13, 210, -30, 8)
        + linea(28, 63) + arco(36, 47, 30, 17, 130, 290, 7)[1:] + linea(72, 42, 86, 62)
    ]
    g["'"] = [linea(49.5, 99, 49.5, 80)]
    g["("] = [arco(88, 58, 52, 44, 115, 245, 8)]
    g[")"] = specchia(g["("], 49.5)
    g["*"] = [linea(49.5, 90, 49.5, 50), linea(26, 81, 73, 59), linea(26, 59, 73, 81)]
    g["+"] = [linea(12, 62, 87, 62), linea(49.5, 88, 49.5, 36)]
    g[","] = [linea(54, 37, 50, 26, 42, 17)]
    g["-"] = [linea(22, 62, 77, 62)]
    g["."] = [punto(49.5, 33)]
    g["/"] = [linea(16, 20, 83, 99)]
    g[":"] = [punto(49.5, 69), punto(49.5, 37)]
    g[";"] = [punto(49.5, 69), linea(54, 41, 50, 28, 42, 19)]
    g["<"] = [linea(86, 88, 14, 62, 86, 36)]
    g["="] = [linea(14, 72, 85, 72), linea(14, 52, 85, 52)]
    g[">"] = specchia(g["<"], 49.5)
    g["?"] = [arco(49.5, 80, 34, 19, 165, -40, 9) + linea(49.5, 60, 49.5, 50), punto(49.5, 33)]
    g["@"] = [
        ovale(50, 62, 17, 15, 10),
        linea(67, 77, 67, 54) + arco(81, 54, 14, 10, 180, 360, 5)[1:] + linea(95, 64)
        + arco(50, 64, 45, 34, 0, 315, 16)[1:],
    ]
    g["["] = [linea(68, 99, 36, 99, 36, 18, 68, 18)]
    g["]"] = [ovale(49.5, 64.5, 47, 22, 20), linea(8, 32, 91, 97)]
    g["\\"] = specchia(g["/"], 49.5)
    g["^"] = [linea(18, 72, 49.5, 97, 81, 72)]
    g["_"] = [linea(0, 16, 99, 16)]
    g["`"] = ACCENTI["grave"]
    g["{"] = [linea(72, 99, 60, 98, 52, 91, 50, 82, 50, 70, 46, 62, 34, 58, 46, 54, 50, 46, 50, 35,
                    52, 26, 60, 19, 72, 18)]
    g["|"] = [linea(49.5, 99, 49.5, 14)]
    g["}"] = specchia(g["{"], 51)
    g["~"] = [linea(12, 58, 18, 66, 28, 70, 38, 68, 61, 56, 71, 54, 81, 58, 87, 66)]

    g["€"] = [arco(60, 64.5, 38, 34.5, 45, 315, 14), linea(6, 72, 72, 72), linea(6, 57, 66, 57)]
    g["‚"] = g[","]
    g["ƒ"] = [
        arco(74, 82, 20, 17, 40, 170, 6) + linea(40, 24) + arco(20, 24, 20, 16, 0, -110, 5)[1:],
        linea(22, 68, 76, 68),
    ]
    g["„"] = [linea(38, 37, 34, 26, 26, 17), linea(70, 37, 66, 26, 58, 17)]
    g["…"] = [punto(14, 33), punto(49.5, 33), punto(85, 33)]
    g["†"] = [linea(49.5, 99, 49.5, 20), linea(20, 76, 79, 76)]
    g["‡"] = [linea(49.5, 99, 49.5, 20), linea(20, 78, 79, 78), linea(20, 42, 79, 42)]
    g["ˆ"] = ACCENTI["circonflesso"]
    g["‰"] = [
        linea(6, 30, 68, 99), ovale(18, 88, 16, 11, 10), ovale(49, 41, 15, 11, 10), ovale(83, 41, 15, 11, 10)
    ]
    g["‹"] = [linea(64, 76, 36, 57, 64, 38)]
    g["›"] = specchia(g["‹"], 49.5)
    g["Œ"] = [
        linea(95, 99, 42, 99) + arco(42, 64.5, 38, 34.5, 90, 270, 11)[1:] + linea(95, 30),
        linea(56, 99, 56, 30), linea(56, 66, 88, 66),
    ]
    g["‘"] = [linea(56, 98, 48, 90, 44, 80)]
    g["’"] = [linea(55, 99, 51, 89, 43, 81)]
    g["“"] = [linea(40, 98, 32, 90, 28, 80), linea(72, 98, 64, 90, 60, 80)]
    g["”"] = [linea(39, 99, 35, 89, 27, 81), linea(71, 99, 67, 89, 59, 81)]
    g["•"] = [ovale(49.5, 62, 22, 10, 12), ovale(49.5, 62, 11, 5, 8)]
    g["–"] = [linea(10, 62, 89, 62)]
    g["—"] = [linea(0, 62, 99, 62)]
    g["˜"] = ACCENTI["tilde"]
    g["™"] = [linea(2, 99, 42, 99), linea(22, 99, 22, 66), linea(52, 66, 52, 99, 74, 78, 96, 99, 96, 66)]
    g["œ"] = [
        ovale(28, 53.5, 23, 23.5, 14),
        linea(51, 54, 97, 54) + arco(74, 53.5, 23, 23.5, 0, 310, 12)[1:],
    ]

    g["¡"] = [punto(49.5, 73), linea(49.5, 57, 49.5, 10)]
    g["¢"] = trasforma(g["c"], dy=4) + [linea(51, 92, 51, 22)]
    g["£"] = [
        arco(62, 80, 26, 19, 30, 180, 7) + linea(36, 52) + linea(34, 42, 28, 34, 18, 30, 90, 30),
        linea(14, 60, 72, 60),
    ]
    g["¤"] = [ovale(49.5, 62, 30, 15, 14), linea(12, 81, 28, 73), linea(87, 81, 71, 73),
              linea(12, 43, 28, 51), linea(87, 43, 71, 51)]
    g["¥"] = [linea(5, 99, 49.5, 64, 94, 99), linea(49.5, 64, 49.5, 30), linea(18, 60, 81, 60),
              linea(18, 46, 81, 46)]
    g["¦"] = [linea(49.5, 99, 49.5, 66), linea(49.5, 48, 49.5, 14)]
    s_alta = trasforma(g["S"], sx=0.68, sy=0.62, dx=16, dy=26)
    g["§"] = s_alta + ruota(s_alta, 49.5, 57)
    g["¨"] = ACCENTI["dieresi"]
    g["©"] = [ovale(49.5, 64.5, 49, 26, 20), arco(51, 64.5, 24, 14, 45, 315, 10)]
    g["ª"] = trasforma(g["a"], sx=0.6, sy=0.6, dx=20, dy=40) + [linea(22, 58, 77, 58)]
    g["«"] = [linea(48, 76, 20, 57, 48, 38), linea(80, 76, 52, 57, 80, 38)]
    g["»"] = specchia(g["«"], 49.5)
    g["¬"] = [linea(12, 68, 87, 68, 87, 46)]
    g["\xad"] = g["-"]
    g["®"] = [ovale(49.5, 64.5, 49, 26, 20),
              linea(34, 50, 34, 79, 54, 79) + arco(54, 72, 14, 7, 90, -90, 5)[1:] + linea(34, 65),
              linea(52, 65, 68, 50)]
    g["¯"] = [linea(20, 92, 79, 92)]
    g["°"] = [ovale(49.5, 86, 26, 12, 14)]
    g["±"] = [linea(14, 70, 85, 70), linea(49.5, 93, 49.5, 47), linea(14, 34, 85, 34)]
    g["²"], g["³"], g["¹"] = apice("2"), apice("3"), apice("1")
    g["´"] = ACCENTI["acuto"]
    g["µ"] = [linea(13, 77, 13, 8), linea(13, 50) + arco(46, 50, 33, 20, 180, 360, 8)[1:],
              linea(79, 77, 79, 40, 82, 33, 90, 30)]
    g["¶"] = [linea(84, 99, 40, 99) + arco(40, 80, 30, 19, 90, 270, 8)[1:] + linea(54, 61),
              linea(54, 99, 54, 18), linea(76, 99, 76, 18)]
    g["·"] = [punto(49.5, 62)]
    g["¸"] = ACCENTI["cediglia"]
    g["º"] = trasforma(g["o"], sx=0.6, sy=0.6, dx=20, dy=40) + [linea(22, 58, 77, 58)]
    uno = trasforma(g["1"], sx=0.42, sy=0.44, dx=0, dy=39)
    barra = [linea(16, 30, 83, 99)]
    due = trasforma(g["2"], sx=0.42, sy=0.44, dx=56)
    quattro = trasforma(g["4"], sx=0.45, sy=0.44, dx=54)
    g["¼"] = uno + barra + quattro
    g["½"] = uno + barra + due
    g["¾"] = trasforma(g["3"], sx=0.42, sy=0.44, dx=0, dy=39) + barra + quattro
    g["¿"] = ruota(g["?"], 49.5, 54.5)
    g["Æ"] = [linea(2, 30, 46, 99, 97, 99), linea(52, 99, 52, 30, 97, 30), linea(17, 54, 52, 54),
              linea(52, 66, 86, 66)]
    g["Ð"] = g["D"] + [linea(0, 66, 44, 66)]
    g["×"] = [linea(16, 80, 83, 44), linea(16, 44, 83, 80)]
    g["Ø"] = g["O"] + [linea(8, 26, 91, 99)]
    g["Þ"] = [linea(8, 30, 8, 99),
              linea(8, 84, 56, 84) + arco(56, 66, 34, 18, 90, -90, 7)[1:] + linea(8, 48)]
    g["ß"] = [linea(14, 30, 14, 80) + arco(44, 80, 30, 19, 180, 0, 8)[1:]
              + linea(68, 70, 50, 65) + arco(52, 47.5, 36, 17.5, 90, -120, 8)[1:]]
    g["æ"] = [ovale(28, 43, 23, 13, 12),
              arco(29, 65, 22, 12, 150, 0, 6) + linea(51, 43),
              linea(51, 54, 97, 54) + arco(74, 53.5, 23, 23.5, 0, 310, 12)[1:]]
    g["ð"] = [ovale(49.5, 51, 39, 21, 16), linea(88, 52, 80, 74, 64, 88, 44, 97), linea(40, 80, 78, 97)]
    g["÷"] = [linea(12, 62, 87, 62), punto(49.5, 82), punto(49.5, 42)]
    g["ø"] = g["o"] + [linea(10, 26, 89, 81)]
    g["þ"] = [linea(13, 99, 13, 6), ovale(51, 53.5, 38, 23.5, 16)]


def componi():
    g = {}
    g.update(maiuscole())
    g.update(minuscole())
    g.update(cifre())
    accentate(g)
    segni(g)
    return g


# ---------------------------------------------------------------- output


def tratti(glifo):
    """Strokes on the grid, those that vanish in rounding left out."""
    elenco = []
    for p in glifo:
        punti = [(math.floor(x + 0.5), math.floor(y + 0.5)) for x, y in p]
        for a, b in zip(punti, punti[1:]):
            if a != b:
                elenco.append((*a, *b))
    return elenco


def codici():
    return [c for c in range(32, 256) if c not in NON_ASSEGNATI]


def scrivi(percorso, glifi):
    righe = [str(SPAZIATURA).encode("ascii")]
    for codice in codici():
        byte = bytes([codice])
        elenco = tratti(glifi[byte.decode("cp1252")])
        if len(elenco) > MASSIMO_TRATTI:
            raise SystemExit(f"codice {codice}: {len(elenco)} tratti, al massimo {MASSIMO_TRATTI}")
        numeri = [n for t in elenco for n in t]
        if any(not 0 <= n <= 99 for n in numeri):
            raise SystemExit(f"codice {codice}: punto fuori dalla griglia")
        righe.append(byte + "".join(f"{n:02d}" for n in numeri).encode("ascii"))
    percorso.write_bytes(b"\n".join(righe) + b"\n")


def campione(percorso, glifi, larghezza=28, altezza=40):
    """A sheet with every glyph in its cell, to look at."""
    colonne, passo_x, passo_y = 16, larghezza + 20, altezza * 2
    fx = larghezza / 99 * (1 - SPAZIATURA / 100)
    fy = altezza / (ALTO - BASE)
    righe = []
    for k, codice in enumerate(codici()):
        x0 = 20 + k % colonne * passo_x
        y0 = altezza * 1.5 + k // colonne * passo_y
        righe.append(f'<path stroke="#cde" d="M{x0:.1f} {y0:.1f}h{larghezza}'
                     f'M{x0:.1f} {y0 - altezza:.1f}h{larghezza}"/>')
        d = "".join(f"M{x0 + x1 * fx:.2f} {y0 - (y1 - BASE) * fy:.2f}"
                    f"L{x0 + x2 * fx:.2f} {y0 - (y2 - BASE) * fy:.2f}"
                    for x1, y1, x2, y2 in tratti(glifi[bytes([codice]).decode("cp1252")]))
        if d:
            righe.append(f'<path stroke="#000" d="{d}"/>')
    larga = 40 + colonne * passo_x
    alta = altezza * 2 + (len(codici()) + colonne - 1) // colonne * passo_y
    percorso.write_text(
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{larga}" height="{alta}">'
        '<rect width="100%" height="100%" fill="#fff"/>'
        '<g fill="none" stroke-width="1.6" stroke-linecap="round" stroke-linejoin="round">'
        + "\n".join(righe) + "</g></svg>\n", encoding="utf-8")


def main():
    radice = pathlib.Path(__file__).resolve().parent.parent
    opzioni = argparse.ArgumentParser(description="Scrive il font a tratti.")
    opzioni.add_argument("-o", type=pathlib.Path, metavar="FILE",
                         default=radice / "installazione" / "progra" / "font.001")
    opzioni.add_argument("--campione", type=pathlib.Path, metavar="FILE.svg")
    scelte = opzioni.parse_args()
    glifi = componi()
    scrivi(scelte.o, glifi)
    if scelte.campione:
        campione(scelte.campione, glifi)


if __name__ == "__main__":
    main()
